#include "host/ui/plan/FloorPlanLayout.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kBubble = 26;
constexpr double kTitleHeight = 42;
constexpr double kEdge = 8;
constexpr double kStub = 8;      ///< from the slab to a bubble
constexpr double kOverhang = 20; ///< from the outermost axis to the edge of the slab
constexpr double kLeastSpacingX = 82;
constexpr double kLeastSpacingY = 40;    ///< two flags, where all is seen at once
constexpr double kScrolledSpacingY = 58; ///< three, where scrolling is needed anyway
constexpr double kMostSpacing = 150;
constexpr double kMostStretch = 1.7; ///< bays are drawn no more oblong than this
constexpr double kMostPlace = 24;
constexpr double kLeastPlace = 10;
constexpr double kLeastRight = 62; ///< behind the slab, for the flags of the last axis
constexpr double kMostRight = 106;
constexpr double kBesidePlace = 8; ///< pole and gaps between a place, its flags and the next place
constexpr double kMostFlagWidth = 104;
constexpr double kShelfWidth = 150;
constexpr double kShelfHeight = 17;
constexpr double kShelfGap = 7;
constexpr double kShelfCaption = 24;
constexpr int kMostShelfRows = 4; ///< beside a grid
constexpr int kMostLoneRows = 24; ///< on a floor without a grid

constexpr double kBefore = kEdge + kBubble + kStub + kOverhang; ///< left of the grid and below it
constexpr double kAbove = kTitleHeight + kOverhang;

double Spacing(double room, std::size_t axes) {
    return axes < 2 ? 0 : std::min(kMostSpacing, room / double(axes - 1));
}

double LeastExtent(std::size_t axes, double spacing) {
    return axes < 2 ? 0 : double(axes - 1) * spacing;
}

/// Keeps bays from becoming slits in a pane that is much wider than high, or the other way round.
void BalanceSpacings(double& x, double& y) {
    if (x <= 0 || y <= 0) {
        return;
    }
    x = std::max(kLeastSpacingX, std::min(x, y * kMostStretch));
    y = std::max(kLeastSpacingY, std::min(y, x * kMostStretch));
}

QRectF BubbleAround(double x, double y) {
    return QRectF(x - kBubble / 2, y - kBubble / 2, kBubble, kBubble);
}

int ShelfColumns(double width) {
    return std::max(1, int((width - 2 * kEdge + kShelfGap) / (kShelfWidth + kShelfGap)));
}

/// Room that the shelf takes, from its caption to the pane's end; 0 without flags.
double ShelfExtent(int rows) {
    return rows == 0 ? 0 : kShelfCaption + rows * (kShelfHeight + kShelfGap) + kEdge;
}

void PlaceShelf(FloorPlanLayout& layout, double top) {
    if (layout.shelfRows == 0) {
        return;
    }
    layout.shelf = QRectF(kEdge + 8, top + kShelfCaption, layout.size.width() - 2 * kEdge - 8,
                          layout.shelfRows * (kShelfHeight + kShelfGap));
}

/// As many lines as the flags need; beside a grid no more than stay without scrolling.
int ShelfRows(int onShelf, int columns, bool hasGrid, double room) {
    const int needed = (onShelf + columns - 1) / columns;
    if (!hasGrid) {
        return std::min(needed, kMostLoneRows);
    }
    const int fitting = int((room - ShelfExtent(1)) / (kShelfHeight + kShelfGap)) + 1;
    return std::min(needed, std::clamp(fitting, 1, kMostShelfRows));
}

/// Sizes first: the pane, or as much more as the smallest bays and the shelf need.
void TakeRoom(FloorPlanLayout& layout, const PlanFloor& floor, const QSizeF& pane, double right,
              int onShelf) {
    const bool hasGrid = !floor.axesX.empty() && !floor.axesY.empty();
    double width = pane.width();
    double height = kTitleHeight;
    if (hasGrid) {
        width = std::max(width, kBefore + LeastExtent(floor.axesX.size(), kLeastSpacingX) +
                                    kOverhang + right);
        height = kAbove + LeastExtent(floor.axesY.size(), kLeastSpacingY) + kBefore;
        if (height + ShelfExtent(onShelf > 0 ? 1 : 0) > pane.height()) {
            height = kAbove + LeastExtent(floor.axesY.size(), kScrolledSpacingY) + kBefore;
        }
    }
    layout.shelfColumns = ShelfColumns(width);
    layout.shelfRows = ShelfRows(onShelf, layout.shelfColumns, hasGrid, pane.height() - height);
    height += ShelfExtent(layout.shelfRows);
    layout.size = QSizeF(width, std::max(pane.height(), height));
}

