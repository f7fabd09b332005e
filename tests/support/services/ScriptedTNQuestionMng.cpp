#include "tests/support/services/ScriptedTNQuestionMng.h"

#include "services/IVeskPicMng.h"
#include "tests/support/ArgText.h"
#include "tests/support/services/ScriptedVeskPicMng.h"

#include <algorithm>

namespace support {

namespace {

bool Names(const std::vector<QString>& ids, const QString& id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

// An end that isn't given is no limit.
std::string TimeArg(const char* name, const qint64* time) {
    return time != nullptr ? Arg(name, *time) : std::string(name) + "=none";
}

/// All of them, or nothing.
bool TakeOut(std::vector<KX_DATA::QuestionPicRecord>& pics, const std::vector<QString>& ids) {
    const auto isThere = [&](const QString& id) {
        return std::any_of(pics.begin(), pics.end(),
                           [&](const KX_DATA::QuestionPicRecord& pic) { return pic.picId == id; });
    };
    return std::all_of(ids.begin(), ids.end(), isThere) &&
           (std::erase_if(
                pics, [&](const KX_DATA::QuestionPicRecord& pic) { return Names(ids, pic.picId); }),
            true);
}

} // namespace

KX_DATA::IssueRow* ScriptedTNQuestionMng::OpenRow(const QString& questionId) {
    const auto row = std::find_if(issues.begin(), issues.end(), [&](const KX_DATA::IssueRow& each) {
        return each.questionId == questionId && IsOpen(each.ppid);
    });
    return row != issues.end() ? &*row : nullptr;
}

void ScriptedTNQuestionMng::Sign(const QString& questionId, bool rectification) {
    KX_DATA::IssueRow* row = OpenRow(questionId);
    if (row != nullptr && photos != nullptr) {
        row->updaterName = photos->changer;
    }
    if (rectification && photos != nullptr) {
        rectifications[questionId].rectifierName = photos->changer;
    }
}

bool ScriptedTNQuestionMng::MoveTo(KX_DATA::IssueRow& row, const KX_DATA::IssueUpdate& update) {
    KX_DATA::QuestionDetail& more = details[row.questionId];
    const bool isSame = update.componentHandle == more.componentHandle && update.floor == row.floor;
    if (update.componentHandle.isEmpty() || isSame) {
        return true;
    }
    const auto found = std::find_if(components.begin(), components.end(), [&](const auto& each) {
        return each.componentHandle == update.componentHandle && each.floor == update.floor;
    });
    if (found == components.end()) {
        return false;
    }
    row.floor = found->floor;
    row.compName = found->componentName;
    more.componentHandle = found->componentHandle;
    more.componentSubName = found->componentSubName;
    return true;
}

bool ScriptedTNQuestionMng::MayAdd(const KX_DATA::QuestionPicRecord& pic) const {
    return !pic.picId.isEmpty() && (stored == nullptr || (stored->contains(pic.fileUuid) &&
                                                          stored->contains(pic.thumbUuid)));
}

const KX_DATA::IssueRow* ScriptedTNQuestionMng::Find(qint32 ppid, const QString& questionId) const {
    const auto row = std::find_if(issues.begin(), issues.end(), [&](const KX_DATA::IssueRow& each) {
        return each.questionId == questionId && (!judges || each.ppid == ppid);
    });
    return row != issues.end() ? &*row : nullptr;
}

bool ScriptedTNQuestionMng::IsOpen(qint32 ppid) const {
    return !judges || photos == nullptr || photos->IsOpen(ppid);
}

PanelScope ScriptedTNQuestionMng::ScopeOf(quint8 flag, const qint64* from, const qint64* to,
                                          const KX_DATA::MarkFilterArg& filterArg) const {
    const bool timed = flag != 0 && from != nullptr && to != nullptr;
    return photos != nullptr ? photos->ScopeOf(filterArg, timed, timed ? *from : 0, timed ? *to : 0)
                             : PanelScope();
}

bool ScriptedTNQuestionMng::DeletePics(qint32 kind, const std::vector<QString>& picIds) {
    if (!m_script.Call("DeletePics", {Arg("kind", kind), Arg("ids", picIds)})) {
        return false;
    }
    if (!judges) {
        return true;
    }
    const auto found = std::find_if(pics.begin(), pics.end(), [&](auto& each) {
        return kind == KX_DATA::kIssuePicKind && OpenRow(each.first) != nullptr &&
               TakeOut(each.second, picIds);
    });
    if (found != pics.end()) {
        Sign(found->first, false);
        return true;
    }
    return false;
}

qint32 ScriptedTNQuestionMng::QueryIssues(const KX_DATA::PicQueryFilter& filter,
                                          const KX_DATA::PageRequest& request,
                                          KX_DATA::PageResult& result,
                                          std::vector<KX_DATA::IssueRow>& rows) {
    lastFilter = filter;
    query.lastRequest = request;
    if (!m_script.Call("QueryIssues", {RequestText(request)})) {
        return 0;
    }
    const auto handleOf = [this](const QString& questionId) {
        const auto more = details.find(questionId);
        return more != details.end() ? more->second.componentHandle : QString();
    };
    const RowNames names{
        photos != nullptr ? photos->stateNames : std::vector<QString>(), {}, handleOf};
    TakePage(searches ? Search(issues, filter, request, names) : issues, request, query, result,
             rows);
    return query.status.value_or(KX_DATA::kServiceOk);
}

void ScriptedTNQuestionMng::GetIssueGroups(quint8 flag, const qint64* from, const qint64* to,
                                           KX_DATA::MarkFilterArg& filterArg,
                                           std::vector<KX_DATA::IssueMarkGroup>& groups) {
    lastFilterArg = &filterArg;
    const bool succeeds = m_script.Call(
        "GetIssueGroups", {Arg("flag", qint32(flag)), TimeArg("from", from), TimeArg("to", to)});
    if (!succeeds && judges) {
        groups.clear();
    } else if (succeeds) {
        groups = judges && markGroups.empty()
                     ? PanelGroups(issues, ScopeOf(flag, from, to, filterArg))
                     : markGroups;
    }
}

void ScriptedTNQuestionMng::GetIssueFilterList(quint8 flag, const qint64* from, const qint64* to,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<KX_DATA::IssueFilterSource>& entries) {
    lastFilterArg = &filterArg;
    const bool succeeds =
        m_script.Call("GetIssueFilterList",
                      {Arg("flag", qint32(flag)), TimeArg("from", from), TimeArg("to", to)});
    if (!succeeds && judges) {
        entries.clear();
    } else if (succeeds) {
        entries = judges && filterEntries.empty()
                      ? PanelEntries(issues, ScopeOf(flag, from, to, filterArg))
                      : filterEntries;
    }
}

bool ScriptedTNQuestionMng::DeleteIssues(const std::vector<QString>& questionIds) {
    if (!m_script.Call("DeleteIssues", {Arg("ids", questionIds)})) {
        return false;
    }
    const auto gone = std::erase_if(issues, [&](const KX_DATA::IssueRow& row) {
        return Names(questionIds, row.questionId) && IsOpen(row.ppid);
    });
    return questionIds.empty() || gone > 0 || !judges;
}

bool ScriptedTNQuestionMng::SetIssuesShown(qint32 ppid, const std::vector<QString>& questionIds,
                                           bool hidden) {
    if (!m_script.Call("SetIssuesShown",
                       {Arg("ppid", ppid), Arg("ids", questionIds), Arg("hidden", hidden)})) {
        return false;
    }
    bool any = questionIds.empty() || !judges;
    for (KX_DATA::IssueRow& row : issues) {
        if (Names(questionIds, row.questionId) && (!judges || row.ppid == ppid)) {
            row.status = hidden ? KX_DATA::kStatusHidden : KX_DATA::kStatusShown;
            any = true;
        }
    }
    return any;
}

qint32 ScriptedTNQuestionMng::GetIssueDetail(const qint32& ppid, const QString& questionId,
                                             KX_DATA::QuestionDetail& detail) {
    const bool succeeds =
        m_script.Call("GetIssueDetail", {Arg("ppid", ppid), Arg("id", questionId)});
    const KX_DATA::IssueRow* row = Find(ppid, questionId);
    if (!succeeds || row == nullptr) {
        return 0;
    }
    // The caller's own fields stay.
    const QString callersId = detail.questionId;
    const qint32 callersProject = detail.ppid;
    const auto more = details.find(questionId);
    detail = more != details.end() ? more->second : KX_DATA::QuestionDetail();
    detail.questionId = callersId;
    detail.ppid = callersProject;
    detail.componentName = row->compName;
    detail.createTime = row->createTime;
    detail.creatorName = row->creatorName;
    detail.description = row->description;
    detail.floor = row->floor;
    detail.markId = row->markId;
    detail.updateTime = row->updateTime;
    detail.updaterName = row->updaterName;
    detail.questionName = row->theme;
    detail.status = row->status;
    return 1;
}

bool ScriptedTNQuestionMng::UpdateIssue(qint32 ppid, const KX_DATA::IssueUpdate& update) {
    lastUpdate = update;
    if (!m_script.Call("UpdateIssue", {Arg("ppid", ppid), Arg("id", update.questionId)})) {
        return false;
    }
    KX_DATA::IssueRow* row = OpenRow(update.questionId);
    if (!judges) {
        return true;
    }
    if (row == nullptr || row->ppid != ppid || !MoveTo(*row, update)) {
        return false;
    }
    row->theme = update.questionName;
    row->description = update.description;
    row->markId = update.markId > 0 ? update.markId : row->markId;
    row->status = update.status == 0 || update.status == 1 ? update.status : row->status;
    if (!update.qrCode.isEmpty()) {
        details[update.questionId].qrCode = update.qrCode;
    }
    Sign(update.questionId, false);
    return true;
}

qint32 ScriptedTNQuestionMng::GetIssuePics(const qint32& ppid, const QString& questionId,
                                           qint32 kind,
                                           std::vector<KX_DATA::QuestionPicRecord>& list) {
    if (!m_script.Call("GetIssuePics",
                       {Arg("ppid", ppid), Arg("id", questionId), Arg("kind", kind)})) {
        return 0;
    }
    const auto found = pics.find(questionId);
    if (judges && Find(ppid, questionId) == nullptr) {
        return 0;
    }
    list = found != pics.end() ? found->second : std::vector<KX_DATA::QuestionPicRecord>();
    return 1;
}

bool ScriptedTNQuestionMng::GetRectification(const QString& questionId,
                                             KX_DATA::RectifyRecord& record) {
    const bool succeeds = m_script.Call("GetRectification", {Arg("id", questionId)});
    const auto found = rectifications.find(questionId);
    const bool isThere =
        !judges || std::any_of(issues.begin(), issues.end(), [&](const KX_DATA::IssueRow& row) {
            return row.questionId == questionId && IsOpen(row.ppid);
        });
    if (!succeeds || !isThere || found == rectifications.end()) {
        return false;
    }
    record = found->second;
    return true;
}

bool ScriptedTNQuestionMng::SaveRectification(const KX_DATA::RectifySave& record) {
    lastRectifySave = record;
    if (!m_script.Call("SaveRectification",
                       {Arg("id", record.questionId), Arg("state", record.state)})) {
        return false;
    }
    if (judges && OpenRow(record.questionId) == nullptr) {
        return false;
    }
    if (judges) {
        KX_DATA::RectifyRecord& known = rectifications[record.questionId];
        known.rectifyText = record.rectifyText;
        known.state = record.state;
        Sign(record.questionId, true);
    }
    return true;
}

bool ScriptedTNQuestionMng::DeleteRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                                              const std::vector<QString>& picIds) {
    if (!m_script.Call("DeleteRectifyPics",
                       {Arg("kind", kind), Arg("id", record.questionId), Arg("ids", picIds)})) {
        return false;
    }
    if (judges && (kind != KX_DATA::kRectifyPicKind || OpenRow(record.questionId) == nullptr ||
                   !TakeOut(rectifications[record.questionId].pics, picIds))) {
        return false;
    }
    if (judges) {
        Sign(record.questionId, true);
    }
    return true;
}

bool ScriptedTNQuestionMng::AddRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                                           const std::vector<KX_DATA::QuestionPicRecord>& list) {
    lastAddedPics = list;
    if (!m_script.Call("AddRectifyPics", {Arg("kind", kind), Arg("id", record.questionId),
                                          Arg("count", qint32(list.size()))})) {
        return false;
    }
    const auto mayAdd = [this](const KX_DATA::QuestionPicRecord& pic) { return MayAdd(pic); };
    if (judges && (kind != KX_DATA::kRectifyPicKind || OpenRow(record.questionId) == nullptr ||
                   !std::all_of(list.begin(), list.end(), mayAdd))) {
        return false;
    }
    if (judges) {
        auto& known = rectifications[record.questionId].pics;
        known.insert(known.end(), list.begin(), list.end());
        Sign(record.questionId, true);
    }
    return true;
}

bool ScriptedTNQuestionMng::GetUsedMarks(qint32 kind, std::vector<qint32>& markIds) {
    if (!m_script.Call("GetUsedMarks", {Arg("kind", kind)}) || kind != KX_DATA::kIssueMarkKind) {
        return false;
    }
    markIds = judges && usedMarks.empty()
                  ? MarksInUse(issues, photos != nullptr ? photos->markTable : MarkTable())
                  : usedMarks;
    return true;
}

} // namespace support
