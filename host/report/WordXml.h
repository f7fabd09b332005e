// The XML of a Word document, element after element, in the order in which its schema wants them.
#pragma once

#include <QColor>
#include <QSizeF>
#include <QString>
#include <QXmlStreamWriter>

#include <initializer_list>
#include <utility>

class QIODevice;

namespace host {

/// Twentieths of a point and English Metric Units of a length in 1/96 inch.
[[nodiscard]] constexpr int TwipsOf(double length) {
    return qRound(length * 15);
}
[[nodiscard]] constexpr qint64 EmuOf(double length) {
    return qRound64(length * 9525);
}

/// How text looks; what is empty, invalid or 0 is the paragraph's own.
struct WordLook {
    QString style;
    QString face;
    bool isBold = false;
    bool isNotBold = false; ///< in a style that is
    bool isItalic = false;
    bool isStruck = false;
    bool isUnderlined = false;
    QColor color;
    QColor ground;
    double points = 0;
    QString rise; ///< "superscript", "subscript"
};

/// Lengths are twentieths of a point; -1: the style's own.
struct WordParagraph {
    QString style;
    bool staysWithNext = false;
    bool beginsPage = false;
    int list = 0; ///< number of a list of numbering.xml; 0: none
    int listLevel = 0;
    bool hasRule = false;
    bool hasFrame = false;
    QColor ground;
    int tab = 0; ///< right-aligned, there; 0: none
    bool isRightToLeft = false;
    int above = -1;
    int below = -1;
    int line = -1; ///< exact height
    int left = 0;
    int right = 0;
    int firstLine = 0; ///< negative: hanging
    QString alignment; ///< "center", "right", "both"
};

struct WordCell {
    int width = 0;
    int columns = 1;
    QString merge; ///< "restart", "continue"; empty: it isn't merged with those below
    QColor ground;
    QString alignment; ///< "center", "bottom"
};

struct WordTable {
    QString style;
    bool isAsWideAsItsTexts = false;
};

struct WordPicture {
    QString id;   ///< of its relationship
    QSizeF size;  ///< 1/96 inch
    QString text; ///< instead of it
    bool hasFrame = false;
};

/// Thread: one. Faults of the device show in HasFault and cost nothing but what is written after.
class WordXml final {
public:
    using Attributes = std::initializer_list<std::pair<QLatin1StringView, QString>>;

    explicit WordXml(QIODevice* device);

    /// @param root  with its prefix: "w:document".
    void BeginPart(const QString& root);
    void EndPart();
    [[nodiscard]] bool HasFault() const { return m_xml.hasError(); }

    void Begin(const QString& name, Attributes attributes = {});
    void Element(const QString& name, Attributes attributes = {});
    /// An element that says one value.
    void Value(const QString& name, const QString& value);
    void End() { m_xml.writeEndElement(); }

    void BeginParagraph(const WordParagraph& paragraph);
    /// Text of people; line feeds and tabs are broken lines and tabs.
    void Run(const QString& text, const WordLook& look = {});
    void Paragraph(const WordParagraph& paragraph, const QString& text, const WordLook& look = {});
    /// The only one that is low: between two tables, behind a table at a cell's end.
    void Gap(double height);

    /// A field with what it shows until it is counted anew.
    void Field(const QString& code, const QString& shown, const WordLook& look = {});
    void FieldMark(const QString& type);
    void FieldCode(const QString& code);

    /// @param columns  widths, twentieths of a point.
    template <class Widths> void BeginTable(const WordTable& table, const Widths& columns) {
        int total = 0;
        for (const int width : columns) {
            total += width;
        }
        BeginTable(table, total);
        Begin(QStringLiteral("w:tblGrid"));
        for (const int width : columns) {
            Element(QStringLiteral("w:gridCol"),
                    {{QLatin1StringView("w:w"), QString::number(width)}});
        }
        End();
    }
    void BeginRow(bool isTitle = false, bool isOnOnePage = true, int height = 0);
    void BeginCell(const WordCell& cell);

    void Picture(const WordPicture& picture);

private:
    void BeginTable(const WordTable& table, int width);
    void Look(const WordLook& look);
    void ParagraphLook(const WordParagraph& paragraph);
    void ParagraphRoom(const WordParagraph& paragraph);
    void Border(const QString& name, int space);
    void Shade(const QColor& color);
    void Shape(const WordPicture& picture, const QString& width, const QString& height);

    QXmlStreamWriter m_xml;
    int m_pictures = 0;
};

} // namespace host
