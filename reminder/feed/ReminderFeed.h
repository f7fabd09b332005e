// The way of a reminder message from the host to its popup.
#pragma once

#include "include/KXWindow.h"
#include "services/PicRecords.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace reminder {

/// Events by which the host's window hears that records are ready; both parameters are 0.
inline constexpr int kPicMessageEvent = 7538;
inline constexpr int kIssueMessageEvent = 7539;

/// Parses messages on the interface thread and fetches their pictures on a thread of its own, which
/// begins with the first accepted message, sleeps on a signal while there is nothing to do, and
/// ends for good when a record finds no project open. Photos and issues go the same way, first in,
/// first out. Thread: user interface.
class ReminderFeed final {
public:
    ReminderFeed();
    /// Wakes the thread, and waits until it has ended.
    ~ReminderFeed();
    ReminderFeed(const ReminderFeed&) = delete;
    ReminderFeed& operator=(const ReminderFeed&) = delete;

    /// A void message is dropped without a trace. @param json  8-bit text in code page 936.
    void OnPicMessage(KXWindow window, const std::string& json);
    /// While issue reminders are off, a message only wakes the thread; required as is.
    void OnIssueMessage(KXWindow window, const std::string& json);

    /// All records that are ready, in the order of their messages; they are taken out.
    [[nodiscard]] std::vector<KX_DATA::PicMsgRecord> TakeReady();

    /// The same as the destructor's. Messages that come later change nothing.
    void End();

private:
    using Batch = std::vector<KX_DATA::PicMsgRecord>;
    void PushAndWake(Batch records, bool isPicture);
    void Run(const std::stop_token& stop);
    /// Empty after a wake-up without a record.
    [[nodiscard]] Batch NextBatch(const std::stop_token& stop);
    /// After a batch, once: of many messages one after the other each would find the thread asleep,
    /// and waking it takes longer than its work.
    void LetMoreCome(const std::stop_token& stop);
    void PostReady();

    std::mutex m_incomingLock; ///< guards the three below
    Batch m_incomingQueue;
    bool m_resumed = false; ///< since the last look into m_incomingQueue
    bool m_asleep = false;  ///< until it is resumed
    std::condition_variable_any m_resume;

    std::mutex m_readyLock; ///< guards m_readyQueue
    Batch m_readyQueue;

    /// Of the last message; the thread reads them as they stand when a batch is finished.
    std::atomic<bool> m_picReminderActive{true};
    std::atomic<KXWindow> m_reminderWindow{0};

    bool m_ended = false;
    std::jthread m_reminderThread; ///< never started again
};

} // namespace reminder
