// What a person does by mouse and keyboard where components are picked.
#include "host/ui/pick/PickCanvas.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <map>

namespace host {

using namespace Qt::StringLiterals;

void PickCanvas::mouseMoveEvent(QMouseEvent* event) {
    const int box = BoxAt(m_boxes, event->position());
    setCursor(box < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
    if (box != m_state.hovered) {
        m_state.hovered = box;
        update();
    }
}

void PickCanvas::leaveEvent(QEvent*) {
    m_state.hovered = -1;
    update();
}

void PickCanvas::mousePressEvent(QMouseEvent* event) {
    const int box = BoxAt(m_boxes, event->position());
    if (event->button() == Qt::LeftButton && box >= 0) {
        Hit(box, event->modifiers().testFlag(Qt::ControlModifier));
    }
}

void PickCanvas::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int box = byKey ? m_state.cursor : BoxAt(m_boxes, event->pos());
    if (box < 0) {
        return;
    }
    const FlagBox hit = m_boxes.boxes[size_t(box)];
    if (hit.flag < 0) {
        OfferRest(box, true);
        return;
    }
    const PlanComponent component = m_components[size_t(hit.flag)].component;
    auto* menu = new QMenu(this);
    menu->setObjectName(u"pickMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(u"构件属性"_s, this, [this, component] { emit PropertiesWanted(component); });
    menu->popup(byKey ? mapToGlobal(hit.rect.bottomLeft().toPoint()) : event->globalPos());
}

void PickCanvas::keyPressEvent(QKeyEvent* event) {
    static const std::map<int, QPoint> arrows = {{Qt::Key_Left, {-1, 0}},
                                                 {Qt::Key_Right, {1, 0}},
                                                 {Qt::Key_Up, {0, 1}},
                                                 {Qt::Key_Down, {0, -1}}};
    if (const auto step = arrows.find(event->key()); step != arrows.end()) {
        MoveCursor(step->second.x(), step->second.y());
        return;
    }
    switch (event->key()) {
    case Qt::Key_PageUp:
        SetFloor(m_state.floor - 1);
        break;
    case Qt::Key_PageDown:
        SetFloor(m_state.floor + 1);
        break;
    case Qt::Key_Space:
        if (m_state.cursor >= 0) {
            Hit(m_state.cursor, event->modifiers().testFlag(Qt::ControlModifier));
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit Confirmed();
        break;
    case Qt::Key_Escape:
        emit Cancelled();
        break;
    default:
        PlanSurface::keyPressEvent(event);
    }
}

void PickCanvas::resizeEvent(QResizeEvent*) {
    LayOut();
}

} // namespace host
