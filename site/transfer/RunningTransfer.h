// A transfer that the interface thread waits for.
#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>

namespace site {

/// How far a transfer on another thread has come, and its end. Thread: any.
class RunningTransfer final {
public:
    enum class Way { Down, Up };

    explicit RunningTransfer(Way transferWay = Way::Down) : m_way(transferWay) {}
    [[nodiscard]] Way GetWay() const { return m_way; }

    /// The person has had enough: what the transfer is told by StopToken. It still has to end.
    void Cancel() { m_stop.request_stop(); }
    [[nodiscard]] bool IsCancelled() const { return m_stop.stop_requested(); }
    [[nodiscard]] std::stop_token StopToken() const { return m_stop.get_token(); }

    void NoteTotal(qint64 bytes);
    void NoteBytes(qint64 bytes);
    void Finish();

    /// 0 while it isn't known.
    [[nodiscard]] qint64 Total() const;
    [[nodiscard]] qint64 Bytes() const;
    [[nodiscard]] bool IsDone() const;

    /// True: it has ended by then.
    bool WaitDone(int milliseconds) const;
    void WaitDone() const;
    /// Called once, on the thread that ends the transfer, or at once if it has ended. Once this
    /// returns, the function before isn't running and isn't called any more.
    void WhenDone(std::function<void()> wake);

private:
    const Way m_way;
    std::stop_source m_stop;
    mutable std::mutex m_lock; ///< guards what follows
    mutable std::condition_variable m_end;
    qint64 m_total = 0;
    qint64 m_bytes = 0;
    bool m_done = false;
    std::function<void()> m_wake;
};

/// Keeps the person informed while a transfer holds the interface thread, and lets them cancel it.
class ITransferWait {
public:
    virtual ~ITransferWait() = default;

    /// Returns when the transfer has ended. Thread: user interface.
    virtual void Wait(RunningTransfer& transfer) = 0;
};

} // namespace site
