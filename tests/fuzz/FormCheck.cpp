#include "tests/fuzz/FormCheck.h"

#include "toolkit/richtext/NoteHtml.h"

#include <QRegularExpression>
#include <QStringList>

namespace fuzz {

using namespace Qt::StringLiterals;

namespace {

bool IsKnownElement(const QString& name) {
    static const QStringList known =
        u"a b blockquote body br center code dd del div dl dt em font h1 h2 h3 h4 h5 h6 hr html i "
        u"img "
        "li meta ol p pre s span strike strong sub sup table tbody td th thead tr u ul"_s.split(
            u' ');
    return known.contains(name);
}

bool StandsAlone(const QString& name) {
    return name == u"br" || name == u"hr" || name == u"img" || name == u"meta";
}

/// Of one attribute, its value as it stands there.
const char* FaultOfAttribute(const QString& element, const QString& name, const QString& value) {
    if (name.startsWith(u"on"_s)) {
        return "no attribute runs";
    }
    if (name == u"src") {
        return toolkit::IsStoreName(value) ? nullptr : "a picture is one of the store";
    }
    if (name == u"href") {
        static const QRegularExpression allowed(u"^(https?:|mailto:|attachment:[0-9a-f]{32})"_s,
                                                QRegularExpression::CaseInsensitiveOption);
        return element == u"a" && allowed.match(value).hasMatch() ? nullptr : "a link is allowed";
    }
    const bool loads = name == u"style" && (value.contains(u"url"_s, Qt::CaseInsensitive) ||
                                            value.contains(u'\\') || value.contains(u'@'));
    return loads ? "no style loads" : nullptr;
}

const char* FaultOfTag(const QString& name, QString attributes) {
    static const QRegularExpression attribute(u"^ ([a-z]+)=\"([^\"<>]*)\""_s);
    if (attributes.endsWith(u" /"_s)) {
        attributes.chop(2);
    }
    while (!attributes.isEmpty()) {
        const QRegularExpressionMatch match = attribute.match(attributes);
        if (!match.hasMatch()) {
            return "attributes are quoted";
        }
        if (const char* fault = FaultOfAttribute(name, match.captured(1), match.captured(2))) {
            return fault;
        }
        attributes.remove(0, match.capturedLength());
    }
    return nullptr;
}

} // namespace

const char* FaultOfForm(const QString& html) {
    static const QRegularExpression tag(u"<(/?)([a-z0-9]*)([^>]*)>"_s);
    if (html.size() > toolkit::kMostNoteCharacters) {
        return "a page isn't larger than its limit";
    }
    QStringList open;
    qsizetype tags = 0;
    for (auto tagsOf = tag.globalMatch(html); tagsOf.hasNext(); ++tags) {
        const QRegularExpressionMatch match = tagsOf.next();
        const QString name = match.captured(2);
        if (!IsKnownElement(name)) {
            return "elements are known ones";
        }
        if (!match.captured(1).isEmpty()) {
            if (open.isEmpty() || open.takeLast() != name) {
                return "elements end where they should";
            }
            continue;
        }
        if (const char* fault = FaultOfTag(name, match.captured(3))) {
            return fault;
        }
        if (!StandsAlone(name)) {
            open << name;
        }
        if (open.size() > toolkit::kMostNoteDepth) {
            return "elements aren't too deep";
        }
    }
    if (html.count(u'<') != tags || html.count(u'>') != tags) {
        return "no sign of a tag stands for itself";
    }
    return open.isEmpty() ? nullptr : "every element ends";
}

} // namespace fuzz
