#include "host/data/PanelFilter.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

std::vector<qint32> DifferentProjects(const PanelFilter& filter) {
    std::vector<qint32> ppids;
    for (const qint32 ppid : filter.ppids) {
        if (std::find(ppids.begin(), ppids.end(), ppid) == ppids.end()) {
            ppids.push_back(ppid);
        }
    }
    return ppids;
}

QString PanelCondition(const PanelFilter& filter, qint32 ppid, QVariantList& values) {
    QString text = u" WHERE ppid = ? AND status = 0"_s;
    values << ppid;
    if (filter.timed) {
        text += u" AND modified BETWEEN ? AND ?"_s;
        values << filter.from << filter.to;
    }
    if (!filter.person.isEmpty()) {
        text += u" AND modifier = ?"_s;
        values << filter.person;
    }
    return text;
}

} // namespace host
