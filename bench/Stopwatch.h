// Time from now on.
#pragma once

#include <QElapsedTimer>

#include <ctime>

namespace bench {

class Stopwatch final {
public:
    Stopwatch() : m_cpu(ThreadMilliseconds()) { m_timer.start(); }
    [[nodiscard]] double Milliseconds() const { return double(m_timer.nsecsElapsed()) / 1e6; }

    /// What this thread has worked; less than the above on a busy machine or while it waits.
    [[nodiscard]] double CpuMilliseconds() const { return ThreadMilliseconds() - m_cpu; }

private:
    static double ThreadMilliseconds() {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
    }

    QElapsedTimer m_timer;
    double m_cpu;
};

} // namespace bench
