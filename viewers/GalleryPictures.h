// What a gallery shows of its files: big pictures, thumbnails, the default picture, and the sharp
// part of a zoomed picture.
#pragma once

#include "toolkit/WindowId.h"
#include "viewers/GalleryPainter.h"
#include "viewers/PictureCache.h"

#include <QImage>
#include <QString>

#include <memory>

namespace gallery {

/// Posted to the gallery's window when the sharp part of a zoomed picture is decoded.
inline constexpr int kSharpPartReady = 1100;

/// Decodes files on the calling thread and on the decoders, each at most once for what is shown.
/// Sizes are device-independent pixels, `ratio` the device pixels in one of them.
/// Thread: user interface. Owned by its gallery.
class GalleryPictures final {
public:
    ~GalleryPictures() { Clear(); }

    /// Size of an item's picture from its file's header; empty if it is no picture. Kept in the
    /// item once it is known.
    [[nodiscard]] static QSize SizeOf(GalleryItem& item);

    /// The whole picture at a size. Null, and the item is marked, if it can't be decoded.
    [[nodiscard]] QImage Big(GalleryItem& item, const QSize& size, qreal ratio);
    /// Decodes the picture that the user is likely to step to next.
    void LookAhead(GalleryState& state, int step, qreal ratio);
    /// The user went to an item: what is prepared for others is given up.
    void GoTo(const GalleryItem& item) { m_cache.GiveUpOthers(item.picPath); }

    /// Renders the thumbnails of a range that are on disk and have no rendering yet; those far away
    /// from it are freed.
    void MakeThumbs(std::vector<GalleryItem>& items, const ItemRange& range, qreal ratio);
    /// Whether MakeThumbs would have to decode a file.
    [[nodiscard]] static bool LacksThumbs(const std::vector<GalleryItem>& items,
                                          const ItemRange& range, qreal ratio);

    /// Rendered once, at the size asked for first; null if there is no such file.
    [[nodiscard]] QImage Default(const QString& path, const QSize& size, qreal ratio);

    /// The visible part of a zoomed picture at its own sharpness, or null while it isn't there;
    /// then it is on its way and the window is told of it.
    [[nodiscard]] PlacedImage Sharp(const GalleryState& state, toolkit::WindowId window,
                                    qreal ratio);
    void ForgetSharp();
    void Clear();

private:
    [[nodiscard]] QImage ThumbFromBig(const GalleryItem& item, const QSize& deviceSize) const;
    void StartSharp(const GalleryState& state, const QRect& part, toolkit::WindowId window);

    PictureCache m_cache;
    std::unique_ptr<CKxMemDC> m_defaultPicDC;
    std::shared_ptr<DecodeJob> m_sharpJob;
    double m_sharpScale = 0;
};

/// Device pixels of a size.
[[nodiscard]] QSize DeviceSize(const QSize& size, qreal ratio);

} // namespace gallery
