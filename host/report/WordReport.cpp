#include "host/report/WordReport.h"

#include "host/report/WordPackage.h"
#include "host/report/WordParts.h"
#include "host/report/WordPhotos.h"
#include "host/report/WordRecord.h"
#include "host/report/WordXml.h"

#include <QBuffer>
#include <QFile>

#include <optional>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kCaptionShare = 0.2; ///< of the width, for the captions of facts
constexpr double kBehindTable = 6;
constexpr double kMostLogoWidth = 240;
constexpr double kMostLogoHeight = 64;

/// Writes the text of a report, block after block.
class WordBody final {
public:
    WordBody(const ReportSheet& sheet, WordXml& xml, WordRelations& relations, WordLists& lists,
             ReportPrints& prints)
        : m_sheet(sheet), m_xml(xml), m_relations(relations), m_lists(lists), m_prints(prints),
          m_width(ShapeOf(sheet.options).text.width()),
          m_photos(xml, relations, prints, ShapeOf(sheet.options).text.size()) {}

    void Write() {
        m_xml.BeginPart(u"w:document"_s);
        m_xml.Begin(u"w:body"_s);
        for (size_t place = 0; place < m_sheet.blocks.size(); ++place) {
            const ReportBlock& block = m_sheet.blocks[place];
            if (!std::holds_alternative<PhotosBlock>(block)) {
                m_photos.End();
            }
            m_beginsPage = HeadsPage(m_sheet, place);
            std::visit([this](const auto& known) { WriteBlock(known); }, block);
        }
        m_photos.End();
        WritePage();
        m_xml.End();
        m_xml.EndPart();
    }

private:
    void WriteBlock(const TitleBlock& block) {
        WordParagraph line;
        if (!block.logo.isNull()) {
            line.alignment = u"center"_s;
            m_xml.BeginParagraph(line);
            WriteImage(block.logo, {kMostLogoWidth, kMostLogoHeight}, u"标志"_s, false);
            m_xml.End();
        }
        line = {};
        line.style = u"Title"_s;
        m_xml.Paragraph(line, block.title);
        line.style = u"Subtitle"_s;
        for (const QString& text : block.lines) {
            line.hasRule = &text == &block.lines.back();
            m_xml.Paragraph(line, text);
        }
    }

    [[nodiscard]] static QString MarkOf(int heading) { return u"_Toc%1"_s.arg(heading); }

    void WriteBlock(const HeadingBlock& block) {
        const int heading = ++m_headings;
        WordParagraph line;
        line.style = u"Heading%1"_s.arg(block.level);
        line.beginsPage = m_beginsPage;
        m_xml.BeginParagraph(line);
        const QString id = QString::number(heading);
        m_xml.Element(u"w:bookmarkStart"_s, {{"w:id"_L1, id}, {"w:name"_L1, MarkOf(heading)}});
        m_xml.Run(block.text);
        m_xml.Element(u"w:bookmarkEnd"_s, {{"w:id"_L1, id}});
        m_xml.End();
    }

    void WriteBlock(const ParagraphBlock& block) { m_xml.Paragraph({}, block.text); }

    void WriteBlock(const FactsBlock& block) {
        const int first = TwipsOf(m_width * kCaptionShare);
        const std::vector<int> columns{first, TwipsOf(m_width) - first};
        m_xml.BeginTable({u"TableNormal"_s, false}, columns);
        WordParagraph line;
        line.style = u"Facts"_s;
        WordCell left;
        left.width = columns[0];
        WordCell right;
        right.width = columns[1];
        for (const auto& [caption, value] : block.facts) {
            m_xml.BeginRow(false, false);
            WriteCell(left, line, caption, Quiet());
            WriteCell(right, line, value);
            m_xml.End();
        }
        m_xml.End();
        m_xml.Gap(kBehindTable);
    }

