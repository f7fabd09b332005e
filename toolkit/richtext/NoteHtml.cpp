#include "toolkit/richtext/NoteHtml.h"

#include "toolkit/richtext/NoteCells.h"
#include "toolkit/richtext/NoteStyle.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QUrl>

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMd5Digits = 32;
constexpr qsizetype kLongestEnding = 10;
constexpr size_t kMostKnownStyles = 1000;

/// Elements of the form. Sorted.
constexpr auto kElements = std::to_array<std::string_view>(
    {"a",   "b",  "blockquote", "body",   "br",     "center", "code", "dd",    "del",
     "div", "dl", "dt",         "em",     "font",   "h1",     "h2",   "h3",    "h4",
     "h5",  "h6", "hr",         "html",   "i",      "img",    "li",   "ol",    "p",
     "pre", "s",  "span",       "strike", "strong", "sub",    "sup",  "table", "tbody",
     "td",  "th", "thead",      "tr",     "u",      "ul"});
/// Elements that go with all that is in them. Sorted.
constexpr auto kGone = std::to_array<std::string_view>(
    {"applet", "audio",  "button", "canvas", "embed", "form",     "frame",    "frameset",
     "iframe", "input",  "link",   "map",    "math",  "noframes", "noscript", "object",
     "option", "script", "select", "style",  "svg",   "template", "textarea", "title"});
constexpr auto kTableElements =
    std::to_array<std::string_view>({"table", "tbody", "td", "th", "thead", "tr"});
constexpr auto kEmpty = std::to_array<std::string_view>({"br", "hr", "img"});
/// Attributes that say nothing but a look. Sorted.
constexpr auto kAttributes =
    std::to_array<std::string_view>({"align", "alt", "bgcolor", "color", "dir", "face", "size",
                                     "start", "title", "type", "valign"});
/// Attributes that are a number of pixels or a share. Sorted.
constexpr auto kLengths =
    std::to_array<std::string_view>({"border", "cellpadding", "cellspacing", "height", "width"});
constexpr int kMostLine = 100; ///< around and between cells, pixels
constexpr int kMostSide = 10'000;

template <size_t Count>
bool Has(const std::array<std::string_view, Count>& sorted, std::string_view name) {
    return std::binary_search(sorted.begin(), sorted.end(), name);
}

QString TextOf(const xmlChar* text) {
    return text == nullptr ? QString() : QString::fromUtf8(reinterpret_cast<const char*>(text));
}

std::string_view ViewOf(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

/// Length in bytes of a sign at the start of UTF-8 text by which a document holds its pictures and
/// frames together (U+FFFC, U+FDD0 to U+FDEF): in a text it would stand for one that isn't there.
size_t InnerSignAt(std::string_view text) {
    constexpr size_t kBytes = 3;
    const std::string_view sign = text.substr(0, kBytes);
    const bool isInner =
        sign == "\xEF\xBF\xBC" || (sign.size() == kBytes && sign.starts_with("\xEF\xB7") &&
                                   uchar(sign[2]) >= 0x90U && uchar(sign[2]) <= 0xAFU);
    return isInner ? kBytes : 0;
}

/// What doesn't stand for itself in HTML: its signs, and what has no place in a text at all.
constexpr auto kSpecialBytes = [] {
    std::array<bool, 256> special{};
    for (size_t control = 0; control < ' '; ++control) {
        special[control] = control != '\t' && control != '\n' && control != '\r';
    }
    for (const char sign : {'&', '<', '>', '"', '\xEF'}) {
        special[uchar(sign)] = true;
    }
    return special;
}();

/// What is written for a sign of HTML; nothing for a control character.
std::string_view EscapeOf(char sign) {
    switch (sign) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        return {};
    }
}

void AddPlain(QByteArray& html, std::string_view text) {
    html.append(text.data(), qsizetype(text.size()));
}

/// UTF-8, as text of an element or within double quotes.
void AddEscaped(QByteArray& html, std::string_view text) {
    size_t from = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        if (!kSpecialBytes[uchar(text[at])]) {
            continue;
        }
        const bool mayBeInner = text[at] == '\xEF';
        const size_t inner = mayBeInner ? InnerSignAt(text.substr(at)) : 0;
        if (mayBeInner && inner == 0) {
            continue;
        }
        AddPlain(html, text.substr(from, at - from));
        AddPlain(html, EscapeOf(text[at]));
        at += mayBeInner ? inner - 1 : 0;
        from = at + 1;
    }
    AddPlain(html, text.substr(from));
}

