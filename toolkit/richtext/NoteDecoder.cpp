#include "toolkit/richtext/NoteDecoder.h"

#include <algorithm>
#include <utility>

namespace toolkit {

namespace {

/// About as many as a sheet shows.
constexpr size_t kMostWaiting = 8;

} // namespace

NoteDecoder::~NoteDecoder() {
    m_givesUp = true;
    m_thread.request_stop();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

bool NoteDecoder::IsKnown(const QString& key) const {
    const auto isIt = [&key](const auto& one) { return one.key == key; };
    return m_running == key || std::ranges::any_of(m_waiting, isIt) ||
           std::ranges::any_of(m_done, isIt);
}

void NoteDecoder::Ask(const QString& key, const PictureRequest& request) {
    {
        const std::lock_guard lock(m_lock);
        if (IsKnown(key)) {
            return;
        }
        m_waiting.push_back({key, request});
        if (m_waiting.size() > kMostWaiting) {
            m_waiting.pop_front();
        }
    }
    if (!m_thread.joinable()) {
        m_thread = std::jthread([this](const std::stop_token& stop) { Work(stop); });
    }
    m_wake.notify_one();
}

std::vector<NoteDecoder::Done> NoteDecoder::Take() {
    const std::lock_guard lock(m_lock);
    return std::exchange(m_done, {});
}

void NoteDecoder::Work(const std::stop_token& stop) {
    while (true) {
        Job job;
        {
            std::unique_lock lock(m_lock);
            if (!m_wake.wait(lock, stop, [this] { return !m_waiting.empty(); }) ||
                stop.stop_requested()) {
                return;
            }
            job = std::move(m_waiting.back());
            m_waiting.pop_back();
            m_running = job.key;
        }
        QImage image = DecodePicture(job.request, &m_givesUp);
        if (stop.stop_requested()) {
            return;
        }
        {
            // Handed over whole: this thread has no part in it from here on.
            const std::lock_guard lock(m_lock);
            m_running.clear();
            m_done.push_back({std::move(job.key), std::move(image)});
        }
        m_whenDone();
    }
}

} // namespace toolkit
