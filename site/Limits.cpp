#include "site/Limits.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace site {

bool LimitedSteps::Next() {
    const Clock::time_point now = Clock::now();
    if (!m_passed && m_limits.stop.stop_requested()) {
        m_passed = Fault::Cancelled;
    } else if (!m_passed && m_limits.deadline.count() > 0 && now - m_begin >= m_limits.deadline) {
        m_passed = Fault::TooSlow;
    }
    m_begin = now;
    return !m_passed;
}

void LimitedSteps::Wait(std::chrono::milliseconds time) const {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    const auto isOver = [] { return false; };
    const bool limited = m_limits.deadline.count() > 0;
    const auto end = m_begin + m_limits.deadline;
    if (time.count() < 0 && !limited) {
        never.wait(lock, m_limits.stop, isOver);
    } else if (time.count() < 0) {
        never.wait_until(lock, m_limits.stop, end, isOver);
    } else if (time.count() > 0) {
        const auto own = Clock::now() + time;
        never.wait_until(lock, m_limits.stop, limited ? std::min(own, end) : own, isOver);
    }
}

} // namespace site
