#include "host/ui/statistics/BarPaint.h"

#include "host/ui/statistics/StatisticsModel.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace host {

namespace {

constexpr int kBarGap = toolkit::kStep;
constexpr int kBarInset = 5; ///< above and below

} // namespace

BarPaint::BarPaint(StatisticsModel& rows, QObject* parent)
    : QStyledItemDelegate(parent), m_model(rows) {}

QRect BarPaint::BarIn(const QRect& cell, double length, int numberWidth) {
    const int room = std::max(0, cell.width() - numberWidth - 3 * kBarGap);
    const int wide = length > 0 ? std::max(1, int(room * length)) : 0;
    return {cell.left() + kBarGap, cell.top() + kBarInset, wide,
            std::max(1, cell.height() - 2 * kBarInset)};
}

void BarPaint::paint(QPainter* painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const {
    painter->save();
    QStyleOptionViewItem ground = option;
    QApplication::style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter,
                                         option.widget);
    const QString number = index.data().toString();
    // All numbers have the room of the total, so that bars compare.
    const int numberWidth =
        option.fontMetrics.horizontalAdvance(QString::number(m_model.Chart().total));
    const QRect bar = BarIn(option.rect, m_model.LengthOf(index.row()), numberWidth);
    if (!bar.isEmpty()) {
        // A mark may be as white as the ground.
        painter->fillRect(bar, index.data(Qt::DecorationRole).value<QColor>());
        painter->setPen(toolkit::Colors::Frame());
        painter->drawRect(bar.adjusted(0, 0, -1, -1));
    }
    painter->setPen(toolkit::Colors::Text());
    const QRect text(bar.left() + bar.width() + kBarGap, option.rect.top(), numberWidth + kBarGap,
                     option.rect.height());
    painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, number);
    painter->restore();
}

} // namespace host
