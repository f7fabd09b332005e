#include "site/sqlite/PanelCondition.h"

namespace site {

using namespace Qt::StringLiterals;

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

} // namespace site
