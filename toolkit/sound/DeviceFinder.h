// Asks the system for its audio device, on a thread that may wait.
#pragma once

#include <QAudioDevice>
#include <QObject>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace toolkit {

/// One question for the default device. Thread: any.
class DeviceQuestion final {
public:
    /// Waits for the answer; a null device if there is none, or no answer in time or before a stop.
    [[nodiscard]] QAudioDevice Answer(std::chrono::milliseconds atMost,
                                      const std::stop_token& stop);
    void SetAnswer(const QAudioDevice& device);

private:
    std::mutex m_lock; ///< guards what follows
    std::condition_variable_any m_answered;
    std::optional<QAudioDevice> m_answer;
};

/// Its thread lives until the application ends, since what Qt knows of devices lives on it and
/// follows their changes there. A sound server that is there but doesn't answer holds up this
/// thread and nobody else.
/// Thread: user interface.
class DeviceFinder final : public QObject {
public:
    DeviceFinder();
    /// Waits for the question in progress.
    ~DeviceFinder() override;

    [[nodiscard]] std::shared_ptr<DeviceQuestion> Ask();

    bool event(QEvent* event) override;

private:
    QThread m_thread;
    std::mutex m_lock; ///< guards what follows
    std::deque<std::shared_ptr<DeviceQuestion>> m_questions;
};

} // namespace toolkit
