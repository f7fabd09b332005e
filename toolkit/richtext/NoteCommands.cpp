#include "toolkit/richtext/NoteCommands.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NoteDocument.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// Larger than running text by so many steps of Qt's rich text.
constexpr std::array kHeadingSteps = {0, 3, 2, 1, 0};
constexpr double kCellPadding = 4;
constexpr double kCellBorder = 1;

/// Everything until its end is one step to undo.
class OneStep final {
public:
    explicit OneStep(QTextCursor& cursor) : m_cursor(cursor) { m_cursor.beginEditBlock(); }
    ~OneStep() { m_cursor.endEditBlock(); }
    OneStep(const OneStep&) = delete;
    OneStep& operator=(const OneStep&) = delete;

private:
    QTextCursor& m_cursor;
};

std::vector<QTextBlock> BlocksOf(const QTextCursor& cursor) {
    std::vector<QTextBlock> blocks;
    const QTextBlock last = cursor.document()->findBlock(cursor.selectionEnd());
    QTextBlock block = cursor.document()->findBlock(cursor.selectionStart());
    for (; block.isValid() && block != last; block = block.next()) {
        blocks.push_back(block);
    }
    blocks.push_back(last);
    return blocks;
}

/// Rows and columns of a table that a cursor touches.
struct Cells {
    int row = 0;
    int rows = 1;
    int column = 0;
    int columns = 1;
};

Cells CellsOf(const QTextCursor& cursor) {
    Cells cells;
    cursor.selectedTableCells(&cells.row, &cells.rows, &cells.column, &cells.columns);
    if (cells.row < 0 || cells.rows <= 0) {
        const QTextTableCell cell = cursor.currentTable()->cellAt(cursor);
        cells = {cell.row(), cell.rowSpan(), cell.column(), cell.columnSpan()};
    }
    return cells;
}

/// In the order of reading; none at the ends. A merged cell stands where it begins.
QTextTableCell CellBeside(const QTextTable& table, const QTextTableCell& cell, bool backwards) {
    const int step = backwards ? -1 : 1;
    const int count = table.rows() * table.columns();
    for (int at = cell.row() * table.columns() + cell.column() + step; at >= 0 && at < count;
         at += step) {
        const int row = at / table.columns();
        const int column = at % table.columns();
        const QTextTableCell next = table.cellAt(row, column);
        if (next.row() == row && next.column() == column) {
            return next;
        }
    }
    return {};
}

void RemoveTable(QTextCursor& cursor, const QTextTable& table) {
    cursor.setPosition(table.firstPosition() - 1);
    cursor.setPosition(table.lastPosition() + 1, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void LeaveList(const QTextBlock& block) {
    if (QTextList* list = block.textList()) {
        list->remove(block);
    }
    QTextCursor there(block);
    QTextBlockFormat format = block.blockFormat();
    format.setIndent(0);
    there.setBlockFormat(format);
}

} // namespace

void SetHeading(QTextCursor cursor, int level) {
    if (level < 0 || level > kMostHeading) {
        return;
    }
    const OneStep step(cursor);
    for (const QTextBlock& block : BlocksOf(cursor)) {
        QTextCursor there(block);
        QTextBlockFormat shape;
        shape.setHeadingLevel(level);
        there.mergeBlockFormat(shape);
        QTextCharFormat look;
        look.setFontWeight(level > 0 ? QFont::Bold : QFont::Normal);
        look.setProperty(QTextFormat::FontSizeAdjustment, kHeadingSteps[size_t(level)]);
        there.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        there.mergeCharFormat(look);
        there.mergeBlockCharFormat(look);
    }
}

int HeadingAt(const QTextCursor& cursor) {
    return std::clamp(cursor.blockFormat().headingLevel(), 0, kMostHeading);
}

bool IsInList(const QTextCursor& cursor, QTextListFormat::Style style) {
    const QTextList* list = cursor.currentList();
    return list != nullptr && list->format().style() == style;
}

void ToggleList(QTextCursor cursor, QTextListFormat::Style style) {
    const OneStep step(cursor);
    const bool leaves = IsInList(cursor, style);
    const std::vector<QTextBlock> blocks = BlocksOf(cursor);
    QTextList* list = nullptr;
    for (const QTextBlock& block : blocks) {
        if (leaves) {
            LeaveList(block);
        } else if (list == nullptr) {
            QTextListFormat format;
            format.setStyle(style);
            format.setIndent(block.textList() != nullptr ? block.textList()->format().indent() : 1);
            list = QTextCursor(block).createList(format);
        } else {
            list->add(block);
        }
    }
}

void Indent(QTextCursor cursor, int step) {
    const OneStep one(cursor);
    for (const QTextBlock& block : BlocksOf(cursor)) {
        QTextCursor there(block);
        if (const QTextList* list = block.textList()) {
            QTextListFormat format = list->format();
            const int level = format.indent() + step;
            if (level < 1) {
                LeaveList(block);
            } else if (level <= kMostIndent) {
                format.setIndent(level);
                there.createList(format);
            }
            continue;
        }
        QTextBlockFormat format;
        format.setIndent(std::clamp(block.blockFormat().indent() + step, 0, kMostIndent));
        there.mergeBlockFormat(format);
    }
}

QTextCursor InsertTable(QTextCursor cursor, int rows, int columns) {
    const OneStep step(cursor);
    QTextTableFormat format;
    format.setBorder(kCellBorder);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Colors::Frame());
    format.setCellPadding(kCellPadding);
    format.setCellSpacing(0);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    return cursor
        .insertTable(std::clamp(rows, 1, kMostTableSide), std::clamp(columns, 1, kMostTableSide),
                     format)
        ->cellAt(0, 0)
        .firstCursorPosition();
}

