// Looking closely at the big picture: how large it is drawn and which part of it shows.
#pragma once

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace gallery {

/// What zooming depends on.
struct ZoomView {
    QRect bigArea;        ///< device-independent pixels of the pane
    QRect picRect;        ///< where the fitted picture lies; empty: nothing can be zoomed
    QSize picSize;        ///< upright, image pixels
    qreal pixelRatio = 1; ///< device pixels a device-independent one
};

/// A value; every function gives a new one, kept within limits (see ClampZoom).
struct Zoom {
    bool fit = true;
    double scale = 1; ///< device pixels an image pixel; 1 is 100 %. Unused while fitted
    QPointF centre;   ///< image pixel in the middle of the big area. Unused while fitted
};

/// Limits: no smaller than fitted or 100 %, whichever is smaller, no larger than 8 times or fitted;
/// a picture larger than the area leaves no gap, a smaller one stands in the middle. A scale that
/// comes close to the fitted one is fitted.
[[nodiscard]] Zoom ClampZoom(const Zoom& zoom, const ZoomView& view);

/// Wheel notches (positive: larger) about a point of the pane, which keeps its place in the
/// picture. A step that would pass 100 % stops there.
[[nodiscard]] Zoom ZoomBy(const Zoom& zoom, const ZoomView& view, double notches,
                          const QPointF& pointer);
/// Fitted becomes 100 % about the pointer, all else fitted.
[[nodiscard]] Zoom ToggleZoom(const Zoom& zoom, const ZoomView& view, const QPointF& pointer);
/// The picture follows a drag by `delta`, device-independent pixels.
[[nodiscard]] Zoom PanBy(const Zoom& zoom, const ZoomView& view, const QPointF& delta);

/// Scale of the fitted picture; 0 without one.
[[nodiscard]] double FitScale(const ZoomView& view);
/// Place of the whole picture in the pane, on whole device pixels, so that at 100 % one image pixel
/// is one screen pixel.
[[nodiscard]] QRectF ZoomedRect(const Zoom& zoom, const ZoomView& view);
/// The image pixels that show in the big area, touched ones included.
[[nodiscard]] QRect VisiblePart(const Zoom& zoom, const ZoomView& view);

} // namespace gallery
