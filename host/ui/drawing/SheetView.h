// Which part of a sheet a pane shows, and how large.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace host {

/// Pixels here are device-independent, sizes and places of the sheet points (1/72 inch).
struct SheetView {
    double scale = 1; ///< pixels for a point
    QPointF middle;   ///< of the sheet, in the middle of the pane

    bool operator==(const SheetView&) const = default;
};

/// At most: 1,152 dots per inch on a screen of 72.
inline constexpr double kMostScale = 16;

/// The whole sheet, with a little room around it.
[[nodiscard]] SheetView FitSheet(const QSizeF& sheet, const QSizeF& pane);
/// What is under the pointer stays there, as far as the sheet stays in the pane.
[[nodiscard]] SheetView ZoomSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane,
                                  const QPointF& pointer, double factor);
/// The sheet follows a hand that moves by so many pixels.
[[nodiscard]] SheetView PanSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane,
                                 const QPointF& moved);
/// A place comes into the middle.
[[nodiscard]] SheetView CentreSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane,
                                    const QPointF& place);
/// Neither smaller than the pane needs nor out of it; a sheet smaller than the pane lies in its
/// middle.
[[nodiscard]] SheetView ClampSheet(const SheetView& view, const QSizeF& sheet, const QSizeF& pane);

[[nodiscard]] QPointF ToPane(const SheetView& view, const QSizeF& pane, const QPointF& place);
[[nodiscard]] QPointF ToSheet(const SheetView& view, const QSizeF& pane, const QPointF& pixel);
/// The part of the sheet's plane that the pane shows.
[[nodiscard]] QRectF SeenOfSheet(const SheetView& view, const QSizeF& pane);

} // namespace host
