#include "viewers/DecodeJob.h"

#include <utility>

namespace gallery {

DecodeJob::DecodeJob(toolkit::PictureRequest request, std::function<void()> whenDone)
    : m_request(std::move(request)), m_whenDone(std::move(whenDone)) {}

bool DecodeJob::Begin() {
    const std::lock_guard lock(m_lock);
    if (m_state != State::Waiting) {
        return false;
    }
    m_state = State::Running;
    return true;
}

void DecodeJob::Finish(const QImage& result) {
    {
        const std::lock_guard lock(m_lock);
        m_result = m_stop.load() ? QImage() : result;
        m_state = State::Done;
    }
    m_done.notify_all();
}

QImage DecodeJob::Await() {
    std::unique_lock lock(m_lock);
    m_done.wait(lock, [this] { return m_state == State::Done; });
    return m_result;
}

QImage DecodeJob::GetIfDone() const {
    const std::lock_guard lock(m_lock);
    return m_result;
}

bool DecodeJob::IsDone() const {
    const std::lock_guard lock(m_lock);
    return m_state == State::Done;
}

void DecodeJob::GiveUp() {
    m_stop.store(true);
    if (Begin()) {
        Finish({});
    }
}

void DecodeJob::Run() {
    if (!Begin()) {
        return;
    }
    Finish(toolkit::DecodePicture(m_request, &m_stop));
    if (m_whenDone && !m_stop.load()) {
        m_whenDone();
    }
}

} // namespace gallery
