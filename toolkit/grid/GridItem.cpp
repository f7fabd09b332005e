#include "toolkit/grid/GridItem.h"

#include "toolkit/grid/GridRow.h"
#include "toolkit/grid/MultiPageGrid.h"

void CGridItem::SetValue(const QVariant& value) {
    m_value = value;
    Changed();
}

bool CGridItem::GetBool() const {
    if (!m_value.isValid()) {
        return false;
    }
    if (m_value.typeId() != QMetaType::QString) {
        if (!m_value.canConvert<bool>()) {
            throw BadCellValue();
        }
        return m_value.toBool();
    }
    // Qt takes every other text for true; a text that is no boolean is a fault here.
    const QString text = m_value.toString();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) {
        return true;
    }
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) {
        return false;
    }
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber) {
        throw BadCellValue();
    }
    return number < 0.0 || number > 0.0;
}

void CGridItem::Enable(bool enabled) {
    m_enabled = enabled;
    Changed();
}

void CGridItem::SetTextColor(const QColor& color) {
    m_textColor = color;
    Changed();
}

void CGridItem::Changed() {
    if (m_row != nullptr && m_row->m_grid != nullptr) {
        m_row->m_grid->ItemChanged(*m_row);
    }
}
