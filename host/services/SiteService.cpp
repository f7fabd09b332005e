#include "host/services/SiteService.h"

#include "toolkit/Clock.h"

namespace host {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(serviceLog, "host.services")

namespace {

/// What happens where several people work: it is told, and nothing is wrong with site or client.
bool IsOrdinary(const site::DataError* fault) {
    return fault != nullptr && (fault->GetFault() == site::Fault::Missing ||
                                fault->GetFault() == site::Fault::Refused ||
                                fault->GetFault() == site::Fault::Cancelled);
}

} // namespace

void SiteService::ReportFault(SessionDesk& desk, const QString& what,
                              const std::exception& fault) const {
    const auto* known = dynamic_cast<const site::DataError*>(&fault);
    if (IsOrdinary(known)) {
        qCInfo(serviceLog, "%s: %s", qUtf8Printable(what), fault.what());
    } else {
        qCWarning(serviceLog, "%s: %s", qUtf8Printable(what), fault.what());
    }
    const QString reason =
        known != nullptr ? known->Text() : site::FaultText(site::Fault::Other, {});
    m_surroundings.NoteRefusal(reason);
    desk.Report(MessageLevel::Error, FaultHead(what) + reason);
}

void SiteService::LogIf(bool done, const QString& action) const {
    if (done) {
        Guarded(u"记录操作日志"_s, false, [&](HostSession& session) {
            session.Actions().Write(action);
            return true;
        });
    }
}

void SiteService::Tell(const DoneDeed& deed) const {
    if (!deed.items.empty() && m_surroundings.deedDone) {
        m_surroundings.deedDone(deed);
    }
}

void SiteService::TellDeleted(const std::vector<site::BinEntry>& made) const {
    Tell(DeedOf(made));
}

void SiteService::TellStatus(site::BinKind what, bool hidden, qint32 ppid,
                             const std::vector<site::NamedPhoto>& changed) const {
    DoneDeed deed{hidden ? DeedKind::Hidden : DeedKind::Shown, what};
    for (const site::NamedPhoto& photo : changed) {
        deed.items.push_back({ppid, photo.picId, {}, photo.name});
    }
    Tell(deed);
}

void SiteService::TellStatus(bool hidden, qint32 ppid,
                             const std::vector<site::NamedIssue>& changed) const {
    DoneDeed deed{hidden ? DeedKind::Hidden : DeedKind::Shown, site::BinKind::Issue};
    for (const site::NamedIssue& issue : changed) {
        deed.items.push_back({ppid, 0, issue.questionId, issue.theme});
    }
    Tell(deed);
}

site::Signature SignatureOf(const HostSession& session) {
    return {session.UserName(), toolkit::Clock().NowSeconds()};
}

void RequireSome(const HostSession& session, const QString& what, int done, size_t asked) {
    RequireFound(done > 0 || asked == 0,
                 asked == 1 ? u"所选的一项"_s : u"所选的 %1 项"_s.arg(asked));
    if (static_cast<size_t>(done) < asked) {
        session.Desk()->Report(
            MessageLevel::Warning,
            u"%1：%2 项已完成，另外 %3 项已不存在，可能已被他人删除，请刷新（F5）。"_s.arg(what)
                .arg(done)
                .arg(asked - static_cast<size_t>(done)));
    }
}

} // namespace host
