// One picture to be decoded by the decoders.
#pragma once

#include "toolkit/media/PictureFile.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace gallery {

/// Decoded at most once. Shared between the interface thread and the decoders; thread: any.
class DecodeJob final {
public:
    /// @param whenDone  runs on the decoder that finished the job; not after GiveUp. May be empty.
    explicit DecodeJob(toolkit::PictureRequest request, std::function<void()> whenDone = {});

    [[nodiscard]] const toolkit::PictureRequest& Request() const { return m_request; }
    /// The picture, once a decoder has done it: holds the calling thread until then, which decodes
    /// nothing itself. Null if it can't be decoded or was given up. For a job that was handed in.
    [[nodiscard]] QImage Await();
    /// Null while the job isn't done.
    [[nodiscard]] QImage GetIfDone() const;
    [[nodiscard]] bool IsDone() const;
    /// Nobody needs it any more: it isn't begun, or ends early without a result.
    void GiveUp();
    /// For the decoders: does the work if nobody has begun.
    void Run();

private:
    enum class State { Waiting, Running, Done };

    /// True: the caller does the work.
    bool Begin();
    void Finish(const QImage& result);

    const toolkit::PictureRequest m_request;
    const std::function<void()> m_whenDone;
    std::atomic<bool> m_stop{false};
    mutable std::mutex m_lock; ///< guards what follows
    std::condition_variable m_done;
    State m_state = State::Waiting;
    QImage m_result;
};

} // namespace gallery
