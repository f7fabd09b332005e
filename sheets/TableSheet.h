// Tables that come from outside: rows of texts, and what is wrong with them.
#pragma once

#include <QString>

#include <vector>

namespace sheets {

/// How much is read. What goes beyond is told, with its line; the rest is then not read.
struct TableLimits {
    qint64 bytes = 50LL * 1024 * 1024;     ///< of the file or of the text
    qint64 unpacked = 300LL * 1024 * 1024; ///< of all that is read of a workbook
    int sheets = 200;                      ///< of a workbook
    int rows = 200'000;                    ///< of a table, those with something in them
    int columns = 200;
    qint64 cells = 2'000'000;   ///< of all tables, those with something in them
    qsizetype letters = 32'767; ///< of a cell, units of UTF-16: what a workbook may hold
    size_t faults = 1'000;      ///< that are told one by one
};

struct TableRow {
    int line = 0;               ///< from 1, as the file counts: of a quoted line break its first
    std::vector<QString> cells; ///< without blanks at their ends, none behind the last that has any
};

/// Empty rows are left out.
struct TableSheet {
    QString name; ///< of the workbook's sheet; empty otherwise
    std::vector<TableRow> rows;
};

struct TableFault {
    QString sheet;   ///< empty: there is only one
    int line = 0;    ///< 0: of all of it
    int column = -1; ///< from 0; -1: of the whole line
    QString text;    ///< Chinese; goes on where the place has been named

    bool operator==(const TableFault&) const = default;
};

/// With a fault, `sheets` is good for finding further ones only.
struct TableBook {
    std::vector<TableSheet> sheets;
    std::vector<TableFault> faults; ///< in their order
};

/// A whole sentence: "楼层 第 5 行 B 列是公式，请换成数值".
[[nodiscard]] QString TextOf(const TableFault& fault);
/// As spreadsheets name it: A, Z, AA.
[[nodiscard]] QString ColumnLetters(int column);

} // namespace sheets
