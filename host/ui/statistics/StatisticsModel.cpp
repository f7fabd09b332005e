#include "host/ui/statistics/StatisticsModel.h"

#include "toolkit/Look.h"

#include <algorithm>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

void StatisticsModel::SetChart(StatisticsChart chart) {
    beginResetModel();
    m_chart = std::move(chart);
    m_longest = 0;
    for (const StatisticsBar& bar : m_chart.bars) {
        m_longest = std::max(m_longest, bar.count);
    }
    endResetModel();
}

double StatisticsModel::LengthOf(int row) const {
    return m_longest == 0 ? 0 : double(m_chart.bars[size_t(row)].count) / double(m_longest);
}

int StatisticsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_chart.bars.size());
}

int StatisticsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant StatisticsModel::data(const QModelIndex& index, int role) const {
    const StatisticsBar& bar = m_chart.bars[size_t(index.row())];
    const QString share = ShareText(bar.count, m_chart.total);
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case kName:
            return bar.name;
        case kCount:
            return QString::number(bar.count);
        default:
            return share;
        }
    case Qt::DecorationRole:
        return index.column() != kCount ? QVariant()
               : bar.color.isValid()    ? QVariant(bar.color)
                                        : QVariant(toolkit::Colors::Accent());
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (index.column() == kShare ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole:
        return toolkit::PlainTip(u"%1：%2，占 %3\n单击在控制台中列出"_s.arg(
            bar.name, CountText(m_chart.kind, bar.count), share));
    case Qt::AccessibleTextRole:
        return u"%1，%2，占 %3"_s.arg(bar.name, CountText(m_chart.kind, bar.count), share);
    default:
        return {};
    }
}

QVariant StatisticsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == kName ? u"名称"_s : section == kCount ? u"数量"_s : u"占比"_s;
}

} // namespace host
