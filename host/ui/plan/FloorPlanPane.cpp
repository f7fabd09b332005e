#include "host/ui/plan/FloorPlanPane.h"

#include "host/ui/pick/PickCanvas.h"
#include "host/ui/pick/PickPane.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/PlanScroll.h"
#include "toolkit/Look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// Widths of the list of floors: pixels, characters of the face, and what stands beside a row's
// text.
constexpr int kLeastWidth = 132;
constexpr int kShortRow = 15;
constexpr int kLongRow = 40;
constexpr int kRowMargins = 12;

} // namespace

FloorPlanPane::FloorPlanPane(QWidget* parent) : QWidget(parent) {
    m_floors = new QListWidget(this);
    m_floors->setObjectName(u"floorList"_s);
    m_floors->setAccessibleName(u"楼层"_s);
    m_floors->setToolTip(u"楼层（在平面图中按 PageUp、PageDown 切换）"_s);
    m_floors->setFrameShape(QFrame::NoFrame);
    auto* caption = new QLabel(u"楼层"_s, this);
    caption->setContentsMargins(4, 8, 8, 4);
    caption->setBuddy(m_floors);
    m_canvas = new FloorPlanCanvas(this);
    m_scroll = new PlanScroll(m_canvas, this);
    m_picks = new PickPane(this);
    m_plans = new QStackedWidget(this);
    m_plans->addWidget(m_scroll);
    m_plans->addWidget(m_picks);
    // The bar of a pick that isn't there must not make the window wide.
    m_plans->setMinimumSize(m_scroll->minimumSize());

    auto* left = new QVBoxLayout;
    left->setContentsMargins(8, 0, 0, 8);
    left->setSpacing(0);
    left->addWidget(caption);
    left->addWidget(m_floors, 1);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(left);
    all->addWidget(m_plans, 1);
    FitFloors();

    connect(m_floors, &QListWidget::currentRowChanged, this, &FloorPlanPane::TakeFloor);
    connect(m_canvas, &FloorPlanCanvas::FloorChanged, this, &FloorPlanPane::ShowFloorRow);
    connect(&m_picks->Canvas(), &PickCanvas::FloorChanged, this, &FloorPlanPane::ShowFloorRow);
}

void FloorPlanPane::TakeFloor(int row) {
    if (IsPicking()) {
        m_picks->Canvas().SetFloor(row);
    } else {
        m_canvas->SetFloor(row);
    }
}

void FloorPlanPane::ShowFloorRow() {
    const QSignalBlocker quiet(m_floors);
    m_floors->setCurrentRow(IsPicking() ? m_picks->Canvas().State().floor
                                        : m_canvas->State().floor);
}

void FloorPlanPane::BeginPick(const ComponentSource& source) {
    const int floor = IsPicking() ? m_picks->Canvas().State().floor : m_canvas->State().floor;
    m_plans->setCurrentWidget(m_picks);
    m_picks->Begin(m_canvas->Model(), floor, source);
}

void FloorPlanPane::EndPick() {
    if (!IsPicking()) {
        return;
    }
    m_plans->setCurrentWidget(m_scroll);
    m_picks->Canvas().Clear();
    ShowFloorRow();
    m_canvas->setFocus();
}

bool FloorPlanPane::IsPicking() const {
    return m_plans->currentWidget() == m_picks;
}

QPoint FloorPlanPane::Scrolled() const {
    return {m_scroll->horizontalScrollBar()->value(), m_scroll->verticalScrollBar()->value()};
}

void FloorPlanPane::ScrollTo(const QPoint& place) {
    m_scroll->horizontalScrollBar()->setValue(place.x());
    m_scroll->verticalScrollBar()->setValue(place.y());
}

void FloorPlanPane::SetModel(FloorPlanModel model) {
    m_canvas->SetModel(std::move(model));
    if (IsPicking()) {
        m_picks->Canvas().SetModel(m_canvas->Model());
    }
    FillFloors();
}

void FloorPlanPane::FillFloors() {
    const QSignalBlocker quiet(m_floors);
    m_floors->clear();
    for (const PlanFloor& floor : m_canvas->Model().floors) {
        const PhotoCount count = CountPhotos(floor);
        const QString caption = PlanFloorCaption(floor);
        auto* item = new QListWidgetItem(
            count.Total() > 0 ? u"%1（%2）"_s.arg(caption, CountText(count)) : caption, m_floors);
        item->setToolTip(toolkit::PlainTip(
            (floor.name.isEmpty() ? u"没有楼层的"_s : caption + u"："_s) + PhotosText(count)));
        item->setSizeHint(QSize(0, m_floors->fontMetrics().height() + 12));
    }
    ShowFloorRow();
    FitFloors();
}

/// As wide as its longest row, so that the counts can be read; rows far longer are elided.
void FloorPlanPane::FitFloors() {
    const QFontMetrics metrics = m_floors->fontMetrics();
    int longest = 0;
    for (int row = 0; row < m_floors->count(); ++row) {
        longest = std::max(longest, metrics.horizontalAdvance(m_floors->item(row)->text()));
    }
    const int beside = kRowMargins + m_floors->verticalScrollBar()->sizeHint().width();
    const int least = std::max(kLeastWidth, metrics.averageCharWidth() * kShortRow);
    m_floors->setFixedWidth(std::clamp(longest + beside, least,
                                       std::max(least, metrics.averageCharWidth() * kLongRow)));
}

QString FloorPlanPane::CurrentFloor() const {
    const int row = m_canvas->State().floor;
    const auto& list = m_canvas->Model().floors;
    return row < int(list.size()) ? list[row].name : QString();
}

} // namespace host
