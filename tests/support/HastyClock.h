// A clock on which nobody waits.
#pragma once

#include "toolkit/Clock.h"

#include <thread>

namespace support {

/// While it lives, sleeps end at once: for real threads that look, sleep and look again. Keeps no
/// list, so that they may do so for long.
class HastyClock final : public toolkit::IClock {
public:
    HastyClock() : m_before(toolkit::SetClock(this)) {}
    ~HastyClock() override { toolkit::SetClock(m_before); }
    HastyClock(const HastyClock&) = delete;
    HastyClock& operator=(const HastyClock&) = delete;

    qint64 NowSeconds() override { return 1'700'000'000; }
    void SleepMilliseconds(int milliseconds) override {
        Q_UNUSED(milliseconds);
        std::this_thread::yield();
    }

private:
    toolkit::IClock* m_before;
};

} // namespace support
