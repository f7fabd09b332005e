// Where axes, bubbles and intersections of a floor lie in the pane.
#pragma once

#include "host/ui/plan/FloorPlanModel.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

namespace host {

/// All in device-independent pixels of the pane.
struct FloorPlanLayout {
    QSizeF size;                  ///< what the plan takes: the pane, or more than that
    QRectF building;              ///< the slab: the grid with its overhang
    std::vector<double> linesX;   ///< x of each X axis: linesX.size() == axesX.size()
    std::vector<double> linesY;   ///< y of each Y axis, the first one lowest
    std::vector<QRectF> bubblesX; ///< below the grid, one for each X axis
    std::vector<QRectF> bubblesY; ///< left of the grid, one for each Y axis
    double lineTop = 0;           ///< X axes run from their bubble up to here
    double lineRight = 0;         ///< Y axes run from their bubble to here
    std::vector<QPointF> places;  ///< centre of each intersection, in the floor's order
    double spacing = 0;           ///< least distance of neighbouring axes; 0 without any
    double spacingY = 0;          ///< room for the flags of an intersection from top to bottom
    double flagWidth = 0;         ///< room for a flag beside an intersection
    QRectF shelf;                 ///< for flags without an intersection; empty without such
    int shelfColumns = 0;
    int shelfRows = 0;
};

/// @param floor    without axes: only a shelf.
/// @param pane     where there is too little room, the plan becomes larger than the pane: bays are
///                 never so small that a flag couldn't be read.
/// @param onShelf  how many flags have no intersection.
/// Thread: any. Touches no window.
[[nodiscard]] FloorPlanLayout LayoutFloorPlan(const PlanFloor& floor, const QSizeF& pane,
                                              int onShelf = 0);
/// Moves the bubbles to the edges of what is seen of the plan, where they would be out of sight.
void PinBubbles(FloorPlanLayout& layout, const QRectF& visible);

/// Where flag number `index` of the shelf lies.
[[nodiscard]] QRectF ShelfCell(const FloorPlanLayout& layout, int index);

/// What an intersection takes for itself, for painting and for clicks alike.
[[nodiscard]] QRectF PlaceRect(const FloorPlanLayout& layout, int place);
/// The intersection under a point; -1: none.
[[nodiscard]] int PlaceAt(const FloorPlanLayout& layout, const QPointF& point);

/// Where a card of `card` size stands beside an intersection: right below it, turned to the other
/// side where the pane ends, and wholly in the pane if it fits at all.
[[nodiscard]] QRectF PlaceCardBeside(const QRectF& place, const QSizeF& card, const QRectF& pane);

} // namespace host
