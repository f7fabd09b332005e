// A few threads on which transfers run, and their common end.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace site {

/// First come, first served. Every piece of work that was taken runs once, also when it was told to
/// stop before its turn: its token says so. Thread: any.
class TransferPool final {
public:
    /// Threads come as they are needed and stay until the end.
    explicit TransferPool(std::size_t mostThreads = 8) : m_mostThreads(mostThreads) {}
    ~TransferPool();
    TransferPool(const TransferPool&) = delete;
    TransferPool& operator=(const TransferPool&) = delete;

    /// Takes work from now on.
    void Begin();
    /// Takes none any more; tells all that was taken to stop, and returns when it has. Not from
    /// inside of work.
    void End();

    using Work = std::function<void(const std::stop_token&)>;
    /// Does it on the calling thread. False, and nothing done, before Begin and after End.
    bool Run(const Work& work);
    /// Does it on a thread of the pool; what comes back tells it to stop. Without a stop state, and
    /// nothing done, before Begin, after End, and where no thread is to be had.
    [[nodiscard]] std::stop_source Start(Work work);

private:
    struct Job {
        Work work;
        std::stop_source stop;
    };
    using Stops = std::list<std::stop_source>;

    void Serve();
    [[nodiscard]] bool AddThread();

    const std::size_t m_mostThreads;
    std::mutex m_lock; ///< guards what follows
    std::condition_variable m_changed;
    bool m_open = false;
    std::deque<Job> m_waiting;
    Stops m_running; ///< on threads of the pool and of callers
    std::size_t m_callers = 0;
    std::size_t m_idle = 0;
    std::vector<std::jthread> m_threads;
};

} // namespace site
