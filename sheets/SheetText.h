// Texts of cells as they may stand in a workbook and in a CSV file.
#pragma once

#include <QByteArray>
#include <QString>

namespace sheets {

/// What a cell of a workbook may hold, in units of UTF-16.
inline constexpr qsizetype kLongestCell = 32'767;

/// UTF-8 for a text cell of a workbook, into `utf8`. Characters that XML 1.0 can't hold are left
/// out, unpaired surrogates too; line ends become line feeds. What looks like the format's own
/// escape (ISO/IEC 29500, ST_Xstring: _x0041_) is escaped, so that it stays the text it is.
///
/// @return  true: the text was too long, and ends with "…" now. Thread: any.
bool WriteCellText(const QString& text, QByteArray& utf8);

/// About how many lines a text takes in a column of so many digits, at least 1 and at most `most`;
/// Chinese characters take the room of two. Thread: any.
[[nodiscard]] int LinesIn(const QString& text, int width, int most);

/// One field of CSV (RFC 4180) in UTF-8, appended to `line`: quoted where it holds a comma, a quote
/// or a line end, quotes doubled. Programs that open such files take what begins with = + - @, a
/// tab or a line end for a formula, some the wide forms of the four, too; behind an apostrophe it
/// is a text everywhere. Line ends within become line feeds, zero characters are left out. Thread:
/// any.
void AppendCsvText(const QString& text, QByteArray& line);

} // namespace sheets
