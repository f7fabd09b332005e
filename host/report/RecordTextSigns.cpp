#include "host/report/RecordTextSigns.h"

namespace host {

namespace {

bool IsWritable(char16_t sign) {
    return sign == u'\t' || sign == u'\n' || (sign >= u' ' && sign < 0xFFFE);
}

} // namespace

QString WritableText(QStringView text) {
    QString kept;
    kept.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar sign = text[at];
        const QChar next = at + 1 < text.size() ? text[at + 1] : QChar();
        if (sign.isHighSurrogate() && next.isLowSurrogate()) {
            kept += sign;
            kept += next;
            ++at;
        } else if (sign == QChar::LineSeparator || sign == QChar::ParagraphSeparator ||
                   (sign == u'\r' && next != u'\n')) {
            kept += u'\n';
        } else if (!sign.isSurrogate() && IsWritable(sign.unicode())) {
            kept += sign;
        }
    }
    return kept;
}

QStringList WritableLines(QStringView text) {
    return WritableText(text).split(u'\n');
}

} // namespace host
