#include "toolkit/grid/GridRow.h"

#include <algorithm>

CGridRow::CGridRow(int cells) {
    m_items.reserve(size_t(std::max(cells, 0)));
    for (int column = 0; column < cells; ++column) {
        m_items.push_back(std::make_unique<CGridItem>());
        m_items.back()->m_row = this;
    }
}

CGridRow::~CGridRow() = default;

CGridItem* CGridRow::GetItem(int column) const {
    if (column < 0 || column >= GetItemCount()) {
        return nullptr;
    }
    return m_items[size_t(column)].get();
}

void CGridRow::PutItem(int column, std::unique_ptr<CGridItem> item) {
    if (item == nullptr || GetItem(column) == nullptr) {
        return;
    }
    item->m_row = this;
    m_items[size_t(column)] = std::move(item);
    m_items[size_t(column)]->Changed();
}

void CGridRow::SetText(int column, const QVariant& value) {
    if (CGridItem* item = GetItem(column)) {
        item->SetValue(value);
    }
}
