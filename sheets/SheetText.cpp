#include "sheets/SheetText.h"

#include <QStringView>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kEscapeLength = 7; ///< _x0041_

bool IsHexDigit(QChar letter) {
    const char16_t unit = letter.unicode();
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') ||
           (unit >= u'A' && unit <= u'F');
}

bool IsEscapeAt(QStringView text, qsizetype at) {
    if (at + kEscapeLength > text.size() || text[at] != u'_' || text[at + 1] != u'x' ||
        text[at + 6] != u'_') {
        return false;
    }
    for (qsizetype i = at + 2; i < at + 6; ++i) {
        if (!IsHexDigit(text[i])) {
            return false;
        }
    }
    return true;
}

bool IsPairAt(QStringView text, qsizetype at) {
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
}

/// Of Unicode's control characters XML holds three; the carriage return is read as a line feed.
bool IsKept(char16_t unit) {
    return unit >= 0x20 ? unit < 0xFFFE : unit == u'\t' || unit == u'\n';
}

void AppendUtf8(char32_t character, QByteArray& utf8) {
    const auto add = [&utf8](char32_t byte) { utf8.append(static_cast<char>(byte)); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | (character >> 6));
        add(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12));
        add(0x80 | ((character >> 6) & 0x3F));
        add(0x80 | (character & 0x3F));
    } else {
        add(0xF0 | (character >> 18));
        add(0x80 | ((character >> 12) & 0x3F));
        add(0x80 | ((character >> 6) & 0x3F));
        add(0x80 | (character & 0x3F));
    }
}

/// Walks over a text, line ends as line feeds, and hands on each character with its place.
template <typename Take> void ForEachCharacter(QStringView text, Take take) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at].unicode();
        if (unit == u'\r') {
            if (at + 1 == text.size() || text[at + 1] != u'\n') {
                take(U'\n', at);
            }
        } else if (IsPairAt(text, at)) {
            take(QChar::surrogateToUcs4(text[at], text[at + 1]), at);
            ++at;
        } else if (!text[at].isSurrogate()) {
            take(char32_t(unit), at);
        }
    }
}

bool LooksLikeAFormula(QStringView text) {
    static constexpr QStringView kFirst = u"=+-@\t\r\n＝＋－＠";
    return !text.isEmpty() && kFirst.contains(text.front());
}

} // namespace

bool WriteCellText(const QString& text, QByteArray& utf8) {
    // An escape counts as one character for a reader and as several for the library's limit.
    constexpr QByteArrayView kEscapedLine = "_x005F_";
    utf8.resize(0);
    qsizetype written = 0;
    bool isCut = false;
    ForEachCharacter(text, [&](char32_t character, qsizetype at) {
        if (isCut || (character < 0x10000 && !IsKept(char16_t(character)))) {
            return;
        }
        const bool isEscape = character == U'_' && IsEscapeAt(text, at);
        const qsizetype units = isEscape                               ? kEscapedLine.size()
                                : QChar::requiresSurrogates(character) ? 2
                                                                       : 1;
        // The room for "…" is only given away by a text that ends here.
        const bool isLast = at + (QChar::requiresSurrogates(character) ? 2 : 1) == text.size();
        if (written + units > kLongestCell - (isLast ? 0 : 1)) {
            AppendUtf8(U'…', utf8);
            isCut = true;
        } else if (isEscape) {
            utf8.append(kEscapedLine);
        } else {
            AppendUtf8(character, utf8);
        }
        written += units;
    });
    return isCut;
}

int LinesIn(const QString& text, int width, int most) {
    constexpr char16_t kFirstWide = 0x1100;
    int lines = 1;
    int used = 0;
    for (const QChar letter : text) {
        if (lines >= most) {
            break;
        }
        const int room = letter.unicode() < kFirstWide ? 1 : 2;
        used += room;
        if (letter == u'\n' || used > width) {
            ++lines;
            used = letter == u'\n' ? 0 : room;
        }
    }
    return lines;
}

void AppendCsvText(const QString& text, QByteArray& line) {
    const QStringView whole = QStringView(text);
    const bool isQuoted = whole.contains(u',') || whole.contains(u'"') || whole.contains(u'\n') ||
                          whole.contains(u'\r');
    if (isQuoted) {
        line.append('"');
    }
    if (LooksLikeAFormula(whole)) {
        line.append('\'');
    }
    ForEachCharacter(whole, [&line](char32_t character, qsizetype /*at*/) {
        if (character == U'"') {
            line.append("\"\"");
        } else if (character != 0) {
            AppendUtf8(character, line);
        }
    });
    if (isQuoted) {
        line.append('"');
    }
}

} // namespace sheets
