#include "toolkit/grid/GridPainter.h"

#include "toolkit/Look.h"
#include "toolkit/controls/Swatch.h"
#include "toolkit/grid/MultiPageGrid.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace toolkit {

namespace {
constexpr int kSwatchGap = 5;
} // namespace

int GridSwatchWidth() {
    return SwatchSize().width() + kSwatchGap;
}

GridPainter::GridPainter(QPainter& painter, const QWidget& view, GridTextCache& texts,
                         std::vector<GridColumnPlace> columns, const GridPaintState& state)
    : m_painter(painter), m_view(view), m_texts(texts), m_lineHeight(view.fontMetrics().height()),
      m_columns(std::move(columns)), m_state(state) {
    m_painter.setFont(view.font());
    m_texts.SetFont(view.font());
}

void GridPainter::PaintRow(const CGridRow& row, const QRect& area) {
    const int index = row.GetRowId();
    if (index == m_state.selectedRow) {
        m_painter.fillRect(area, Colors::Selection());
    } else if (index % 2 == 1) {
        m_painter.fillRect(area, Colors::AlternateRow());
    }
    for (const GridColumnPlace& place : m_columns) {
        const QRect cell(place.left, area.top(), place.width - 1, area.height() - 1);
        if (const CGridItem* item = row.GetItem(place.column)) {
            PaintCell(*item, cell, place, index);
        }
    }
    m_painter.setPen(Colors::GridLine());
    m_painter.drawLine(area.bottomLeft(), area.bottomRight());
    for (const GridColumnPlace& place : m_columns) {
        const int right = place.left + place.width - 1;
        m_painter.drawLine(right, area.top(), right, area.bottom());
        if (m_state.focus == GridCell{index, place.column}) {
            m_painter.setPen(Colors::TextAccent());
            m_painter.drawRect(place.left, area.top(), place.width - 2, area.height() - 2);
            m_painter.setPen(Colors::GridLine());
        }
    }
}

void GridPainter::PaintFocusFrame(const QRect& area) {
    m_painter.setPen(Colors::TextAccent());
    m_painter.drawRect(area.adjusted(0, 0, -1, -1));
}

void GridPainter::PaintEmptyText(const QRect& area, const QString& text) {
    m_painter.setPen(Colors::HintText());
    m_painter.drawText(area.adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap, text);
}

void GridPainter::PaintCell(const CGridItem& item, const QRect& cell, const GridColumnPlace& place,
                            int row) {
    if (const auto* icon = dynamic_cast<const CIconGridItem*>(&item)) {
        PaintIcon(*icon, cell, {row, place.column});
        return;
    }
    if (dynamic_cast<const CCheckBoxItem*>(&item) != nullptr) {
        PaintCheckBox(item, cell);
        return;
    }
    const bool enabled = item.IsEnabled() && m_view.isEnabled();
    m_painter.setPen(!enabled ? Colors::DisabledText()
                              : item.GetTextColor().value_or(Colors::Text()));
    if (const auto* colored = dynamic_cast<const CColorTxtItem*>(&item)) {
        PaintColorText(*colored, cell, place.align);
    } else {
        PaintText(item.GetText(), cell.adjusted(kGridCellPadding, 0, -kGridCellPadding, 0),
                  place.align);
    }
}

void GridPainter::PaintText(const QString& text, const QRect& area, Qt::Alignment align) {
    if (text.isEmpty() || area.width() <= 0) {
        return;
    }
    const GridLine& line = m_texts.Line(text, area.width());
    int left = area.left();
    if (align & Qt::AlignHCenter) {
        left += std::max((area.width() - line.width) / 2, 0);
    } else if (align & Qt::AlignRight) {
        left += std::max(area.width() - line.width, 0);
    }
    m_painter.drawStaticText(left, area.top() + (area.height() - m_lineHeight) / 2, line.text);
}

void GridPainter::PaintCheckBox(const CGridItem& item, const QRect& cell) {
    const QStyle* style = m_view.style();
    QStyleOptionViewItem option;
    option.initFrom(&m_view);
    option.state = item.GetValue().toBool() ? QStyle::State_On : QStyle::State_Off;
    if (item.IsEnabled() && m_view.isEnabled()) {
        option.state |= QStyle::State_Enabled;
    }
    option.rect = QRect(0, 0, style->pixelMetric(QStyle::PM_IndicatorWidth, &option, &m_view),
                        style->pixelMetric(QStyle::PM_IndicatorHeight, &option, &m_view));
    option.rect.moveCenter(cell.center());
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &option, &m_painter, &m_view);
}

void GridPainter::PaintIcon(const CIconGridItem& item, const QRect& cell, const GridCell& place) {
    const bool enabled = item.IsEnabled() && m_view.isEnabled();
    if (enabled && place == m_state.hover) {
        const bool pressed = place == m_state.pressed;
        m_painter.fillRect(cell, pressed ? Colors::Accent() : Colors::Hover());
    }
    QRect area(QPoint(), item.ImageSize());
    area.moveCenter(cell.center());
    item.Icon().paint(&m_painter, area, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
}

void GridPainter::PaintColorText(const CColorTxtItem& item, const QRect& cell,
                                 Qt::Alignment align) {
    const QRect area = cell.adjusted(kGridCellPadding, 0, -kGridCellPadding, 0);
    const QSize side = SwatchSize();
    const QRect swatch(QPoint(area.left(), area.top() + (area.height() - side.height()) / 2), side);
    const QPen pen = m_painter.pen();
    PaintSwatch(m_painter, swatch, ColorFromBgr(item.Color()));
    m_painter.setPen(pen);
    PaintText(item.GetText(), area.adjusted(GridSwatchWidth(), 0, 0, 0), align);
}

} // namespace toolkit
