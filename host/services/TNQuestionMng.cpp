#include "host/services/TNQuestionMng.h"

#include "host/services/IssuePanelTree.h"
#include "host/services/ListFilters.h"
#include "host/services/PicPanelTree.h"
#include "host/services/SiteService.h"
#include "services/IVeskPicMng.h"
#include "site/IBin.h"
#include "site/IIssues.h"
#include "site/IPicFiling.h"
#include "toolkit/Clock.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Without both ends all times count.
site::PanelFilter IssuePanelFilterOf(HostSession& session, quint8 flag, const qint64* from,
                                     const qint64* to, const KX_DATA::MarkFilterArg& filterArg) {
    const bool isTimed = from != nullptr && to != nullptr;
    return PanelFilterOf(session, isTimed ? *from : 0, isTimed ? *to : 0, isTimed ? flag : 0,
                         filterArg);
}

void RequireKind(qint32 kind, qint32 known) {
    if (kind != known) {
        throw site::DataError(site::Fault::Refused,
                              site::FaultText(site::Fault::Refused, u"图片类别"_s));
    }
}

/// Viewers look for "删除的图片" in what a service says and show its text then.
void RequirePics(bool found) {
    if (!found) {
        throw site::DataError(site::Fault::Missing, u"要删除的图片已不存在，可能已被他人删除。"_s);
    }
}

} // namespace

bool TNQuestionMng::DeletePics(qint32 kind, const std::vector<QString>& picIds) {
    return Guarded(u"删除问题图片"_s, false, [&](HostSession& session) {
        RequireKind(kind, KX_DATA::kIssuePicKind);
        std::vector<site::BinEntry> made;
        RequirePics(session.Site().Issues().DeletePics(session.OpenPpids(), picIds,
                                                       SignatureOf(session), &made));
        TellDeleted(made);
        return true;
    });
}

qint32 TNQuestionMng::QueryIssues(const KX_DATA::PicQueryFilter& filter,
                                  const KX_DATA::PageRequest& request, KX_DATA::PageResult& result,
                                  std::vector<KX_DATA::IssueRow>& rows) {
    return GuardedQuestion(u"查询TN问题"_s, 0, [&](HostSession& session) {
        const site::ListFilter asked = IssueFilterOf(filter);
        auto page = session.Site().Issues().PageOf(
            asked, Noted(site::ListKind::Issues, asked, PageAskedOf(request)));
        result = ResultOf(page.total, request);
        rows = std::move(page.rows);
        return KX_DATA::kServiceOk;
    });
}

void TNQuestionMng::GetIssueGroups(quint8 flag, const qint64* from, const qint64* to,
                                   KX_DATA::MarkFilterArg& filterArg,
                                   std::vector<KX_DATA::IssueMarkGroup>& groups) {
    groups.clear();
    Guarded(u"读取问题标识"_s, false, [&](HostSession& session) {
        groups = IssueMarkGroups(session, IssuePanelFilterOf(session, flag, from, to, filterArg));
        return true;
    });
}

void TNQuestionMng::GetIssueFilterList(quint8 flag, const qint64* from, const qint64* to,
                                       KX_DATA::MarkFilterArg& filterArg,
                                       std::vector<KX_DATA::IssueFilterSource>& entries) {
    entries.clear();
    Guarded(u"读取问题标识"_s, false, [&](HostSession& session) {
        entries =
            IssueFilterEntries(session, IssuePanelFilterOf(session, flag, from, to, filterArg));
        return true;
    });
}

bool TNQuestionMng::DeleteIssues(const std::vector<QString>& questionIds) {
    return Guarded(u"删除TN问题"_s, false, [&](HostSession& session) {
        std::vector<site::BinEntry> made;
        const int gone = session.Site().Bin().DeleteIssues(session.OpenPpids(), questionIds,
                                                           SignatureOf(session), &made);
        RequireSome(session, u"删除TN问题"_s, gone, questionIds.size());
        TellDeleted(made);
        return true;
    });
}

