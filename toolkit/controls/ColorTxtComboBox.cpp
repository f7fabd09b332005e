#include "toolkit/controls/ColorTxtComboBox.h"

#include "toolkit/Look.h"
#include "toolkit/controls/Swatch.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <algorithm>

CColorTxtComboBox::CColorTxtComboBox(QWidget* parent) : DropCombo(parent) {
    setIconSize(toolkit::SwatchSize());
}

void CColorTxtComboBox::SetVeskStyle(int style) {
    m_style = style;
    Rebuild();
}

void CColorTxtComboBox::OnInitialize(const std::vector<ColorAndName>& entries) {
    m_entries = entries;
    setCurrentIndex(-1);
    Rebuild();
}

void CColorTxtComboBox::SetSelectColorName(const QString& name) {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const ColorAndName& entry) { return entry.name == name; });
    setCurrentIndex(found == m_entries.end() ? -1 : int(found - m_entries.begin()));
}

void CColorTxtComboBox::Rebuild() {
    const int selected = std::max(currentIndex(), 0);
    clear();
    for (const ColorAndName& entry : m_entries) {
        const QColor color = toolkit::ColorFromBgr(entry.color);
        if (m_style == 1) {
            addItem(toolkit::SwatchIcon(color), entry.name);
            continue;
        }
        addItem(entry.name);
        setItemData(count() - 1, color, Qt::BackgroundRole);
        setItemData(count() - 1, toolkit::TextOn(color), Qt::ForegroundRole);
    }
    setCurrentIndex(std::min(selected, count() - 1));
}

void CColorTxtComboBox::paintEvent(QPaintEvent* event) {
    if (m_style == 1 || currentIndex() < 0) {
        DropCombo::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QColor color = currentData(Qt::BackgroundRole).value<QColor>();
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    painter.fillRect(field.adjusted(1, 1, -1, -1), color);
    painter.setPen(toolkit::TextOn(color));
    const QRect text = field.adjusted(4, 0, -4, 0);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, text.width()));
}
