#include "host/ui/plan/FloorPlanCanvas.h"

#include "host/ui/Blink.h"
#include "host/ui/LocateText.h"
#include "host/ui/plan/FloorPlanPaint.h"
#include "host/ui/plan/PlaceCard.h"
#include "toolkit/Look.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace host {

using namespace Qt::StringLiterals;

FloorPlanCanvas::FloorPlanCanvas(QWidget* parent) : PlanSurface(parent) {
    setObjectName(u"floorPlanCanvas"_s);
    setAccessibleName(u"楼层平面图"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_card = new PlaceCard(this);
    connect(m_card, &PlaceCard::PhotosWanted, this, &FloorPlanCanvas::AskForPhotos);
    m_blink = new Blink(this);
    connect(m_blink, &Blink::Changed, this, qOverload<>(&QWidget::update));
}

void FloorPlanCanvas::SetModel(FloorPlanModel newModel) {
    const PlanFloor* before = Floor();
    const QString floorBefore = before == nullptr ? QString() : before->name;
    const qint32 projectBefore = before == nullptr ? 0 : before->ppid;
    const QString keyBefore = Chosen() == nullptr ? QString() : Chosen()->positionKey;
    m_model = std::move(newModel);
    FloorPlanState next;
    if (before != nullptr) {
        next.floor = std::max(0, FindFloor(m_model, floorBefore, projectBefore));
    }
    if (const auto place = FindPlace(m_model, keyBefore)) {
        next = Locate(*place);
    }
    m_state = next;
    ReadFlags();
    emit FloorChanged(m_state.floor);
    emit ChoiceChanged();
}

void FloorPlanCanvas::SetFloor(int floor) {
    Apply(ShowFloor(m_state, m_model, floor));
}

void FloorPlanCanvas::Show(int floor, int place) {
    const auto& places = m_model.floors[size_t(floor)].intersections;
    Apply(Locate({floor, place < 0 || place >= int(places.size()) ? kNoPlace : place}));
}

bool FloorPlanCanvas::LocateKey(const QString& positionKey) {
    const auto place = FindPlace(m_model, positionKey);
    if (place) {
        Apply(Locate(*place));
        ShowChosen();
    }
    return place.has_value();
}

void FloorPlanCanvas::SetMarks(const ShownMarks* shownMarks) {
    m_marks = shownMarks;
    ReadFlags();
}

bool FloorPlanCanvas::LocateFlag(const MarkFlag& flag) {
    const int floor = FloorOfFlag(m_model, flag);
    if (floor < 0) {
        return false;
    }
    Apply(ShowFloor(m_state, m_model, floor));
    m_blinking = flag;
    // A name that the code page lacks comes back from it in another shape.
    m_blinking.floor = m_model.floors[floor].name;
    m_blink->Start();
    // A flag that was folded comes to the front.
    LayOutFlags();
    const int found = BlinkingFlag();
    if (found >= 0 && m_flags[found].place != kShelf) {
        Apply(Locate({floor, m_flags[found].place}));
    }
    if (const int box = BoxOf(m_flagLayout, found); found >= 0 && box >= 0) {
        emit AreaWanted(m_flagLayout.boxes[box].rect);
    }
    return true;
}

const PlanFloor* FloorPlanCanvas::Floor() const {
    return m_state.floor < int(m_model.floors.size()) ? &m_model.floors[m_state.floor] : nullptr;
}

const PlanIntersection* FloorPlanCanvas::Chosen() const {
    const PlanFloor* floor = Floor();
    return floor == nullptr || m_state.chosen < 0 ? nullptr : &floor->intersections[m_state.chosen];
}

QPoint FloorPlanCanvas::CentreOf(int place) const {
    return m_layout.places[place].toPoint();
}

const MarkFlag* FloorPlanCanvas::Blinking() const {
    return m_blink->IsOn() ? &m_blinking : nullptr;
}

int FloorPlanCanvas::BlinkingFlag() const {
    for (int at = 0; m_blink->IsOn() && at < int(m_flags.size()); ++at) {
        if (IsSameFlag(m_flags[at].flag, m_blinking)) {
            return at;
        }
    }
    return -1;
}

std::vector<int> FloorPlanCanvas::FlagsAt(int place) const {
    std::vector<int> found;
    for (int at = 0; at < int(m_flags.size()); ++at) {
        if (m_flags[at].place == place) {
            found.push_back(at);
        }
    }
    return found;
}

void FloorPlanCanvas::Apply(const FloorPlanState& next) {
    if (next == m_state) {
        return;
    }
    const FloorPlanState before = m_state;
    m_state = next;
    if (m_state.floor != before.floor) {
        m_blink->Stop();
        ReadFlags();
    }
    ShowCard();
    update();
    if (m_state.floor != before.floor) {
        emit FloorChanged(m_state.floor);
    }
    if (m_state.floor != before.floor || m_state.chosen != before.chosen) {
        emit ChoiceChanged();
    }
}

void FloorPlanCanvas::ReadFlags() {
    m_flags.clear();
    if (m_marks != nullptr && Floor() != nullptr) {
        m_flags = PlaceFlags(*m_marks, *Floor());
    }
    m_state = ForgetFlags(m_state);
    m_pressedBox = -1;
    LayOut();
    emit NeedsOtherSize();
    ShowCard();
    update();
}

QSize FloorPlanCanvas::SizeIn(const QSize& window) const {
    return Floor() == nullptr
               ? window
               : LayoutFloorPlan(*Floor(), window, ShelfCount(m_flags)).size.toSize();
}

void FloorPlanCanvas::SetVisibleArea(const QRect& area) {
    if (area == m_visible) {
        return;
    }
    m_visible = area;
    LayOut();
    ShowCard();
    update();
}

void FloorPlanCanvas::LayOut() {
    m_layout = FloorPlanLayout();
    if (Floor() != nullptr) {
        m_layout = LayoutFloorPlan(*Floor(), size(), ShelfCount(m_flags));
        PinBubbles(m_layout, m_visible);
    }
    LayOutFlags();
}

void FloorPlanCanvas::LayOutFlags() {
    m_flagLayout = LayoutFlags(m_layout, m_flags, BlinkingFlag());
    m_state = ForgetFlags(m_state);
}

void FloorPlanCanvas::ShowCard() {
    const PlanIntersection* place = Chosen();
    if (!m_state.cardOpen || place == nullptr) {
        m_card->hide();
    } else {
        m_card->ShowFor(PlaceCaption(*Floor(), *place), place->photos,
                        PlaceRect(m_layout, m_state.chosen), m_visible);
    }
}

void FloorPlanCanvas::ShowChosen() {
    if (Chosen() != nullptr) {
        emit AreaWanted(PlaceRect(m_layout, m_state.chosen));
    }
}

void FloorPlanCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int lit = m_blink->IsLit() ? BlinkingFlag() : -1;
    const FlagScene flagScene{m_flags, m_flagLayout, m_state.hoveredFlag,
                              lit < 0 ? -1 : BoxOf(m_flagLayout, lit), m_visible};
    PaintFloorPlan(painter, {m_model, m_state, m_layout, flagScene, hasFocus()});
}

void FloorPlanCanvas::resizeEvent(QResizeEvent*) {
    LayOut();
    ShowCard();
}

QString FloorPlanCanvas::TipAt(const QPoint& point) const {
    const int box = BoxAt(m_flagLayout, point);
    if (box >= 0) {
        return FlagTip(*Floor(), m_flags, m_flagLayout.boxes[box]);
    }
    const int place = PlaceAt(m_layout, point);
    if (place < 0) {
        return {};
    }
    const PlanIntersection& hit = Floor()->intersections[place];
    return u"%1 %2，%3"_s.arg(PlanFloorCaption(*Floor()), PlaceCaption(*Floor(), hit),
                              PhotosText(hit.photos));
}

bool FloorPlanCanvas::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString tip = TipAt(help->pos());
    if (tip.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(help->globalPos(), toolkit::PlainTip(tip), this);
    }
    return true;
}

} // namespace host
