#include "viewers/Decoders.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace gallery {

namespace {

/// Of those that do everything; more would cost memory.
constexpr unsigned kMostThreads = 3;
constexpr size_t kUrgencies = 3;
/// Of those that don't do thumbnails.
constexpr size_t kNotStrip = kUrgencies - 1;

class DecoderPool final {
public:
    ~DecoderPool() { Join(); }

    void Add(const std::shared_ptr<DecodeJob>& job, Urgency urgency) {
        {
            const std::lock_guard lock(m_lock);
            Queue& queue = m_queues[size_t(urgency)];
            if (urgency == Urgency::Ahead) {
                queue.push_back(job);
            } else {
                queue.push_front(job);
            }
            if (m_threads.empty()) {
                Start();
            }
        }
        // One alone might be the decoder that doesn't do it.
        m_wake.notify_all();
    }

    void Join() {
        std::vector<std::jthread> threads;
        {
            const std::lock_guard lock(m_lock);
            threads.swap(m_threads);
            for (std::jthread& thread : threads) {
                thread.request_stop();
            }
            m_queues = {};
        }
        m_wake.notify_all();
    }

private:
    using Queue = std::deque<std::shared_ptr<DecodeJob>>;

    void Start() {
        const unsigned count = DecoderCount(std::thread::hardware_concurrency());
        for (unsigned i = 0; i < count; ++i) {
            const size_t queues = i == 0 ? kNotStrip : kUrgencies;
            m_threads.emplace_back(
                [this, queues](const std::stop_token& stop) { Work(stop, queues); });
        }
    }

    struct Taken {
        std::shared_ptr<DecodeJob> job;
        bool wanted = false;
    };

    /// No job if nothing waits in the first `queues`. Called with the lock.
    Taken Take(size_t queues) {
        // Somebody waits: thumbnails leave him the memory and the cores.
        const size_t open = m_wantedRunning > 0 ? std::min(queues, kNotStrip) : queues;
        for (size_t i = 0; i < open; ++i) {
            if (!m_queues[i].empty()) {
                Taken taken{m_queues[i].front(), i == size_t(Urgency::Wanted)};
                m_queues[i].pop_front();
                m_wantedRunning += taken.wanted ? 1 : 0;
                return taken;
            }
        }
        return {};
    }

    void EndWanted() {
        {
            const std::lock_guard lock(m_lock);
            --m_wantedRunning;
        }
        m_wake.notify_all();
    }

    void Work(const std::stop_token& stop, size_t queues) {
        while (true) {
            Taken taken;
            {
                std::unique_lock lock(m_lock);
                m_wake.wait(lock, stop, [&] {
                    taken = Take(queues);
                    return taken.job != nullptr;
                });
            }
            if (taken.job && !stop.stop_requested()) {
                taken.job->Run();
            }
            if (taken.wanted) {
                EndWanted();
            }
            if (stop.stop_requested()) {
                return;
            }
        }
    }

    std::mutex m_lock; ///< guards what follows
    std::condition_variable_any m_wake;
    std::array<Queue, kUrgencies> m_queues; ///< by Urgency
    int m_wantedRunning = 0;
    std::vector<std::jthread> m_threads;
};

/// Ends with the module.
DecoderPool& ThePool() {
    static DecoderPool pool;
    return pool;
}

} // namespace

unsigned DecoderCount(unsigned cores) {
    return std::clamp(cores, 2U, kMostThreads + 1);
}

void DecodeInBackground(const std::shared_ptr<DecodeJob>& job, Urgency urgency) {
    ThePool().Add(job, urgency);
}

QImage AwaitDecoded(const std::shared_ptr<DecodeJob>& job) {
    if (!job->IsDone()) {
        DecodeInBackground(job, Urgency::Wanted);
    }
    return job->Await();
}

void JoinDecoders() {
    ThePool().Join();
}

} // namespace gallery
