#include "host/ui/HintTable.h"

#include "toolkit/Look.h"

#include <QHeaderView>
#include <QPainter>

namespace host {

HintTable::HintTable(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(fontMetrics().height() + 12);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void HintTable::SetHint(const QString& text) {
    m_hint = text;
    viewport()->update();
}

void HintTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m_hint.isEmpty() || (model() != nullptr && model()->rowCount() > 0)) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(toolkit::Colors::HintText());
    painter.drawText(viewport()->rect().adjusted(12, 8, -12, -8),
                     Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}

} // namespace host
