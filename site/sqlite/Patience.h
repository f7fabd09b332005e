// How long the statements of a connection may go on.
#pragma once

#include "site/DataError.h"
#include "site/ISite.h"

namespace site {

/// Thread: that of its connection; the token of the limits may be told to stop by any.
class Patience final {
public:
    explicit Patience(int busyTimeoutMs) : m_busyTimeout(busyTimeoutMs) {}

    Limits Set(Limits limits) { return std::exchange(m_limits, std::move(limits)); }

    /// A question begins: its time counts from now.
    void Begin();
    /// What is being committed is not ended any more, nor what is undone.
    void SetEnding(bool isEnding) { m_isEnding = isEnding; }

    [[nodiscard]] bool IsOver() const;
    /// Once it is over.
    [[nodiscard]] Fault Reason() const;

    /// Waits for another process's lock before the next try.
    /// @param tries  how often the lock was refused before; 0: the first time.
    /// @return       false: don't try again.
    [[nodiscard]] bool WaitForLock(int tries);

private:
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds m_busyTimeout;
    Limits m_limits;
    Clock::time_point m_begin = Clock::now();
    Clock::time_point m_refused; ///< when the lock was refused first
    bool m_isEnding = false;
};

} // namespace site
