// How a bar of the statistics chart looks.
#pragma once

#include <QStyledItemDelegate>

namespace host {

class StatisticsModel;

/// For the column of counts: the bar in its colour, from the left, and the number behind it.
class BarPaint final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The model must outlive the delegate.
    BarPaint(StatisticsModel& rows, QObject* parent);

    /// Where a bar lies in its cell; at least a pixel wide for what there is of.
    ///
    /// @param length  0 to 1, of the room that the number leaves.
    [[nodiscard]] static QRect BarIn(const QRect& cell, double length, int numberWidth);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    StatisticsModel& m_model;
};

} // namespace host
