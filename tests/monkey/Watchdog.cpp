#include "tests/monkey/Watchdog.h"

#include "tests/monkey/Faults.h"

#include <chrono>
#include <csignal>
#include <cstdio>

namespace monkey {

namespace {

qint64 Milliseconds() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}

} // namespace

Watchdog::Watchdog(int mostSeconds)
    : m_mostSeconds(mostSeconds), m_watched(pthread_self()), m_lastBeat(Milliseconds()),
      m_thread([this](const std::stop_token& stop) { Watch(stop); }) {}

Watchdog::~Watchdog() {
    m_thread.request_stop();
}

void Watchdog::Beat() {
    m_lastBeat = Milliseconds();
}

void Watchdog::Watch(const std::stop_token& stop) {
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        m_wake.wait_for(lock, stop, std::chrono::milliseconds(200), [] { return false; });
        if (stop.stop_requested() || Milliseconds() - m_lastBeat <= qint64(m_mostSeconds) * 1000) {
            continue;
        }
        std::fprintf(stderr, "monkey: FAULT: no answer for %d s\n", m_mostSeconds);
        PrintHistory();
        pthread_kill(m_watched, SIGABRT);
        return;
    }
}

} // namespace monkey
