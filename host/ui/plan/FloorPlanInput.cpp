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
    if (const PlanIntersection* place = Chosen())
        emit PhotosWanted(place->positionKey);
}

void FloorPlanCanvas::AskForMenu(const std::vector<int>& wanted, int place, const QPoint& at) {
    FlagMenuRequest request;
    for (const int flag : wanted)
        request.flags.push_back(flags[flag].flag);
    if (place >= 0) {
        request.place = PlaceCaption(*Floor(), Floor()->intersections[place]);
        request.positionKey = Floor()->intersections[place].positionKey;
    }
    request.at = mapToGlobal(at);
    if (!request.flags.empty() || place >= 0)
        emit FlagMenuWanted(request);
}

void FloorPlanCanvas::OpenBox(int box) {
    const FlagBox opened = flagLayout.boxes[box];
    // A copy: what the flag opens may have the marks drawn anew.
    if (opened.flag >= 0)
        emit FlagOpened(MarkFlag(flags[opened.flag].flag));
    else
        AskForMenu(opened.rest, opened.place, opened.rect.bottomLeft().toPoint());
}

/// Enter: the only flag, the choice between several, or the list of photos where there is none.
void FloorPlanCanvas::OpenChosen() {
    if (Floor() == nullptr)
        return;
    const std::vector<int> here = FlagsAt(state.chosen == kNoPlace ? kShelf : state.chosen);
    if (here.size() == 1)
        emit FlagOpened(MarkFlag(flags[here.front()].flag));
    else if (here.empty())
        AskForPhotos();
    else
        AskForMenu(here, state.chosen, MenuPoint(here));
}

/// Below the first of the flags.
QPoint FloorPlanCanvas::MenuPoint(const std::vector<int>& wanted) const {
    if (wanted.empty())
        return CentreOf(state.chosen);
    return flagLayout.boxes[BoxOf(flagLayout, wanted.front())].rect.bottomLeft().toPoint();
}

void FloorPlanCanvas::mouseMoveEvent(QMouseEvent* event) {
    Apply(Hover(state, PlaceAt(layout, event->position()), BoxAt(flagLayout, event->position())));
    setCursor(state.hovered == kNoPlace && state.hoveredFlag < 0 ? Qt::ArrowCursor
                                                                 : Qt::PointingHandCursor);
}

void FloorPlanCanvas::leaveEvent(QEvent*) {
    Apply(Hover(state, kNoPlace));
}

void FloorPlanCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressedBox = BoxAt(flagLayout, event->position());
    if (pressedBox < 0)
        Apply(Click(state, PlaceAt(layout, event->position())));
}

void FloorPlanCanvas::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = pressedBox;
    pressedBox = -1;
    if (event->button() == Qt::LeftButton && pressed >= 0 &&
        pressed == BoxAt(flagLayout, event->position()))
        OpenBox(pressed);
}

void FloorPlanCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    const int place = PlaceAt(layout, event->position());
    // The first click on a flag has opened it.
    if (event->button() != Qt::LeftButton || place == kNoPlace ||
        BoxAt(flagLayout, event->position()) >= 0)
        return;
    Apply(Click(state, place));
    AskForPhotos();
}

void FloorPlanCanvas::contextMenuEvent(QContextMenuEvent* event) {
    if (Floor() == nullptr)
        return;
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const std::vector<int> here = FlagsAt(state.chosen == kNoPlace ? kShelf : state.chosen);
        if (!here.empty() || state.chosen != kNoPlace)
            AskForMenu(here, state.chosen, MenuPoint(here));
        return;
    }
    const int box = BoxAt(flagLayout, event->pos());
    if (box >= 0) {
        const FlagBox& hit = flagLayout.boxes[box];
        AskForMenu(hit.flag >= 0 ? std::vector<int>{hit.flag} : hit.rest, hit.place, event->pos());
        return;
    }
    const int place = PlaceAt(layout, event->pos());
    if (place != kNoPlace)
        AskForMenu(FlagsAt(place), place, event->pos());
}

void FloorPlanCanvas::keyPressEvent(QKeyEvent* event) {
    const auto step = ArrowSteps().find(event->key());
    if (step != ArrowSteps().end()) {
        Apply(Step(state, model, step->second.first, step->second.second));
        ShowChosen();
    } else if (event->key() == Qt::Key_PageUp) {
        SetFloor(state.floor - 1);
    } else if (event->key() == Qt::Key_PageDown) {
        SetFloor(state.floor + 1);
    } else if (event->key() == Qt::Key_Space && Chosen() != nullptr) {
        Apply(Click(state, state.chosen));
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        OpenChosen();
    } else if (event->key() == Qt::Key_Escape) {
        Apply(Retreat(state));
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
