#include "host/report/WordParts.h"

#include "host/report/RecordTextSigns.h"
#include "host/report/ReportBlocks.h"
#include "host/report/WordXml.h"

#include <QBuffer>

#include <array>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kListLevels = 9;
constexpr int kListIndent = 600; ///< of a level, twentieths of a point
constexpr int kListHanging = 360;

struct WordListKind {
    QTextListFormat::Style style;
    QLatin1StringView format;
    QStringView text; ///< "%" is the level
};

constexpr std::array kListKinds{
    WordListKind{QTextListFormat::ListDisc, "bullet"_L1, u"●"},
    WordListKind{QTextListFormat::ListCircle, "bullet"_L1, u"○"},
    WordListKind{QTextListFormat::ListSquare, "bullet"_L1, u"■"},
    WordListKind{QTextListFormat::ListDecimal, "decimal"_L1, u"%."},
    WordListKind{QTextListFormat::ListLowerAlpha, "lowerLetter"_L1, u"%."},
    WordListKind{QTextListFormat::ListUpperAlpha, "upperLetter"_L1, u"%."},
    WordListKind{QTextListFormat::ListLowerRoman, "lowerRoman"_L1, u"%."},
    WordListKind{QTextListFormat::ListUpperRoman, "upperRoman"_L1, u"%."},
};

int PlaceOfKind(QTextListFormat::Style style) {
    for (size_t place = 0; place < kListKinds.size(); ++place) {
        if (kListKinds.at(place).style == style) {
            return int(place);
        }
    }
    return 0;
}

void WriteListKind(WordXml& xml, int place) {
    const WordListKind& kind = kListKinds.at(size_t(place));
    xml.Begin(u"w:abstractNum"_s, {{"w:abstractNumId"_L1, QString::number(place)}});
    xml.Value(u"w:multiLevelType"_s, u"multilevel"_s);
    for (int level = 0; level < kListLevels; ++level) {
        xml.Begin(u"w:lvl"_s, {{"w:ilvl"_L1, QString::number(level)}});
        xml.Value(u"w:start"_s, u"1"_s);
        xml.Value(u"w:numFmt"_s, kind.format);
        xml.Value(u"w:lvlText"_s, kind.text.toString().replace(u"%"_s, u"%%1"_s.arg(level + 1)));
        xml.Value(u"w:lvlJc"_s, u"left"_s);
        xml.Begin(u"w:pPr"_s);
        const int left = kListIndent * (level + 1);
        xml.Element(u"w:ind"_s, {{"w:left"_L1, QString::number(left)},
                                 {"w:hanging"_L1, QString::number(kListHanging)}});
        xml.End();
        xml.End();
    }
    xml.End();
}

/// Of one style: its children in the order of the schema.
struct WordStyleRow {
    const char* id;
    const char* name;
    const char* basis;
    const char* next; ///< style of the paragraph behind; null: the same
    bool isBold;
    const char* color; ///< null: as text
    int size;          ///< half points; 0: as text
    const char* paragraph;
};

