#include "host/ui/statistics/StatisticsDock.h"

#include "host/ui/statistics/BarPaint.h"
#include "host/ui/statistics/StatisticsModel.h"
#include "toolkit/Look.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

#include <array>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kKinds{CountedKind::BimPhotos, CountedKind::PdfPhotos, CountedKind::Issues};
constexpr std::array kGroupings{CountedBy::Mark, CountedBy::Place, CountedBy::State,
                                CountedBy::Week};

int RowNamed(const StatisticsChart& chart, const QString& name) {
    for (int row = 0; row < int(chart.bars.size()); ++row) {
        if (chart.bars[size_t(row)].name == name) {
            return row;
        }
    }
    return -1;
}

} // namespace

StatisticsDock::StatisticsDock(QWidget* parent) : QDockWidget(u"统计"_s, parent) {
    setObjectName(u"statisticsDock"_s);
    auto* content = new QWidget(this);
    m_kind = MakeChoice(u"statisticsKind"_s, u"统计的内容"_s);
    m_grouping = MakeChoice(u"statisticsGrouping"_s, u"分组方式"_s);
    for (const CountedKind kind : kKinds) {
        m_kind->addItem(NameOf(kind));
    }
    m_grouping->addItems(QStringList(qsizetype(kGroupings.size())));
    m_grouping->setCurrentIndex(0);
    NameGroupings();
    connect(m_kind, &QComboBox::activated, this, [this] {
        NameGroupings();
        emit ChartWanted();
    });
    connect(m_grouping, &QComboBox::activated, this, &StatisticsDock::ChartWanted);
    auto* choices = new QHBoxLayout;
    choices->setContentsMargins(2 * toolkit::kStep, toolkit::kStep, 2 * toolkit::kStep, 0);
    choices->setSpacing(toolkit::kStep);
    choices->addWidget(m_kind, 1);
    choices->addWidget(m_grouping, 1);
    m_total = new QLabel(content);
    m_total->setObjectName(u"statisticsTotal"_s);
    m_total->setContentsMargins(2 * toolkit::kStep, toolkit::kStep, toolkit::kStep, toolkit::kStep);
    MakeBars(content);
    m_hint = new QLabel(content);
    m_hint->setObjectName(u"statisticsHint"_s);
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    auto* lines = new QVBoxLayout(content);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addLayout(choices);
    lines->addWidget(m_total);
    lines->addWidget(m_bars, 1);
    lines->addWidget(m_hint, 1);
    setWidget(content);
    connect(this, &QDockWidget::visibilityChanged, this, &StatisticsDock::OnVisible);
    SetChart({});
}

QComboBox* StatisticsDock::MakeChoice(const QString& name, const QString& caption) {
    auto* box = new QComboBox(this);
    box->setObjectName(name);
    box->setAccessibleName(caption);
    box->setToolTip(caption);
    // A dock may be narrow: the entry is cut rather than the panel beside it.
    box->setMinimumContentsLength(4);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

void StatisticsDock::MakeBars(QWidget* content) {
    m_model = new StatisticsModel(this);
    m_bars = new QTreeView(content);
    m_bars->setObjectName(u"statisticsBars"_s);
    m_bars->setAccessibleName(u"统计图"_s);
    m_bars->setFrameShape(QFrame::NoFrame);
    m_bars->setRootIsDecorated(false);
    m_bars->setUniformRowHeights(true);
    m_bars->setAllColumnsShowFocus(true);
    m_bars->setMinimumHeight(48); // a low screen has no more
    m_bars->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_bars->setModel(m_model);
    m_bars->setItemDelegateForColumn(StatisticsModel::kCount, new BarPaint(*m_model, this));
    QHeaderView* header = m_bars->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setMinimumSectionSize(40);
    header->setSectionResizeMode(StatisticsModel::kName, QHeaderView::Interactive);
    header->setSectionResizeMode(StatisticsModel::kCount, QHeaderView::Stretch);
    header->setSectionResizeMode(StatisticsModel::kShare, QHeaderView::ResizeToContents);
    header->resizeSection(StatisticsModel::kName,
                          m_bars->fontMetrics().horizontalAdvance(u"11月30日–12月6日"_s) + 16);
    connect(m_bars, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { emit BarWanted(index.row()); });
    // By the keyboard; where a click of the platform's activates too, the first one counts.
    connect(m_bars, &QTreeView::activated, this, [this](const QModelIndex& index) {
        if (QGuiApplication::mouseButtons() == Qt::NoButton && m_bars->hasFocus()) {
            emit BarWanted(index.row());
        }
    });
}

CountedKind StatisticsDock::Kind() const {
    return kKinds[size_t(m_kind->currentIndex())];
}

CountedBy StatisticsDock::Grouping() const {
    return kGroupings[size_t(m_grouping->currentIndex())];
}

void StatisticsDock::NameGroupings() {
    for (size_t at = 0; at < kGroupings.size(); ++at) {
        m_grouping->setItemText(int(at), NameOf(kGroupings[at], Kind()));
    }
}

void StatisticsDock::SetChart(const StatisticsChart& chart) {
    const QString current = m_bars->currentIndex().siblingAtColumn(0).data().toString();
    m_model->SetChart(chart);
    if (const int row = RowNamed(chart, current); row >= 0) {
        m_bars->setCurrentIndex(m_model->index(row, 0));
    }
    const bool isEmpty = chart.bars.empty();
    m_total->setVisible(!isEmpty);
    m_total->setText(u"共有"_s + CountText(chart.kind, chart.total));
    m_bars->setVisible(!isEmpty);
    m_hint->setText(chart.hint);
    m_hint->setVisible(isEmpty);
}

void StatisticsDock::OnVisible(bool visible) {
    m_isInSight = visible;
    if (visible) {
        emit ChartWanted();
    }
}

} // namespace host
