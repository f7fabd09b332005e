#include "host/ui/drawing/SheetView.h"

#include <algorithm>

namespace host {

namespace {

constexpr double kRoom = 12; ///< around a sheet that fits, pixels
/// A sheet that is larger than the pane can be drawn so far beyond its edges, pixels.
constexpr double kBeyond = 64;

double FitScale(const QSizeF& sheet, const QSizeF& pane) {
    const double width = std::max(1.0, pane.width() - 2 * kRoom);
    const double height = std::max(1.0, pane.height() - 2 * kRoom);
    return std::min({width / sheet.width(), height / sheet.height(), kMostScale});
}

/// @param middle  in one direction; `length` of the sheet, `room` of the pane, points.
double ClampMiddle(double middle, double length, double room, double beyond) {
    if (length <= room) {
        return length / 2;
    }
    return std::clamp(middle, room / 2 - beyond, length - room / 2 + beyond);
}

} // namespace

SheetView FitSheet(const QSizeF& sheet, const QSizeF& pane) {
    return {FitScale(sheet, pane), QPointF(sheet.width() / 2, sheet.height() / 2)};
}

SheetView ClampSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane) {
    SheetView clamped = view;
    clamped.scale = std::clamp(view.scale, FitScale(sheet, pane), kMostScale);
    const QSizeF room = pane / clamped.scale;
    const double beyond = kBeyond / clamped.scale;
    clamped.middle = {ClampMiddle(view.middle.x(), sheet.width(), room.width(), beyond),
                      ClampMiddle(view.middle.y(), sheet.height(), room.height(), beyond)};
    return clamped;
}

SheetView ZoomSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane,
                    const QPointF& pointer, double factor) {
    SheetView zoomed = view;
    zoomed.scale = std::clamp(view.scale * factor, FitScale(sheet, pane), kMostScale);
    const QPointF place = ToSheet(view, pane, pointer);
    zoomed.middle += place - ToSheet(zoomed, pane, pointer);
    return ClampSheet(zoomed, sheet, pane);
}

SheetView PanSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane,
                   const QPointF& moved) {
    SheetView panned = view;
    panned.middle -= moved / view.scale;
    return ClampSheet(panned, sheet, pane);
}

SheetView CentreSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane,
                      const QPointF& place) {
    return ClampSheet({view.scale, place}, sheet, pane);
}

QPointF ToPane(const SheetView& view, const QSizeF& pane, const QPointF& place) {
    return (place - view.middle) * view.scale + QPointF(pane.width() / 2, pane.height() / 2);
}

QPointF ToSheet(const SheetView& view, const QSizeF& pane, const QPointF& pixel) {
    return (pixel - QPointF(pane.width() / 2, pane.height() / 2)) / view.scale + view.middle;
}

QRectF SeenOfSheet(const SheetView& view, const QSizeF& pane) {
    const QSizeF room = pane / view.scale;
    return {view.middle - QPointF(room.width() / 2, room.height() / 2), room};
}

} // namespace host
