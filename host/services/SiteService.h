// What every service does around its work: no session, a fault of the data, nothing built yet.
#pragma once

#include "host/services/DoneDeed.h"
#include "host/services/Surroundings.h"
#include "host/session/HostSession.h"
#include "site/Records.h"

#include <QLoggingCategory>

#include <cstddef>
#include <exception>
#include <utility>

namespace host {

Q_DECLARE_LOGGING_CATEGORY(serviceLog)

/// Inside of Guarded: what was asked for isn't there, perhaps any more. `name` names it.
inline void RequireFound(bool found, const QString& name) {
    if (!found) {
        throw site::DataError(site::Fault::Missing, site::FaultText(site::Fault::Missing, name));
    }
}

/// The same for a change of several: none of them there is a fault, fewer than asked for is told.
void RequireSome(const HostSession& session, const QString& what, int done, size_t asked);

/// By the person who is signed in, now.
[[nodiscard]] site::Signature SignatureOf(const HostSession& session);
/// False for what is gone. No service says which state was seen, so nothing is refused for a change
/// meanwhile: the contracts don't carry it, and who saves last wins.
[[nodiscard]] inline bool IsSaved(site::Saved saved) {
    return saved == site::Saved::Yes;
}

/// Base of the services over a site. Thread: user interface, but for Around().Desk() and faults.
class SiteService {
public:
    /// The surroundings must outlive the service.
    explicit SiteService(const Surroundings& surroundings) : m_surroundings(surroundings) {}

protected:
    ~SiteService() = default;

    [[nodiscard]] const Surroundings& Around() const { return m_surroundings; }

    /// Runs `work(session)`, whose result is the service's. Any fault, or no open site, gives
    /// `failure`, and the person reads what could not be done and what to do. `what` is the
    /// operation in Chinese.
    template <typename Result, typename Work>
    Result Guarded(const QString& what, Result failure, Work work) const {
        HostSession* session = m_surroundings.Session();
        if (session == nullptr || !session->IsOpen()) {
            qCWarning(serviceLog, "no site is open: %s", qUtf8Printable(what));
            m_surroundings.NoteRefusal(NotOpenText());
            return failure;
        }
        try {
            return work(*session);
        } catch (const std::exception& fault) {
            ReportFault(*session->Desk(), what, fault);
            return failure;
        }
    }

    /// Guarded for what a person asks again after a fault: the answer takes the messages of earlier
    /// faults back.
    template <typename Result, typename Work>
    Result GuardedQuestion(const QString& what, Result failure, Work work) const {
        return Guarded(what, failure, [&](HostSession& session) {
            const Result answer = work(session);
            if (m_surroundings.withdraw) {
                m_surroundings.withdraw(FaultHead(what));
            }
            return answer;
        });
    }

    /// The question for a page of a list, as the site is asked it.
    [[nodiscard]] site::PageAsked Noted(site::ListKind kind, const site::ListFilter& filter,
                                        site::PageAsked asked) const {
        if (m_surroundings.listAsked) {
            m_surroundings.listAsked(kind, filter, asked.order);
        }
        return asked;
    }

    /// To the surroundings; nothing if nothing was changed.
    void TellDeleted(const std::vector<site::BinEntry>& made) const;
    void TellStatus(site::BinKind what, bool hidden, qint32 ppid,
                    const std::vector<site::NamedPhoto>& changed) const;
    void TellStatus(bool hidden, qint32 ppid, const std::vector<site::NamedIssue>& changed) const;

    /// Writes into the record of what people did. What was done stays done where it can't be
    /// written.
    void LogIf(bool done, const QString& action) const;

    /// To log, as a warning only if somebody ought to look into it, and message bar; what services
    /// said last. Thread: any.
    void ReportFault(SessionDesk& desk, const QString& what, const std::exception& fault) const;
    [[nodiscard]] static QString NotOpenText() { return QStringLiteral("没有打开数据文件夹。"); }

private:
    void Tell(const DoneDeed& deed) const;
    /// How the message of a fault begins.
    [[nodiscard]] static QString FaultHead(const QString& what) {
        return what + QStringLiteral("失败：");
    }
    const Surroundings& m_surroundings;
};

} // namespace host
