#include "toolkit/controls/LineText.h"

namespace toolkit {

QString LineStart(const QString& text) {
    constexpr qsizetype kLongestLine = 4000;
    return text.size() <= kLongestLine ? text : text.left(kLongestLine) + QChar(0x2026);
}

} // namespace toolkit
