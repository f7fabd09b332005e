// A clock on which nobody waits.
#pragma once

#include "toolkit/Clock.h"

#include <QDateTime>

#include <thread>

namespace support {

/// While it lives, sleeps end at once; the time is the system's. For real threads that look, sleep
/// and look again. Keeps no list, so that they may do so for long.
class HastyClock final : public toolkit::IClock {
public:
    HastyClock() : m_before(toolkit::SetClock(this)) {}
    ~HastyClock() override { toolkit::SetClock(m_before); }
    HastyClock(const HastyClock&) = delete;
    HastyClock& operator=(const HastyClock&) = delete;

    qint64 NowSeconds() override { return QDateTime::currentSecsSinceEpoch(); }
    void SleepMilliseconds(int milliseconds) override {
        Q_UNUSED(milliseconds);
        std::this_thread::yield();
    }

private:
    toolkit::IClock* m_before;
};

} // namespace support
