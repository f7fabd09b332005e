#include "host/ui/plan/FloorPlanLayout.h"

#include <algorithm>

namespace host {

namespace {

constexpr double kBubble = 28;
constexpr double kTitleHeight = 56;
constexpr double kEdge = 24;
constexpr double kStub = 28;     ///< from the slab to a bubble
constexpr double kOverhang = 26; ///< from the outermost axis to the edge of the slab
constexpr double kMostSpacing = 150;
constexpr double kMostStretch = 1.35; ///< bays are drawn no more oblong than this
constexpr double kMostPlace = 26;
constexpr double kLeastPlace = 10;

/// The room that the axes themselves have in one direction.
double Room(double pane, double before, double behind) {
    return std::max(0.0, pane - before - behind - 2 * kOverhang);
}

double Spacing(double room, std::size_t axes) {
    return axes < 2 ? 0 : std::min(kMostSpacing, room / double(axes - 1));
}

/// Keeps bays from becoming slits in a pane that is much wider than high, or the other way round.
void BalanceSpacings(double& x, double& y) {
    if (x <= 0 || y <= 0)
        return;
    x = std::min(x, y * kMostStretch);
    y = std::min(y, x * kMostStretch);
}

QRectF BubbleAround(double x, double y) {
    return QRectF(x - kBubble / 2, y - kBubble / 2, kBubble, kBubble);
}

} // namespace

FloorPlanLayout LayoutFloorPlan(const PlanFloor& floor, const QSizeF& pane) {
    FloorPlanLayout layout;
    const std::size_t countX = floor.axesX.size();
    const std::size_t countY = floor.axesY.size();
    if (countX == 0 || countY == 0)
        return layout;
    const double left = kEdge + kBubble + kStub;
    const double bottom = kEdge + kBubble + kStub;
    const double roomX = Room(pane.width(), left, kEdge);
    const double roomY = Room(pane.height(), kTitleHeight, bottom);
    double spacingX = Spacing(roomX, countX);
    double spacingY = Spacing(roomY, countY);
    BalanceSpacings(spacingX, spacingY);
    const double width = spacingX * double(countX - 1);
    const double height = spacingY * double(countY - 1);
    const double firstX = left + kOverhang + (roomX - width) / 2;
    const double firstY = kTitleHeight + kOverhang + (roomY + height) / 2;

    layout.building = QRectF(firstX - kOverhang, firstY - height - kOverhang, width + 2 * kOverhang,
                             height + 2 * kOverhang);
    layout.lineTop = layout.building.top() - kOverhang / 2;
    layout.lineRight = layout.building.right() + kOverhang / 2;
    layout.spacing =
        std::min(spacingX > 0 ? spacingX : spacingY, spacingY > 0 ? spacingY : spacingX);
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
    for (const PlanIntersection& place : floor.intersections)
        layout.places.emplace_back(layout.linesX[place.axisX], layout.linesY[place.axisY]);
    return layout;
}

QRectF PlaceRect(const FloorPlanLayout& layout, int place) {
    const double limit = layout.spacing > 0 ? layout.spacing * 0.7 : kMostPlace;
    const double side = std::clamp(limit, kLeastPlace, kMostPlace);
    const QPointF& centre = layout.places[place];
    return QRectF(centre.x() - side / 2, centre.y() - side / 2, side, side);
}

int PlaceAt(const FloorPlanLayout& layout, const QPointF& point) {
    for (int place = 0; place < int(layout.places.size()); ++place) {
        if (PlaceRect(layout, place).contains(point))
            return place;
    }
    return -1;
}

QRectF PlaceCardBeside(const QRectF& place, const QSizeF& card, const QSizeF& pane) {
    constexpr double gap = 8;
    double x = place.right() + gap;
    double y = place.bottom() + gap;
    if (x + card.width() > pane.width())
        x = place.left() - gap - card.width();
    if (y + card.height() > pane.height())
        y = place.top() - gap - card.height();
    return QRectF(QPointF(std::max(0.0, x), std::max(0.0, y)), card);
}

} // namespace host
