#include "host/ui/plan/FloorPlanPaint.h"

#include "host/ui/LocateText.h"
#include "toolkit/Look.h"

#include <QFontMetricsF>
#include <QPainter>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kColumnSide = 8;
constexpr double kTitleX = 20;
constexpr double kTitleBase = 28;

void PaintEmpty(QPainter& painter, const FloorPlanScene& scene) {
    const QString text =
        scene.model.projectName.isEmpty()
            ? u"没有打开的工程\n请在工具栏左端选择工程，或用“文件 / 新建工程”（Ctrl+N）建一个。"_s
            : u"工程“%1”没有楼层和轴网\n"
              "请在“文件 / 设置”（Ctrl+,）中录入；没有位置的照片在控制台中。"_s.arg(
                  scene.model.projectName);
    painter.setFont(toolkit::UiFont(14));
    painter.setPen(toolkit::Colors::HintText());
    painter.drawText(scene.flags.visible, Qt::AlignCenter, text);
}

} // namespace

void PaintPlanTitle(QPainter& painter, const QString& caption, const QString& note,
                    const QPointF& corner) {
    const QFont big = toolkit::UiFont(16);
    const QFontMetricsF bigMetrics(big);
    const QFontMetricsF metrics(toolkit::UiFont());
    const double behind = kTitleX + bigMetrics.horizontalAdvance(caption) + 16;
    QColor ground = toolkit::Colors::Pane();
    ground.setAlphaF(0.85F);
    painter.fillRect(QRectF(corner + QPointF(kTitleX - 8, 6),
                            QSizeF(behind + metrics.horizontalAdvance(note) - kTitleX + 16, 30)),
                     ground);
    painter.setFont(big);
    painter.setPen(toolkit::Colors::TextAccent());
    painter.drawText(corner + QPointF(kTitleX, kTitleBase), caption);
    painter.setFont(toolkit::UiFont());
    painter.setPen(toolkit::Colors::HintText());
    painter.drawText(corner + QPointF(behind, kTitleBase), note);
}

namespace {

void PaintShelf(QPainter& painter, const FloorPlanScene& scene, const PlanFloor& floor) {
    const QRectF& shelf = scene.layout.shelf;
    painter.setFont(toolkit::UiFont());
    painter.setPen(toolkit::Colors::HintText());
    if (!shelf.isEmpty()) {
        painter.drawText(shelf.topLeft() - QPointF(0, 8), floor.name.isEmpty()
                                                              ? u"没有楼层的照片和问题的标识："_s
                                                              : u"不在轴网上的标识："_s);
    } else if (floor.name.isEmpty()) {
        painter.drawText(scene.flags.visible, Qt::AlignCenter,
                         u"没有显示的标识\n没有楼层的照片和问题列在这里，"
                         "请在标识面板中勾选“其他”。"_s);
    }
}

void PaintAxes(QPainter& painter, const FloorPlanLayout& layout) {
    QPen pen(toolkit::Colors::Frame(), 1);
    pen.setDashPattern({12, 3, 2, 3});
    painter.setPen(pen);
    for (std::size_t at = 0; at < layout.linesX.size(); ++at) {
        painter.drawLine(QPointF(layout.linesX[at], layout.bubblesX[at].top()),
                         QPointF(layout.linesX[at], layout.lineTop));
    }
    for (std::size_t at = 0; at < layout.linesY.size(); ++at) {
        painter.drawLine(QPointF(layout.bubblesY[at].right(), layout.linesY[at]),
                         QPointF(layout.lineRight, layout.linesY[at]));
    }
}

/// A name that is wider than its bubble is set in a smaller face.
void PaintBubble(QPainter& painter, const QRectF& bubble, const QString& name, bool chosen) {
    painter.setPen(QPen(toolkit::Colors::TextAccent(), chosen ? 2 : 1));
    painter.setBrush(chosen ? toolkit::Colors::Selection() : QColor(Qt::white));
    painter.drawEllipse(bubble);
    QFont font = toolkit::UiFont(13);
    const double width = QFontMetricsF(font).horizontalAdvance(name);
    if (width > bubble.width() - 6) {
        font = toolkit::UiFont(std::max(8, int(13 * (bubble.width() - 6) / width)));
    }
    painter.setFont(font);
    painter.setPen(toolkit::Colors::TextAccent());
    painter.drawText(bubble, Qt::AlignCenter, name);
}

} // namespace

