// What a person does to the floor plan by mouse and keyboard.
#include "host/ui/plan/FloorPlanCanvas.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <map>

namespace host {

namespace {

const std::map<int, std::pair<int, int>>& ArrowSteps() {
    static const std::map<int, std::pair<int, int>> steps = {{Qt::Key_Left, {-1, 0}},
                                                             {Qt::Key_Right, {1, 0}},
                                                             {Qt::Key_Up, {0, 1}},
                                                             {Qt::Key_Down, {0, -1}}};
    return steps;
}

} // namespace

void FloorPlanCanvas::AskForPhotos() {
    if (const PlanIntersection* place = Chosen()) {
        emit PhotosWanted(place->positionKey);
    }
}

void FloorPlanCanvas::AskForMenu(const std::vector<int>& wanted, int place, const QPoint& at) {
    FlagMenuRequest request;
    for (const int flag : wanted) {
        request.flags.push_back(m_flags[flag].flag);
    }
    if (place >= 0) {
        request.place = PlaceCaption(*Floor(), Floor()->intersections[place]);
        request.positionKey = Floor()->intersections[place].positionKey;
    }
    request.at = mapToGlobal(at);
    if (!request.flags.empty() || place >= 0) {
        emit FlagMenuWanted(request);
    }
}

void FloorPlanCanvas::OpenBox(int box) {
    const FlagBox opened = m_flagLayout.boxes[box];
    // A copy: what the flag opens may have the marks drawn anew.
    if (opened.flag >= 0) {
        emit FlagOpened(MarkFlag(m_flags[opened.flag].flag));
    } else {
        AskForMenu(opened.rest, opened.place, opened.rect.bottomLeft().toPoint());
    }
}

/// Enter: the only flag, the choice between several, or the list of photos where there is none.
void FloorPlanCanvas::OpenChosen() {
    if (Floor() == nullptr) {
        return;
    }
    const std::vector<int> here = FlagsAt(m_state.chosen == kNoPlace ? kShelf : m_state.chosen);
    if (here.size() == 1) {
        emit FlagOpened(MarkFlag(m_flags[here.front()].flag));
    } else if (here.empty()) {
        AskForPhotos();
    } else {
        AskForMenu(here, m_state.chosen, MenuPoint(here));
    }
}

/// Below the first of the flags.
QPoint FloorPlanCanvas::MenuPoint(const std::vector<int>& wanted) const {
    if (wanted.empty()) {
        return CentreOf(m_state.chosen);
    }
    return m_flagLayout.boxes[BoxOf(m_flagLayout, wanted.front())].rect.bottomLeft().toPoint();
}

void FloorPlanCanvas::mouseMoveEvent(QMouseEvent* event) {
    Apply(Hover(m_state, PlaceAt(m_layout, event->position()),
                BoxAt(m_flagLayout, event->position())));
    setCursor(m_state.hovered == kNoPlace && m_state.hoveredFlag < 0 ? Qt::ArrowCursor
                                                                     : Qt::PointingHandCursor);
}

void FloorPlanCanvas::leaveEvent(QEvent*) {
    Apply(Hover(m_state, kNoPlace));
}

void FloorPlanCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_pressedBox = BoxAt(m_flagLayout, event->position());
    if (m_pressedBox < 0) {
        Apply(Click(m_state, PlaceAt(m_layout, event->position())));
    }
}

void FloorPlanCanvas::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = m_pressedBox;
    m_pressedBox = -1;
    if (event->button() == Qt::LeftButton && pressed >= 0 &&
        pressed == BoxAt(m_flagLayout, event->position())) {
        OpenBox(pressed);
    }
}

void FloorPlanCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    const int place = PlaceAt(m_layout, event->position());
    // The first click on a flag has opened it.
    if (event->button() != Qt::LeftButton || place == kNoPlace ||
        BoxAt(m_flagLayout, event->position()) >= 0) {
        return;
    }
    Apply(Click(m_state, place));
    AskForPhotos();
}

void FloorPlanCanvas::contextMenuEvent(QContextMenuEvent* event) {
    if (Floor() == nullptr) {
        return;
    }
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const std::vector<int> here = FlagsAt(m_state.chosen == kNoPlace ? kShelf : m_state.chosen);
        if (!here.empty() || m_state.chosen != kNoPlace) {
            AskForMenu(here, m_state.chosen, MenuPoint(here));
        }
        return;
    }
    const int box = BoxAt(m_flagLayout, event->pos());
    if (box >= 0) {
        const FlagBox& hit = m_flagLayout.boxes[box];
        AskForMenu(hit.flag >= 0 ? std::vector<int>{hit.flag} : hit.rest, hit.place, event->pos());
        return;
    }
    const int place = PlaceAt(m_layout, event->pos());
    if (place != kNoPlace) {
        AskForMenu(FlagsAt(place), place, event->pos());
    }
}

void FloorPlanCanvas::keyPressEvent(QKeyEvent* event) {
    const auto step = ArrowSteps().find(event->key());
    if (step != ArrowSteps().end()) {
        Apply(Step(m_state, m_model, step->second.first, step->second.second));
        ShowChosen();
    } else if (event->key() == Qt::Key_PageUp) {
        SetFloor(m_state.floor - 1);
    } else if (event->key() == Qt::Key_PageDown) {
        SetFloor(m_state.floor + 1);
    } else if (event->key() == Qt::Key_Space && Chosen() != nullptr) {
        Apply(Click(m_state, m_state.chosen));
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        OpenChosen();
    } else if (event->key() == Qt::Key_Escape) {
        Apply(Retreat(m_state));
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FloorPlanCanvas::focusInEvent(QFocusEvent*) {
    update();
}

void FloorPlanCanvas::focusOutEvent(QFocusEvent*) {
    update();
}

} // namespace host
