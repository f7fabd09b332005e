// What a person does to the shape of a rich text: each one step to undo.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>
#include <QTextListFormat>

class QTextCursor;
class QTextDocument;
class QTextImageFormat;

namespace toolkit {

struct NoteAttachment;

/// Largest levels and numbers that the commands make.
inline constexpr int kMostHeading = 4;
inline constexpr int kMostIndent = 12;
inline constexpr int kMostTableSide = 100;

/// Of all paragraphs that the cursor touches; 0: running text. Beyond the ends nothing changes.
TOOLKIT_EXPORT void SetHeading(QTextCursor cursor, int level);
/// Of the paragraph of the cursor.
[[nodiscard]] TOOLKIT_EXPORT int HeadingAt(const QTextCursor& cursor);

/// Makes items of all paragraphs that the cursor touches, or running text if they are that list
/// already.
TOOLKIT_EXPORT void ToggleList(QTextCursor cursor, QTextListFormat::Style style);
/// Whether the paragraph of the cursor is an item of such a list.
[[nodiscard]] TOOLKIT_EXPORT bool IsInList(const QTextCursor& cursor, QTextListFormat::Style style);
/// Moves paragraphs, and items by a level, inwards (1) or outwards (-1).
TOOLKIT_EXPORT void Indent(QTextCursor cursor, int step);

/// Over the whole width, its cells empty, the cursor's place behind it running text.
/// @return  a cursor in its first cell.
TOOLKIT_EXPORT QTextCursor InsertTable(QTextCursor cursor, int rows, int columns);
/// Selects the text of the cell that is read next, or before. Behind the last cell a row begins,
/// one step to undo; before the first one there is nowhere to go.
/// @return  false outside of tables, where nothing changes.
[[nodiscard]] TOOLKIT_EXPORT bool StepCell(QTextCursor& cursor, bool backwards);
enum class TableDeed {
    RowAbove,
    RowBelow,
    ColumnBefore,
    ColumnAfter,
    RemoveRows,    ///< those that the cursor touches; the last ones take the table with them
    RemoveColumns, ///< the same
    RemoveTable,
    Merge, ///< the cells that the cursor touches
    Split, ///< the merged cell of the cursor into what it was merged from
};
/// Whether the cursor stands where the deed changes something.
[[nodiscard]] TOOLKIT_EXPORT bool CanDo(const QTextCursor& cursor, TableDeed deed);
TOOLKIT_EXPORT void Do(QTextCursor cursor, TableDeed deed);

/// Lines of these paragraphs end where the sheet ends, also of those that were to go on ("pre").
/// @param from, to  places in the document.
TOOLKIT_EXPORT void LetLinesBreak(QTextDocument& document, int from, int to);

/// A line over the whole width in a paragraph of its own.
TOOLKIT_EXPORT void InsertRule(QTextCursor cursor);
TOOLKIT_EXPORT void InsertPicture(QTextCursor cursor, const QTextImageFormat& picture);
/// What a link would be of: what is selected, else all of the link that the cursor stands in, else
/// nothing, at the cursor.
[[nodiscard]] TOOLKIT_EXPORT QTextCursor LinkedText(QTextCursor cursor);
/// Where the text of the cursor leads; empty: nowhere.
[[nodiscard]] TOOLKIT_EXPORT QString AddressAt(const QTextCursor& cursor);
/// The selected text leads to the address; it reads `text` from now on, if that isn't empty. Where
/// nothing is selected `text` is inserted, or the address. An empty address takes the link away.
TOOLKIT_EXPORT void SetLink(QTextCursor cursor, const QString& address, const QString& text);
TOOLKIT_EXPORT void InsertAttachment(QTextCursor cursor, const NoteAttachment& attachment);

} // namespace toolkit