void PaintPlanBubbles(QPainter& painter, const PlanFloor& floor, const FloorPlanLayout& layout,
                      const PlanIntersection* place) {
    for (int at = 0; at < int(layout.bubblesX.size()); ++at) {
        PaintBubble(painter, layout.bubblesX[at], floor.axesX[at],
                    place != nullptr && place->axisX == at);
    }
    for (int at = 0; at < int(layout.bubblesY.size()); ++at) {
        PaintBubble(painter, layout.bubblesY[at], floor.axesY[at],
                    place != nullptr && place->axisY == at);
    }
}

void PaintPlanSlab(QPainter& painter, const FloorPlanLayout& layout) {
    painter.setPen(QPen(toolkit::Colors::Frame(), 2));
    painter.setBrush(Qt::white);
    painter.drawRect(layout.building);
    PaintAxes(painter, layout);
}

namespace {

void PaintRing(QPainter& painter, const QRectF& rect, const QColor& color, double width) {
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(rect);
}

/// What isn't shown hangs below on the left, away from the flags.
void PaintHidden(QPainter& painter, const QRectF& place, int hidden) {
    const QString text = u'+' + (hidden > 99 ? u"99"_s : QString::number(hidden));
    painter.setFont(toolkit::UiFont(9));
    const double width = painter.fontMetrics().horizontalAdvance(text) + 5;
    const QRectF badge(place.left() - width + 8, place.bottom() - 7, width, 11);
    painter.setPen(QPen(toolkit::Colors::HintText(), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(badge, 3, 3);
    painter.drawText(badge, Qt::AlignCenter, text);
}

void PaintShown(QPainter& painter, const QRectF& rect, int photoCount) {
    if (photoCount == 0) {
        QRectF column(0, 0, kColumnSide, kColumnSide);
        column.moveCenter(rect.center());
        painter.fillRect(column, toolkit::Colors::Frame());
        return;
    }
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(toolkit::Colors::TextAccent());
    painter.drawEllipse(rect);
    const QString text = photoCount > 999 ? u"999+"_s : QString::number(photoCount);
    const int height = int(rect.height() * (text.size() > 3 ? 0.34 : text.size() > 2 ? 0.4 : 0.46));
    painter.setFont(toolkit::UiFont(std::max(7, height)));
    painter.setPen(Qt::white);
    painter.drawText(rect, Qt::AlignCenter, text);
}

void PaintPlace(QPainter& painter, const QRectF& rect, const PhotoCount& photos) {
    PaintShown(painter, rect, photos.shown);
    if (photos.hidden > 0) {
        PaintHidden(painter, rect, photos.hidden);
    }
}

void PaintPlaces(QPainter& painter, const FloorPlanScene& scene, const PlanFloor& floor) {
    for (int at = 0; at < int(floor.intersections.size()); ++at) {
        const QRectF rect = PlaceRect(scene.layout, at);
        if (at == scene.state.hovered) {
            PaintRing(painter, rect.adjusted(-2, -2, 2, 2), toolkit::Colors::Hover(), 4);
        }
        PaintPlace(painter, rect, floor.intersections[at].photos);
        if (at == scene.state.chosen) {
            PaintRing(painter, rect.adjusted(-4, -4, 4, 4), toolkit::Colors::Accent(), 3);
        }
    }
}

} // namespace

void PaintPlanFocus(QPainter& painter, const QRectF& visible) {
    painter.setPen(QPen(toolkit::Colors::Accent(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(visible.adjusted(0.5, 0.5, -0.5, -0.5));
}

void PaintFloorPlan(QPainter& painter, const FloorPlanScene& scene) {
    const QRectF& visible = scene.flags.visible;
    painter.fillRect(visible, toolkit::Colors::Pane());
    painter.setRenderHint(QPainter::Antialiasing);
    if (scene.state.floor >= int(scene.model.floors.size())) {
        PaintEmpty(painter, scene);
        return;
    }
    const PlanFloor& floor = scene.model.floors[scene.state.floor];
    if (!scene.layout.places.empty()) {
        PaintPlanSlab(painter, scene.layout);
        PaintFlagPoles(painter, scene.flags);
        PaintPlaces(painter, scene, floor);
    }
    PaintShelf(painter, scene, floor);
    PaintFlags(painter, scene.flags);
    const int chosen = scene.state.chosen;
    PaintPlanBubbles(painter, floor, scene.layout,
                     chosen >= 0 ? &floor.intersections[chosen] : nullptr);
    PaintPlanTitle(painter, PlanFloorCaption(floor), PlanTitleNote(floor), visible.topLeft());
    if (scene.focused) {
        PaintPlanFocus(painter, visible);
    }
}

} // namespace host
