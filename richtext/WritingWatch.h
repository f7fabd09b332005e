// When a text that is being written is worth keeping.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <utility>

class QTextEdit;

namespace richtext {

/// Calls after a rest of the writer, and during long writing from time to time. Keeping takes at
/// most a twentieth of the time, however large the text is. Thread: user interface.
class WritingWatch final : public QObject {
public:
    struct Times {
        std::chrono::milliseconds rest{3000};
        std::chrono::milliseconds longest{20000};
    };

    explicit WritingWatch(std::function<void()> whatKeeps)
        : WritingWatch(std::move(whatKeeps), {}) {}
    WritingWatch(std::function<void()> whatKeeps, const Times& times);

    void Watch(const QTextEdit& sheet);
    /// There is nothing to keep any more.
    void Stop();

private:
    void OnWritten();
    void OnTime();

    std::function<void()> m_keep;
    QTimer m_time;
    QElapsedTimer m_since; ///< the first change that isn't kept
    const Times m_times;
    std::chrono::milliseconds m_rest;
};

} // namespace richtext
