#include "toolkit/richtext/NoteHtml.h"

#include "toolkit/richtext/NoteStyle.h"

#include <QByteArray>
#include <QUrl>

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMd5Digits = 32;
constexpr qsizetype kLongestEnding = 10;

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
    return reinterpret_cast<const char*>(text);
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

    [[nodiscard]] QString Take() { return std::move(m_html); }
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
            m_html +=
                QString::fromUtf8(reinterpret_cast<const char*>(text), length).toHtmlEscaped();
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
            m_html += u"</"_s + QLatin1String(last.name.data(), qsizetype(last.name.size())) + u'>';
        }
    }

    /// Says that blanks and line breaks stand for themselves; all else of a head says nothing here.
    void WriteMeta(const xmlChar** attributes) {
        for (; attributes != nullptr && *attributes != nullptr; attributes += 2) {
            if (TextOf(attributes[1]) == u"qrichtext"_s) {
                m_html += u"<meta name=\"qrichtext\" content=\"1\" />"_s;
            }
        }
    }

    void WriteStart(std::string_view element, const xmlChar** attributes) {
        QString picture;
        QString instead;
        QString written;
        for (; attributes != nullptr && *attributes != nullptr; attributes += 2) {
            const std::string_view name = ViewOf(attributes[0]);
            const QString value = TextOf(attributes[1]);
            if (element == "img" && name == "src") {
                picture = IsStoreName(value) ? value : m_keep ? m_keep(value) : QString();
            } else if (name == "alt") {
                instead = value;
            }
            written += Attribute(element, name, value);
        }
        if (element == "img" && !IsStoreName(picture)) {
            m_html += instead.toHtmlEscaped();
            return;
        }
        m_html += u'<' + QLatin1String(element.data(), qsizetype(element.size()));
        if (element == "img") {
            m_html += u" src=\""_s + picture + u'"';
        }
        m_html += written + (Has(kEmpty, element) ? u" />"_s : u">"_s);
    }

    [[nodiscard]] static QString Attribute(std::string_view element, std::string_view name,
                                           const QString& value) {
        QString kept;
        if (name == "style") {
            kept = CleanNoteStyle(value);
        } else if (element == "a" && name == "href") {
            kept = IsLinkAllowed(value) ? value : QString();
        } else if (Has(kAttributes, name)) {
            kept = value;
        }
        return kept.isEmpty() ? QString()
                              : u' ' + QLatin1String(name.data(), qsizetype(name.size())) +
                                    u"=\""_s + kept.toHtmlEscaped() + u'"';
    }

    const KeepPicture& m_keep;
    xmlParserCtxt* m_parser = nullptr;
    QString m_html;
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
    NoteWriter writer(keepPicture, html.size());
    xmlSAXHandler events = Events();
    const std::unique_ptr<htmlParserCtxt, ParserEnd> parser(
        htmlCreatePushParserCtxt(&events, &writer, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
    writer.SetParser(parser.get());
    htmlCtxtUseOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR |
                                         HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                                         HTML_PARSE_NOIMPLIED | HTML_PARSE_IGNORE_ENC);
    Feed(*parser, html.toUtf8(), writer);
    if (writer.IsTooDeep()) {
        return {{}, NoteFault::TooDeep};
    }
    return {writer.Take(), NoteFault::None};
}

} // namespace toolkit
