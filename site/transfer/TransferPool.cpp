#include "site/transfer/TransferPool.h"

#include <system_error>
#include <utility>

namespace site {

TransferPool::~TransferPool() {
    End();
}

void TransferPool::Begin() {
    const std::lock_guard lock(m_lock);
    m_open = true;
}

void TransferPool::End() {
    std::vector<std::jthread> threads;
    Stops stops;
    std::unique_lock lock(m_lock);
    m_open = false;
    stops = m_running;
    for (const Job& job : m_waiting) {
        stops.push_back(job.stop);
    }
    lock.unlock();
    for (std::stop_source& stop : stops) {
        stop.request_stop(); // runs what waits for it, which may ask this pool
    }
    lock.lock();
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return m_callers == 0; });
    threads.swap(m_threads);
    lock.unlock();
    threads.clear(); // joins them
}

bool TransferPool::Run(const Work& work) {
    std::unique_lock lock(m_lock);
    if (!m_open) {
        return false;
    }
    ++m_callers;
    const auto stop = m_running.emplace(m_running.end());
    lock.unlock();
    work(stop->get_token());
    lock.lock();
    m_running.erase(stop);
    --m_callers;
    m_changed.notify_all();
    return true;
}

std::stop_source TransferPool::Start(Work work) {
    const std::lock_guard lock(m_lock);
    if (!m_open) {
        return std::stop_source(std::nostopstate);
    }
    if (m_waiting.size() >= m_idle && m_threads.size() < m_mostThreads && !AddThread() &&
        m_threads.empty()) {
        return std::stop_source(std::nostopstate);
    }
    const Job& job = m_waiting.emplace_back(Job{std::move(work), {}});
    m_changed.notify_all();
    return job.stop;
}

bool TransferPool::AddThread() {
    try {
        m_threads.emplace_back([this] { Serve(); });
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void TransferPool::Serve() {
    std::unique_lock lock(m_lock);
    while (true) {
        ++m_idle;
        m_changed.wait(lock, [this] { return !m_waiting.empty() || !m_open; });
        --m_idle;
        if (m_waiting.empty()) {
            return;
        }
        Job job = std::move(m_waiting.front());
        m_waiting.pop_front();
        const auto stop = m_running.insert(m_running.end(), job.stop);
        lock.unlock();
        job.work(job.stop.get_token());
        job.work = nullptr; // what it holds may end here, not under the lock
        lock.lock();
        m_running.erase(stop);
    }
}

} // namespace site
