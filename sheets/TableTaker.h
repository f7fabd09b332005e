// Rows of tables within limits.
#pragma once

#include "sheets/TableSheet.h"

namespace sheets {

/// Takes what a reader finds, in the order of the rows, and tells what goes beyond the limits.
class TableTaker final {
public:
    explicit TableTaker(const TableLimits& limits) : m_limits(limits) {}

    void BeginSheet(const QString& name);
    /// Of the present sheet, which there is. An empty one leaves no trace.
    void BeginRow(int line);
    /// Of the present row. What is empty without blanks at its ends is none; columns ascend.
    void AddCell(int column, const QString& text);
    /// Of the present sheet; line and column as in TableFault.
    void Tell(int line, int column, const QString& text);

    /// Too much of it: reading on is of no use.
    [[nodiscard]] bool IsFull() const { return m_full; }
    [[nodiscard]] const TableLimits& Limits() const { return m_limits; }
    /// Once.
    [[nodiscard]] TableBook Take();

private:
    bool MakeRoom(int column, qsizetype letters);
    void TellFull(const QString& text);

    TableLimits m_limits;
    TableBook m_book;
    int m_line = 0;
    int m_wideLine = 0; ///< told to have too many columns
    qint64 m_cells = 0;
    size_t m_untold = 0;
    bool m_hasRow = false;
    bool m_full = false;
};

} // namespace sheets