/// Of a cell, in columns or rows; 1 for what is none.
size_t SpanOf(std::string_view value) {
    constexpr int kMostSpan = 1000;
    return size_t(
        std::clamp(QByteArrayView(value.data(), qsizetype(value.size())).toInt(), 1, kMostSpan));
}

/// Empty for what is no such number; larger ones take hours to be laid out and painted.
std::string LengthOf(std::string_view name, std::string_view value) {
    const QByteArray text = QByteArray(value.data(), qsizetype(value.size())).trimmed();
    const bool isShare = text.endsWith('%');
    bool isNumber = false;
    const double number = (isShare ? text.chopped(1) : text).toDouble(&isNumber);
    const int most = name == "width" || name == "height" ? kMostSide : kMostLine;
    if (!isNumber || !(number >= 0)) {
        return {};
    }
    return number > most ? std::to_string(most) + (isShare ? "%" : "") : text.toStdString();
}

/// Takes the parser's events and writes what is allowed.
class NoteWriter final {
public:
    NoteWriter(const KeepFile& keep, qsizetype expected) : m_keep(keep) {
        m_html.reserve(expected);
    }

    [[nodiscard]] QString Take() const { return QString::fromUtf8(m_html); }
    [[nodiscard]] NoteFault Fault() const { return m_fault; }
    void SetParser(xmlParserCtxt* parser) { m_parser = parser; }

    void Start(const xmlChar* name, const xmlChar** attributes) {
        const std::string_view element = ViewOf(name);
        if (int(m_open.size()) >= kMostNoteDepth) {
            GiveUp(NoteFault::TooDeep);
            return;
        }
        if (m_gone > 0 || Has(kGone, element)) {
            ++m_gone;
            m_open.push_back({std::string(element), Open::Gone});
            return;
        }
        if (element == "meta") {
            WriteMeta(attributes);
        }
        const bool isWritten = Has(kElements, element) && !IsTooFarIn(element);
        m_open.push_back({std::string(element), isWritten ? Open::Written : Open::Left});
        if (isWritten) {
            CountCells(element, attributes);
            WriteStart(element, attributes);
        }
    }

    /// The parser leaves the end of an element out that breaks off with the input.
    void End(const xmlChar* name) {
        const std::string_view element = ViewOf(name);
        const auto isIt = [element](const Element& open) { return open.name == element; };
        if (std::none_of(m_open.begin(), m_open.end(), isIt)) {
            return;
        }
        while (!isIt(m_open.back())) {
            EndLast();
        }
        EndLast();
    }

    void Text(const xmlChar* text, int length) {
        if (m_gone == 0) {
            AddEscaped(m_html, {reinterpret_cast<const char*>(text), size_t(length)});
        }
    }

private:
    enum class Open { Written, Left, Gone };
    struct Element {
        std::string name;
        Open open;
    };

    void GiveUp(NoteFault fault) {
        m_fault = fault;
        xmlStopParser(m_parser);
    }

    /// Qt lays a table within tables out several times for each of those.
    [[nodiscard]] bool IsTooFarIn(std::string_view element) {
        const bool begins = element == "table";
        m_leftTables += begins && m_cells.Depth() >= kMostNestedTables ? 1 : 0;
        return m_leftTables > 0 && Has(kTableElements, element);
    }

    void CountCells(std::string_view element, const xmlChar** attributes) {
        if (element == "table") {
            m_cells.BeginTable();
        } else if (element == "tr") {
            m_cells.BeginRow();
        } else if (element == "td" || element == "th") {
            m_cells.AddCell(SpanOf(ValueOf(attributes, "colspan")),
                            SpanOf(ValueOf(attributes, "rowspan")));
        } else {
            return;
        }
        if (m_cells.Count() > kMostNoteCells) {
            GiveUp(NoteFault::TooLarge);
        }
    }

