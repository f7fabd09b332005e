#include "viewers/Decoders.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace gallery {

namespace {

/// More of them would cost memory, and the interface thread takes its part.
constexpr unsigned kMostThreads = 3;

class DecoderPool final {
public:
    ~DecoderPool() { Join(); }

    void Add(const std::shared_ptr<DecodeJob>& job, Urgency urgency) {
        {
            const std::lock_guard lock(m_lock);
            if (urgency == Urgency::Wanted) {
                m_queue.push_front(job);
            } else {
                m_queue.push_back(job);
            }
            if (m_threads.empty()) {
                Start();
            }
        }
        m_wake.notify_one();
    }

    void Join() {
        std::vector<std::jthread> threads;
        {
            const std::lock_guard lock(m_lock);
            threads.swap(m_threads);
            for (std::jthread& thread : threads) {
                thread.request_stop();
            }
            m_queue.clear();
        }
        m_wake.notify_all();
    }

private:
    void Start() {
        const unsigned count = DecoderCount(std::thread::hardware_concurrency());
        for (unsigned i = 0; i < count; ++i) {
            m_threads.emplace_back([this](const std::stop_token& stop) { Work(stop); });
        }
    }

    void Work(const std::stop_token& stop) {
        while (true) {
            std::shared_ptr<DecodeJob> job;
            {
                std::unique_lock lock(m_lock);
                m_wake.wait(lock, stop, [this] { return !m_queue.empty(); });
                if (stop.stop_requested()) {
                    return;
                }
                job = m_queue.front();
                m_queue.pop_front();
            }
            job->Run();
        }
    }

    std::mutex m_lock; ///< guards what follows
    std::condition_variable_any m_wake;
    std::deque<std::shared_ptr<DecodeJob>> m_queue;
    std::vector<std::jthread> m_threads;
};

/// Ends with the module.
DecoderPool& ThePool() {
    static DecoderPool pool;
    return pool;
}

} // namespace

unsigned DecoderCount(unsigned cores) {
    return std::clamp(cores, 2U, kMostThreads + 1) - 1;
}

void DecodeInBackground(const std::shared_ptr<DecodeJob>& job, Urgency urgency) {
    ThePool().Add(job, urgency);
}

void JoinDecoders() {
    ThePool().Join();
}

} // namespace gallery
