// A rich text as it is walked through, from its first paragraph to its last.
#pragma once

#include <QColor>
#include <QSizeF>
#include <QString>
#include <QTextDocument>
#include <QTextListFormat>

#include <vector>

class QTextBlock;
class QTextFrame;
class QTextTable;
class QTextTableCell;

namespace host {

/// How a piece of text looks. Colours that are invalid and what is 0 or empty are the reader's own.
struct RecordLook {
    enum class Rise { None, Above, Below };

    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;
    Rise rise = Rise::None;
    QColor color;
    QColor ground;
    double points = 0;
    QString face;
    QString link; ///< http, https or mailto
};

/// Lengths in 1/96 inch.
struct RecordParagraph {
    int heading = 0; ///< 1 to 6; 0: running text
    Qt::Alignment alignment;
    bool isRightToLeft = false;
    double left = 0;
    double right = 0;
    double firstLine = 0;
    double above = 0;
    double below = 0;
    QColor ground;
    bool hasRule = false; ///< a line over the whole width below its text
    int list = 0;         ///< the number of its list, > 0; 0: no item
    int listLevel = 0;    ///< from 0
    QTextListFormat::Style listStyle = QTextListFormat::ListDisc;
};

struct RecordPicture {
    QString file; ///< empty: none of the record's folder
    QSizeF size;  ///< on the page, 1/96 inch; no wider than there is room
};

struct RecordTable {
    std::vector<double> columns; ///< 1/96 inch
    bool isAsWideAsItsTexts = false;
    bool hasLines = true;
};

struct RecordCell {
    int columns = 1;
    int rows = 1;
    bool isCovered = false; ///< belongs to the cell above, which reaches down to here
    double width = 0;       ///< 1/96 inch
    QColor ground;
    Qt::Alignment alignment; ///< upright
};

/// Takes a rich text as it is walked through. Tables and their cells hold paragraphs and tables.
class IRecordTaker {
public:
    virtual ~IRecordTaker() = default;

    virtual void BeginParagraph(const RecordParagraph& paragraph) = 0;
    /// @param text  writable, with line feeds and tabs.
    virtual void Text(const QString& text, const RecordLook& look) = 0;
    virtual void Picture(const RecordPicture& picture) = 0;
    virtual void EndParagraph() = 0;
    virtual void BeginTable(const RecordTable& table) = 0;
    virtual void BeginRow() = 0;
    /// A covered one holds nothing; it is told once for each row, over all its columns.
    virtual void BeginCell(const RecordCell& cell) = 0;
    virtual void EndCell() = 0;
    virtual void EndRow() = 0;
    virtual void EndTable() = 0;
};

/// A rich text of the editor's form, read. Nothing is fetched, and no file of its folder is opened
/// but for the size of pictures. Thread: one, any.
class RecordText final {
public:
    /// @param room    width and height of the page's text, 1/96 inch.
    /// @param folder  of its pictures; empty: there are none.
    RecordText(const QString& html, const QString& folder, const QSizeF& room);

    /// False: it is too large or too deep, and empty.
    [[nodiscard]] bool IsRead() const { return m_isRead; }
    void Walk(IRecordTaker& taker) const;
    /// In their order, those that are there.
    [[nodiscard]] std::vector<RecordPicture> Pictures() const;

private:
    /// Reads no file of its own accord, as Qt's would.
    class Document final : public QTextDocument {
    protected:
        QVariant loadResource(int, const QUrl&) override { return {}; }
    };

    void WalkFrame(const QTextFrame& frame, IRecordTaker& taker, double width) const;
    void WalkBlock(const QTextBlock& block, IRecordTaker& taker, double width) const;
    void WalkTable(const QTextTable& table, IRecordTaker& taker, double width) const;
    void WalkCell(const QTextTableCell& cell, IRecordTaker& taker, const RecordCell& told) const;
    template <class Iterator>
    void WalkParts(Iterator from, IRecordTaker& taker, double width) const;
    [[nodiscard]] RecordParagraph ParagraphOf(const QTextBlock& block) const;
    [[nodiscard]] RecordPicture PictureOf(const QTextImageFormat& format, double width) const;

    const QString m_folder;
    const QSizeF m_room;
    Document m_document;
    bool m_isRead = false;
};

} // namespace host
