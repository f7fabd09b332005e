#include "host/report/WordXml.h"

#include "host/report/RecordTextSigns.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kOffice = "http://schemas.openxmlformats.org/"_L1;
constexpr QLatin1StringView kFrameColor = "B1C3D9"_L1;
constexpr qsizetype kMostAltText = 250;

QString WordHexOf(const QColor& color) {
    return color.name(QColor::HexRgb).mid(1).toUpper();
}

QString WordNumber(qint64 number) {
    return QString::number(number);
}

} // namespace

WordXml::WordXml(QIODevice* device) : m_xml(device) {}

void WordXml::BeginPart(const QString& root) {
    m_xml.writeStartDocument(u"1.0"_s, true);
    m_xml.writeStartElement(root);
    const auto declare = [this](const QString& prefix, const QString& place) {
        m_xml.writeAttribute(u"xmlns:"_s + prefix, kOffice + place);
    };
    declare(u"w"_s, u"wordprocessingml/2006/main"_s);
    declare(u"r"_s, u"officeDocument/2006/relationships"_s);
    declare(u"wp"_s, u"drawingml/2006/wordprocessingDrawing"_s);
    declare(u"a"_s, u"drawingml/2006/main"_s);
    declare(u"pic"_s, u"drawingml/2006/picture"_s);
}

void WordXml::EndPart() {
    m_xml.writeEndDocument();
}

void WordXml::Begin(const QString& name, Attributes attributes) {
    m_xml.writeStartElement(name);
    for (const auto& [key, value] : attributes) {
        m_xml.writeAttribute(key, value);
    }
}

void WordXml::Element(const QString& name, Attributes attributes) {
    m_xml.writeEmptyElement(name);
    for (const auto& [key, value] : attributes) {
        m_xml.writeAttribute(key, value);
    }
}

void WordXml::Value(const QString& name, const QString& value) {
    Element(name, {{"w:val"_L1, value}});
}

void WordXml::Border(const QString& name, int space) {
    Element(name, {{"w:val"_L1, u"single"_s},
                   {"w:sz"_L1, u"4"_s},
                   {"w:space"_L1, WordNumber(space)},
                   {"w:color"_L1, kFrameColor}});
}

void WordXml::Shade(const QColor& color) {
    if (color.isValid()) {
        Element(
            u"w:shd"_s,
            {{"w:val"_L1, u"clear"_s}, {"w:color"_L1, u"auto"_s}, {"w:fill"_L1, WordHexOf(color)}});
    }
}

void WordXml::ParagraphLook(const WordParagraph& paragraph) {
    if (!paragraph.style.isEmpty()) {
        Value(u"w:pStyle"_s, paragraph.style);
    }
    if (paragraph.staysWithNext) {
        Element(u"w:keepNext"_s);
    }
    if (paragraph.beginsPage) {
        Element(u"w:pageBreakBefore"_s);
    }
    if (paragraph.list > 0) {
        Begin(u"w:numPr"_s);
        Value(u"w:ilvl"_s, WordNumber(paragraph.listLevel));
        Value(u"w:numId"_s, WordNumber(paragraph.list));
        End();
    }
    if (paragraph.hasRule || paragraph.hasFrame) {
        Begin(u"w:pBdr"_s);
        if (paragraph.hasFrame) {
            Border(u"w:top"_s, 4);
            Border(u"w:left"_s, 4);
        }
        Border(u"w:bottom"_s, 4);
        if (paragraph.hasFrame) {
            Border(u"w:right"_s, 4);
        }
        End();
    }
    Shade(paragraph.ground);
    if (paragraph.tab > 0) {
        Begin(u"w:tabs"_s);
        Element(u"w:tab"_s, {{"w:val"_L1, u"right"_s}, {"w:pos"_L1, WordNumber(paragraph.tab)}});
        End();
    }
    ParagraphRoom(paragraph);
    if (!paragraph.alignment.isEmpty()) {
        Value(u"w:jc"_s, paragraph.alignment);
    }
}

