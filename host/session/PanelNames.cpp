#include "host/session/PanelNames.h"

#include "host/session/HostSession.h"

namespace host {

using namespace Qt::StringLiterals;

QString OtherGroupName() {
    return u"其他"_s;
}

QString PanelGroupName(const QString& floor) {
    return floor.isEmpty() ? OtherGroupName() : floor;
}

PanelItemNames::PanelItemNames(const HostSession& session, const site::PanelFilter& filter) {
    if (filter.ppids.size() < 2) {
        return;
    }
    for (const qint32 ppid : filter.ppids) {
        m_prefixes[ppid] = session.Tables().ProjectName(ppid) + u' ';
    }
}

QString PanelItemNames::NameOf(const site::PanelPlace& place) const {
    const auto prefix = m_prefixes.find(place.ppid);
    // What hangs on no floor ends up in a single item, whose name is then the only one.
    return prefix == m_prefixes.end() || place.positionKey.isEmpty()
               ? place.posText
               : prefix->second + place.posText;
}

} // namespace host
