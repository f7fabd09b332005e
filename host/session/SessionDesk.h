// What other threads may use of a session, from its opening to its end.
#pragma once

#include "services/EnvRecords.h"
#include "site/IBlobs.h"
#include "site/Records.h"
#include "site/transfer/TransferPool.h"

#include <QString>

#include <chrono>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace site {
class IClientFolders;
class IPicFiling;
} // namespace site

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

    /// The files, and the folders and the filing where there are any, must last until Close
    /// returns.
    /// @param place  of the site, for a person.
    void Open(site::IBlobs& blobs, site::IClientFolders* folders = nullptr,
              const QString& place = {}, site::IPicFiling* filing = nullptr);
    /// Nothing starts any more; tells what runs to stop, and returns when it has. Not from inside
    /// of a transfer.
    void Close();
    [[nodiscard]] site::TransferRules Rules() const;
    /// For transfers that begin from now on.
    void SetRules(const site::TransferRules& rules);

    /// How long a transfer that begins from now on may wait for its next block, a minute if nothing
    /// else is said: one that stands still would else hold its thread until the site is closed.
    void SetLongestSilence(std::chrono::milliseconds time);

    /// The terms have rules and limits.
    using Work = std::function<void(site::IBlobs&, const site::TransferTerms&)>;
    /// Does the work on the calling thread. False, and nothing done, while closed.
    bool Run(const Work& work);
    /// Does it on another thread; what comes back tells it to stop, and has no stop state while
    /// closed or without threads, when nothing is done.
    [[nodiscard]] std::stop_source Start(const Work& work);

    /// Asks for a folder of the client on the calling thread; one that can't be made is told.
    /// Nothing while closed, "" for one that can't be made.
    using Ask = std::function<QString(site::IClientFolders&)>;
    [[nodiscard]] std::optional<QString> Folder(const Ask& ask);

    /// Files uploaded pictures on the calling thread. False, and nothing done, while closed.
    using FilingWork = std::function<void(site::IPicFiling&, const site::Limits&)>;
    bool RunFiling(const FilingWork& work);

    /// Who works on which projects.
    struct Acting {
        QString person;
        site::Projects ppids;
        /// Those and what the person worked on before, since the site was opened: what began there
        /// comes to its end there.
        site::Projects everOpen;
    };
    [[nodiscard]] Acting WhoActs() const;
    void SetActing(const QString& person, const site::Projects& ppids);

    /// A copy of the session's open project; nothing while none is open.
    [[nodiscard]] std::optional<KX_DATA::ProjectRecord> Project() const;
    void SetProject(std::optional<KX_DATA::ProjectRecord> project);

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
    site::IClientFolders* m_folders = nullptr;
    QString m_place;
    site::IPicFiling* m_filing = nullptr;
    Acting m_acting;
    std::optional<KX_DATA::ProjectRecord> m_project;
    site::TransferRules m_rules;
    std::chrono::milliseconds m_longestSilence{60'000};

    site::TransferPool m_pool;

    std::recursive_mutex m_sinkLock; ///< guards m_sink and is held while it runs
    MessageSink m_sink;
    std::list<std::pair<MessageLevel, QString>> m_waiting; ///< guarded by m_sinkLock
};

} // namespace host
