#include "host/reminders/PacedMessages.h"

#include <utility>

namespace host {

namespace {

constexpr int kPatienceMs = 1000;

} // namespace

PacedMessages::PacedMessages(Hand handOn) : m_hand(std::move(handOn)) {
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &PacedMessages::HandOn);
}

void PacedMessages::Add(ReminderMessage message) {
    m_waiting.push_back(std::move(message));
    if (!m_next.isActive()) {
        m_next.start(m_isHandedOut ? kPatienceMs : 0);
    }
}

void PacedMessages::Shown() {
    m_isHandedOut = false;
    if (!m_waiting.empty()) {
        m_next.start(0);
    }
}

void PacedMessages::HandOn() {
    m_isHandedOut = false;
    for (int count = 0; count < kPortion && !m_waiting.empty(); ++count) {
        const ReminderMessage message = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_isHandedOut = true;
        m_hand(message);
    }
    if (!m_waiting.empty()) {
        m_next.start(kPatienceMs);
    }
}

} // namespace host
