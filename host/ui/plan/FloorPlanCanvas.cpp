#include "host/ui/plan/FloorPlanCanvas.h"

#include "host/ui/LocateText.h"
#include "host/ui/plan/FloorPlanPaint.h"
#include "toolkit/Icons.h"

#include <QFrame>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>

#include <map>

namespace host {

using namespace Qt::StringLiterals;

FloorPlanCanvas::FloorPlanCanvas(QWidget* parent) : QWidget(parent) {
    setObjectName(u"floorPlanCanvas"_s);
    setAccessibleName(u"楼层平面图"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(320, 240);
    MakeCard();
}

void FloorPlanCanvas::MakeCard() {
    card = new QFrame(this);
    card->setObjectName(u"planCard"_s);
    card->setFrameShape(QFrame::StyledPanel);
    card->setAutoFillBackground(true);
    card->setBackgroundRole(QPalette::Base);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(12, 8, 12, 12);
    lines->setSpacing(8);
    cardText = new QLabel(card);
    cardText->setTextFormat(Qt::PlainText);
    cardButton = new QPushButton(toolkit::Icon(u"photo"_s), u"查看此处照片"_s, card);
    cardButton->setObjectName(u"planCardPhotos"_s);
    cardButton->setToolTip(u"在控制台中列出此轴线交点的照片（Enter）"_s);
    lines->addWidget(cardText);
    lines->addWidget(cardButton);
    connect(cardButton, &QPushButton::clicked, this, &FloorPlanCanvas::AskForPhotos);
    card->hide();
}

void FloorPlanCanvas::SetModel(FloorPlanModel newModel) {
    const PlanFloor* before = Floor();
    const QString floorBefore = before == nullptr ? QString() : before->name;
    const QString keyBefore = Chosen() == nullptr ? QString() : Chosen()->positionKey;
    model = std::move(newModel);
    FloorPlanState next;
    next.floor = std::max(0, FindFloor(model, floorBefore));
    if (const auto place = FindPlace(model, keyBefore))
        next = Locate(next, *place);
    state = next;
    LayOut();
    PlaceCard();
    update();
    emit FloorChanged(state.floor);
    emit ChoiceChanged();
}

void FloorPlanCanvas::SetFloor(int floor) {
    Apply(ShowFloor(state, model, floor));
}

bool FloorPlanCanvas::LocateKey(const QString& positionKey) {
    const auto place = FindPlace(model, positionKey);
    if (place)
        Apply(Locate(state, *place));
    return place.has_value();
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

void FloorPlanCanvas::Apply(const FloorPlanState& next) {
    if (next == state)
        return;
    const FloorPlanState before = state;
    state = next;
    if (state.floor != before.floor)
        LayOut();
    PlaceCard();
    update();
    if (state.floor != before.floor)
        emit FloorChanged(state.floor);
    if (state.floor != before.floor || state.chosen != before.chosen)
        emit ChoiceChanged();
}

void FloorPlanCanvas::LayOut() {
    layout = Floor() == nullptr ? FloorPlanLayout() : LayoutFloorPlan(*Floor(), size());
}

void FloorPlanCanvas::PlaceCard() {
    const PlanIntersection* place = Chosen();
    if (!state.cardOpen || place == nullptr) {
        card->hide();
        return;
    }
    cardText->setText(
        place->photoCount > 0
            ? u"%1\n%2 张照片"_s.arg(PlaceCaption(*Floor(), *place)).arg(place->photoCount)
            : u"%1\n此处没有照片"_s.arg(PlaceCaption(*Floor(), *place)));
    cardButton->setEnabled(place->photoCount > 0);
    card->layout()->activate();
    card->setGeometry(
        PlaceCardBeside(PlaceRect(layout, state.chosen), card->sizeHint(), size()).toAlignedRect());
    card->show();
    card->raise();
}

void FloorPlanCanvas::AskForPhotos() {
    if (const PlanIntersection* place = Chosen())
        emit PhotosWanted(place->positionKey);
}

void FloorPlanCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintFloorPlan(painter, {model, state, layout, size(), hasFocus()});
}

void FloorPlanCanvas::resizeEvent(QResizeEvent*) {
    LayOut();
    PlaceCard();
}

void FloorPlanCanvas::mouseMoveEvent(QMouseEvent* event) {
    Apply(Hover(state, PlaceAt(layout, event->position())));
    setCursor(state.hovered == kNoPlace ? Qt::ArrowCursor : Qt::PointingHandCursor);
}

void FloorPlanCanvas::leaveEvent(QEvent*) {
    Apply(Hover(state, kNoPlace));
}

void FloorPlanCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Apply(Click(state, PlaceAt(layout, event->position())));
}

void FloorPlanCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    const int place = PlaceAt(layout, event->position());
    if (event->button() != Qt::LeftButton || place == kNoPlace)
        return;
    Apply(Click(state, place));
    AskForPhotos();
}

void FloorPlanCanvas::keyPressEvent(QKeyEvent* event) {
    static const std::map<int, std::pair<int, int>> steps = {{Qt::Key_Left, {-1, 0}},
                                                             {Qt::Key_Right, {1, 0}},
                                                             {Qt::Key_Up, {0, 1}},
                                                             {Qt::Key_Down, {0, -1}}};
    const auto step = steps.find(event->key());
    if (step != steps.end())
        Apply(Step(state, model, step->second.first, step->second.second));
    else if (event->key() == Qt::Key_PageUp)
        SetFloor(state.floor - 1);
    else if (event->key() == Qt::Key_PageDown)
        SetFloor(state.floor + 1);
    else if (event->key() == Qt::Key_Space && Chosen() != nullptr)
        Apply(Click(state, state.chosen));
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        AskForPhotos();
    else if (event->key() == Qt::Key_Escape)
        Apply(Retreat(state));
    else
        QWidget::keyPressEvent(event);
}

void FloorPlanCanvas::focusInEvent(QFocusEvent*) {
    update();
}

void FloorPlanCanvas::focusOutEvent(QFocusEvent*) {
    update();
}

bool FloorPlanCanvas::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int place = PlaceAt(layout, help->pos());
    if (place == kNoPlace) {
        QToolTip::hideText();
        return true;
    }
    const PlanIntersection& hit = Floor()->intersections[place];
    QToolTip::showText(help->globalPos(),
                       u"%1 %2，%3 张照片"_s
                           .arg(FloorCaption(Floor()->name).toHtmlEscaped(),
                                PlaceCaption(*Floor(), hit).toHtmlEscaped())
                           .arg(hit.photoCount),
                       this);
    return true;
}

} // namespace host
