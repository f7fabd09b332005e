#include "site/sqlite/Patience.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>

namespace site {

namespace {

/// Milliseconds between the tries for a lock, the last for all further ones: short at first, as
/// most changes are.
constexpr std::array kPauses{1, 2, 5, 10, 15, 20, 25, 25, 25, 50, 50, 100};

} // namespace

void Patience::Begin() {
    m_begin = Clock::now();
}

bool Patience::IsOver() const {
    if (m_isEnding) {
        return false;
    }
    return m_limits.stop.stop_requested() ||
           (m_limits.deadline.count() > 0 && Clock::now() - m_begin >= m_limits.deadline);
}

Fault Patience::Reason() const {
    return m_limits.stop.stop_requested() ? Fault::Cancelled : Fault::TooSlow;
}

bool Patience::WaitForLock(int tries) {
    const Clock::time_point now = Clock::now();
    if (tries == 0) {
        m_refused = now;
    }
    if (IsOver() || now - m_refused >= m_busyTimeout) {
        return false;
    }
    const size_t at = std::min(static_cast<size_t>(tries), kPauses.size() - 1);
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    never.wait_for(lock, m_limits.stop, std::chrono::milliseconds(kPauses[at]),
                   [] { return false; });
    return true;
}

} // namespace site