constexpr std::array kWordStyles{
    WordStyleRow{"Title", "Title", "Normal", "Subtitle", true, "15428B", 44,
                 R"(<w:keepNext/><w:spacing w:before="120" w:after="120"/><w:jc w:val="center"/>)"},
    WordStyleRow{"Subtitle", "Subtitle", "Normal", "Normal", false, "595959", 21,
                 R"(<w:spacing w:before="0" w:after="40"/><w:jc w:val="center"/>)"},
    WordStyleRow{"Heading1", "heading 1", "Normal", "Normal", true, "15428B", 30,
                 R"(<w:keepNext/><w:keepLines/><w:spacing w:before="320" w:after="120"/>)"
                 R"(<w:outlineLvl w:val="0"/>)"},
    WordStyleRow{"Heading2", "heading 2", "Normal", "Normal", true, "15428B", 25,
                 R"(<w:keepNext/><w:keepLines/><w:spacing w:before="200" w:after="100"/>)"
                 R"(<w:outlineLvl w:val="1"/>)"},
    WordStyleRow{"Heading3", "heading 3", "Normal", "Normal", true, nullptr, 32,
                 R"(<w:keepNext/><w:keepLines/><w:spacing w:before="200" w:after="80"/>)"
                 R"(<w:outlineLvl w:val="2"/>)"},
    WordStyleRow{"Heading4", "heading 4", "Normal", "Normal", true, nullptr, 27,
                 R"(<w:keepNext/><w:keepLines/><w:spacing w:before="160" w:after="80"/>)"
                 R"(<w:outlineLvl w:val="3"/>)"},
    WordStyleRow{"Heading5", "heading 5", "Normal", "Normal", true, nullptr, 22,
                 R"(<w:keepNext/><w:keepLines/><w:spacing w:before="120" w:after="60"/>)"
                 R"(<w:outlineLvl w:val="4"/>)"},
    WordStyleRow{"Heading6", "heading 6", "Normal", "Normal", true, nullptr, 18,
                 R"(<w:keepNext/><w:keepLines/><w:spacing w:before="120" w:after="60"/>)"
                 R"(<w:outlineLvl w:val="5"/>)"},
    WordStyleRow{"TOC1", "toc 1", "Normal", "Normal", false, nullptr, 0,
                 R"(<w:tabs><w:tab w:val="right" w:leader="dot" w:pos="%TAB%"/></w:tabs>)"
                 R"(<w:spacing w:before="40" w:after="40"/>)"},
    WordStyleRow{"TOC2", "toc 2", "Normal", "Normal", false, nullptr, 0,
                 R"(<w:tabs><w:tab w:val="right" w:leader="dot" w:pos="%TAB%"/></w:tabs>)"
                 R"(<w:spacing w:before="20" w:after="20"/><w:ind w:left="420"/>)"},
    WordStyleRow{"TOCHeading", "TOC Heading", "Normal", "Normal", true, "15428B", 30,
                 R"(<w:keepNext/><w:spacing w:before="320" w:after="120"/>)"},
    WordStyleRow{"Caption", "caption", "Normal", "Normal", true, nullptr, 19,
                 R"(<w:keepLines/><w:spacing w:before="60" w:after="20"/>)"},
    WordStyleRow{"Facts", "Facts", "Normal", nullptr, false, nullptr, 18,
                 R"(<w:spacing w:before="0" w:after="20"/>)"},
    WordStyleRow{"Record", "Record", "Normal", nullptr, false, nullptr, 18,
                 R"(<w:spacing w:before="0" w:after="0"/>)"},
    WordStyleRow{"Header", "header", "Normal", nullptr, false, "595959", 17,
                 R"(<w:spacing w:before="0" w:after="0"/>)"},
    WordStyleRow{"Footer", "footer", "Normal", nullptr, false, "595959", 17,
                 R"(<w:spacing w:before="0" w:after="0"/>)"},
};

constexpr const char* kStylesStart =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:styles xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:docDefaults>)"
    R"(<w:rPrDefault><w:rPr><w:rFonts w:ascii="Microsoft YaHei" w:hAnsi="Microsoft YaHei" )"
    R"(w:eastAsia="微软雅黑" w:cs="Times New Roman"/><w:sz w:val="20"/><w:szCs w:val="20"/>)"
    R"(<w:lang w:val="en-US" w:eastAsia="zh-CN" w:bidi="ar-SA"/></w:rPr></w:rPrDefault>)"
    R"(<w:pPrDefault><w:pPr><w:spacing w:before="0" w:after="80"/></w:pPr></w:pPrDefault>)"
    R"(</w:docDefaults><w:style w:type="paragraph" w:default="1" w:styleId="Normal">)"
    R"(<w:name w:val="Normal"/><w:qFormat/></w:style>)"
    R"(<w:style w:type="character" w:default="1" w:styleId="DefaultParagraphFont">)"
    R"(<w:name w:val="Default Paragraph Font"/><w:semiHidden/></w:style>)"
    R"(<w:style w:type="character" w:styleId="Hyperlink"><w:name w:val="Hyperlink"/><w:rPr>)"
    R"(<w:color w:val="0563C1"/><w:u w:val="single"/></w:rPr></w:style>)"
    R"(<w:style w:type="numbering" w:default="1" w:styleId="NoList"><w:name w:val="No List"/>)"
    R"(<w:semiHidden/></w:style>)";

