// What a spreadsheet of a list holds: columns and the cells of a row.
#pragma once

#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace sheets {

/// A time as clocks showed it: seconds since 1970-01-01 00:00 of the wall, without a zone, as
/// spreadsheets keep theirs.
struct SheetTime {
    qint64 wallSeconds = 0;
};

/// Local time of seconds since 1970.
[[nodiscard]] SheetTime SheetTimeOf(qint64 seconds);
/// Of "yyyy-MM-dd HH:mm"; nothing for any other text.
[[nodiscard]] std::optional<SheetTime> SheetTimeOf(const QString& text);
/// As "yyyy-MM-dd HH:mm".
[[nodiscard]] QString TextOf(SheetTime time);

/// A stored picture; without a uuid there is none.
struct SheetPicture {
    qint32 ppid = 0;
    QString uuid;
};

/// An empty text is an empty cell.
using SheetCell = std::variant<QString, qint64, SheetTime, SheetPicture>;
using SheetRow = std::vector<SheetCell>;

/// Cells of a column may hold texts where what they should hold isn't known.
enum class CellKind { Text, Number, Time, Picture };

struct SheetColumn {
    QString title;
    int width = 10; ///< digits; a Chinese character takes two
    CellKind kind = CellKind::Text;
};

struct SheetLayout {
    QString title; ///< of the list, at most 20 characters, none of []:*?/\ .
    std::vector<SheetColumn> columns;
};

} // namespace sheets
