#include "host/ui/pick/PickPaint.h"

#include "host/ui/plan/FlagPaint.h"
#include "host/ui/plan/FloorPlanPaint.h"
#include "toolkit/Look.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kChipRadius = 2.5;
constexpr double kChipEdge = 5;
constexpr double kTick = 9; ///< side of the square before a name

bool IsAnyPicked(const PickScene& scene, const FlagBox& box) {
    const auto isPicked = [&](int at) {
        return IsPicked(scene.state, scene.components[size_t(at)].component);
    };
    return box.flag >= 0 ? isPicked(box.flag)
                         : std::any_of(box.rest.begin(), box.rest.end(), isPicked);
}

/// A square that is ticked while the component is picked.
void PaintTick(QPainter& painter, const QRectF& square, bool picked) {
    painter.setPen(QPen(toolkit::Colors::TextAccent(), 1));
    painter.setBrush(picked ? toolkit::Colors::TextAccent() : QColor(Qt::white));
    painter.drawRect(square);
    if (picked) {
        painter.setPen(QPen(Qt::white, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF points[] = {square.topLeft() + QPointF(2, 4.5),
                                  square.topLeft() + QPointF(4, 6.5),
                                  square.topLeft() + QPointF(7, 2.5)};
        painter.drawPolyline(points, 3);
    }
}

void PaintChip(QPainter& painter, const PickScene& scene, const FlagBox& box) {
    const bool picked = IsAnyPicked(scene, box);
    painter.setPen(
        QPen(picked ? toolkit::Colors::TextAccent() : toolkit::Colors::Frame(), picked ? 2 : 1));
    painter.setBrush(picked ? toolkit::Colors::Selection() : QColor(Qt::white));
    painter.drawRoundedRect(box.rect.adjusted(0.5, 0.5, -0.5, -0.5), kChipRadius, kChipRadius);
    painter.setFont(toolkit::UiFont());
    if (box.flag < 0) {
        painter.setPen(toolkit::Colors::TextAccent());
        painter.drawText(box.rect, Qt::AlignCenter, u"+%1 个"_s.arg(box.rest.size()));
        return;
    }
    QRectF square(box.rect.left() + kChipEdge, 0, kTick, kTick);
    square.moveTop(std::floor(box.rect.center().y() - kTick / 2) + 0.5);
    PaintTick(painter, square, picked);
    const QRectF text = box.rect.adjusted(2 * kChipEdge + kTick, 0, -kChipEdge, 0);
    const PlanComponent& component = scene.components[size_t(box.flag)].component;
    painter.setPen(toolkit::Colors::Text());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(
                         box.place == kShelf ? ComponentCaption(component) : component.name,
                         Qt::ElideRight, int(text.width())));
}

void PaintChipRing(QPainter& painter, const QRectF& rect, const QColor& color, double width) {
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const double out = width / 2;
    painter.drawRoundedRect(rect.adjusted(-out, -out, out, out), kChipRadius + out,
                            kChipRadius + out);
}

void PaintColumns(QPainter& painter, const FloorPlanLayout& layout) {
    for (const QPointF& place : layout.places) {
        QRectF column(0, 0, 8, 8);
        column.moveCenter(place);
        painter.fillRect(column, toolkit::Colors::Frame());
    }
}

void PaintChips(QPainter& painter, const PickScene& scene) {
    for (const FlagBox& box : scene.boxes.boxes) {
        if (box.rect.intersects(scene.visible)) {
            PaintChip(painter, scene, box);
        }
    }
    const int count = int(scene.boxes.boxes.size());
    if (scene.state.hovered >= 0 && scene.state.hovered < count) {
        PaintChipRing(painter, scene.boxes.boxes[size_t(scene.state.hovered)].rect,
                      toolkit::Colors::Hover(), 2);
    }
    if (scene.focused && scene.state.cursor >= 0 && scene.state.cursor < count) {
        PaintChipRing(painter, scene.boxes.boxes[size_t(scene.state.cursor)].rect,
                      toolkit::Colors::Accent(), 3);
    }
}

/// Empty floors, and what stands on none of the intersections.
void PaintWords(QPainter& painter, const PickScene& scene) {
    painter.setPen(toolkit::Colors::HintText());
    if (scene.components.empty()) {
        painter.setFont(toolkit::UiFont(14));
        painter.drawText(scene.visible, Qt::AlignCenter,
                         scene.floor->name.isEmpty()
                             ? u"没有不属于任何楼层的构件\n请在左侧换一个楼层。"_s
                             : u"本楼层没有构件\n请在左侧换一个楼层（PageUp、PageDown）。"_s);
    } else if (!scene.layout.shelf.isEmpty()) {
        painter.setFont(toolkit::UiFont());
        painter.drawText(scene.layout.shelf.topLeft() - QPointF(0, 8),
                         scene.floor->name.isEmpty() ? u"没有楼层的构件："_s
                                                     : u"不在轴网上的构件："_s);
    }
}

} // namespace

void PaintPick(QPainter& painter, const PickScene& scene) {
    painter.fillRect(scene.visible, toolkit::Colors::Pane());
    painter.setRenderHint(QPainter::Antialiasing);
    if (scene.floor == nullptr) {
        return;
    }
    if (!scene.layout.places.empty()) {
        PaintPlanSlab(painter, scene.layout);
        const std::vector<PlacedFlag> none;
        PaintFlagPoles(painter, {none, scene.boxes, -1, -1, scene.visible});
        PaintColumns(painter, scene.layout);
    }
    PaintWords(painter, scene);
    PaintChips(painter, scene);
    PaintPlanBubbles(painter, *scene.floor, scene.layout, nullptr);
    PaintPlanTitle(painter, PlanFloorCaption(*scene.floor),
                   u"构件 %1 个"_s.arg(scene.components.size()), scene.visible.topLeft());
    if (scene.focused) {
        PaintPlanFocus(painter, scene.visible);
    }
}

} // namespace host