    void EndLast() {
        const Element last = std::move(m_open.back());
        m_open.pop_back();
        m_gone -= last.open == Open::Gone ? 1 : 0;
        if (last.name == "table" && last.open == Open::Written) {
            m_cells.EndTable();
        }
        m_leftTables -= last.name == "table" && last.open == Open::Left ? 1 : 0;
        if (last.open == Open::Written && !Has(kEmpty, last.name)) {
            m_html += "</";
            AddPlain(m_html, last.name);
            m_html += '>';
        }
    }

    /// Says that blanks and line breaks stand for themselves; all else of a head says nothing here.
    void WriteMeta(const xmlChar** attributes) {
        for (; attributes != nullptr && *attributes != nullptr; attributes += 2) {
            if (ViewOf(attributes[1]) == "qrichtext") {
                m_html += "<meta name=\"qrichtext\" content=\"1\" />";
            }
        }
    }

    void WriteStart(std::string_view element, const xmlChar** attributes) {
        const bool isPicture = element == "img";
        const QString picture = isPicture ? PictureOf(attributes) : QString();
        if (isPicture && !IsStoreName(picture)) {
            AddEscaped(m_html, ValueOf(attributes, "alt"));
            return;
        }
        m_html += '<';
        AddPlain(m_html, element);
        if (element == "body") {
            // Its look is the reader's; without it Qt takes an empty first paragraph for two.
            m_html += '>';
            return;
        }
        if (isPicture) {
            AddAttribute("src", picture.toStdString());
        }
        for (; attributes != nullptr && *attributes != nullptr; attributes += 2) {
            WriteAttribute(element, ViewOf(attributes[0]), attributes[1]);
        }
        m_html += Has(kEmpty, element) ? " />" : ">";
    }

    [[nodiscard]] static std::string_view ValueOf(const xmlChar** attributes,
                                                  std::string_view name) {
        for (; attributes != nullptr && *attributes != nullptr; attributes += 2) {
            if (ViewOf(attributes[0]) == name) {
                return ViewOf(attributes[1]);
            }
        }
        return {};
    }

    [[nodiscard]] bool IsLinkKept(const QString& address) const {
        return IsLinkAllowed(address) &&
               (!address.startsWith(kAttachmentScheme) || !m_keep || !m_keep(address).isEmpty());
    }

    [[nodiscard]] QString PictureOf(const xmlChar** attributes) const {
        const std::string_view source = ValueOf(attributes, "src");
        const QString address = QString::fromUtf8(source.data(), qsizetype(source.size()));
        return m_keep ? m_keep(address) : address;
    }

    void WriteAttribute(std::string_view element, std::string_view name, const xmlChar* value) {
        if (name == "style") {
            AddAttribute(name, CleanedStyle(ViewOf(value)));
        } else if (element == "a" && name == "href") {
            AddAttribute(name, IsLinkKept(TextOf(value)) ? ViewOf(value) : std::string_view());
        } else if (name == "colspan" || name == "rowspan") {
            const size_t span = SpanOf(ViewOf(value));
            AddAttribute(name, span > 1 ? std::to_string(span) : std::string());
        } else if (Has(kLengths, name)) {
            AddAttribute(name, LengthOf(name, ViewOf(value)));
        } else if (Has(kAttributes, name)) {
            AddAttribute(name, ViewOf(value));
        }
    }

    void AddAttribute(std::string_view name, std::string_view value) {
        if (!value.empty()) {
            m_html += ' ';
            AddPlain(m_html, name);
            m_html += "=\"";
            AddEscaped(m_html, value);
            m_html += '"';
        }
    }

    /// A document has many paragraphs and few looks.
    [[nodiscard]] std::string_view CleanedStyle(std::string_view style) {
        const auto known = m_styles.find(style);
        if (known != m_styles.end()) {
            return known->second;
        }
        if (m_styles.size() >= kMostKnownStyles) {
            m_styles.clear();
        }
        const QString cleaned =
            CleanNoteStyle(QString::fromUtf8(style.data(), qsizetype(style.size())));
        return m_styles.emplace(style, cleaned.toStdString()).first->second;
    }