/// Without lines: photographs and facts; with lines: lists, and tables of a rich text.
constexpr const char* kStylesEnd =
    R"(<w:style w:type="table" w:default="1" w:styleId="TableNormal"><w:name )"
    R"(w:val="Normal Table"/><w:semiHidden/><w:tblPr><w:tblInd w:w="0" w:type="dxa"/>)"
    R"(<w:tblCellMar><w:top w:w="40" w:type="dxa"/><w:left w:w="0" w:type="dxa"/>)"
    R"(<w:bottom w:w="40" w:type="dxa"/><w:right w:w="105" w:type="dxa"/></w:tblCellMar>)"
    R"(</w:tblPr></w:style><w:style w:type="table" w:styleId="PhotoTable"><w:name )"
    R"(w:val="Photo Table"/><w:basedOn w:val="TableNormal"/><w:tblPr><w:tblCellMar>)"
    R"(<w:right w:w="0" w:type="dxa"/></w:tblCellMar></w:tblPr></w:style>)"
    R"(<w:style w:type="table" w:styleId="LinedTable"><w:name )"
    R"(w:val="Lined Table"/><w:basedOn w:val="TableNormal"/><w:tblPr><w:tblBorders>)"
    R"(<w:top w:val="single" w:sz="4" w:space="0" w:color="B1C3D9"/>)"
    R"(<w:left w:val="single" w:sz="4" w:space="0" w:color="B1C3D9"/>)"
    R"(<w:bottom w:val="single" w:sz="4" w:space="0" w:color="B1C3D9"/>)"
    R"(<w:right w:val="single" w:sz="4" w:space="0" w:color="B1C3D9"/>)"
    R"(<w:insideH w:val="single" w:sz="4" w:space="0" w:color="B1C3D9"/>)"
    R"(<w:insideV w:val="single" w:sz="4" w:space="0" w:color="B1C3D9"/></w:tblBorders>)"
    R"(<w:tblCellMar><w:top w:w="50" w:type="dxa"/><w:left w:w="90" w:type="dxa"/>)"
    R"(<w:bottom w:w="50" w:type="dxa"/><w:right w:w="90" w:type="dxa"/></w:tblCellMar>)"
    R"(</w:tblPr></w:style></w:styles>)";

/// A part of one paragraph with a text on the left and, in the footer, the page on the right.
template <class Write> QByteArray PagePart(const QString& root, Write write) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    WordXml xml(&buffer);
    xml.BeginPart(root);
    write(xml);
    xml.EndPart();
    return bytes;
}

} // namespace

int WordLists::NumberOf(int list, QTextListFormat::Style style) {
    const auto [known, isNew] = m_numbers.try_emplace(list, int(m_kinds.size()) + 1);
    if (isNew) {
        m_kinds.push_back(PlaceOfKind(style));
    }
    return known->second;
}

QByteArray WordLists::Xml() const {
    return PagePart(u"w:numbering"_s, [this](WordXml& xml) {
        for (int place = 0; place < int(kListKinds.size()); ++place) {
            WriteListKind(xml, place);
        }
        int number = 0;
        for (const int kind : m_kinds) {
            xml.Begin(u"w:num"_s, {{"w:numId"_L1, QString::number(++number)}});
            xml.Value(u"w:abstractNumId"_s, QString::number(kind));
            // Each list counts from the beginning.
            for (int level = 0; level < kListLevels; ++level) {
                xml.Begin(u"w:lvlOverride"_s, {{"w:ilvl"_L1, QString::number(level)}});
                xml.Value(u"w:startOverride"_s, u"1"_s);
                xml.End();
            }
            xml.End();
        }
    });
}

