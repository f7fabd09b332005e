// Notices an interface that doesn't answer.
#pragma once

#include <QtCore/qglobal.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace monkey {

/// Ends the process by an abort of the watched thread, so that its stack is printed, when that
/// thread hasn't called Beat for too long. Made on the thread that it watches.
class Watchdog final {
public:
    explicit Watchdog(int mostSeconds);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// The event loop runs. Thread: any.
    void Beat();

private:
    void Watch(const std::stop_token& stop);

    const int m_mostSeconds;
    const pthread_t m_watched;
    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    std::atomic<qint64> m_lastBeat;
    std::jthread m_thread;
};

} // namespace monkey