    const KeepFile& m_keep;
    xmlParserCtxt* m_parser = nullptr;
    QByteArray m_html; ///< UTF-8
    std::map<std::string, std::string, std::less<>> m_styles;
    std::vector<Element> m_open;
    NoteCells m_cells;
    int m_leftTables = 0; ///< open ones of which only the content stays
    int m_gone = 0;       ///< open elements that go, and those in them
    NoteFault m_fault = NoteFault::None;
};

NoteWriter& WriterOf(void* context) {
    return *static_cast<NoteWriter*>(context);
}

xmlSAXHandler Events() {
    xmlSAXHandler events{};
    events.startElement = [](void* context, const xmlChar* name, const xmlChar** attributes) {
        WriterOf(context).Start(name, attributes);
    };
    events.endElement = [](void* context, const xmlChar* name) { WriterOf(context).End(name); };
    events.characters = [](void* context, const xmlChar* text, int length) {
        WriterOf(context).Text(text, length);
    };
    events.ignorableWhitespace = events.characters;
    return events;
}

struct ParserEnd {
    void operator()(htmlParserCtxt* parser) const { htmlFreeParserCtxt(parser); }
};

/// Around everything: the parser stops at the end of what it takes for the root, and the input may
/// have several. An element that no input has.
constexpr std::string_view kRootStart = "<zvnote>";

/// A piece at a time, lest the parser keep all of it a second time. None ends inside a character,
/// which the parser would take for another encoding.
void Feed(htmlParserCtxt& parser, const QByteArray& bytes, const NoteWriter& writer) {
    constexpr qsizetype kPiece = 1 << 16;
    htmlParseChunk(&parser, kRootStart.data(), int(kRootStart.size()), 0);
    const auto continues = [&](qsizetype at) { return (uchar(bytes[at]) & 0xC0U) == 0x80U; };
    for (qsizetype at = 0; at < bytes.size() && writer.Fault() == NoteFault::None;) {
        qsizetype end = std::min(at + kPiece, bytes.size());
        while (end < bytes.size() && continues(end)) {
            ++end;
        }
        htmlParseChunk(&parser, bytes.constData() + at, int(end - at), 0);
        at = end;
    }
    htmlParseChunk(&parser, nullptr, 0, 1);
}

} // namespace

bool IsLinkAllowed(const QString& address) {
    if (address.startsWith(kAttachmentScheme)) {
        const QString rest = address.mid(kAttachmentScheme.size());
        return IsStoreName(QStringView(rest).left(rest.indexOf(u'/')));
    }
    const QString scheme = QUrl(address, QUrl::StrictMode).scheme();
    return scheme == u"http"_s || scheme == u"https"_s || scheme == u"mailto"_s;
}

bool IsStoreName(QStringView name) {
    const QStringView digits = name.left(kMd5Digits);
    const bool isMd5 =
        digits.size() == kMd5Digits && std::all_of(digits.begin(), digits.end(), [](QChar digit) {
            return (digit >= u'0' && digit <= u'9') || (digit >= u'a' && digit <= u'f');
        });
    const QStringView ending = name.mid(kMd5Digits);
    const bool isEnding =
        ending.isEmpty() ||
        (ending.size() > 1 && ending.size() <= kLongestEnding && ending.front() == u'.' &&
         std::all_of(ending.begin() + 1, ending.end(),
                     [](QChar letter) { return letter.isLetterOrNumber(); }));
    return isMd5 && isEnding;
}

CleanedNote CleanNoteHtml(const QString& html, const KeepFile& keepFile) {
    if (html.size() > kMostNoteCharacters) {
        return {{}, NoteFault::TooLarge};
    }
    const QByteArray bytes = html.toUtf8();
    NoteWriter writer(keepFile, bytes.size());
    xmlSAXHandler events = Events();
    const std::unique_ptr<htmlParserCtxt, ParserEnd> parser(
        htmlCreatePushParserCtxt(&events, &writer, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
    writer.SetParser(parser.get());
    htmlCtxtUseOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR |
                                         HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                                         HTML_PARSE_NOIMPLIED | HTML_PARSE_IGNORE_ENC);
    Feed(*parser, bytes, writer);
    if (writer.Fault() != NoteFault::None) {
        return {{}, writer.Fault()};
    }
    return {writer.Take(), NoteFault::None};
}

} // namespace toolkit
