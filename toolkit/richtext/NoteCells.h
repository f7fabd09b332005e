// How many cells the tables of a rich text have.
#pragma once

#include <cstddef>
#include <vector>

namespace toolkit {

/// Cells by cell as HTML names them. A row is as long as the longest of its table, and a cell that
/// spans others takes their places, so that few words can make very many cells.
class NoteCells final {
public:
    void BeginTable() { m_tables.emplace_back(); }
    void EndTable();
    /// Both do nothing outside tables. @param columns, rows  that the cell spans, > 0.
    void BeginRow();
    void AddCell(size_t columns, size_t rows);

    /// Of all tables, those that have ended too.
    [[nodiscard]] size_t Count() const;
    /// Tables in each other now.
    [[nodiscard]] size_t Depth() const { return m_tables.size(); }

private:
    struct Table {
        std::vector<size_t>
            taken;         ///< for each column the rows, this one included, that it is taken
        size_t column = 0; ///< where the next cell is looked for
        size_t rows = 0;
    };
    std::vector<Table> m_tables; ///< in each other
    size_t m_ended = 0;          ///< cells
};

} // namespace toolkit
