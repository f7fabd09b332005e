#include "host/report/WebRecord.h"

#include "host/report/WebText.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

struct WebListKind {
    QTextListFormat::Style style;
    QLatin1StringView element;
    QLatin1StringView type;
};

constexpr std::array kWebLists{
    WebListKind{QTextListFormat::ListDisc, "ul"_L1, "disc"_L1},
    WebListKind{QTextListFormat::ListCircle, "ul"_L1, "circle"_L1},
    WebListKind{QTextListFormat::ListSquare, "ul"_L1, "square"_L1},
    WebListKind{QTextListFormat::ListDecimal, "ol"_L1, "decimal"_L1},
    WebListKind{QTextListFormat::ListLowerAlpha, "ol"_L1, "lower-alpha"_L1},
    WebListKind{QTextListFormat::ListUpperAlpha, "ol"_L1, "upper-alpha"_L1},
    WebListKind{QTextListFormat::ListLowerRoman, "ol"_L1, "lower-roman"_L1},
    WebListKind{QTextListFormat::ListUpperRoman, "ol"_L1, "upper-roman"_L1},
};

const WebListKind& WebListOf(QTextListFormat::Style style) {
    const auto* kind = std::ranges::find(kWebLists, style, &WebListKind::style);
    return kind == kWebLists.end() ? kWebLists.front() : *kind;
}

/// Headings of a report itself have two levels, below its title.
constexpr int kWebReportLevels = 2;
constexpr int kWebLevels = 6;

QString WebAlignmentOf(Qt::Alignment alignment) {
    switch (static_cast<int>(alignment)) {
    case Qt::AlignHCenter:
        return u"text-align:center;"_s;
    case Qt::AlignRight:
        return u"text-align:right;"_s;
    case Qt::AlignJustify:
        return u"text-align:justify;"_s;
    default:
        return {};
    }
}

QString StyleAttribute(const QString& style) {
    return style.isEmpty() ? QString() : u" style=\""_s + style + u'"';
}

QString PixelsOf(QLatin1StringView property, double length) {
    return length == 0 ? QString() : property + u':' + WebNumber(length) + u"px;"_s;
}

QString WebStyleOf(const RecordParagraph& paragraph) {
    QString style = WebAlignmentOf(paragraph.alignment);
    style +=
        PixelsOf("margin-top"_L1, paragraph.above) + PixelsOf("margin-right"_L1, paragraph.right) +
        PixelsOf("margin-bottom"_L1, paragraph.below) + PixelsOf("margin-left"_L1, paragraph.left) +
        PixelsOf("text-indent"_L1, paragraph.firstLine);
    if (paragraph.ground.isValid()) {
        style += u"background:"_s + WebColor(paragraph.ground) + u';';
    }
    return StyleAttribute(style) + (paragraph.isRightToLeft ? u" dir=\"rtl\""_s : QString());
}

QString WebStyleOf(const RecordLook& look) {
    QString style;
    style += look.isBold ? u"font-weight:bold;"_s : QString();
    style += look.isItalic ? u"font-style:italic;"_s : QString();
    if (look.isUnderlined || look.isStruck) {
        style += u"text-decoration:"_s + (look.isUnderlined ? u"underline "_s : QString()) +
                 (look.isStruck ? u"line-through"_s : QString()) + u';';
    }
    if (look.rise != RecordLook::Rise::None) {
        style += look.rise == RecordLook::Rise::Above ? u"vertical-align:super;"_s
                                                      : u"vertical-align:sub;"_s;
        style += look.points > 0 ? QString() : u"font-size:smaller;"_s;
    }
    style += look.color.isValid() ? u"color:"_s + WebColor(look.color) + u';' : QString();
    style += look.ground.isValid() ? u"background:"_s + WebColor(look.ground) + u';' : QString();
    style += look.points > 0 ? u"font-size:"_s + WebNumber(look.points) + u"pt;"_s : QString();
    const QString face = WebFace(look.face);
    style += face.isEmpty() ? QString() : u"font-family:"_s + face + u';';
    return style;
}

} // namespace

WebRecord::WebRecord(WebText& text, WritePicture writePicture)
    : m_text(text), m_writePicture(std::move(writePicture)) {}

size_t WebRecord::FirstListHere() const {
    return m_listsAbove.empty() ? 0 : m_listsAbove.back();
}

void WebRecord::CloseLists(size_t left) {
    while (m_lists.size() > left) {
        m_text.Add(u"</li></"_s + m_lists.back().element + u'>');
        m_lists.pop_back();
    }
}