bool StepCell(QTextCursor& cursor, bool backwards) {
    QTextTable* table = cursor.currentTable();
    if (table == nullptr) {
        return false;
    }
    const QTextTableCell from = table->cellAt(cursor.position());
    QTextTableCell to = CellBeside(*table, from, backwards);
    if (!to.isValid() && !backwards) {
        table->appendRows(1);
        to = table->cellAt(table->rows() - 1, 0);
    }
    const QTextTableCell reached = to.isValid() ? to : from;
    cursor.setPosition(reached.firstPosition());
    cursor.setPosition(reached.lastPosition(), QTextCursor::KeepAnchor);
    return true;
}

bool CanDo(const QTextCursor& cursor, TableDeed deed) {
    const QTextTable* table = cursor.currentTable();
    if (table == nullptr) {
        return false;
    }
    const Cells cells = CellsOf(cursor);
    const bool isOne = !cursor.hasComplexSelection() || cells.rows * cells.columns == 1;
    switch (deed) {
    case TableDeed::Merge:
        return cursor.hasComplexSelection() && cells.rows * cells.columns > 1;
    case TableDeed::Split: {
        const QTextTableCell cell = table->cellAt(cursor);
        return isOne && cell.rowSpan() * cell.columnSpan() > 1;
    }
    default:
        return true;
    }
}

void Do(QTextCursor cursor, TableDeed deed) {
    if (!CanDo(cursor, deed)) {
        return;
    }
    const OneStep step(cursor);
    QTextTable& table = *cursor.currentTable();
    const Cells cells = CellsOf(cursor);
    switch (deed) {
    case TableDeed::RowAbove:
        table.insertRows(cells.row, 1);
        break;
    case TableDeed::RowBelow:
        table.insertRows(cells.row + cells.rows, 1);
        break;
    case TableDeed::ColumnBefore:
        table.insertColumns(cells.column, 1);
        break;
    case TableDeed::ColumnAfter:
        table.insertColumns(cells.column + cells.columns, 1);
        break;
    case TableDeed::RemoveRows:
        cells.rows >= table.rows() ? RemoveTable(cursor, table)
                                   : table.removeRows(cells.row, cells.rows);
        break;
    case TableDeed::RemoveColumns:
        cells.columns >= table.columns() ? RemoveTable(cursor, table)
                                         : table.removeColumns(cells.column, cells.columns);
        break;
    case TableDeed::RemoveTable:
        RemoveTable(cursor, table);
        break;
    case TableDeed::Merge:
        table.mergeCells(cells.row, cells.column, cells.rows, cells.columns);
        break;
    case TableDeed::Split:
        table.splitCell(cells.row, cells.column, 1, 1);
        break;
    }
}

void LetLinesBreak(QTextDocument& document, int from, int to) {
    QTextBlockFormat breaks;
    breaks.setNonBreakableLines(false);
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.blockFormat().nonBreakableLines()) {
            QTextCursor(block).mergeBlockFormat(breaks);
        }
    }
}

void InsertRule(QTextCursor cursor) {
    const OneStep step(cursor);
    const QTextBlockFormat before = cursor.blockFormat();
    QTextBlockFormat rule;
    rule.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                     QTextLength(QTextLength::PercentageLength, 100));
    cursor.insertBlock(rule, {});
    cursor.insertBlock(before);
}

void InsertPicture(QTextCursor cursor, const QTextImageFormat& picture) {
    const OneStep step(cursor);
    cursor.insertImage(picture);
}

QString AddressAt(const QTextCursor& cursor) {
    QTextCursor first = cursor;
    // The format of a place is that of the letter before it.
    first.setPosition(cursor.hasSelection() ? cursor.selectionStart() + 1 : cursor.position());
    return first.charFormat().anchorHref();
}

QTextCursor LinkedText(QTextCursor cursor) {
    const QString address = AddressAt(cursor);
    if (cursor.hasSelection() || address.isEmpty()) {
        return cursor;
    }
    const QTextBlock block = cursor.block();
    int from = cursor.position();
    int to = from;
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment part = piece.fragment();
        const int end = part.position() + part.length();
        if (part.charFormat().anchorHref() != address) {
            if (part.position() >= to) {
                break;
            }
            from = end;
            continue;
        }
        from = std::min(from, part.position());
        to = std::max(to, end);
    }
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return cursor;
}

void SetLink(QTextCursor cursor, const QString& address, const QString& text) {
    const bool isNew = !cursor.hasSelection();
    if (isNew && address.isEmpty()) {
        return;
    }
    const OneStep step(cursor);
    QTextCharFormat look;
    look.setAnchor(!address.isEmpty());
    look.setAnchorHref(address);
    look.setFontUnderline(!address.isEmpty());
    look.setForeground(address.isEmpty() ? QBrush(Qt::NoBrush) : QBrush(Colors::Link()));
    if (!isNew && (text.isEmpty() || text == cursor.selectedText())) {
        cursor.mergeCharFormat(look);
        return;
    }
    const QTextCharFormat before = cursor.charFormat();
    QTextCharFormat link = before;
    link.merge(look);
    cursor.insertText(text.isEmpty() ? address : text, link);
    if (isNew) {
        // What is typed next is no part of it.
        cursor.insertText(u" "_s, before);
    }
}

void InsertAttachment(QTextCursor cursor, const NoteAttachment& attachment) {
    cursor.setPosition(cursor.selectionEnd());
    SetLink(cursor, AddressOf(attachment), attachment.fileName);
}

} // namespace toolkit
