// Where a viewer gets its photos from: list, detail, files.
#pragma once

#include "services/PicRecords.h"
#include "viewers/GalleryItem.h"

#include <QString>

#include <optional>
#include <vector>

namespace gallery {

/// One photo as it is listed.
struct PhotoEntry {
    qint32 picId = 0; ///< 0 where photos have no number of their own
    qint32 kind = 0;
    QString picUuid;
    QString audioUuid; ///< empty: no voice note
};

/// What is said of one photo.
struct PhotoDetail {
    QString name;
    QString markName;
    QString posText;      ///< empty: no position
    qint32 markColor = 0; ///< 0xBBGGRR
    QString uploader;
    QString uploadTime;
    QString updater; ///< empty, as the time, for a photo that was never changed
    QString updateTime;
    QString description;
    std::vector<KX_DATA::LabelEntry> labels;
};

/// The photos of one place, record or list. Asks the services, which may fail and may let other
/// events be handled meanwhile. Shows nothing. Thread: user interface; blocks it.
class IPhotoSource {
public:
    virtual ~IPhotoSource() = default;

    /// The photos in the order in which they are shown, maybe none; nothing: they can't be listed.
    [[nodiscard]] virtual std::optional<std::vector<PhotoEntry>> List() = 0;
    /// Nothing: it can't be fetched.
    [[nodiscard]] virtual std::optional<PhotoDetail> Detail(const PhotoEntry& photo) = 0;
    /// Where picture and note of each photo lie or will lie on this machine, in the same order.
    [[nodiscard]] virtual std::vector<GalleryItem> Files(const std::vector<PhotoEntry>& photos) = 0;
};

/// Index of the wanted photo, the last one of its id; 0 for one that isn't in the list, and for -1.
[[nodiscard]] int IndexOfPhoto(const std::vector<PhotoEntry>& photos, qint32 wantedPicId);

/// A photo's files in a folder, none of them fetched.
[[nodiscard]] GalleryItem FilesOf(const PhotoEntry& photo, const QString& folder);

} // namespace gallery