void PlaceGrid(FloorPlanLayout& layout, const PlanFloor& floor, double right) {
    const std::size_t countX = floor.axesX.size();
    const std::size_t countY = floor.axesY.size();
    const double roomX = layout.size.width() - kBefore - kOverhang - right;
    const double roomY = layout.size.height() - kAbove - kBefore - ShelfExtent(layout.shelfRows);
    double spacingX = Spacing(roomX, countX);
    double spacingY = Spacing(roomY, countY);
    BalanceSpacings(spacingX, spacingY);
    const double width = LeastExtent(countX, spacingX);
    const double height = LeastExtent(countY, spacingY);
    const double firstX = kBefore + (roomX - width) / 2;
    const double firstY = kAbove + (roomY + height) / 2;
    layout.building = QRectF(firstX - kOverhang, firstY - height - kOverhang, width + 2 * kOverhang,
                             height + 2 * kOverhang);
    layout.lineTop = layout.building.top() - kOverhang / 2;
    layout.lineRight = layout.building.right() + kOverhang / 2;
    layout.spacing =
        std::min(spacingX > 0 ? spacingX : spacingY, spacingY > 0 ? spacingY : spacingX);
    layout.spacingY = spacingY > 0 ? spacingY : kMostSpacing;
    const double beside = (spacingX > 0 ? spacingX : kMostSpacing) - kMostPlace - kBesidePlace;
    layout.flagWidth = std::min(
        {std::floor(beside), right + kOverhang - kMostPlace / 2 - kBesidePlace, kMostFlagWidth});
    for (std::size_t at = 0; at < countX; ++at) {
        layout.linesX.push_back(firstX + spacingX * double(at));
        layout.bubblesX.push_back(
            BubbleAround(layout.linesX.back(), layout.building.bottom() + kStub + kBubble / 2));
    }
    for (std::size_t at = 0; at < countY; ++at) {
        layout.linesY.push_back(firstY - spacingY * double(at));
        layout.bubblesY.push_back(
            BubbleAround(layout.building.left() - kStub - kBubble / 2, layout.linesY.back()));
    }
    for (const PlanIntersection& place : floor.intersections) {
        layout.places.emplace_back(layout.linesX[place.axisX], layout.linesY[place.axisY]);
    }
}

} // namespace

FloorPlanLayout LayoutFloorPlan(const PlanFloor& floor, const QSizeF& pane, int onShelf) {
    FloorPlanLayout layout;
    const double right = std::clamp(std::floor(pane.width() * 0.08), kLeastRight, kMostRight);
    TakeRoom(layout, floor, pane, right, onShelf);
    if (floor.axesX.empty() || floor.axesY.empty()) {
        PlaceShelf(layout, kTitleHeight);
        return layout;
    }
    PlaceGrid(layout, floor, right);
    PlaceShelf(layout, layout.size.height() - ShelfExtent(layout.shelfRows));
    return layout;
}

void PinBubbles(FloorPlanLayout& layout, const QRectF& visible) {
    for (QRectF& bubble : layout.bubblesX) {
        bubble.moveBottom(std::min(bubble.bottom(), visible.bottom() - kEdge / 2));
    }
    for (QRectF& bubble : layout.bubblesY) {
        bubble.moveLeft(std::max(bubble.left(), visible.left() + kEdge / 2));
    }
}

QRectF ShelfCell(const FloorPlanLayout& layout, int index) {
    const int column = index % layout.shelfColumns;
    const int row = index / layout.shelfColumns;
    return QRectF(layout.shelf.left() + column * (kShelfWidth + kShelfGap),
                  layout.shelf.top() + row * (kShelfHeight + kShelfGap), kShelfWidth, kShelfHeight);
}

QRectF PlaceRect(const FloorPlanLayout& layout, int place) {
    const double limit = layout.spacing > 0 ? layout.spacing * 0.7 : kMostPlace;
    const double side = std::clamp(limit, kLeastPlace, kMostPlace);
    const QPointF& centre = layout.places[place];
    return QRectF(centre.x() - side / 2, centre.y() - side / 2, side, side);
}

int PlaceAt(const FloorPlanLayout& layout, const QPointF& point) {
    for (int place = 0; place < int(layout.places.size()); ++place) {
        if (PlaceRect(layout, place).contains(point)) {
            return place;
        }
    }
    return -1;
}

QRectF PlaceCardBeside(const QRectF& place, const QSizeF& card, const QRectF& pane) {
    constexpr double gap = 8;
    double x = place.right() + gap;
    double y = place.bottom() + gap;
    if (x + card.width() > pane.right()) {
        x = place.left() - gap - card.width();
    }
    if (y + card.height() > pane.bottom()) {
        y = place.top() - gap - card.height();
    }
    return QRectF(QPointF(std::max(pane.left(), x), std::max(pane.top(), y)), card);
}

} // namespace host
