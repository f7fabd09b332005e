#include "site/ListFilter.h"

#include <QStringList>

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

namespace {

QString NumberOrDash(const std::optional<qint32>& value) {
    return value ? QString::number(*value) : u"-"_s;
}

} // namespace

QString KeyOf(ListKind kind, const ListFilter& filter) {
    QStringList parts{QString::number(static_cast<int>(kind)), NumberOrDash(filter.markId),
                      NumberOrDash(filter.state), NumberOrDash(filter.labelId)};
    if (filter.modified) {
        parts << u"t%1-%2"_s.arg(filter.modified->first).arg(filter.modified->second);
    }
    for (const qint32 ppid : filter.ppids) {
        parts << u"p%1"_s.arg(ppid);
    }
    parts << NumberOrDash(filter.drawingId) << NumberOrDash(filter.checkpointId);
    for (const auto& text : {filter.positionKey, filter.floor, filter.componentHandle}) {
        parts << (text ? u't' + *text : u"-"_s);
    }
    parts << (filter.unfiled ? u"u"_s : u"-"_s);
    if (filter.filed) {
        parts << u"f%1-%2"_s.arg(filter.filed->first).arg(filter.filed->last)
              << filter.filed->person;
    }
    parts << filter.keyword; // last, as it may hold anything
    return parts.join(QChar(0x1f));
}

void Normalize(ListFilter& filter) {
    std::sort(filter.ppids.begin(), filter.ppids.end());
    filter.ppids.erase(std::unique(filter.ppids.begin(), filter.ppids.end()), filter.ppids.end());
}

} // namespace site
