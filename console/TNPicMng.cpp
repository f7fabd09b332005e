#include "console/TNPicMng.h"

#include "base/FacadeAccess.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "issues/TNPicEditDlg.h"
#include "issues/TNPicViewWrap.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXView.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/KXTools.h"

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::PictureFacade;

namespace {

enum IssueColumn { kIssuePeople = 5, kIssueTimes = 6, kComponent = 7, kState = 9, kIssueText = 10 };

constexpr qint32 kReadOnly = 1;

void OpenViewer(const KX_DATA::IssueRow& record, qint32 readOnly, toolkit::WindowId console) {
    CTNPicEditDlg::Instance().CloseEditor();
    CTNPicViewWrap& viewer = CTNPicViewWrap::Instance();
    viewer.readOnly = readOnly;
    viewer.outerRefresh = &PictureFacade().IssueRefresh();
    viewer.ShowQuestion(record.ppid, record.questionId, console);
}

} // namespace

void Issues::TellHost() {
    PictureFacade().Sink().RefreshTNMarks();
}

bool Issues::Query(const CPicMngBase& mng, const KX_DATA::PageRequest& request,
                   KX_DATA::PageResult& result, std::vector<Record>& page) {
    return GetTNQuestionMng()->QueryIssues(mng.PicFilter(), request, result, page) ==
           KX_DATA::kServiceOk;
}

bool Issues::SetShown(qint32 projectId, const std::vector<Id>& ids, bool hidden) {
    return GetTNQuestionMng()->SetIssuesShown(projectId, ids, hidden);
}

bool Issues::Delete(qint32 projectId, const std::vector<Id>& ids) {
    Q_UNUSED(projectId);
    return GetTNQuestionMng()->DeleteIssues(ids);
}

QString Issues::DeleteQuestion(const CGridRow& row) {
    Q_UNUSED(row);
    return u"确认删除该问题和所附照片吗 ？"_s;
}

bool Issues::UsedMarks(std::vector<qint32>& markIds) {
    return GetTNQuestionMng()->GetUsedMarks(KX_DATA::kIssueMarkKind, markIds);
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

bool CTNPicMng::DeleteIds(qint32 projectId, const std::vector<qint32>& ids) {
    Q_UNUSED(projectId);
    Q_UNUSED(ids);
    return GetTNQuestionMng()->DeleteIssues({});
}

bool CTNPicMng::EditRow(CGridRow& row) {
    // A copy: the editor may let the page be fetched again.
    const KX_DATA::IssueRow record = RecordOf(row);
    CTNPicEditDlg& editor = CTNPicEditDlg::Instance();
    editor.refreshTarget = [handle = grid->RefreshHandle()] {
        if (const auto listener = handle.lock()) {
            listener->Refresh();
        }
    };
    editor.ownerView = grid->Widget();
    editor.OpenQuestion(record.ppid, record.questionId, grid->ParentId());
    // False: the editor itself tells the grid what it saved.
    return false;
}

void CTNPicMng::LocateRow(CGridRow& row) {
    // A copy: what the view does may fetch the page again.
    const KX_DATA::IssueRow record = RecordOf(row);
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
    // Opening the console again replaces this manager.
    const toolkit::WindowId console = grid->ParentId();
    CTNPicViewWrap& viewer = CTNPicViewWrap::Instance();
    if (viewer.HasWindow()) {
        viewer.StopVoices();
        PictureFacade().BringConsoleBack(kModeIssue);
    }
    LeaveToViewer(console);
    OpenViewer(record, GetKXGlobalData()->IsWorksetMode() ? kReadOnly : 0, console);
}

void CTNPicMng::PreviewRow(CGridRow& row) {
    OpenViewer(RecordOf(row), kReadOnly, grid->ParentId());
}