QByteArray WordStyles(const ReportSheet& sheet) {
    QByteArray styles(kStylesStart);
    const int tab = TwipsOf(ShapeOf(sheet.options).text.width());
    for (const WordStyleRow& row : kWordStyles) {
        styles += QByteArray(R"(<w:style w:type="paragraph" w:styleId=")") + row.id +
                  R"("><w:name w:val=")" + row.name + R"("/><w:basedOn w:val=")" + row.basis +
                  R"("/>)";
        if (row.next != nullptr) {
            styles += QByteArray(R"(<w:next w:val=")") + row.next + R"("/>)";
        }
        styles += QByteArray("<w:qFormat/><w:pPr>") + row.paragraph + "</w:pPr><w:rPr>";
        styles += row.isBold ? "<w:b/><w:bCs/>" : "";
        if (row.color != nullptr) {
            styles += QByteArray(R"(<w:color w:val=")") + row.color + R"("/>)";
        }
        if (row.size > 0) {
            const QByteArray size = QByteArray::number(row.size);
            styles += R"(<w:sz w:val=")" + size + R"("/><w:szCs w:val=")" + size + R"("/>)";
        }
        styles += "</w:rPr></w:style>";
    }
    styles.replace("%TAB%", QByteArray::number(tab));
    return styles + kStylesEnd;
}

QByteArray WordHeader(const ReportSheet& sheet) {
    return PagePart(u"w:hdr"_s, [&](WordXml& xml) {
        WordParagraph line;
        line.style = u"Header"_s;
        line.hasRule = !sheet.header.isEmpty();
        xml.Paragraph(line, sheet.header);
    });
}

QByteArray WordFooter(const ReportSheet& sheet) {
    return PagePart(u"w:ftr"_s, [&](WordXml& xml) {
        WordParagraph line;
        line.style = u"Footer"_s;
        line.tab = TwipsOf(ShapeOf(sheet.options).text.width());
        xml.BeginParagraph(line);
        xml.Run(sheet.footer + u"\t第 "_s);
        xml.Field(u"PAGE"_s, u"1"_s);
        xml.Run(u" 页，共 "_s);
        xml.Field(u"NUMPAGES"_s, u"1"_s);
        xml.Run(u" 页"_s);
        xml.End();
    });
}

QByteArray WordProperties(const ReportSheet& sheet) {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument(u"1.0"_s, true);
    xml.writeStartElement(u"cp:coreProperties"_s);
    xml.writeAttribute(
        u"xmlns:cp"_s,
        u"http://schemas.openxmlformats.org/package/2006/metadata/core-properties"_s);
    xml.writeAttribute(u"xmlns:dc"_s, u"http://purl.org/dc/elements/1.1/"_s);
    xml.writeTextElement(u"dc:title"_s, WritableText(sheet.title));
    xml.writeTextElement(u"dc:creator"_s, WritableText(sheet.author));
    xml.writeTextElement(u"dc:language"_s, u"zh-CN"_s);
    xml.writeEndDocument();
    return bytes;
}

const std::vector<WordPart>& FixedWordParts() {
    static const std::vector<WordPart> parts{
        {"[Content_Types].xml",
         R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default )"
         R"(Extension="rels" ContentType="application/vnd.openxmlformats-package.)"
         R"(relationships+xml"/>)"
         R"(<Default Extension="xml" ContentType="application/xml"/><Default Extension="jpg" )"
         R"(ContentType="image/jpeg"/><Default Extension="png" ContentType="image/png"/>)"
         R"(<Override PartName="/word/document.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/>)"
         R"(<Override PartName="/word/styles.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.wordprocessingml.styles+xml"/>)"
         R"(<Override PartName="/word/settings.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.wordprocessingml.settings+xml"/>)"
         R"(<Override PartName="/word/numbering.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.wordprocessingml.numbering+xml"/>)"
         R"(<Override PartName="/word/header1.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.wordprocessingml.header+xml"/>)"
         R"(<Override PartName="/word/footer1.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.wordprocessingml.footer+xml"/>)"
         R"(<Override PartName="/docProps/core.xml" ContentType="application/)"
         R"(vnd.openxmlformats-package.core-properties+xml"/>)"
         R"(<Override PartName="/docProps/app.xml" ContentType="application/)"
         R"(vnd.openxmlformats-officedocument.extended-properties+xml"/></Types>)"},
        {"_rels/.rels",
         R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
         R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/)"
         R"(relationships/officeDocument" Target="word/document.xml"/>)"
         R"(<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/package/2006/)"
         R"(relationships/metadata/core-properties" Target="docProps/core.xml"/>)"
         R"(<Relationship Id="rId3" Type="http://schemas.openxmlformats.org/officeDocument/2006/)"
         R"(relationships/extended-properties" Target="docProps/app.xml"/></Relationships>)"},
        {"docProps/app.xml",
         R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Properties xmlns="http://schemas.openxmlformats.org/officeDocument/2006/extended-properties"/>)"},
        {"word/settings.xml",
         R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:settings xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">)"
         R"(<w:zoom w:percent="100"/><w:defaultTabStop w:val="420"/>)"
         R"(<w:characterSpacingControl w:val="compressPunctuation"/><w:compat><w:compatSetting )"
         R"(w:name="compatibilityMode" w:uri="http://schemas.microsoft.com/office/word" )"
         R"(w:val="15"/></w:compat><w:themeFontLang w:val="en-US" w:eastAsia="zh-CN"/>)"
         R"(</w:settings>)"},
    };
    return parts;
}

} // namespace host
