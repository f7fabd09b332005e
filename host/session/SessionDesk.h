// What other threads may use of a session, from its opening to its end.
#pragma once

#include "site/IBlobs.h"
#include "site/transfer/TransferPool.h"

#include <QString>

#include <functional>
#include <list>
#include <mutex>
#include <stop_token>
#include <utility>

namespace host {

enum class MessageLevel { Info, Warning, Error };

/// Knows the files of the open site, runs transfers of them and ends those before the site is
/// closed, and takes messages for the person. Lives as long as somebody holds it, also beyond its
/// session.
/// Thread: any, save where said.
class SessionDesk final {
public:
    SessionDesk() = default;
    ~SessionDesk();
    SessionDesk(const SessionDesk&) = delete;
    SessionDesk& operator=(const SessionDesk&) = delete;

    /// The files must last until Close returns.
    void Open(site::IBlobs& blobs);
    /// Nothing starts any more; tells what runs to stop, and returns when it has. Not from inside
    /// of a transfer.
    void Close();
    [[nodiscard]] site::TransferRules Rules() const;
    /// For transfers that begin from now on.
    void SetRules(const site::TransferRules& rules);

    /// The terms have rules and stop.
    using Work = std::function<void(site::IBlobs&, const site::TransferTerms&)>;
    /// Does the work on the calling thread. False, and nothing done, while closed.
    bool Run(const Work& work);
    /// Does it on another thread; what comes back tells it to stop, and has no stop state while
    /// closed or without threads, when nothing is done.
    [[nodiscard]] std::stop_source Start(const Work& work);

    using MessageSink = std::function<void(MessageLevel, const QString&)>;
    /// The sink is called on the reporting thread. Once this returns, the sink before isn't running
    /// and isn't called again.
    void SetMessageSink(MessageSink sink);
    /// For the person at the client, in Chinese. Without a sink it goes to the program's log, and
    /// to the next sink as it is set.
    void Report(MessageLevel level, const QString& text);

private:
    [[nodiscard]] site::TransferPool::Work OnTheSite(const Work& work);

    mutable std::mutex m_lock; ///< guards what follows
    site::IBlobs* m_blobs = nullptr;
    site::TransferRules m_rules;

    site::TransferPool m_pool;

    std::recursive_mutex m_sinkLock; ///< guards m_sink and is held while it runs
    MessageSink m_sink;
    std::list<std::pair<MessageLevel, QString>> m_waiting; ///< guarded by m_sinkLock
};

} // namespace host