    void WriteBlock(const ContentsBlock&) {
        m_xml.Begin(u"w:sdt"_s);
        m_xml.Begin(u"w:sdtPr"_s);
        m_xml.Begin(u"w:docPartObj"_s);
        m_xml.Value(u"w:docPartGallery"_s, u"Table of Contents"_s);
        m_xml.Element(u"w:docPartUnique"_s);
        m_xml.End();
        m_xml.End();
        m_xml.Begin(u"w:sdtContent"_s);
        WordParagraph line;
        line.style = u"TOCHeading"_s;
        m_xml.Paragraph(line, u"目录"_s);
        WriteContents();
        m_xml.End();
        m_xml.End();
    }

    /// Without pages: only Word knows them, when it counts the field.
    void WriteContents() {
        int heading = 0;
        for (const ReportBlock& block : m_sheet.blocks) {
            const auto* known = std::get_if<HeadingBlock>(&block);
            if (known == nullptr) {
                continue;
            }
            WordParagraph line;
            line.style = u"TOC%1"_s.arg(known->level);
            m_xml.BeginParagraph(line);
            if (++heading == 1) {
                m_xml.FieldMark(u"begin"_s);
                m_xml.FieldCode(uR"(TOC \o "1-2" \h \z \u)"_s);
                m_xml.FieldMark(u"separate"_s);
            }
            m_xml.Begin(u"w:hyperlink"_s,
                        {{"w:anchor"_L1, MarkOf(heading)}, {"w:history"_L1, u"1"_s}});
            m_xml.Run(known->text);
            m_xml.End();
            m_xml.End();
        }
        m_xml.BeginParagraph({});
        if (heading > 0) {
            m_xml.FieldMark(u"end"_s);
        }
        m_xml.End();
    }

    void WriteBlock(const PhotosBlock& block) { m_photos.Write(block); }

    void WriteBlock(const TableBlock& block) {
        std::vector<int> columns;
        for (const double share : block.shares) {
            columns.push_back(TwipsOf(m_width * share));
        }
        m_xml.BeginTable({u"LinedTable"_s, false}, columns);
        WordParagraph line;
        line.style = u"Facts"_s;
        line.staysWithNext = true;
        WriteRow(block.titles, columns, line, true);
        line.staysWithNext = false;
        for (const QStringList& row : block.rows) {
            WriteRow(row, columns, line, false);
        }
        m_xml.End();
        m_xml.Gap(kBehindTable);
    }

    void WriteRow(const QStringList& texts, const std::vector<int>& columns,
                  const WordParagraph& line, bool isTitle) {
        m_xml.BeginRow(isTitle, isTitle);
        for (size_t column = 0; column < columns.size(); ++column) {
            WordCell cell;
            cell.width = columns[column];
            WordLook look;
            if (isTitle) {
                cell.ground = QColor(0xEA, 0xF0, 0xF8);
                look.isBold = true;
            }
            WriteCell(cell, line, texts.value(qsizetype(column)), look);
        }
        m_xml.End();
    }

    void WriteCell(const WordCell& cell, const WordParagraph& line, const QString& text,
                   const WordLook& look = {}) {
        m_xml.BeginCell(cell);
        m_xml.Paragraph(line, text, look);
        m_xml.End();
    }

    void WriteBlock(const ImageBlock& block) {
        WordParagraph line;
        line.alignment = u"center"_s;
        line.staysWithNext = !block.note.isEmpty();
        m_xml.BeginParagraph(line);
        WriteImage(block.image, {block.mostWidth, block.mostHeight},
                   block.note.isEmpty() ? u"图"_s : block.note, true);
        m_xml.End();
        if (!block.note.isEmpty()) {
            line.style = u"Facts"_s;
            line.staysWithNext = false;
            m_xml.Paragraph(line, block.note, Quiet());
        }
    }

    void WriteBlock(const RecordBlock& block) {
        const RecordText& record = m_prints.Record(block);
        if (!record.IsRead()) {
            m_xml.Paragraph({}, kRecordTooLarge);
            return;
        }
        WordRecord taker(m_xml, m_relations, m_lists, [this](const RecordPicture& picture) {
            return m_prints.Next(picture.file, picture.size).path;
        });
        record.Walk(taker);
    }

    void WriteImage(const QImage& image, const QSizeF& room, const QString& text, bool grows) {
        QSizeF size = image.size();
        if (size.isEmpty()) {
            return;
        }
        if (grows || size.width() > room.width() || size.height() > room.height()) {
            size.scale(room, Qt::KeepAspectRatio);
        }
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        m_xml.Picture({m_relations.AddImage(png), size, text, false});
    }

