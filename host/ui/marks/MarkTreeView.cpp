#include "host/ui/marks/MarkTreeView.h"

#include "toolkit/Look.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

MarkTreeView::MarkTreeView(QWidget* parent) : QTreeView(parent) {
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setExpandsOnDoubleClick(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setIndentation(18);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
}

void MarkTreeView::SetHint(const QString& text) {
    m_hint = text;
    viewport()->update();
}

void MarkTreeView::ShareWidth() {
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::Fixed);
    FitCounts({});
}

void MarkTreeView::FitCounts(const QString& longest) {
    const int least = fontMetrics().horizontalAdvance(u"1,000,000"_s);
    header()->resizeSection(1, std::max(least, fontMetrics().horizontalAdvance(longest)) + 12);
}

void MarkTreeView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (m_hint.isEmpty() || (model() != nullptr && model()->rowCount() > 0)) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(toolkit::Colors::HintText());
    painter.drawText(viewport()->rect().adjusted(12, 8, -12, -8),
                     Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}

} // namespace host
