#include "site/sqlite/SearchText.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

bool IsPlainWord(char16_t code) {
    return (code >= u'0' && code <= u'9') || (code >= u'a' && code <= u'z');
}

} // namespace

QString SearchWords(const QString& text) {
    QString words;
    words.reserve(text.size() * 3);
    for (qsizetype i = 0; i < text.size(); ++i) {
        char16_t code = text[i].unicode();
        if (code >= u'A' && code <= u'Z') {
            code = static_cast<char16_t>(code - u'A' + u'a');
        }
        if (!words.isEmpty()) {
            words += u' ';
        }
        const bool pair =
            QChar::isHighSurrogate(code) && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) {
            words += text[i];
            words += text[++i];
        } else if (IsPlainWord(code) || (code >= 0x80 && !QChar::isSurrogate(code))) {
            words += QChar(code);
        } else {
            words += u'u' + QString::number(code, 16).rightJustified(4, u'0');
        }
    }
    return words;
}

QString SearchPhrase(const QString& keyword) {
    return keyword.isEmpty() ? QString() : u'"' + SearchWords(keyword) + u'"';
}

} // namespace site