void WebRecord::OpenItem(const RecordParagraph& paragraph) {
    size_t left = m_lists.size();
    while (left > FirstListHere() && (m_lists[left - 1].level > paragraph.listLevel ||
                                      (m_lists[left - 1].level == paragraph.listLevel &&
                                       m_lists[left - 1].list != paragraph.list))) {
        --left;
    }
    CloseLists(left);
    int& count = m_counts[paragraph.list];
    ++count;
    if (m_lists.size() > FirstListHere() && m_lists.back().list == paragraph.list) {
        m_text.Add(u"</li><li>"_s);
        return;
    }
    const WebListKind& kind = WebListOf(paragraph.listStyle);
    // Goes on where something stood in between.
    const QString start =
        kind.element == "ol"_L1 && count > 1 ? u" start=\"%1\""_s.arg(count) : QString();
    m_text.Add(u'<' + kind.element + start + StyleAttribute(u"list-style-type:"_s + kind.type) +
               u"><li>"_s);
    m_lists.push_back({paragraph.list, paragraph.listLevel, kind.element});
}

void WebRecord::BeginParagraph(const RecordParagraph& paragraph) {
    if (paragraph.list > 0) {
        OpenItem(paragraph);
    } else {
        CloseLists(FirstListHere());
    }
    QString element = u"p"_s;
    if (paragraph.heading > 0) {
        // The title is h1, the report's headings h2 and h3.
        const int level = std::min(paragraph.heading + kWebReportLevels + 1, kWebLevels);
        element = u"h%1"_s.arg(level);
    }
    m_text.Add(u'<' + element + WebStyleOf(paragraph) + u'>');
    m_end = u"</"_s + element + (paragraph.hasRule ? u"><hr>\n"_s : u">\n"_s);
    m_isEmpty = true;
}

void WebRecord::Text(const QString& text, const RecordLook& look) {
    m_isEmpty = m_isEmpty && text.isEmpty();
    const QString style = WebStyleOf(look);
    const bool isPlain = style.isEmpty() && look.link.isEmpty();
    if (!look.link.isEmpty()) {
        m_text.Add(u"<a rel=\"noopener\" href=\""_s + WebEscaped(look.link) + u'"' +
                   StyleAttribute(style) + u'>' + WebLines(text) + u"</a>"_s);
    } else {
        m_text.Add(isPlain
                       ? WebLines(text)
                       : u"<span"_s + StyleAttribute(style) + u'>' + WebLines(text) + u"</span>"_s);
    }
}

void WebRecord::Picture(const RecordPicture& picture) {
    m_isEmpty = false;
    m_writePicture(picture);
}

void WebRecord::EndParagraph() {
    // An empty one is as high as a line.
    m_text.Add((m_isEmpty && !m_end.contains(u"<hr>"_s) ? u"<br>"_s : QString()) + m_end);
}

void WebRecord::BeginTable(const RecordTable& table) {
    CloseLists(FirstListHere());
    const double width = std::accumulate(table.columns.begin(), table.columns.end(), 0.0);
    m_text.Add(u"<table class=\""_s + (table.hasLines ? u"lined"_s : u"bare"_s) + u'"' +
               (table.isAsWideAsItsTexts
                    ? QString()
                    : u" style=\"max-width:100%;width:"_s + WebNumber(width) + u"px\""_s) +
               u">\n"_s);
    if (!table.isAsWideAsItsTexts) {
        m_text.Add(u"<colgroup>"_s);
        for (const double column : table.columns) {
            m_text.Add(u"<col style=\"width:"_s + WebNumber(column / width * 100) + u"%\">"_s);
        }
        m_text.Add(u"</colgroup>\n"_s);
    }
}

void WebRecord::BeginRow() {
    m_text.Add(u"<tr>"_s);
}

void WebRecord::BeginCell(const RecordCell& cell) {
    m_listsAbove.push_back(m_lists.size());
    m_skipped.push_back(cell.isCovered);
    if (cell.isCovered) {
        return;
    }
    QString style;
    style += cell.ground.isValid() ? u"background:"_s + WebColor(cell.ground) + u';' : QString();
    style += cell.alignment == Qt::AlignVCenter  ? u"vertical-align:middle;"_s
             : cell.alignment == Qt::AlignBottom ? u"vertical-align:bottom;"_s
                                                 : QString();
    m_text.Add(u"<td"_s + (cell.columns > 1 ? u" colspan=\"%1\""_s.arg(cell.columns) : QString()) +
               (cell.rows > 1 ? u" rowspan=\"%1\""_s.arg(cell.rows) : QString()) +
               StyleAttribute(style) + u'>');
}

void WebRecord::EndCell() {
    CloseLists(FirstListHere());
    if (!m_skipped.back()) {
        m_text.Add(u"</td>"_s);
    }
    m_skipped.pop_back();
    m_listsAbove.pop_back();
}

void WebRecord::EndRow() {
    m_text.Add(u"</tr>\n"_s);
}

void WebRecord::EndTable() {
    m_text.Add(u"</table>\n"_s);
}

} // namespace host
