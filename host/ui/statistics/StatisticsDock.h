// The dock that counts photos and issues by mark, place, state and week.
#pragma once

#include "host/ui/statistics/StatisticsChart.h"

#include <QDockWidget>

class QComboBox;
class QLabel;
class QTreeView;

namespace host {

class StatisticsModel;

/// Lets the person choose what is counted and by what, shows the bars that it is given, and tells
/// which one is wanted, by a click or by Enter. It counts nothing itself. Lives on the interface
/// thread, owned by the main window.
class StatisticsDock final : public QDockWidget {
    Q_OBJECT

public:
    explicit StatisticsDock(QWidget* parent);

    [[nodiscard]] CountedKind Kind() const;
    [[nodiscard]] CountedBy Grouping() const;
    /// False also behind another tab.
    [[nodiscard]] bool IsInSight() const { return m_isInSight; }
    /// The bar that was current keeps the keys if there is one of its name.
    void SetChart(const StatisticsChart& chart);

signals:
    /// Another choice, or the dock has come in sight: what it shows may be old.
    void ChartWanted();
    void BarWanted(int row);

private:
    [[nodiscard]] QComboBox* MakeChoice(const QString& name, const QString& caption);
    void MakeBars(QWidget* content);
    void NameGroupings();
    void OnVisible(bool visible);

    StatisticsModel* m_model = nullptr;
    QComboBox* m_kind = nullptr;
    QComboBox* m_grouping = nullptr;
    QLabel* m_total = nullptr;
    QTreeView* m_bars = nullptr;
    QLabel* m_hint = nullptr;
    bool m_isInSight = false;
};

} // namespace host
