#include "host/services/TNQuestionMng.h"

#include "host/services/IssuePanelTree.h"
#include "host/services/ListFilters.h"
#include "host/services/PicPanelTree.h"
#include "host/services/SiteService.h"
#include "services/IVeskPicMng.h"
#include "site/IBin.h"
#include "site/IIssues.h"

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

} // namespace

bool TNQuestionMng::DeletePics(qint32 /*kind*/, const std::vector<QString>& /*picIds*/) {
    return Unimplemented("ITNQuestionMng::DeletePics", false);
}

qint32 TNQuestionMng::QueryIssues(const KX_DATA::PicQueryFilter& filter,
                                  const KX_DATA::PageRequest& request, KX_DATA::PageResult& result,
                                  std::vector<KX_DATA::IssueRow>& rows) {
    return GuardedQuestion(u"查询TN问题"_s, 0, [&](HostSession& session) {
        auto page = session.Site().Issues().PageOf(IssueFilterOf(filter), PageAskedOf(request));
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
        const int gone = session.Site().Bin().DeleteIssues(session.OpenPpids(), questionIds,
                                                           SignatureOf(session));
        RequireSome(session, u"删除TN问题"_s, gone, questionIds.size());
        return true;
    });
}

bool TNQuestionMng::SetIssuesShown(qint32 ppid, const std::vector<QString>& questionIds,
                                   bool hidden) {
    return Guarded(u"修改问题状态"_s, false, [&](HostSession& session) {
        const int changed = session.Site().Issues().SetStatus(
            ppid, questionIds, hidden ? KX_DATA::kStatusHidden : KX_DATA::kStatusShown);
        RequireSome(session, u"修改问题状态"_s, changed, questionIds.size());
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

bool TNQuestionMng::UpdateIssue(qint32 /*ppid*/, const KX_DATA::IssueUpdate& /*update*/) {
    return Unimplemented("ITNQuestionMng::UpdateIssue", false);
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

bool TNQuestionMng::SaveRectification(const KX_DATA::RectifySave& /*record*/) {
    return Unimplemented("ITNQuestionMng::SaveRectification", false);
}

bool TNQuestionMng::DeleteRectifyPics(qint32 /*kind*/, const KX_DATA::RectifyRecord& /*record*/,
                                      const std::vector<QString>& /*picIds*/) {
    return Unimplemented("ITNQuestionMng::DeleteRectifyPics", false);
}

bool TNQuestionMng::AddRectifyPics(qint32 /*kind*/, const KX_DATA::RectifyRecord& /*record*/,
                                   const std::vector<KX_DATA::QuestionPicRecord>& /*pics*/) {
    return Unimplemented("ITNQuestionMng::AddRectifyPics", false);
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
