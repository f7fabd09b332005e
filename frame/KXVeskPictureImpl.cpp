#include "frame/KXVeskPictureImpl.h"

#include "base/Guard.h"
#include "base/OpenProject.h"
#include "base/StoredFile.h"
#include "console/ConsoleEvents.h"
#include "console/VeskPicMngDlg.h"
#include "editors/BimPicEditDlg.h"
#include "editors/PdfPicEditDlg.h"
#include "frame/HostObservers.h"
#include "issues/TNPicEditDlg.h"
#include "issues/TNPicViewWrap.h"
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "reminder/popups/VeskMsgDlg.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/BimPicViewWrap.h"
#include "viewers/PdfPicViewWrap.h"
#include "viewers/SavePicAs.h"

#include <QCoreApplication>

#include <functional>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::kNoPendingPic;
using ZelvorNRQ_KXVeskPicture::SavePicAs;
using ZelvorNRQ_KXVeskPicture::ShowStatus;
using ZelvorNRQ_KXVeskPicture::ViewPicRequest;

namespace {

/// Brings a window up, maximised if it was.
void ShowInFront(toolkit::WindowObject& window) {
    QWidget& widget = *window.Widget();
    widget.setWindowState(widget.windowState() & ~Qt::WindowMinimized);
    widget.show();
    window.BringToForeground();
}

/// Fills a viewer's window and brings it up. False: there is no viewer; it couldn't be filled,
/// which the user is told by `failure`, or was closed at once.
bool FillAndShow(toolkit::WindowObject& viewer, const std::function<bool()>& fill,
                 e_VeskPicMngStatus failure) {
    const toolkit::WindowId window = viewer.Id();
    const toolkit::StillThere still(window);
    const bool isFilled = fill();
    // Closed behind a message of its own, or with its project.
    if (!still) {
        return false;
    }
    if (isFilled) {
        ShowInFront(viewer);
        return true;
    }
    ShowStatus(window, failure);
    // The window that failed, not one that was opened while the message was.
    if (still) {
        viewer.Widget()->close();
    }
    return false;
}

} // namespace

/// The reminder thread ends before the application does, when all that it needs still lives. The
/// host has ended its transfers by then.
void CKXVeskPictureImpl::EndWithApplication() {
    static const bool once = [] {
        qAddPostRoutine([] {
            if (HasInstance()) {
                Instance().m_reminders.End();
            }
        });
        return true;
    }();
    Q_UNUSED(once);
}

CKXVeskPictureImpl::CKXVeskPictureImpl()
    : m_projChangeObs(std::make_unique<CVeskPicProjChangeObs>()),
      m_viewBimPicObs(std::make_unique<CViewBimPicObs>()) {
    SetPictureFacade(this);
    EndWithApplication();
}

CKXVeskPictureImpl::~CKXVeskPictureImpl() {
    ZelvorNRQ_KXVeskPicture::SetPictureFacade(nullptr);
}

ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink& CKXVeskPictureImpl::Sink() {
    return m_sink != nullptr ? *m_sink : m_unsetSink;
}

ZelvorNRQ_KXVeskPicture::IKXIssueEditSink& CKXVeskPictureImpl::IssueEditSink() {
    return m_issueEditSink != nullptr ? *m_issueEditSink : m_unsetSink;
}

qint32 CKXVeskPictureImpl::ShowPicMng(qint32 kind) {
    backToPdfEdit = false;
    CVeskPicMngDlg& console = CVeskPicMngDlg::Instance();
    console.MakeRoomFor(kind);
    console.SetMode(kind);
    if (reopenConsole && console.HasWindow()) {
        reopenConsole = false;
    } else if (!console.HasWindow()) {
        console.Create(toolkit::MainWindow());
    }
    console.ShowRestored();
    console.BringToForeground();
    console.RunSearch();
    NotifyConsoleOpened(kind);
    return 1;
}

void CKXVeskPictureImpl::NotifyConsoleOpened(qint32 kind) {
    // Crossed against the notifications of changes: the host expects it so.
    if (kind == kModeIssue) {
        Sink().RefreshTNMarks();
    } else if (kind == kModeBim) {
        Sink().RefreshPdfMarks();
    } else if (kind == kModePdf) {
        Sink().RefreshBimMarks();
    }
}

qint32 CKXVeskPictureImpl::ShowBimPicMngFor(qint32 unread, const QString& presetText,
                                            qint32 presetMarkId, qint32 presetPicId) {
    Q_UNUSED(unread);
    CVeskPicMngDlg& console = CVeskPicMngDlg::Instance();
    console.MakeRoomFor(kModeBim);
    const bool wasOpen = console.HasWindow();
    console.SetBimPreset(presetText, presetMarkId, presetPicId);
    ShowPicMng(kModeBim);
    // A console that opens selects by itself once it is there; one that was open must be told.
    if (wasOpen) {
        toolkit::PostWindowEvent(console.Id(), WM_PIC_MNG_SELECT);
    }
    return 1;
}

