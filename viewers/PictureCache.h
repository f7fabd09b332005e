// The big pictures that a gallery showed last or is about to show.
#pragma once

#include "viewers/DecodeJob.h"
#include "viewers/Decoders.h"

#include <QDateTime>
#include <QSize>
#include <QString>

#include <functional>
#include <list>
#include <memory>
#include <optional>

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

    /// The whole picture at a size; holds the thread until the decoders have done it. Null if it
    /// can't be decoded.
    [[nodiscard]] QImage Await(const QString& path, const QSize& size);
    /// A finished rendering of the file as it is now, of any size; null without one.
    [[nodiscard]] QImage Find(const QString& path) const;
    /// The same without holding anybody, before all else: none while it isn't done, then null if it
    /// can't be decoded. `whenDone` runs on a decoder, once, unless the job is given up.
    [[nodiscard]] std::optional<QImage> Want(const QString& path, const QSize& size,
                                             const std::function<void()>& whenDone);
    /// Has the picture decoded by a thread that has time; `whenDone` as for Want.
    void Prepare(const QString& path, const QSize& size,
                 const std::function<void()>& whenDone = {});
    /// Whether a rendering of the file, of any size, is being decoded or waits for it.
    [[nodiscard]] bool IsOnItsWay(const QString& path) const;
    /// Gives up all that is on its way for other files than this.
    void GiveUpOthers(const QString& path);
    void Clear();

private:
    struct Entry {
        PictureKey key;
        std::shared_ptr<DecodeJob> job;
        std::optional<Urgency> handedIn; ///< to the decoders; none: not yet
    };

    /// The entry, moved to the front; made if there is none.
    [[nodiscard]] Entry& Touch(const PictureKey& key, const std::function<void()>& whenDone = {});
    void DropOldest();

    std::list<Entry> m_entries; ///< newest first
};

} // namespace gallery
