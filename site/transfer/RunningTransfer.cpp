#include "site/transfer/RunningTransfer.h"

#include <chrono>

namespace site {

void RunningTransfer::NoteTotal(qint64 bytes) {
    const std::lock_guard lock(m_lock);
    m_total = bytes;
}

void RunningTransfer::NoteBytes(qint64 bytes) {
    const std::lock_guard lock(m_lock);
    m_bytes = bytes;
}

void RunningTransfer::Finish() {
    const std::lock_guard lock(m_lock);
    m_done = true;
    m_end.notify_all();
    if (m_wake) {
        m_wake();
    }
    m_wake = nullptr;
}

qint64 RunningTransfer::Total() const {
    const std::lock_guard lock(m_lock);
    return m_total;
}

qint64 RunningTransfer::Bytes() const {
    const std::lock_guard lock(m_lock);
    return m_bytes;
}

bool RunningTransfer::IsDone() const {
    const std::lock_guard lock(m_lock);
    return m_done;
}

bool RunningTransfer::WaitDone(int milliseconds) const {
    std::unique_lock lock(m_lock);
    return m_end.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return m_done; });
}

void RunningTransfer::WaitDone() const {
    std::unique_lock lock(m_lock);
    m_end.wait(lock, [this] { return m_done; });
}

void RunningTransfer::WhenDone(std::function<void()> wake) {
    const std::lock_guard lock(m_lock);
    if (m_done && wake) {
        wake();
    } else {
        m_wake = std::move(wake);
    }
}

} // namespace site