void WordXml::ParagraphRoom(const WordParagraph& paragraph) {
    if (paragraph.isRightToLeft) {
        Element(u"w:bidi"_s);
    }
    if (paragraph.above >= 0 || paragraph.below >= 0 || paragraph.line >= 0) {
        m_xml.writeEmptyElement(u"w:spacing"_s);
        if (paragraph.above >= 0) {
            m_xml.writeAttribute(u"w:before"_s, WordNumber(paragraph.above));
        }
        if (paragraph.below >= 0) {
            m_xml.writeAttribute(u"w:after"_s, WordNumber(paragraph.below));
        }
        if (paragraph.line >= 0) {
            m_xml.writeAttribute(u"w:line"_s, WordNumber(paragraph.line));
            m_xml.writeAttribute(u"w:lineRule"_s, u"exact"_s);
        }
    }
    // What a list says of its indents stays where nothing else is said.
    if (paragraph.left != 0 || paragraph.right != 0 || paragraph.firstLine != 0) {
        m_xml.writeEmptyElement(u"w:ind"_s);
        if (paragraph.list == 0) {
            m_xml.writeAttribute(u"w:left"_s, WordNumber(paragraph.left));
        }
        m_xml.writeAttribute(u"w:right"_s, WordNumber(paragraph.right));
        if (paragraph.list == 0 && paragraph.firstLine != 0) {
            m_xml.writeAttribute(paragraph.firstLine > 0 ? u"w:firstLine"_s : u"w:hanging"_s,
                                 WordNumber(std::abs(paragraph.firstLine)));
        }
    }
}

void WordXml::BeginParagraph(const WordParagraph& paragraph) {
    Begin(u"w:p"_s);
    Begin(u"w:pPr"_s);
    ParagraphLook(paragraph);
    End();
}

void WordXml::Look(const WordLook& look) {
    Begin(u"w:rPr"_s);
    if (!look.style.isEmpty()) {
        Value(u"w:rStyle"_s, look.style);
    }
    if (!look.face.isEmpty()) {
        Element(u"w:rFonts"_s, {{"w:ascii"_L1, look.face},
                                {"w:hAnsi"_L1, look.face},
                                {"w:eastAsia"_L1, look.face},
                                {"w:cs"_L1, look.face}});
    }
    if (look.isBold) {
        Element(u"w:b"_s);
    } else if (look.isNotBold) {
        Value(u"w:b"_s, u"0"_s);
    }
    if (look.isItalic) {
        Element(u"w:i"_s);
    }
    if (look.isStruck) {
        Element(u"w:strike"_s);
    }
    if (look.color.isValid()) {
        Value(u"w:color"_s, WordHexOf(look.color));
    }
    if (look.points > 0) {
        const QString halves = WordNumber(std::max(qRound(look.points * 2), 2));
        Value(u"w:sz"_s, halves);
        Value(u"w:szCs"_s, halves);
    }
    if (look.isUnderlined) {
        Value(u"w:u"_s, u"single"_s);
    }
    Shade(look.ground);
    if (!look.rise.isEmpty()) {
        Value(u"w:vertAlign"_s, look.rise);
    }
    End();
}

void WordXml::Run(const QString& text, const WordLook& look) {
    Begin(u"w:r"_s);
    Look(look);
    bool isFirstLine = true;
    for (const QString& line : WritableLines(text)) {
        if (!isFirstLine) {
            Element(u"w:br"_s);
        }
        isFirstLine = false;
        bool isFirstPart = true;
        for (const QString& part : line.split(u'\t')) {
            if (!isFirstPart) {
                Element(u"w:tab"_s);
            }
            isFirstPart = false;
            if (!part.isEmpty()) {
                Begin(u"w:t"_s, {{"xml:space"_L1, u"preserve"_s}});
                m_xml.writeCharacters(part);
                End();
            }
        }
    }
    End();
}

void WordXml::Paragraph(const WordParagraph& paragraph, const QString& text, const WordLook& look) {
    BeginParagraph(paragraph);
    if (!text.isEmpty()) {
        Run(text, look);
    }
    End();
}

void WordXml::Gap(double height) {
    WordParagraph gap;
    gap.above = 0;
    gap.below = 0;
    gap.line = TwipsOf(height);
    Paragraph(gap, {});
}

void WordXml::FieldMark(const QString& type) {
    Begin(u"w:r"_s);
    Element(u"w:fldChar"_s, {{"w:fldCharType"_L1, type}});
    End();
}

void WordXml::FieldCode(const QString& code) {
    Begin(u"w:r"_s);
    Begin(u"w:instrText"_s, {{"xml:space"_L1, u"preserve"_s}});
    m_xml.writeCharacters(u' ' + code + u' ');
    End();
    End();
}

void WordXml::Field(const QString& code, const QString& shown, const WordLook& look) {
    FieldMark(u"begin"_s);
    FieldCode(code);
    FieldMark(u"separate"_s);
    Run(shown, look);
    FieldMark(u"end"_s);
}

