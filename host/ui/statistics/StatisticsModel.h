// The rows of the statistics chart.
#pragma once

#include "host/ui/statistics/StatisticsChart.h"

#include <QAbstractTableModel>

namespace host {

/// A row for each bar. Thread: user interface.
class StatisticsModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { kName, kCount, kShare, kColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void SetChart(StatisticsChart chart);
    [[nodiscard]] const StatisticsChart& Chart() const { return m_chart; }
    /// How much of the longest bar this one is, 0 to 1.
    [[nodiscard]] double LengthOf(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    StatisticsChart m_chart;
    qint64 m_longest = 0;
};

} // namespace host
