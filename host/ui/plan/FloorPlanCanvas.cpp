#include "host/ui/plan/FloorPlanCanvas.h"

#include "host/ui/LocateText.h"
#include "host/ui/plan/FlagBlink.h"
#include "host/ui/plan/FloorPlanPaint.h"
#include "host/ui/plan/PlaceCard.h"
#include "toolkit/Look.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace host {

using namespace Qt::StringLiterals;

FloorPlanCanvas::FloorPlanCanvas(QWidget* parent) : QWidget(parent) {
    setObjectName(u"floorPlanCanvas"_s);
    setAccessibleName(u"楼层平面图"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    card = new PlaceCard(this);
    connect(card, &PlaceCard::PhotosWanted, this, &FloorPlanCanvas::AskForPhotos);
    blink = new FlagBlink(this);
    connect(blink, &FlagBlink::Changed, this, qOverload<>(&QWidget::update));
}

void FloorPlanCanvas::SetModel(FloorPlanModel newModel) {
    const PlanFloor* before = Floor();
    const QString floorBefore = before == nullptr ? QString() : before->name;
    const qint32 projectBefore = before == nullptr ? 0 : before->ppid;
    const QString keyBefore = Chosen() == nullptr ? QString() : Chosen()->positionKey;
    model = std::move(newModel);
    FloorPlanState next;
    if (before != nullptr)
        next.floor = std::max(0, FindFloor(model, floorBefore, projectBefore));
    if (const auto place = FindPlace(model, keyBefore))
        next = Locate(*place);
    state = next;
    ReadFlags();
    emit FloorChanged(state.floor);
    emit ChoiceChanged();
}

void FloorPlanCanvas::SetFloor(int floor) {
    Apply(ShowFloor(state, model, floor));
}

bool FloorPlanCanvas::LocateKey(const QString& positionKey) {
    const auto place = FindPlace(model, positionKey);
    if (place) {
        Apply(Locate(*place));
        ShowChosen();
    }
    return place.has_value();
}

void FloorPlanCanvas::SetMarks(const ShownMarks* shownMarks) {
    marks = shownMarks;
    ReadFlags();
}

bool FloorPlanCanvas::LocateFlag(const MarkFlag& flag) {
    const int floor = FloorOfFlag(model, flag);
    if (floor < 0)
        return false;
    Apply(ShowFloor(state, model, floor));
    MarkFlag wanted = flag;
    // A name that the code page lacks comes back from it in another shape.
    wanted.floor = model.floors[floor].name;
    blink->Start(wanted);
    // A flag that was folded comes to the front.
    LayOutFlags();
    const int found = BlinkingFlag();
    if (found >= 0 && flags[found].place != kShelf)
        Apply(Locate({floor, flags[found].place}));
    if (const int box = BoxOf(flagLayout, found); found >= 0 && box >= 0)
        emit AreaWanted(flagLayout.boxes[box].rect);
    return true;
}

const PlanFloor* FloorPlanCanvas::Floor() const {
    return state.floor < int(model.floors.size()) ? &model.floors[state.floor] : nullptr;
}

const PlanIntersection* FloorPlanCanvas::Chosen() const {
    const PlanFloor* floor = Floor();
    return floor == nullptr || state.chosen < 0 ? nullptr : &floor->intersections[state.chosen];
}

QPoint FloorPlanCanvas::CentreOf(int place) const {
    return layout.places[place].toPoint();
}

int FloorPlanCanvas::BlinkingFlag() const {
    for (int at = 0; blink->Flag() && at < int(flags.size()); ++at) {
        if (IsSameFlag(flags[at].flag, *blink->Flag()))
            return at;
    }
    return -1;
}

std::vector<int> FloorPlanCanvas::FlagsAt(int place) const {
    std::vector<int> found;
    for (int at = 0; at < int(flags.size()); ++at) {
        if (flags[at].place == place)
            found.push_back(at);
    }
    return found;
}

void FloorPlanCanvas::Apply(const FloorPlanState& next) {
    if (next == state)
        return;
    const FloorPlanState before = state;
    state = next;
    if (state.floor != before.floor) {
        blink->Stop();
        ReadFlags();
    }
    ShowCard();
    update();
    if (state.floor != before.floor)
        emit FloorChanged(state.floor);
    if (state.floor != before.floor || state.chosen != before.chosen)
        emit ChoiceChanged();
}

void FloorPlanCanvas::ReadFlags() {
    flags.clear();
    if (marks != nullptr && Floor() != nullptr)
        flags = PlaceFlags(*marks, *Floor());
    state = ForgetFlags(state);
    pressedBox = -1;
    LayOut();
    emit NeedsOtherSize();
    ShowCard();
    update();
}

QSize FloorPlanCanvas::SizeIn(const QSize& window) const {
    return Floor() == nullptr ? window
                              : LayoutFloorPlan(*Floor(), window, ShelfCount(flags)).size.toSize();
}

void FloorPlanCanvas::SetVisibleArea(const QRect& area) {
    if (area == visible)
        return;
    visible = area;
    LayOut();
    ShowCard();
    update();
}

void FloorPlanCanvas::LayOut() {
    layout = FloorPlanLayout();
    if (Floor() != nullptr) {
        layout = LayoutFloorPlan(*Floor(), size(), ShelfCount(flags));
        PinBubbles(layout, visible);
    }
    LayOutFlags();
}

void FloorPlanCanvas::LayOutFlags() {
    flagLayout = LayoutFlags(layout, flags, BlinkingFlag());
    state = ForgetFlags(state);
}

void FloorPlanCanvas::ShowCard() {
    const PlanIntersection* place = Chosen();
    if (!state.cardOpen || place == nullptr)
        card->hide();
    else
        card->ShowFor(PlaceCaption(*Floor(), *place), place->photos,
                      PlaceRect(layout, state.chosen), visible);
}

void FloorPlanCanvas::ShowChosen() {
    if (Chosen() != nullptr)
        emit AreaWanted(PlaceRect(layout, state.chosen));
}

void FloorPlanCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int lit = blink->IsLit() ? BlinkingFlag() : -1;
    const FlagScene flagScene{flags, flagLayout, state.hoveredFlag,
                              lit < 0 ? -1 : BoxOf(flagLayout, lit), visible};
    PaintFloorPlan(painter, {model, state, layout, flagScene, hasFocus()});
}

void FloorPlanCanvas::resizeEvent(QResizeEvent*) {
    LayOut();
    ShowCard();
}

QString FloorPlanCanvas::TipAt(const QPoint& point) const {
    const int box = BoxAt(flagLayout, point);
    if (box >= 0)
        return FlagTip(*Floor(), flags, flagLayout.boxes[box]);
    const int place = PlaceAt(layout, point);
    if (place < 0)
        return {};
    const PlanIntersection& hit = Floor()->intersections[place];
    return u"%1 %2，%3"_s.arg(PlanFloorCaption(*Floor()), PlaceCaption(*Floor(), hit),
                              PhotosText(hit.photos));
}

bool FloorPlanCanvas::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString tip = TipAt(help->pos());
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), toolkit::PlainTip(tip), this);
    return true;
}

} // namespace host
