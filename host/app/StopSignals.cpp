#include "host/app/StopSignals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace host {

namespace {

constexpr char kStop = 's';
constexpr char kEnd = 'e';
constexpr std::array kSignals{SIGINT, SIGTERM};

/// Where the handler writes; nothing else is allowed there.
std::atomic<int> stopPipe{-1};

void OnSignal(int) {
    const int errorBefore = errno;
    [[maybe_unused]] const auto written = write(stopPipe.load(), &kStop, 1);
    errno = errorBefore;
}

void Handle(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    sigemptyset(&action.sa_mask);
    for (const int number : kSignals) {
        sigaction(number, &action, nullptr);
    }
}

} // namespace

StopSignals::StopSignals() {
    if (pipe(m_pipe.data()) != 0) {
        return; // no pipe to be had: signals end the process as ever, and undo what is open
    }
    stopPipe = m_pipe[1];
    m_listener = std::jthread([this] {
        char word = 0;
        ssize_t got = 0;
        do {
            got = read(m_pipe[0], &word, 1);
        } while (got < 0 && errno == EINTR);
        if (got == 1 && word == kStop) {
            m_stop.request_stop();
        }
    });
    Handle(OnSignal);
}

StopSignals::~StopSignals() {
    if (!m_listener.joinable()) {
        return;
    }
    Handle(SIG_DFL);
    [[maybe_unused]] const auto written = write(m_pipe[1], &kEnd, 1);
    m_listener.join();
    stopPipe = -1;
    close(m_pipe[0]);
    close(m_pipe[1]);
}

bool StopSignals::WaitFor(std::chrono::milliseconds time) {
    std::unique_lock lock(m_lock);
    m_changed.wait_for(lock, Token(), time, [] { return false; });
    return m_stop.stop_requested();
}

} // namespace host
