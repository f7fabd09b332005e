#include "host/services/Surroundings.h"

#include "host/session/HostSession.h"

namespace host {

void Surroundings::SetSession(HostSession* session) {
    m_session = session;
    lastServiceText.clear();
    const std::lock_guard guard(m_lock);
    m_desk = session != nullptr ? session->Desk() : nullptr;
}

std::shared_ptr<SessionDesk> Surroundings::Desk() const {
    const std::lock_guard guard(m_lock);
    return m_desk;
}

} // namespace host
