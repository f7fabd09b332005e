#include "host/services/Surroundings.h"

#include "host/session/HostSession.h"

namespace host {

void Surroundings::SetSession(HostSession* session) {
    m_session = session;
    const std::lock_guard guard(m_lock);
    m_lastRefusal.clear();
    m_desk = session != nullptr ? session->Desk() : nullptr;
}

std::shared_ptr<SessionDesk> Surroundings::Desk() const {
    const std::lock_guard guard(m_lock);
    return m_desk;
}

void Surroundings::NoteRefusal(const QString& text) const {
    const std::lock_guard guard(m_lock);
    m_lastRefusal = text;
}

QString Surroundings::LastRefusal() const {
    const std::lock_guard guard(m_lock);
    return m_lastRefusal;
}

} // namespace host
