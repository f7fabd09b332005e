// A data folder with photos, and galleries on the client's own services over it.
#pragma once

#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "tests/viewers/gallery_program/FolderGallery.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace support {

/// A signed-in session with an open project. The module's workers must be joined after it ends.
class GallerySite final {
public:
    /// Makes the data folder.
    explicit GallerySite(const QString& folder);
    ~GallerySite() { EndSession(); }
    GallerySite(const GallerySite&) = delete;
    GallerySite& operator=(const GallerySite&) = delete;

    /// Files a photo, and a note unless it is empty. Gives its place in Items().
    int AddPhoto(const QByteArray& picture, const QByteArray& note = {});
    /// All photos as a viewer shows them, with their files in the project's cache folder.
    [[nodiscard]] std::vector<GalleryItem> Items();
    [[nodiscard]] QString CacheFolder();
    /// Names of all files in the cache, hidden ones too.
    [[nodiscard]] QStringList Cached();
    /// Overwrites the first bytes of a stored file.
    void Damage(const QString& uuid);

    void BeginSession();
    void EndSession();

    std::unique_ptr<host::HostSession> session;

private:
    std::unique_ptr<host::Serving> m_serving;
    qint32 m_ppid = 0;
    std::vector<qint32> m_photos;
};

} // namespace support
