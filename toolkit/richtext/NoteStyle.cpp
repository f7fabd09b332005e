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

/// Nothing that loads, is computed, or hides what it says behind escapes.
bool IsPlain(QStringView value) {
    return !value.contains(u'\\') && !value.contains(u'@') && !value.contains(u'<') &&
           !value.contains(u"url", Qt::CaseInsensitive) &&
           !value.contains(u"expression", Qt::CaseInsensitive);
}

} // namespace

QString CleanNoteStyle(const QString& style) {
    QString kept;
    for (const QStringView declaration : qTokenize(style, u';')) {
        const qsizetype colon = declaration.indexOf(u':');
        const QString property = declaration.left(colon).trimmed().toString().toLower();
        const QStringView value = declaration.mid(colon + 1).trimmed();
        if (colon > 0 && !value.isEmpty() && IsPlain(value) &&
            std::binary_search(kProperties.begin(), kProperties.end(), QStringView(property))) {
            kept += property + u":"_s + value.toString() + u"; "_s;
        }
    }
    kept.chop(kept.isEmpty() ? 0 : 1);
    return kept;
}

} // namespace toolkit