bool TNQuestionMng::SetIssuesShown(qint32 ppid, const std::vector<QString>& questionIds,
                                   bool hidden) {
    return Guarded(u"修改问题状态"_s, false, [&](HostSession& session) {
        std::vector<site::NamedIssue> changed;
        const int found = session.Site().Issues().SetStatus(
            ppid, questionIds, hidden ? KX_DATA::kStatusHidden : KX_DATA::kStatusShown,
            SignatureOf(session), &changed);
        RequireSome(session, u"修改问题状态"_s, found, questionIds.size());
        TellStatus(hidden, ppid, changed);
        return true;
    });
}

qint32 TNQuestionMng::GetIssueDetail(const qint32& ppid, const QString& questionId,
                                     KX_DATA::QuestionDetail& detail) {
    return Guarded(u"读取TN问题"_s, 0, [&](HostSession& session) {
        RequireFound(session.Site().Issues().Detail(ppid, questionId, detail).has_value(),
                     u"TN问题"_s);
        return 1;
    });
}

bool TNQuestionMng::UpdateIssue(qint32 ppid, const KX_DATA::IssueUpdate& update) {
    return Guarded(u"修改TN问题"_s, false, [&](HostSession& session) {
        RequireFound(IsSaved(session.Site().Issues().Update(ppid, update, SignatureOf(session))),
                     u"TN问题"_s);
        return true;
    });
}

qint32 TNQuestionMng::GetIssuePics(const qint32& ppid, const QString& questionId, qint32 /*kind*/,
                                   std::vector<KX_DATA::QuestionPicRecord>& pics) {
    return Guarded(u"读取问题照片"_s, 0, [&](HostSession& session) {
        RequireFound(session.Site().Issues().Pics(ppid, questionId, pics), u"TN问题"_s);
        return 1;
    });
}

bool TNQuestionMng::GetRectification(const QString& questionId, KX_DATA::RectifyRecord& record) {
    return Guarded(u"读取整改情况"_s, false, [&](HostSession& session) {
        RequireFound(session.Site().Issues().Rectification(session.OpenPpids(), questionId, record),
                     u"TN问题"_s);
        return true;
    });
}

bool TNQuestionMng::SaveRectification(const KX_DATA::RectifySave& record) {
    return Guarded(u"保存整改情况"_s, false, [&](HostSession& session) {
        RequireFound(session.Site().Issues().SaveRectification(session.OpenPpids(), record,
                                                               SignatureOf(session)),
                     u"TN问题"_s);
        return true;
    });
}

bool TNQuestionMng::DeleteRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                                      const std::vector<QString>& picIds) {
    return Guarded(u"删除整改图片"_s, false, [&](HostSession& session) {
        RequireKind(kind, KX_DATA::kRectifyPicKind);
        std::vector<site::BinEntry> made;
        RequirePics(session.Site().Issues().DeleteRectifyPics(
            session.OpenPpids(), record.questionId, picIds, SignatureOf(session), &made));
        TellDeleted(made);
        return true;
    });
}

bool TNQuestionMng::AddRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                                   const std::vector<KX_DATA::QuestionPicRecord>& pics) {
    const auto desk = Around().Desk();
    bool added = false;
    const auto add = [&](site::IPicFiling& filing, const site::Limits& limits) {
        try {
            RequireKind(kind, KX_DATA::kRectifyPicKind);
            const SessionDesk::Acting who = desk->WhoActs();
            // Pictures uploaded while the project was changed are the issue's all the same.
            RequireFound(filing.AddRectifyPics(who.everOpen, record.questionId, pics,
                                               {who.person, toolkit::Clock().NowSeconds()}, limits),
                         u"TN问题"_s);
            added = true;
        } catch (const std::exception& fault) {
            ReportFault(*desk, u"添加整改图片"_s, fault);
        }
    };
    if (desk == nullptr || !desk->RunFiling(add)) {
        Around().NoteRefusal(NotOpenText());
    }
    return added;
}

bool TNQuestionMng::GetUsedMarks(qint32 kind, std::vector<qint32>& markIds) {
    if (kind != KX_DATA::kIssueMarkKind) {
        return false;
    }
    return Guarded(u"读取问题标识"_s, false, [&](HostSession& session) {
        markIds = session.Site().Issues().UsedMarks();
        return true;
    });
}

} // namespace host
