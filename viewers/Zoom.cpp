#include "viewers/Zoom.h"

#include <algorithm>
#include <cmath>

namespace gallery {

namespace {

constexpr double kNotchFactor = 1.25;
constexpr double kMostScale = 8;
constexpr double kFitTolerance = 0.01;

/// Device-independent pixels an image pixel.
double DipScale(double scale, const ZoomView& view) {
    return scale / view.pixelRatio;
}

/// The zoom written out, also while fitted.
Zoom WrittenOut(const Zoom& zoom, const ZoomView& view) {
    if (!zoom.fit) {
        return zoom;
    }
    return {false, FitScale(view), QRectF(QPointF(0, 0), view.picSize).center()};
}

QPointF AreaMiddle(const ZoomView& view) {
    return QRectF(view.bigArea).center();
}

/// Middle of one axis, so that neither a gap opens nor a small picture wanders.
double ClampMiddle(double middle, int imageLength, double areaLength) {
    if (imageLength <= areaLength) {
        return imageLength / 2.0;
    }
    return std::clamp(middle, areaLength / 2, imageLength - areaLength / 2);
}

Zoom ScaledAbout(const Zoom& from, const ZoomView& view, double scale, const QPointF& pointer) {
    const QPointF offset = pointer - AreaMiddle(view);
    const QPointF fixed = from.centre + offset / DipScale(from.scale, view);
    return ClampZoom({false, scale, fixed - offset / DipScale(scale, view)}, view);
}

} // namespace

double FitScale(const ZoomView& view) {
    if (view.picRect.isEmpty() || view.picSize.isEmpty()) {
        return 0;
    }
    return view.picRect.width() * view.pixelRatio / view.picSize.width();
}

Zoom ClampZoom(const Zoom& zoom, const ZoomView& view) {
    const double fitted = FitScale(view);
    if (zoom.fit || fitted <= 0) {
        return {};
    }
    Zoom clamped = zoom;
    clamped.scale = std::clamp(zoom.scale, std::min(fitted, 1.0), std::max(fitted, kMostScale));
    if (std::abs(clamped.scale - fitted) <= fitted * kFitTolerance) {
        return {};
    }
    const double dip = DipScale(clamped.scale, view);
    clamped.centre = {
        ClampMiddle(zoom.centre.x(), view.picSize.width(), view.bigArea.width() / dip),
        ClampMiddle(zoom.centre.y(), view.picSize.height(), view.bigArea.height() / dip)};
    return clamped;
}

Zoom ZoomBy(const Zoom& zoom, const ZoomView& view, double notches, const QPointF& pointer) {
    if (FitScale(view) <= 0) {
        return {};
    }
    const Zoom from = WrittenOut(zoom, view);
    double scale = from.scale * std::pow(kNotchFactor, notches);
    if ((from.scale < 1 && scale > 1) || (from.scale > 1 && scale < 1)) {
        scale = 1;
    }
    return ScaledAbout(from, view, scale, pointer);
}

Zoom ToggleZoom(const Zoom& zoom, const ZoomView& view, const QPointF& pointer) {
    if (!zoom.fit || FitScale(view) <= 0) {
        return {};
    }
    return ScaledAbout(WrittenOut(zoom, view), view, 1, pointer);
}

Zoom PanBy(const Zoom& zoom, const ZoomView& view, const QPointF& delta) {
    if (zoom.fit) {
        return zoom;
    }
    Zoom panned = zoom;
    panned.centre -= delta / DipScale(zoom.scale, view);
    return ClampZoom(panned, view);
}

QRectF ZoomedRect(const Zoom& zoom, const ZoomView& view) {
    if (zoom.fit) {
        return view.picRect;
    }
    const double ratio = view.pixelRatio;
    const QPointF corner = AreaMiddle(view) - zoom.centre * DipScale(zoom.scale, view);
    return {std::round(corner.x() * ratio) / ratio, std::round(corner.y() * ratio) / ratio,
            std::round(view.picSize.width() * zoom.scale) / ratio,
            std::round(view.picSize.height() * zoom.scale) / ratio};
}

QRect VisiblePart(const Zoom& zoom, const ZoomView& view) {
    const QRectF whole = ZoomedRect(zoom, view);
    const QRectF shown = whole & QRectF(view.bigArea);
    if (whole.isEmpty() || shown.isEmpty()) {
        return {};
    }
    const double x = view.picSize.width() / whole.width();
    const double y = view.picSize.height() / whole.height();
    const QRectF part((shown.x() - whole.x()) * x, (shown.y() - whole.y()) * y, shown.width() * x,
                      shown.height() * y);
    return part.toAlignedRect() & QRect(QPoint(0, 0), view.picSize);
}

} // namespace gallery
