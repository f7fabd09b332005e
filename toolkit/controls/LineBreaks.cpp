#include "toolkit/controls/LineBreaks.h"

#include <QTextLayout>
#include <QTextOption>

namespace toolkit {

std::vector<TextPart> BreakLines(const QString& text, const QFont& font, int width) {
    QString separated = text;
    QTextLayout layout(separated.replace(u'\n', QChar::LineSeparator), font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    std::vector<TextPart> parts;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        TextPart part{line.textStart(), line.textLength()};
        const bool endsByFeed = part.length > 0 && text[part.start + part.length - 1] == u'\n';
        part.length -= endsByFeed ? 1 : 0;
        parts.push_back(part);
    }
    layout.endLayout();
    if (parts.empty()) {
        parts.push_back({});
    }
    return parts;
}

} // namespace toolkit
