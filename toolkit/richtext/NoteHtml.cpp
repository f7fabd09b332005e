#include "toolkit/richtext/NoteHtml.h"

#include "toolkit/richtext/NoteStyle.h"

#include <QByteArray>
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
    {"a",  "b",     "blockquote", "br",     "center", "code", "dd",    "del",   "div",
     "dl", "dt",    "em",         "font",   "h1",     "h2",   "h3",    "h4",    "h5",
     "h6", "hr",    "html",       "i",      "img",    "li",   "ol",    "p",     "pre",
     "s",  "span",  "strike",     "strong", "sub",    "sup",  "table", "tbody", "td",
     "th", "thead", "tr",         "u",      "ul"});
/// Elements that go with all that is in them. Sorted.
constexpr auto kGone = std::to_array<std::string_view>(
    {"applet", "audio",  "button", "canvas", "embed", "form",     "frame",    "frameset",
     "iframe", "input",  "link",   "map",    "math",  "noframes", "noscript", "object",
     "option", "script", "select", "style",  "svg",   "template", "textarea", "title"});
constexpr auto kEmpty = std::to_array<std::string_view>({"br", "hr", "img"});
/// Attributes that say nothing but a look or a number. Sorted.
constexpr auto kAttributes = std::to_array<std::string_view>(
    {"align", "alt", "bgcolor", "border", "cellpadding", "cellspacing", "color", "colspan", "dir",
     "face", "height", "rowspan", "size", "start", "title", "type", "valign", "width"});

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

/// UTF-8, as text of an element or within double quotes.
void AddEscaped(QByteArray& html, std::string_view text) {
    size_t from = 0;
    for (size_t at = text.find_first_of("&<>\""); at != std::string_view::npos;
         at = text.find_first_of("&<>\"", from)) {
        html.append(text.data() + from, qsizetype(at - from));
        const char sign = text[at];
        html += sign == '&' ? "&amp;" : sign == '<' ? "&lt;" : sign == '>' ? "&gt;" : "&quot;";
        from = at + 1;
    }
    html.append(text.data() + from, qsizetype(text.size() - from));
}

void AddPlain(QByteArray& html, std::string_view text) {
    html.append(text.data(), qsizetype(text.size()));
}

bool IsLinkAllowed(const QString& address) {
    if (address.startsWith(kAttachmentScheme)) {
        const QString rest = address.mid(kAttachmentScheme.size());
        return IsStoreName(QStringView(rest).left(rest.indexOf(u'/')));
    }
    const QString scheme = QUrl(address, QUrl::StrictMode).scheme();
    return scheme == u"http"_s || scheme == u"https"_s || scheme == u"mailto"_s;
}

/// Takes the parser's events and writes what is allowed.
class NoteWriter final {
public:
    NoteWriter(const KeepPicture& keep, qsizetype expected) : m_keep(keep) {
        m_html.reserve(expected);
    }

    [[nodiscard]] QString Take() const { return QString::fromUtf8(m_html); }
    [[nodiscard]] bool IsTooDeep() const { return m_isTooDeep; }
    void SetParser(xmlParserCtxt* parser) { m_parser = parser; }

    void Start(const xmlChar* name, const xmlChar** attributes) {
        const std::string_view element = ViewOf(name);
        if (int(m_open.size()) >= kMostNoteDepth) {
            m_isTooDeep = true;
            xmlStopParser(m_parser);
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
        const bool isWritten = Has(kElements, element);
        m_open.push_back({std::string(element), isWritten ? Open::Written : Open::Left});
        if (isWritten) {
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

    void EndLast() {
        const Element last = std::move(m_open.back());
        m_open.pop_back();
        m_gone -= last.open == Open::Gone ? 1 : 0;
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

    [[nodiscard]] QString PictureOf(const xmlChar** attributes) const {
        const std::string_view source = ValueOf(attributes, "src");
        const QString address = QString::fromUtf8(source.data(), qsizetype(source.size()));
        if (IsStoreName(address) || !m_keep) {
            return address;
        }
        return m_keep(address);
    }

    void WriteAttribute(std::string_view element, std::string_view name, const xmlChar* value) {
        if (name == "style") {
            AddAttribute(name, CleanedStyle(ViewOf(value)));
        } else if (element == "a" && name == "href") {
            AddAttribute(name, IsLinkAllowed(TextOf(value)) ? ViewOf(value) : std::string_view());
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

    const KeepPicture& m_keep;
    xmlParserCtxt* m_parser = nullptr;
    QByteArray m_html; ///< UTF-8
    std::map<std::string, std::string, std::less<>> m_styles;
    std::vector<Element> m_open;
    int m_gone = 0; ///< open elements that go, and those in them
    bool m_isTooDeep = false;
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
    for (qsizetype at = 0; at < bytes.size() && !writer.IsTooDeep();) {
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

CleanedNote CleanNoteHtml(const QString& html, const KeepPicture& keepPicture) {
    if (html.size() > kMostNoteCharacters) {
        return {{}, NoteFault::TooLarge};
    }
    const QByteArray bytes = html.toUtf8();
    NoteWriter writer(keepPicture, bytes.size());
    xmlSAXHandler events = Events();
    const std::unique_ptr<htmlParserCtxt, ParserEnd> parser(
        htmlCreatePushParserCtxt(&events, &writer, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
    writer.SetParser(parser.get());
    htmlCtxtUseOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR |
                                         HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                                         HTML_PARSE_NOIMPLIED | HTML_PARSE_IGNORE_ENC);
    Feed(*parser, bytes, writer);
    if (writer.IsTooDeep()) {
        return {{}, NoteFault::TooDeep};
    }
    return {writer.Take(), NoteFault::None};
}

} // namespace toolkit
