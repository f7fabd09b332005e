// The big pictures that a gallery showed last or is about to show.
#pragma once

#include "viewers/DecodeJob.h"

#include <QDateTime>
#include <QSize>
#include <QString>

#include <list>
#include <memory>

namespace gallery {

/// Names a rendering: a file as it is now, at a size in device pixels.
struct PictureKey {
    QString path;
    QSize size;
    QDateTime modified;
    qint64 bytes = 0;
    bool operator==(const PictureKey&) const = default;
};
[[nodiscard]] PictureKey KeyOf(const QString& path, const QSize& size);

/// Holds few pictures, the oldest goes first; memory follows the size on the screen.
/// Thread: user interface. Owned by its gallery.
class PictureCache final {
public:
    PictureCache() = default;
    ~PictureCache() { Clear(); }
    PictureCache(const PictureCache&) = delete;
    PictureCache& operator=(const PictureCache&) = delete;

    /// The whole picture at a size; decodes it now unless it is there or on its way. Null if it
    /// can't be decoded.
    [[nodiscard]] QImage Get(const QString& path, const QSize& size);
    /// A finished rendering of the file as it is now, of any size; null without one.
    [[nodiscard]] QImage Find(const QString& path) const;
    /// Has the picture decoded by a thread that has time.
    void Prepare(const QString& path, const QSize& size);
    /// Gives up all that is on its way for other files than this.
    void GiveUpOthers(const QString& path);
    void Clear();

private:
    struct Entry {
        PictureKey key;
        std::shared_ptr<DecodeJob> job;
    };

    /// The entry, moved to the front; made if there is none.
    [[nodiscard]] Entry& Touch(const PictureKey& key);
    void DropOldest();

    std::list<Entry> m_entries; ///< newest first
};

} // namespace gallery
