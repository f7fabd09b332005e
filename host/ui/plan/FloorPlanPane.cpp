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
    floors = new QListWidget(this);
    floors->setObjectName(u"floorList"_s);
    floors->setAccessibleName(u"楼层"_s);
    floors->setToolTip(u"楼层（在平面图中按 PageUp、PageDown 切换）"_s);
    floors->setFrameShape(QFrame::NoFrame);
    auto* caption = new QLabel(u"楼层"_s, this);
    caption->setContentsMargins(4, 8, 8, 4);
    caption->setBuddy(floors);
    canvas = new FloorPlanCanvas(this);
    scroll = new PlanScroll(canvas, this);

    auto* left = new QVBoxLayout;
    left->setContentsMargins(8, 0, 0, 8);
    left->setSpacing(0);
    left->addWidget(caption);
    left->addWidget(floors, 1);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(left);
    all->addWidget(scroll, 1);
    FitFloors();

    connect(floors, &QListWidget::currentRowChanged, canvas, &FloorPlanCanvas::SetFloor);
    connect(canvas, &FloorPlanCanvas::FloorChanged, this, [this](int floor) {
        const QSignalBlocker quiet(floors);
        floors->setCurrentRow(floor);
    });
    connect(canvas, &FloorPlanCanvas::NeedsOtherSize, scroll, &PlanScroll::Fit);
    connect(canvas, &FloorPlanCanvas::AreaWanted, scroll, &PlanScroll::ShowArea);
}

void FloorPlanPane::SetModel(FloorPlanModel model) {
    canvas->SetModel(std::move(model));
    FillFloors();
}

void FloorPlanPane::FillFloors() {
    const QSignalBlocker quiet(floors);
    floors->clear();
    for (const PlanFloor& floor : canvas->Model().floors) {
        const PhotoCount count = CountPhotos(floor);
        const QString caption = PlanFloorCaption(floor);
        auto* item = new QListWidgetItem(
            count.Total() > 0 ? u"%1（%2）"_s.arg(caption, CountText(count)) : caption, floors);
        item->setToolTip(toolkit::PlainTip(
            (floor.name.isEmpty() ? u"没有楼层的"_s : caption + u"："_s) + PhotosText(count)));
        item->setSizeHint(QSize(0, floors->fontMetrics().height() + 12));
    }
    floors->setCurrentRow(canvas->State().floor);
    FitFloors();
}

/// As wide as its longest row, so that the counts can be read; rows far longer are elided.
void FloorPlanPane::FitFloors() {
    const QFontMetrics metrics = floors->fontMetrics();
    int longest = 0;
    for (int row = 0; row < floors->count(); ++row)
        longest = std::max(longest, metrics.horizontalAdvance(floors->item(row)->text()));
    const int beside = kRowMargins + floors->verticalScrollBar()->sizeHint().width();
    const int least = std::max(kLeastWidth, metrics.averageCharWidth() * kShortRow);
    floors->setFixedWidth(std::clamp(longest + beside, least,
                                     std::max(least, metrics.averageCharWidth() * kLongRow)));
}

QString FloorPlanPane::CurrentFloor() const {
    const int row = canvas->State().floor;
    const auto& list = canvas->Model().floors;
    return row < int(list.size()) ? list[row].name : QString();
}

} // namespace host
