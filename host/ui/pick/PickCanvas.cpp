#include "host/ui/pick/PickCanvas.h"

#include "host/ui/pick/PickPaint.h"
#include "toolkit/Look.h"

#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

namespace host {

using namespace Qt::StringLiterals;

PickCanvas::PickCanvas(QWidget* parent) : PlanSurface(parent) {
    setObjectName(u"pickCanvas"_s);
    setAccessibleName(u"在平面图上选择构件"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PickCanvas::Begin(const FloorPlanModel& model, int floor, ComponentSource componentSource) {
    m_model = model;
    m_source = std::move(componentSource);
    m_state = {};
    m_state.floor = floor < int(m_model.floors.size()) ? std::max(0, floor) : 0;
    ReadFloor();
    emit FloorChanged(m_state.floor);
    emit Changed();
}

void PickCanvas::SetModel(const FloorPlanModel& model) {
    const PlanFloor* before = Floor();
    const QString name = before == nullptr ? QString() : before->name;
    const qint32 ppid = before == nullptr ? 0 : before->ppid;
    m_model = model;
    m_state.floor = std::max(0, FindFloor(m_model, name, ppid));
    m_state.hovered = -1;
    m_state.cursor = -1;
    m_state.front = -1;
    ReadFloor();
    emit FloorChanged(m_state.floor);
    emit Changed();
    if (m_model.floors.empty()) {
        emit Cancelled();
    }
}

void PickCanvas::SetFloor(int floor) {
    Apply(PickOnFloor(m_state, floor, int(m_model.floors.size())));
}

void PickCanvas::Clear() {
    m_source = {};
    m_model = {};
    m_state = {};
    m_components.clear();
    LayOut();
}

const PlanFloor* PickCanvas::Floor() const {
    return m_state.floor < int(m_model.floors.size()) ? &m_model.floors[size_t(m_state.floor)]
                                                      : nullptr;
}

const PlanComponent* PickCanvas::Current() const {
    if (m_state.cursor < 0 || m_boxes.boxes[size_t(m_state.cursor)].flag < 0) {
        return nullptr;
    }
    return &m_components[size_t(m_boxes.boxes[size_t(m_state.cursor)].flag)].component;
}

void PickCanvas::Apply(PickState next) {
    const bool isOtherFloor = next.floor != m_state.floor;
    m_state = std::move(next);
    if (isOtherFloor) {
        ReadFloor();
        emit FloorChanged(m_state.floor);
    }
    update();
    emit Changed();
}

void PickCanvas::ReadFloor() {
    m_components.clear();
    if (const PlanFloor* floor = Floor(); floor != nullptr && m_source) {
        m_components = PlaceComponents(m_source(floor->ppid, floor->name), *floor);
    }
    LayOut();
    emit NeedsOtherSize();
    update();
}

void PickCanvas::LayOut() {
    m_layout = FloorPlanLayout();
    m_boxes = FlagLayout();
    if (Floor() != nullptr) {
        m_layout = LayoutFloorPlan(*Floor(), size(), ShelfCount(m_components));
        PinBubbles(m_layout, m_visible);
        m_boxes = LayoutComponents(m_layout, m_components, m_state.front);
    }
    // With another size the rest of a place may be others.
    m_state.hovered = -1;
    m_state.cursor = std::min(m_state.cursor, int(m_boxes.boxes.size()) - 1);
}

QSize PickCanvas::SizeIn(const QSize& window) const {
    return Floor() == nullptr
               ? window
               : LayoutFloorPlan(*Floor(), window, ShelfCount(m_components)).size.toSize();
}

void PickCanvas::SetVisibleArea(const QRect& area) {
    if (area != m_visible) {
        m_visible = area;
        LayOut();
        update();
    }
}

void PickCanvas::Hit(int box, bool toggle) {
    const FlagBox& hit = m_boxes.boxes[size_t(box)];
    if (hit.flag < 0) {
        OfferRest(box, toggle);
    } else {
        Pick(hit.flag, toggle);
    }
}

void PickCanvas::Pick(int component, bool toggle) {
    const PlanComponent& hit = m_components[size_t(component)].component;
    PickState next = toggle ? TogglePick(m_state, hit) : PickOnly(m_state, hit);
    // What was folded comes to the front.
    next.front = component;
    m_state.front = component;
    LayOut();
    next.hovered = -1;
    next.cursor = BoxOf(m_boxes, component);
    Apply(std::move(next));
}

/// What a place has no room for, as a menu; those that are picked are ticked.
void PickCanvas::OfferRest(int box, bool toggle) {
    const FlagBox offered = m_boxes.boxes[size_t(box)];
    auto* menu = new QMenu(this);
    menu->setObjectName(u"pickMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const int at : offered.rest) {
        const PlanComponent component = m_components[size_t(at)].component;
        QAction* action = menu->addAction(ComponentCaption(component).replace(u'&', u"&&"_s));
        action->setCheckable(true);
        action->setChecked(IsPicked(m_state, component));
        connect(action, &QAction::triggered, this, [this, component, toggle] {
            // The floor may have been read anew while the menu stood open.
            for (int now = 0; now < int(m_components.size()); ++now) {
                if (IsSameComponent(m_components[size_t(now)].component, component)) {
                    Pick(now, toggle);
                    return;
                }
            }
        });
    }
    menu->popup(mapToGlobal(offered.rect.bottomLeft().toPoint()));
}

void PickCanvas::MoveCursor(int dx, int dy) {
    PickState next = m_state;
    next.cursor = NextBox(m_boxes, m_state.cursor, dx, dy);
    const bool isThere = next.cursor >= 0;
    Apply(std::move(next));
    if (isThere) {
        emit AreaWanted(m_boxes.boxes[size_t(m_state.cursor)].rect);
    }
}

void PickCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPick(painter, {Floor(), m_layout, m_components, m_boxes, m_state, m_visible, hasFocus()});
}

bool PickCanvas::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return PlanSurface::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const int box = BoxAt(m_boxes, help->pos());
    if (box < 0) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(
            help->globalPos(),
            toolkit::PlainTip(ComponentTip(*Floor(), m_components, m_boxes.boxes[size_t(box)])),
            this);
    }
    return true;
}

} // namespace host
