#include "host/ui/plan/FloorPlanPane.h"

#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/PlanScroll.h"
#include "toolkit/Look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
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

    auto* left = new QVBoxLayout;
    left->setContentsMargins(8, 0, 0, 8);
    left->setSpacing(0);
    left->addWidget(caption);
    left->addWidget(m_floors, 1);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(left);
    all->addWidget(m_scroll, 1);
    FitFloors();

    connect(m_floors, &QListWidget::currentRowChanged, m_canvas, &FloorPlanCanvas::SetFloor);
    connect(m_canvas, &FloorPlanCanvas::FloorChanged, this, [this](int floor) {
        const QSignalBlocker quiet(m_floors);
        m_floors->setCurrentRow(floor);
    });
    connect(m_canvas, &FloorPlanCanvas::NeedsOtherSize, m_scroll, &PlanScroll::Fit);
    connect(m_canvas, &FloorPlanCanvas::AreaWanted, m_scroll, &PlanScroll::ShowArea);
}

void FloorPlanPane::SetModel(FloorPlanModel model) {
    m_canvas->SetModel(std::move(model));
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
    m_floors->setCurrentRow(m_canvas->State().floor);
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
