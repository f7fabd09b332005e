// A rich text as lines that can be compared.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

class QTextDocument;

namespace toolkit {

/// One paragraph, or one row of a table.
struct NoteLine {
    QString text;         ///< U+FFFC for each picture and nowhere else
    QStringList pictures; ///< their names, in the order of the text
    QString mark;         ///< "•" or "3." of an item; empty elsewhere
    QByteArray form;      ///< how it is formatted; equal for lines that look the same
    int heading = 0;      ///< 1 to 6; 0: running text
    int indent = 0;       ///< levels
};

/// Between the cells of a row.
inline const QString kCellGap = QStringLiteral(" | ");

/// All lines in the order of the text. The cells of a row stand side by side with what is in them,
/// a table in a cell too; a merged cell stands where it begins. The empty paragraph that a
/// table has behind it, or before it at the beginning, is left out. An empty document has no line
/// or one empty one.
///
/// A mark isn't part of its text: a number changes with every item that comes before.
/// Thread: that of the document.
[[nodiscard]] std::vector<NoteLine> LinesOf(const QTextDocument& document);

/// Nothing but space, and no picture.
[[nodiscard]] bool IsBlank(const NoteLine& line);

} // namespace toolkit
