#include "reminder/popups/LabelText.h"

namespace reminder {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTooWide = 27;

QString WithoutSeparators(const QString& text) {
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && text[from] == u';') {
        ++from;
    }
    while (to > from && text[to - 1] == u';') {
        --to;
    }
    return text.sliced(from, to - from);
}

} // namespace

QString LabelLine(const std::vector<QString>& labels, int (*widthOf)(const QString& label)) {
    QString line;
    int width = 0;
    for (const QString& label : labels) {
        width += widthOf(label);
        if (width >= kTooWide) {
            line += u";..."_s;
            break;
        }
        ++width; // of the separator
        line += u';' + label;
    }
    return WithoutSeparators(line);
}

} // namespace reminder
