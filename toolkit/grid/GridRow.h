// One row of the grid: its cells and what stands behind it.
#pragma once

#include "toolkit/grid/GridItem.h"

#include <memory>
#include <vector>

/// Cells by column, each always there (plain and empty unless put), and a pointer-sized field that
/// belongs to whoever builds the row.
class TOOLKIT_EXPORT CGridRow {
public:
    explicit CGridRow(int cells);
    ~CGridRow();
    CGridRow(const CGridRow&) = delete;
    CGridRow& operator=(const CGridRow&) = delete;

    [[nodiscard]] int GetItemCount() const { return int(m_items.size()); }
    /// Null for a column that the row doesn't have.
    [[nodiscard]] CGridItem* GetItem(int column) const;
    /// Replaces the cell's item. Out of range: the item is dropped.
    void PutItem(int column, std::unique_ptr<CGridItem> item);
    /// Sets the value of the cell's item.
    void SetText(int column, const QVariant& value);

    void SetData(void* data) { m_data = data; }
    [[nodiscard]] void* GetData() const { return m_data; }
    /// By what others name what stands behind the row: an id as text. Empty: it has none.
    void SetKey(const QString& key) { m_key = key; }
    [[nodiscard]] const QString& GetKey() const { return m_key; }
    /// Place in the grid; -1 for a row that isn't in one.
    [[nodiscard]] int GetRowId() const { return m_index; }

private:
    friend class CGridItem;
    friend class CMultiPageGrid;

    std::vector<std::unique_ptr<CGridItem>> m_items;
    void* m_data = nullptr;
    QString m_key;
    CMultiPageGrid* m_grid = nullptr;
    int m_index = -1;
};
