#include "host/report/WordRecord.h"

#include "host/report/WordPackage.h"
#include "host/report/WordParts.h"
#include "host/report/WordXml.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Headings of a report itself have two levels.
constexpr int kReportLevels = 2;
constexpr int kWordLevels = 6;
/// Height of what stands behind a table, where something must.
constexpr double kBehindRecordTable = 4;
/// More columns, and longer names of faces, Word doesn't open.
constexpr size_t kMostWordColumns = 63;
constexpr qsizetype kMostFaceName = 31;

QString WordAlignmentOf(const RecordParagraph& paragraph) {
    switch (static_cast<int>(paragraph.alignment)) {
    case Qt::AlignHCenter:
        return u"center"_s;
    case Qt::AlignRight:
        // Word's sides are those of the direction.
        return paragraph.isRightToLeft ? u"left"_s : u"right"_s;
    case Qt::AlignJustify:
        return u"both"_s;
    default:
        return {};
    }
}

} // namespace

WordRecord::WordRecord(WordXml& xml, WordRelations& relations, WordLists& lists,
                       GetPicture getPicture)
    : m_xml(xml), m_relations(relations), m_lists(lists), m_getPicture(std::move(getPicture)) {}

void WordRecord::BeginParagraph(const RecordParagraph& paragraph) {
    m_isInHeading = paragraph.heading > 0;
    m_isEmptyCell = false;
    WordParagraph told;
    told.style = m_isInHeading
                     ? u"Heading%1"_s.arg(std::min(paragraph.heading + kReportLevels, kWordLevels))
                     : u"Record"_s;
    if (paragraph.list > 0) {
        told.list = m_lists.NumberOf(paragraph.list, paragraph.listStyle);
        told.listLevel = paragraph.listLevel;
    }
    told.hasRule = paragraph.hasRule;
    told.ground = paragraph.ground;
    told.isRightToLeft = paragraph.isRightToLeft;
    told.above = TwipsOf(paragraph.above);
    told.below = TwipsOf(paragraph.below);
    told.left = TwipsOf(paragraph.left);
    told.right = TwipsOf(paragraph.right);
    told.firstLine = TwipsOf(paragraph.firstLine);
    told.alignment = WordAlignmentOf(paragraph);
    m_xml.BeginParagraph(told);
}

WordLook WordRecord::LookOf(const RecordLook& look) const {
    WordLook told;
    told.style = look.link.isEmpty() ? QString() : u"Hyperlink"_s;
    told.face = look.face.left(kMostFaceName);
    told.isBold = look.isBold;
    told.isNotBold = m_isInHeading && !look.isBold;
    told.isItalic = look.isItalic;
    told.isStruck = look.isStruck;
    told.isUnderlined = look.isUnderlined;
    told.color = look.color;
    told.ground = look.ground;
    told.points = look.points;
    if (look.rise != RecordLook::Rise::None) {
        told.rise = look.rise == RecordLook::Rise::Above ? u"superscript"_s : u"subscript"_s;
    }
    return told;
}

void WordRecord::Text(const QString& text, const RecordLook& look) {
    if (look.link.isEmpty()) {
        m_xml.Run(text, LookOf(look));
        return;
    }
    m_xml.Begin(u"w:hyperlink"_s, {{"r:id"_L1, m_relations.AddLink(look.link)}});
    m_xml.Run(text, LookOf(look));
    m_xml.End();
}

void WordRecord::Picture(const RecordPicture& picture) {
    const QString path = m_getPicture(picture);
    if (path.isEmpty()) {
        m_xml.Run(u"[图片无法读取]"_s);
        return;
    }
    m_xml.Picture({m_relations.AddPicture(path), picture.size, u"整改记录中的图片"_s, false});
}

void WordRecord::EndParagraph() {
    m_xml.End();
}

void WordRecord::BeginTable(const RecordTable& table) {
    WordTable told;
    told.style = table.hasLines ? u"LinedTable"_s : u"TableNormal"_s;
    told.isAsWideAsItsTexts = table.isAsWideAsItsTexts;
    std::vector<int> columns;
    for (const double width : table.columns) {
        columns.push_back(std::max(TwipsOf(width), 1));
    }
    m_joinsCells.push_back(columns.size() > kMostWordColumns);
    if (m_joinsCells.back()) {
        columns = {std::accumulate(columns.begin(), columns.end(), 0)};
    }
    m_xml.BeginTable(told, columns);
}

void WordRecord::BeginRow() {
    m_xml.BeginRow(false, false);
    if (m_joinsCells.back()) {
        m_xml.BeginCell({});
        m_isEmptyCell = true;
    }
}

void WordRecord::BeginCell(const RecordCell& cell) {
    if (m_joinsCells.back()) {
        return;
    }
    WordCell told;
    told.width = TwipsOf(cell.width);
    told.columns = cell.columns;
    if (cell.rows > 1) {
        told.merge = cell.isCovered ? u"continue"_s : u"restart"_s;
    }
    told.ground = cell.ground;
    if (cell.alignment == Qt::AlignVCenter) {
        told.alignment = u"center"_s;
    } else if (cell.alignment == Qt::AlignBottom) {
        told.alignment = u"bottom"_s;
    }
    m_xml.BeginCell(told);
    m_isEmptyCell = true;
}

void WordRecord::EndCell() {
    if (!m_joinsCells.back()) {
        CloseCell();
    }
}

void WordRecord::CloseCell() {
    if (m_isEmptyCell) {
        m_xml.Gap(kBehindRecordTable);
    }
    m_isEmptyCell = false;
    m_xml.End();
}

void WordRecord::EndRow() {
    if (m_joinsCells.back()) {
        CloseCell();
    }
    m_xml.End();
}

void WordRecord::EndTable() {
    m_joinsCells.pop_back();
    m_xml.End();
    // Two tables in a row would be one.
    m_xml.Gap(kBehindRecordTable);
}

} // namespace host