qint32 CKXVeskPictureImpl::ShowIssueMngFor(qint32 unread, const QString& presetText,
                                           qint32 presetMarkId, const QString& presetText2) {
    Q_UNUSED(unread);
    CVeskPicMngDlg& console = CVeskPicMngDlg::Instance();
    console.MakeRoomFor(kModeIssue);
    console.SetIssuePreset(presetText, presetMarkId, presetText2);
    return ShowPicMng(kModeIssue);
}

qint32 CKXVeskPictureImpl::ShowPdfPicMngFor(qint32 unread, qint32 presetMarkId, qint32 presetB) {
    Q_UNUSED(unread);
    const qint32 drawingId = ZelvorNRQ_KXVeskPicture::CurrentDrawing().drawingId;
    CVeskPicMngDlg& console = CVeskPicMngDlg::Instance();
    console.MakeRoomFor(kModePdf);
    console.SetPdfPreset(presetMarkId, drawingId, presetB);
    return ShowPicMng(kModePdf);
}

void CKXVeskPictureImpl::AttachObservers(KXFRAME::IKXObserverHub* hub) {
    hub->AddObserver(m_projChangeObs.get());
    hub->AddObserver(m_viewBimPicObs.get());
}

void CKXVeskPictureImpl::SetPicSink(ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink* sink) {
    m_sink = sink;
}

void CKXVeskPictureImpl::SetIssueEditSink(ZelvorNRQ_KXVeskPicture::IKXIssueEditSink* sink) {
    m_issueEditSink = sink;
}

void CKXVeskPictureImpl::ViewBimPic(const ViewPicRequest& request) {
    KX_DATA::BimPicDetail detail;
    if (GetVeskPicMng()->GetBimPicDetail(request.ppid, request.picId, detail) !=
        KX_DATA::kServiceOk) {
        ShowStatus(toolkit::kNoWindow, e_VeskPicMngStatus::PicHidden);
        return;
    }
    pendingPicId = request.picId;
    KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView();
    const bool located = view != nullptr && view->LocatePicture(detail.positionKey, detail.markId);
    if (!located && !detail.floor.isEmpty()) {
        pendingPicId = kNoPendingPic;
        ShowStatus(toolkit::kNoWindow, e_VeskPicMngStatus::DisplayOff);
        return;
    }
    if (!located) {
        detail.positionKey = request.positionKey;
    }
    OpenBimPicView(request.ppid, detail.floor, detail.positionKey, detail.markId);
}

bool CKXVeskPictureImpl::OpenBimPicView(qint32 ppid, const QString& floor,
                                        const QString& positionKey, qint32 markId) {
    CBimPicViewWrap& viewer = CBimPicViewWrap::Instance();
    viewer.Create(toolkit::MainWindow());
    const qint32 picId = TakePendingPic();
    return FillAndShow(
        viewer,
        [&] {
            return viewer.OpenView({ppid, floor, positionKey, markId}, picId);
        },
        e_VeskPicMngStatus::PicInfoFailed);
}

void CKXVeskPictureImpl::ShowPdfPicView(qint32 ppid, qint32 drawingId, const QString& drawingName,
                                        KXWindow parent) {
    OpenPdfPicView(ppid, drawingId, drawingName, parent);
}

bool CKXVeskPictureImpl::OpenPdfPicView(qint32 ppid, qint32 drawingId, const QString& drawingName,
                                        KXWindow parent) {
    if (backToPdfEdit) {
        backToPdfEdit = false;
        CPdfPicEditDlg& editor = CPdfPicEditDlg::Instance();
        editor.OnPointPicked(drawingId);
        editor.ShowRestored();
        editor.BringToForeground();
        return false;
    }
    CPdfPicViewWrap& viewer = CPdfPicViewWrap::Instance();
    viewer.drawingId = drawingId;
    viewer.drawingName = drawingName;
    viewer.ppid = ppid;
    viewer.Create(parent);
    const qint32 picId = TakePendingPic();
    return FillAndShow(
        viewer, [&] { return viewer.OpenView(picId); }, e_VeskPicMngStatus::CheckpointFailed);
}

bool CKXVeskPictureImpl::EditBimPic(qint32 ppid, qint32 picId) {
    KX_DATA::BimPicDetail detail;
    if (GetVeskPicMng()->GetBimPicDetail(ppid, picId, detail) != KX_DATA::kServiceOk) {
        return false;
    }
    detail.picId = picId;
    detail.ppid = ppid;
    CBimPicEditDlg editor(detail);
    if (editor.DoModal(toolkit::MainWindow()) == DialogResult::Ok) {
        Sink().RefreshBimMarks();
    }
    return true;
}

