#include "toolkit/controls/LineText.h"

namespace toolkit {

namespace {

constexpr qsizetype kLongestLine = 4000;

} // namespace

QString LineStart(const QString& text) {
    return text.size() <= kLongestLine ? text : text.left(kLongestLine) + QChar(0x2026);
}

QString LineEnds(const QString& text) {
    return text.size() <= kLongestLine ? text
                                       : text.left(kLongestLine / 2) + text.right(kLongestLine / 2);
}

} // namespace toolkit