    void WritePage() {
        const PageShape shape = ShapeOf(m_sheet.options);
        const auto twips = [](double length) { return QString::number(TwipsOf(length)); };
        m_xml.Begin(u"w:sectPr"_s);
        m_xml.Element(u"w:headerReference"_s,
                      {{"w:type"_L1, u"default"_s},
                       {"r:id"_L1, m_relations.Add(u"header"_s, u"header1.xml"_s)}});
        m_xml.Element(u"w:footerReference"_s,
                      {{"w:type"_L1, u"default"_s},
                       {"r:id"_L1, m_relations.Add(u"footer"_s, u"footer1.xml"_s)}});
        const bool isLandscape = m_sheet.options.isLandscape;
        m_xml.Element(u"w:pgSz"_s, {{"w:w"_L1, twips(shape.page.width())},
                                    {"w:h"_L1, twips(shape.page.height())},
                                    {"w:orient"_L1, isLandscape ? u"landscape"_s : u"portrait"_s}});
        const double below = shape.page.height() - shape.footerTop - kPageLine;
        m_xml.Element(u"w:pgMar"_s,
                      {{"w:top"_L1, twips(shape.text.top())},
                       {"w:right"_L1, twips(shape.page.width() - shape.text.right())},
                       {"w:bottom"_L1, twips(shape.page.height() - shape.text.bottom())},
                       {"w:left"_L1, twips(shape.text.left())},
                       {"w:header"_L1, twips(shape.headerTop)},
                       {"w:footer"_L1, twips(below)},
                       {"w:gutter"_L1, u"0"_s}});
        m_xml.End();
    }

    [[nodiscard]] static WordLook Quiet() {
        WordLook look;
        look.color = QColor(0x6B, 0x6B, 0x6B);
        return look;
    }

    const ReportSheet& m_sheet;
    WordXml& m_xml;
    WordRelations& m_relations;
    WordLists& m_lists;
    ReportPrints& m_prints;
    const double m_width;
    WordPhotos m_photos;
    bool m_beginsPage = false; ///< the block that is written now
    int m_headings = 0;
};

void PackWord(const ReportSheet& sheet, const QString& text, const WordRelations& relations,
              const WordLists& lists, const ReportFile& file, const ReportSteps& steps) {
    WordPackage package(file);
    for (const WordPart& part : FixedWordParts()) {
        package.AddPart(QString::fromLatin1(part.name), QByteArray(part.xml));
    }
    package.AddPart(u"docProps/core.xml"_s, WordProperties(sheet));
    package.AddFile(u"word/document.xml"_s, text);
    package.AddPart(u"word/_rels/document.xml.rels"_s, relations.Xml());
    package.AddPart(u"word/styles.xml"_s, WordStyles(sheet));
    package.AddPart(u"word/numbering.xml"_s, lists.Xml());
    package.AddPart(u"word/header1.xml"_s, WordHeader(sheet));
    package.AddPart(u"word/footer1.xml"_s, WordFooter(sheet));
    package.AddPictures(u"word/"_s, relations);
    package.Close(steps.stop);
}

} // namespace

void WriteWord(const ReportSheet& sheet, PrintPictures& pictures, ReportFile& file,
               const ReportSteps& steps) {
    ReportPrints prints(sheet, pictures, steps);
    WordRelations relations;
    WordLists lists;
    for (const QString& part : {u"styles"_s, u"settings"_s, u"numbering"_s}) {
        static_cast<void>(relations.Add(part, part + u".xml"_s));
    }
    QFile text(file.SecondPath());
    if (!text.open(QIODevice::WriteOnly)) {
        throw file.WriteFault();
    }
    WordXml xml(&text);
    WordBody(sheet, xml, relations, lists, prints).Write();
    if (!text.flush() || xml.HasFault()) {
        throw file.WriteFault();
    }
    text.close();
    prints.Step();
    PackWord(sheet, text.fileName(), relations, lists, file, steps);
    prints.Step();
    file.Commit(file.WorkPath());
}

} // namespace host