bool CKXVeskPictureImpl::EditIssue(const qint32* issueKey, QString questionId) {
    CTNPicEditDlg& editor = CTNPicEditDlg::Instance();
    // The owner of an earlier opening stays; required as is.
    editor.refreshTarget = [this] { Refresh(); };
    editor.OpenQuestion(*issueKey, questionId, toolkit::MainWindow());
    return true;
}

qint32 CKXVeskPictureImpl::SaveBimPicAs(qint32 ppid, qint32 picId, QString target) {
    std::vector<KX_DATA::PicFileEntry> files;
    if (GetVeskPicMng()->GetPicFiles({picId}, files) != KX_DATA::kServiceOk || files.empty()) {
        return 0;
    }
    KX_DATA::BimPicDetail detail;
    if (GetVeskPicMng()->GetBimPicDetail(ppid, picId, detail) != KX_DATA::kServiceOk) {
        return 0;
    }
    QString name;
    QString folder;
    GetKXGlobalData()->GetProjectName(name, ppid);
    GetKXPathMng()->GetPicFolder(folder, ppid, name);
    const QString uuid = files.front().picUuid;
    using namespace ZelvorNRQ_KXVeskPicture;
    SavePicAs(uuid, target, StoredFilePath(folder, uuid, kPictureEnding));
    return 1;
}

bool CKXVeskPictureImpl::DeleteBimPic(qint32 picId) {
    if (!GetVeskPicMng()->DeleteBimPics({picId})) {
        return false;
    }
    Sink().RefreshBimMarks();
    return true;
}

bool CKXVeskPictureImpl::DeleteIssue(const QString& questionId) {
    return GetTNQuestionMng()->DeleteIssues({questionId});
}

void CKXVeskPictureImpl::LocateIssue(qint32 ppid, const QString& questionId) {
    KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView();
    if (view == nullptr || !view->LocateIssue(questionId)) {
        KXTools::ShowMsgBox(toolkit::kNoWindow, u"请先开启TN问题显示再定位！"_s);
        return;
    }
    CTNPicEditDlg::Instance().CloseEditor();
    CTNPicViewWrap& viewer = CTNPicViewWrap::Instance();
    viewer.readOnly = 0;
    viewer.outerRefresh = this;
    viewer.ShowQuestion(ppid, questionId, toolkit::MainWindow());
}

void CKXVeskPictureImpl::ShowIssueView() {
    CTNPicViewWrap& viewer = CTNPicViewWrap::Instance();
    viewer.CreateWindow(toolkit::MainWindow());
    ShowInFront(viewer);
}

void CKXVeskPictureImpl::Refresh() {
    Sink().RefreshTNMarks();
}

void CKXVeskPictureImpl::RefreshPicMarks() {
    std::vector<KX_DATA::PicMarkGroup> marks;
    if (KX_DATA::IProjModelHandle* model = GetProjCacheMng()->GetCurrentModel()) {
        CKXVeskPicDataImpl::Instance().BuildPicMarks(model->GetShownPicMarks(), marks);
    }
    if (KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView()) {
        view->SetVeskPicMarkers(marks);
    }
}

void CKXVeskPictureImpl::RefreshIssueMarks() {
    std::vector<KX_DATA::IssueMarkGroup> marks;
    if (KX_DATA::IProjModelHandle* model = GetProjCacheMng()->GetCurrentModel()) {
        CKXVeskPicDataImpl::Instance().BuildIssueMarks(model->GetShownIssueMarks(), marks);
    }
    if (KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView()) {
        view->SetTNIssueMarkers(marks);
    }
}

void CKXVeskPictureImpl::OnPicMessage(KXWindow window, const std::string& json) {
    m_reminders.OnPicMessage(window, json);
}

void CKXVeskPictureImpl::OnIssueMessage(KXWindow window, const std::string& json) {
    m_reminders.OnIssueMessage(window, json);
}

void CKXVeskPictureImpl::ShowPopups(KXWindow owner, qint32 kind) {
    for (const KX_DATA::PicMsgRecord& record : m_reminders.TakeReady()) {
        reminder::ShowPopup(record, owner, kind);
    }
}

void CKXVeskPictureImpl::ShowPicPopups(KXWindow owner) {
    ShowPopups(owner, reminder::kPicPopup);
}

void CKXVeskPictureImpl::ShowIssuePopups(KXWindow owner) {
    ShowPopups(owner, reminder::kIssuePopup);
}
