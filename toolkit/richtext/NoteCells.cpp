#include "toolkit/richtext/NoteCells.h"

#include <algorithm>

namespace toolkit {

void NoteCells::EndTable() {
    if (!m_tables.empty()) {
        m_ended += m_tables.back().taken.size() * m_tables.back().rows;
        m_tables.pop_back();
    }
}

void NoteCells::BeginRow() {
    if (m_tables.empty()) {
        return;
    }
    Table& table = m_tables.back();
    for (size_t& rows : table.taken) {
        rows -= rows > 0 ? 1 : 0;
    }
    table.column = 0;
    ++table.rows;
}

void NoteCells::AddCell(size_t columns, size_t rows) {
    if (m_tables.empty()) {
        return;
    }
    Table& table = m_tables.back();
    table.rows = std::max<size_t>(table.rows, 1);
    while (table.column < table.taken.size() && table.taken[table.column] > 0) {
        ++table.column;
    }
    table.taken.resize(std::max(table.taken.size(), table.column + columns));
    std::fill_n(table.taken.begin() + std::ptrdiff_t(table.column), columns, rows);
    table.column += columns;
}

size_t NoteCells::Count() const {
    size_t count = m_ended;
    for (const Table& table : m_tables) {
        count += table.taken.size() * table.rows;
    }
    return count;
}

} // namespace toolkit
