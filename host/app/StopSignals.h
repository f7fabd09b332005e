// Ctrl+C for a program that works in a terminal.
#pragma once

#include <array>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace host {

/// While it lives, the first SIGINT or SIGTERM asks for a stop instead of ending the process; the
/// second ends it as ever. One at a time. Thread: any, save for making and destroying it.
class StopSignals final {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// Is told to stop by a thread of this object.
    [[nodiscard]] std::stop_token Token() const { return m_stop.get_token(); }
    /// Waits so long, or until the stop is asked for. True: it is.
    [[nodiscard]] bool WaitFor(std::chrono::milliseconds time);

private:
    std::stop_source m_stop;
    std::mutex m_lock;
    std::condition_variable_any m_changed;
    std::array<int, 2> m_pipe{-1, -1}; ///< from the handler to the thread
    std::jthread m_listener;           ///< last: it uses everything above
};

} // namespace host
