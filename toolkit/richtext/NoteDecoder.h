// Decodes the large pictures of a rich text beside the interface thread.
#pragma once

#include "toolkit/media/PictureFile.h"

#include <QImage>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace toolkit {

/// One thread, from the first picture on, which ends with this. What was asked for last is done
/// first: it is in sight. Of more than a few that wait the oldest is forgotten, and may be asked
/// for again. Thread: all functions are of the one that made it, `whenDone` runs on the other.
class NoteDecoder final {
public:
    /// @param whenDone  there is something to take.
    explicit NoteDecoder(std::function<void()> whenDone) : m_whenDone(std::move(whenDone)) {}
    /// What is being decoded ends early.
    ~NoteDecoder();
    NoteDecoder(const NoteDecoder&) = delete;
    NoteDecoder& operator=(const NoteDecoder&) = delete;

    /// Nothing happens while a picture of this key waits, is decoded or can be taken.
    void Ask(const QString& key, const PictureRequest& request);
    struct Done {
        QString key;
        QImage image; ///< null: it can't be decoded
    };
    [[nodiscard]] std::vector<Done> Take();

private:
    struct Job {
        QString key;
        PictureRequest request;
    };
    void Work(const std::stop_token& stop);
    [[nodiscard]] bool IsKnown(const QString& key) const;

    const std::function<void()> m_whenDone;
    std::atomic<bool> m_givesUp{false};
    std::mutex m_lock; ///< guards what follows, but the thread
    std::condition_variable_any m_wake;
    std::deque<Job> m_waiting; ///< the oldest first
    QString m_running;         ///< key; empty: none
    std::vector<Done> m_done;
    std::jthread m_thread;
};

} // namespace toolkit
