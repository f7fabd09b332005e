#include "tests/support/ManualClock.h"

namespace support {

ManualClock::ManualClock(qint64 nowSeconds)
    : m_milliseconds(nowSeconds * 1000), m_before(toolkit::SetClock(this)) {}

ManualClock::~ManualClock() {
    toolkit::SetClock(m_before);
}

void ManualClock::Advance(int milliseconds) {
    const std::lock_guard lock(m_mutex);
    m_milliseconds += milliseconds;
}

void ManualClock::Set(qint64 nowSeconds) {
    const std::lock_guard lock(m_mutex);
    m_milliseconds = nowSeconds * 1000;
}

std::vector<int> ManualClock::Sleeps() const {
    const std::lock_guard lock(m_mutex);
    return m_sleeps;
}

qint64 ManualClock::NowSeconds() {
    const std::lock_guard lock(m_mutex);
    return m_milliseconds / 1000;
}

void ManualClock::SleepMilliseconds(int milliseconds) {
    const std::lock_guard lock(m_mutex);
    m_milliseconds += milliseconds;
    m_sleeps.push_back(milliseconds);
}

} // namespace support
