#include "host/app/BulkTexts.h"

#include <QStringList>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString Counter(site::ListKind kind) {
    return kind == site::ListKind::Issues ? u"个"_s : u"张"_s;
}

/// "12 张照片".
QString CountedThings(site::ListKind kind, size_t count) {
    return u"%1 %2%3"_s.arg(QString::number(count), Counter(kind), BulkThing(kind));
}

/// "12 张".
QString CountedOnly(site::ListKind kind, size_t count) {
    return u"%1 %2"_s.arg(QString::number(count), Counter(kind));
}

} // namespace

QString BulkThing(site::ListKind kind) {
    return kind == site::ListKind::Issues ? u"TN问题"_s : u"照片"_s;
}

QString BulkDoneText(site::ListKind kind, const BulkCounts& counts) {
    QStringList parts;
    parts << (counts.changed > 0 ? u"已归档 "_s + CountedThings(kind, counts.changed)
                                 : u"没有修改任何"_s + BulkThing(kind));
    if (counts.unchanged > 0) {
        parts << CountedOnly(kind, counts.unchanged) + u"本来如此"_s;
    }
    if (counts.skipped > 0) {
        parts << CountedOnly(kind, counts.skipped) + u"跳过"_s;
    }
    return parts.join(u'，') + u'。';
}

QString BulkUndoneText(site::ListKind kind, size_t back, size_t left) {
    QStringList parts;
    if (back > 0) {
        parts << u"已撤销 "_s + CountedThings(kind, back) + u"的归档"_s;
    }
    if (left > 0) {
        parts << (back > 0 ? CountedOnly(kind, left) : CountedThings(kind, left)) + u"没有撤销"_s;
    }
    return parts.isEmpty() ? BulkThing(kind) + u"已经和归档前一样。"_s : parts.join(u'，') + u'。';
}

QString BulkUndoTip(site::ListKind kind, size_t count) {
    return u"让 %1恢复到归档以前的样子"_s.arg(CountedThings(kind, count));
}

QString BulkActionText(site::ListKind kind, size_t count) {
    return u"批量归档 "_s + CountedThings(kind, count);
}

} // namespace host
