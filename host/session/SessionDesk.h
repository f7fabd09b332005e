// What other threads may use of a session, from its opening to its end.
#pragma once

#include "site/transfer/Transfer.h"

#include <QString>

#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>
#include <utility>

namespace host {

enum class MessageLevel { Info, Warning, Error };

/// Knows the open data folder, runs transfers on it and ends them before the folder is closed, and
/// takes messages for the person. Lives as long as somebody holds it, also beyond its session.
/// Thread: any, save where said.
class SessionDesk final {
public:
    SessionDesk() = default;
    ~SessionDesk();
    SessionDesk(const SessionDesk&) = delete;
    SessionDesk& operator=(const SessionDesk&) = delete;

    void Open(const QString& dataFolder);
    /// Nothing starts any more; tells what runs to stop, and returns when it has. Not from inside
    /// of a transfer.
    void Close();
    /// Empty while closed.
    [[nodiscard]] QString DataFolder() const;

    [[nodiscard]] site::TransferRules Rules() const;
    /// For transfers that begin from now on.
    void SetRules(const site::TransferRules& rules);

    using Work = std::function<void(const site::TransferPlace&)>;
    /// Does the work on the calling thread. False, and nothing done, while closed.
    bool Run(const Work& work);
    /// Does it on a thread of its own. False, and nothing done, while closed or without threads.
    bool Start(const Work& work);

    using MessageSink = std::function<void(MessageLevel, const QString&)>;
    /// The sink is called on the reporting thread. Once this returns, the sink before isn't running
    /// and isn't called again.
    void SetMessageSink(MessageSink sink);
    /// For the person at the client, in Chinese. Without a sink it goes to the program's log, and
    /// to the next sink as it is set.
    void Report(MessageLevel level, const QString& text);

private:
    struct Worker {
        bool done = false; ///< guarded by m_lock
        std::jthread thread;
    };

    mutable std::mutex m_lock; ///< guards what follows
    std::condition_variable m_left;
    QString m_folder;
    site::TransferRules m_rules;
    std::stop_source m_stop;
    int m_running = 0; ///< on the threads of callers
    std::list<Worker> m_workers;

    std::recursive_mutex m_sinkLock; ///< guards m_sink and is held while it runs
    MessageSink m_sink;
    std::list<std::pair<MessageLevel, QString>> m_waiting; ///< guarded by m_sinkLock
};

} // namespace host