void WordXml::BeginTable(const WordTable& table, int width) {
    Begin(u"w:tbl"_s);
    Begin(u"w:tblPr"_s);
    if (!table.style.isEmpty()) {
        Value(u"w:tblStyle"_s, table.style);
    }
    if (table.isAsWideAsItsTexts) {
        Element(u"w:tblW"_s, {{"w:w"_L1, u"0"_s}, {"w:type"_L1, u"auto"_s}});
    } else {
        Element(u"w:tblW"_s, {{"w:w"_L1, WordNumber(width)}, {"w:type"_L1, u"dxa"_s}});
    }
    Element(u"w:tblInd"_s, {{"w:w"_L1, u"0"_s}, {"w:type"_L1, u"dxa"_s}});
    if (!table.isAsWideAsItsTexts) {
        Element(u"w:tblLayout"_s, {{"w:type"_L1, u"fixed"_s}});
    }
    End();
}

void WordXml::BeginRow(bool isTitle, bool isOnOnePage, int height) {
    Begin(u"w:tr"_s);
    Begin(u"w:trPr"_s);
    if (isOnOnePage) {
        Element(u"w:cantSplit"_s);
    }
    if (height > 0) {
        Element(u"w:trHeight"_s, {{"w:val"_L1, WordNumber(height)}, {"w:hRule"_L1, u"atLeast"_s}});
    }
    if (isTitle) {
        Element(u"w:tblHeader"_s);
    }
    End();
}

void WordXml::BeginCell(const WordCell& cell) {
    Begin(u"w:tc"_s);
    Begin(u"w:tcPr"_s);
    Element(u"w:tcW"_s, {{"w:w"_L1, WordNumber(cell.width)}, {"w:type"_L1, u"dxa"_s}});
    if (cell.columns > 1) {
        Value(u"w:gridSpan"_s, WordNumber(cell.columns));
    }
    if (!cell.merge.isEmpty()) {
        Value(u"w:vMerge"_s, cell.merge);
    }
    Shade(cell.ground);
    if (!cell.alignment.isEmpty()) {
        Value(u"w:vAlign"_s, cell.alignment);
    }
    End();
}

void WordXml::Picture(const WordPicture& picture) {
    const QString number = WordNumber(++m_pictures);
    const QString name = u"Picture "_s + number;
    const QString text = WritableText(WritableText(picture.text).left(kMostAltText));
    Begin(u"w:r"_s);
    Begin(u"w:drawing"_s);
    Begin(u"wp:inline"_s,
          {{"distT"_L1, u"0"_s}, {"distB"_L1, u"0"_s}, {"distL"_L1, u"0"_s}, {"distR"_L1, u"0"_s}});
    const QString width = WordNumber(std::max(EmuOf(picture.size.width()), qint64(1)));
    const QString height = WordNumber(std::max(EmuOf(picture.size.height()), qint64(1)));
    Element(u"wp:extent"_s, {{"cx"_L1, width}, {"cy"_L1, height}});
    Element(u"wp:docPr"_s, {{"id"_L1, number}, {"name"_L1, name}, {"descr"_L1, text}});
    Begin(u"wp:cNvGraphicFramePr"_s);
    Element(u"a:graphicFrameLocks"_s, {{"noChangeAspect"_L1, u"1"_s}});
    End();
    Begin(u"a:graphic"_s);
    Begin(u"a:graphicData"_s, {{"uri"_L1, kOffice + u"drawingml/2006/picture"_s}});
    Begin(u"pic:pic"_s);
    Begin(u"pic:nvPicPr"_s);
    Element(u"pic:cNvPr"_s, {{"id"_L1, number}, {"name"_L1, name}});
    Element(u"pic:cNvPicPr"_s);
    End();
    Begin(u"pic:blipFill"_s);
    Element(u"a:blip"_s, {{"r:embed"_L1, picture.id}});
    Begin(u"a:stretch"_s);
    Element(u"a:fillRect"_s);
    End();
    End();
    Shape(picture, width, height);
    // pic, graphicData, graphic, inline, drawing, run
    for (int element = 0; element < 6; ++element) {
        End();
    }
}

void WordXml::Shape(const WordPicture& picture, const QString& width, const QString& height) {
    Begin(u"pic:spPr"_s);
    Begin(u"a:xfrm"_s);
    Element(u"a:off"_s, {{"x"_L1, u"0"_s}, {"y"_L1, u"0"_s}});
    Element(u"a:ext"_s, {{"cx"_L1, width}, {"cy"_L1, height}});
    End();
    Begin(u"a:prstGeom"_s, {{"prst"_L1, u"rect"_s}});
    Element(u"a:avLst"_s);
    End();
    if (picture.hasFrame) {
        Begin(u"a:ln"_s, {{"w"_L1, u"6350"_s}});
        Begin(u"a:solidFill"_s);
        Element(u"a:srgbClr"_s, {{"val"_L1, kFrameColor}});
        End();
        End();
    }
    End();
}

} // namespace host
