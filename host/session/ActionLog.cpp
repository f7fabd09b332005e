#include "host/session/ActionLog.h"

#include "host/session/HostSession.h"
#include "site/ICatalogue.h"
#include "toolkit/Clock.h"

namespace host {

void ActionLog::Write(const QString& action) {
    const site::LoggedAction entry{toolkit::Clock().NowSeconds(), m_session.UserName(),
                                   m_session.CurrentProject().ppid, action};
    m_session.Site().Catalogue().LogAction(entry);
    if (m_sink) {
        m_sink(entry);
    }
}

} // namespace host
