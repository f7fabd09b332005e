// The big picture as it stands on the screen: finished, or the one before it for a moment.
#pragma once

#include "toolkit/media/KxMemDC.h"
#include "viewers/GalleryPainter.h"

#include <QImage>
#include <QRect>

#include <memory>

namespace gallery {

/// Holds the current picture's rendering. While a new one is on its way, the one before stays where
/// it was, so that nothing flickers. Places are device-independent pixels of the pane.
/// Thread: user interface. Owned by its gallery.
class BigPicture final {
public:
    /// A rendering of the current picture, as large as `picRect`. A null image is none.
    void Put(const QImage& image, const QRect& picRect);
    /// It has to be rendered again; until then it stays at `place`, where it is seen now. What is
    /// held already stays if there is nothing newer.
    void Expire(const QRectF& place);
    /// Nothing is held any more: another list, other places.
    void Clear();

    /// Whether there is a rendering of the current picture.
    [[nodiscard]] bool IsFresh() const { return m_fresh != nullptr; }
    /// A fresh one that is drawn smaller or larger than it was rendered.
    [[nodiscard]] bool IsStretched(const QRect& picRect) const;
    /// Null unless fresh.
    [[nodiscard]] QImage Image() const;
    /// What a paint draws: the fresh one at `place`, else what is held; a null image for nothing.
    [[nodiscard]] PlacedImage Shown(const QRectF& place) const;

private:
    std::unique_ptr<CKxMemDC> m_fresh;
    QRect m_freshRect; ///< place of the picture when it was rendered
    PlacedImage m_held;
};

} // namespace gallery
