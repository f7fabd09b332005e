#include "console/TNPicMng.h"

#include "base/FacadeAccess.h"
#include "base/MissingDialogs.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "services/Factories.h"
#include "services/IKXView.h"
#include "services/ITNQuestionMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/Prompts.h"

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::AnswerAsCancelled;
using ZelvorNRQ_KXVeskPicture::MissingDialog;
using ZelvorNRQ_KXVeskPicture::PictureFacade;

namespace {

enum IssueColumn { kIssuePeople = 5, kIssueTimes = 6, kComponent = 7, kState = 9, kIssueText = 10 };

} // namespace

QString CTNPicMng::GetSearchHint() const {
    return u"输入问题主题、相关人账号、描述等关键字"_s;
}

bool CTNPicMng::InitColumns(std::map<int, bool>& sortable) {
    InsertColumns(kModeIssue, sortable);
    return true;
}

void CTNPicMng::NotifyChanged() {
    PictureFacade().Sink().RefreshTNMarks();
}

bool CTNPicMng::QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                          KX_DATA::PageResult& result) {
    records.clear();
    const int filling = grid->Filling();
    std::vector<KX_DATA::IssueRow> page;
    if (GetTNQuestionMng()->QueryIssues(PicFilter(), request, result, page) != 101 ||
        grid->Filling() != filling) {
        return false;
    }
    records = std::move(page);
    for (size_t i = 0; i < records.size(); ++i) {
        BuildRow(rowImages, int(i), records[i]);
    }
    return true;
}

void CTNPicMng::BuildRow(const toolkit::ImageList& rowImages, int place,
                         KX_DATA::IssueRow& record) {
    auto row = StartRow(place, false);
    row->SetText(kProjectColumn, ProjectName(record.ppid));
    FillRowCells(*row, record);
    PutIcons(*row, FirstIconColumn(kModeIssue), rowImages);
    row->SetData(&record);
    grid->AddRow(std::move(row));
}

void CTNPicMng::FillRowCells(CGridRow& row, const KX_DATA::IssueRow& record) {
    PutMark(row, record.markId);
    row.SetText(kNameColumn, record.theme);
    const IssuePairTexts pairs = IssuePairs(record);
    row.SetText(kIssuePeople, pairs.people);
    row.SetText(kIssueTimes, pairs.times);
    row.SetText(kComponent, IssueComponentText(record));
    row.SetText(kState, record.rectifyText);
    row.SetText(kIssueText, record.description);
    row.SetText(GetStatusColumn(), StatusText(record.status));
}

void CTNPicMng::SetRowStatus(CGridRow& row, qint32 value) {
    RecordOf<KX_DATA::IssueRow>(row).status = value;
}

void CTNPicMng::CollectCheckedUuids(std::vector<QString>& questionIds) const {
    for (const CGridRow* row : CheckedRows()) {
        questionIds.push_back(RecordOf<KX_DATA::IssueRow>(*row).questionId);
    }
}

CheckedResult CTNPicMng::SetCheckedStatus(qint32 projectId, bool hidden) {
    std::vector<QString> questionIds;
    CollectCheckedUuids(questionIds);
    if (questionIds.empty()) {
        return CheckedResult::NothingChecked;
    }
    return GetTNQuestionMng()->SetIssuesShown(projectId, questionIds, hidden)
               ? CheckedResult::Done
               : CheckedResult::Refused;
}

int CTNPicMng::GetStatusColumn() const {
    return StatusColumn(kModeIssue);
}

bool CTNPicMng::DeleteIssueList(std::vector<QString> questionIds) {
    const bool deleted = GetTNQuestionMng()->DeleteIssues(questionIds);
    if (deleted) {
        WriteAction(u"删除TN问题"_s);
    }
    return deleted;
}

bool CTNPicMng::DeleteChecked(qint32 projectId) {
    Q_UNUSED(projectId);
    std::vector<QString> questionIds;
    CollectCheckedUuids(questionIds);
    return DeleteIssueList(questionIds);
}

DeleteResult CTNPicMng::DeleteRow(qint32 projectId, CGridRow& row) {
    Q_UNUSED(projectId);
    const QString questionId = RecordOf<KX_DATA::IssueRow>(row).questionId;
    if (!toolkit::Prompts().AskOkCancel(grid->ParentId(), u"确认删除该问题和所附照片吗 ？"_s)) {
        return DeleteResult::Cancelled;
    }
    return DeleteIssueList({questionId}) ? DeleteResult::Deleted : DeleteResult::Refused;
}

bool CTNPicMng::DeleteIds(qint32 projectId, const std::vector<qint32>& ids) {
    Q_UNUSED(projectId);
    Q_UNUSED(ids);
    return GetTNQuestionMng()->DeleteIssues({});
}

bool CTNPicMng::GetUsedMarks(std::vector<qint32>& markIds) {
    return GetTNQuestionMng()->GetUsedMarks(KX_DATA::kIssueMarkKind, markIds);
}

QString CTNPicMng::GetRowKey(const CGridRow& row) const {
    return RecordOf<KX_DATA::IssueRow>(row).questionId;
}

bool CTNPicMng::EditRow(CGridRow& row) {
    Q_UNUSED(row);
    return AnswerAsCancelled(MissingDialog::IssueEditor);
}

void CTNPicMng::LocateRow(CGridRow& row) {
    // A copy: what the view does may fetch the page again.
    const auto record = RecordOf<KX_DATA::IssueRow>(row);
    // Only 1 stops here, as for BIM photos. These two messages have no parent; required as is.
    if (record.status == 1) {
        KXTools::ShowMsgBox(toolkit::kNoWindow, u"当前问题状态为隐藏，不支持直接定位！"_s);
        return;
    }
    KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView();
    if (view == nullptr || !view->LocateIssue(record.questionId)) {
        KXTools::ShowMsgBox(toolkit::kNoWindow, u"请先开启TN问题显示再定位！"_s);
        return;
    }
    // The console stays as it is until the viewer exists that brings it back.
    AnswerAsCancelled(MissingDialog::IssueViewer);
}

void CTNPicMng::PreviewRow(CGridRow& row) {
    Q_UNUSED(row);
    AnswerAsCancelled(MissingDialog::IssueViewer);
}
