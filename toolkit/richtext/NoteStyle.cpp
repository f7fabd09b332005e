#include "toolkit/richtext/NoteStyle.h"

#include <QStringTokenizer>

#include <algorithm>
#include <array>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// Those that Qt's rich text reads; sorted. None takes its element out of the flow of the text.
constexpr auto kProperties = std::to_array<QStringView>({u"-qt-block-indent",
                                                         u"-qt-list-indent",
                                                         u"-qt-list-number-prefix",
                                                         u"-qt-list-number-suffix",
                                                         u"-qt-paragraph-type",
                                                         u"background-color",
                                                         u"border",
                                                         u"border-bottom",
                                                         u"border-collapse",
                                                         u"border-color",
                                                         u"border-left",
                                                         u"border-right",
                                                         u"border-style",
                                                         u"border-top",
                                                         u"border-width",
                                                         u"color",
                                                         u"font-family",
                                                         u"font-size",
                                                         u"font-style",
                                                         u"font-variant",
                                                         u"font-weight",
                                                         u"height",
                                                         u"line-height",
                                                         u"list-style-type",
                                                         u"margin",
                                                         u"margin-bottom",
                                                         u"margin-left",
                                                         u"margin-right",
                                                         u"margin-top",
                                                         u"padding",
                                                         u"text-align",
                                                         u"text-decoration",
                                                         u"text-indent",
                                                         u"text-transform",
                                                         u"vertical-align",
                                                         u"white-space",
                                                         u"width",
                                                         u"word-spacing"});

constexpr double kMostLength = 10'000;
constexpr double kMostFontSize = 500;

/// Nothing that loads, is computed, or hides what it says behind escapes.
bool IsPlain(QStringView value) {
    return !value.contains(u'\\') && !value.contains(u'@') && !value.contains(u'<') &&
           !value.contains(u"url", Qt::CaseInsensitive) &&
           !value.contains(u"expression", Qt::CaseInsensitive);
}

/// Nothing that would take hours to be laid out or painted: lengths and shares far beyond a page,
/// also those said by exponents.
bool IsModest(QStringView property, QStringView value) {
    if (property.endsWith(u"color") || property == u"font-family") {
        return true; // digits are no lengths there
    }
    const double most = property == u"font-size" ? kMostFontSize : kMostLength;
    for (qsizetype at = 0; at < value.size();) {
        const auto isPart = [](QChar sign) { return sign.isDigit() || sign == u'.'; };
        const auto from = std::find_if(value.begin() + at, value.end(), isPart);
        const auto to = std::find_if_not(from, value.end(), isPart);
        const QStringView number(from, to);
        const bool hasExponent = !number.isEmpty() && to != value.end() && to->toLower() == u'e' &&
                                 to + 1 != value.end() && !(to + 1)->isLetter();
        // A colour within a border begins with its sign.
        const bool isColor = from != value.begin() && *(from - 1) == u'#';
        if (!isColor && (hasExponent || number.toDouble() > most)) {
            return false;
        }
        at = to - value.begin();
    }
    return true;
}

} // namespace

QString CleanNoteStyle(const QString& style) {
    QString kept;
    for (const QStringView declaration : qTokenize(style, u';')) {
        const qsizetype colon = declaration.indexOf(u':');
        const QString property = declaration.left(colon).trimmed().toString().toLower();
        const QStringView value = declaration.mid(colon + 1).trimmed();
        if (colon > 0 && !value.isEmpty() && IsPlain(value) && IsModest(property, value) &&
            std::binary_search(kProperties.begin(), kProperties.end(), QStringView(property))) {
            kept += property + u":"_s + value.toString() + u"; "_s;
        }
    }
    kept.chop(kept.isEmpty() ? 0 : 1);
    return kept;
}

} // namespace toolkit
