#include "toolkit/richtext/NoteLinkTip.h"

#include "toolkit/richtext/NoteDocument.h"

#include <QStringList>

#include <array>

namespace toolkit {

using namespace Qt::StringLiterals;

QString SizeWords(quint64 bytes) {
    constexpr double kStepOfUnits = 1024;
    static const std::array units{u"KB"_s, u"MB"_s, u"GB"_s, u"TB"_s};
    if (double(bytes) < kStepOfUnits) {
        return u"%1 字节"_s.arg(bytes);
    }
    double size = double(bytes) / kStepOfUnits;
    size_t unit = 0;
    for (; size >= kStepOfUnits && unit + 1 < units.size(); ++unit) {
        size /= kStepOfUnits;
    }
    return u"%1 %2"_s.arg(size, 0, 'f', 1).arg(units[unit]);
}

QString LinkTip(const NoteDocument& document, const QString& address, bool isReadOnly) {
    QStringList lines;
    if (const auto attachment = AttachmentOf(address)) {
        lines << attachment->fileName;
        if (const auto size = document.SizeOf(*attachment)) {
            lines << SizeWords(*size);
        }
    } else {
        lines << address;
    }
    lines << (isReadOnly ? u"单击打开"_s : u"按住 Ctrl 单击打开"_s);
    return lines.join(u'\n');
}

} // namespace toolkit
