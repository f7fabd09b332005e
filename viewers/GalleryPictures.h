// What a gallery shows of its files: big pictures, thumbnails, the default picture, and the sharp
// part of a zoomed picture.
#pragma once

#include "toolkit/windows/WindowId.h"
#include "viewers/GalleryPainter.h"
#include "viewers/PictureCache.h"

#include <QImage>
#include <QString>

#include <list>
#include <memory>
#include <optional>
#include <vector>

namespace gallery {

/// Posted to the gallery's window.
enum PictureEvent {
    kSharpPartReady = 1100, ///< by a decoder: the sharp part of a zoomed picture
    kThumbReady = 1101,     ///< by a decoder: a thumbnail, TakeThumbs has it
    kPaneShown = 1102,      ///< the pane came up
    kPictureReady = 1103,   ///< by a decoder: a big picture or the default one, which are there now
};

/// Has files decoded by the decoders, each at most once for what is shown; decodes nothing on the
/// calling thread, and of files reads there only headers. Sizes are device-independent pixels,
/// `ratio` the device pixels in one of them.
/// Thread: user interface. Owned by its gallery.
class GalleryPictures final {
public:
    ~GalleryPictures() { Clear(); }

    /// Size of an item's picture from its file's header; empty if it is no picture. Kept in the
    /// item once it is known.
    [[nodiscard]] static QSize SizeOf(GalleryItem& item);

    /// The whole picture at a size; holds the thread until it is there. Null if it can't be
    /// decoded.
    [[nodiscard]] QImage AwaitBig(const GalleryItem& item, const QSize& size, qreal ratio);
    /// The same without holding anybody, before all else: none while it isn't there, the window is
    /// told when it is; then null if it can't be decoded.
    [[nodiscard]] std::optional<QImage> WantBig(const GalleryItem& item, const QSize& size,
                                                qreal ratio, toolkit::WindowId window);
    /// Has the decoders do the picture that the user is likely to step to next.
    void LookAhead(GalleryState& state, int step, qreal ratio, toolkit::WindowId window);
    /// The user went to an item: what is prepared for others is given up.
    void GoTo(const GalleryItem& item) { m_cache.GiveUpOthers(item.picPath); }

    /// Has the decoders render the thumbnails of a range that are on disk and have no rendering
    /// yet; the window is told of each. One whose big picture is there is cut from it, one whose
    /// big picture is on its way is left until then. Those far away from the range are freed, what
    /// is on its way for other places is given up.
    void WantThumbs(std::vector<GalleryItem>& items, const ItemRange& range, qreal ratio,
                    toolkit::WindowId window);
    /// Gives the items what has been decoded; the places of those that changed, each once.
    std::vector<int> TakeThumbs(std::vector<GalleryItem>& items, qreal ratio);
    [[nodiscard]] bool HasThumbsOnTheirWay() const { return !m_thumbs.empty(); }
    /// The same, and holds the thread until all of them are there.
    void AwaitThumbs(std::vector<GalleryItem>& items, const ItemRange& range, qreal ratio,
                     toolkit::WindowId window);

    /// Rendered once, at the size asked for first; the window is told when it is there.
    void WantDefault(const QString& path, const QSize& size, qreal ratio, toolkit::WindowId window);
    /// Holds the thread until it is there, if it was asked for.
    void AwaitDefault();
    /// Null while it isn't there, and if there is no such file.
    [[nodiscard]] QImage Default() const;

    /// Has the decoders render the visible part of a zoomed picture at its own sharpness, unless it
    /// is there or on its way; the window is told of it.
    void WantSharp(const GalleryState& state, toolkit::WindowId window, qreal ratio);
    /// That part, or null while it isn't there.
    [[nodiscard]] PlacedImage Sharp(const GalleryState& state, qreal ratio) const;
    void ForgetSharp();
    void Clear();

private:
    /// @param leaveBigOnes  those whose big picture is on its way are left until it is there.
    void AskForThumbs(std::vector<GalleryItem>& items, const ItemRange& range, qreal ratio,
                      toolkit::WindowId window, bool leaveBigOnes);
    void AskForThumb(const GalleryItem& item, qreal ratio, toolkit::WindowId window);
    [[nodiscard]] QImage ThumbFromBig(const GalleryItem& item, const QSize& deviceSize) const;
    void GiveUpThumbs(const std::vector<GalleryItem>& items, const ItemRange& range, qreal ratio);
    void StartSharp(const GalleryState& state, const QRect& part, toolkit::WindowId window);

    PictureCache m_cache;
    std::list<std::shared_ptr<DecodeJob>> m_thumbs; ///< on their way
    std::shared_ptr<DecodeJob> m_default;
    qreal m_defaultRatio = 1;
    std::shared_ptr<DecodeJob> m_sharpJob;
    std::shared_ptr<DecodeJob> m_sharpBefore; ///< of the same scale, shown until the job is done
    double m_sharpScale = 0;
};

/// Reads the sizes of a gallery's pictures from their files; empty for what isn't in the list. The
/// state must outlive it.
[[nodiscard]] SizeReader FileSizes(GalleryState& state);

/// The file turned out to be no picture: nothing more is asked of it.
void MarkUnreadable(GalleryItem& item);

/// Device pixels of a size.
[[nodiscard]] QSize DeviceSize(const QSize& size, qreal ratio);

} // namespace gallery
