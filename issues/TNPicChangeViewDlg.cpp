#include "issues/TNPicChangeViewDlg.h"

#include "base/OpenProject.h"
#include "issues/RectifyUpload.h"
#include "issues/TNRectityEditDlg.h"
#include "services/Factories.h"
#include "services/IConvertProjStateTool.h"
#include "services/IKXAuthMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXProgressStrip.h"
#include "services/ITNQuestionMng.h"
#include "toolkit/GbkText.h"
#include "toolkit/KXTools.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "viewers/PaneTexts.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum UploadTimer {
    kProgressTimer = 201,
    kCompleteTimer = 202,
    kFailedTimer = 203,
};
constexpr int kAtOnceMs = 10;
constexpr qint32 kRectifyKind = 0;

QString LoginName() {
    return toolkit::FromGbk(GetNRQAuthMng()->GetLoginInfo().userName);
}

} // namespace

/// The upload that runs, and the issue for which it was started.
struct CTNPicChangeViewDlg::Running {
    qint32 ppid = 0;
    QString issue;
    KX_DATA::RectifyRecord rectify;
    int count = 0;
    bool isOver = false; ///< only its timer is still to come
};

CTNPicChangeViewDlg::CTNPicChangeViewDlg() = default;
CTNPicChangeViewDlg::~CTNPicChangeViewDlg() = default;

void CTNPicChangeViewDlg::OnCreated() {
    IssuePane::OnCreated();
    QWidget& page = *Widget();
    page.setObjectName(u"rectifyPage"_s);
    EditButton()->setToolTip(u"编辑整改情况"_s);
    m_stateText = issues::MakeLine(page, u"stateText"_s);
    m_rectifierText = issues::MakeLine(page, u"rectifierText"_s);
    m_textCaption = issues::MakeLine(page, u"textCaption"_s);
    m_textCaption->setText(u"整改说明："_s);
    m_rectifyBox = issues::MakeReadOnlyBox(page, u"rectifyBox"_s);
    m_rectifyBox->setAccessibleName(u"整改说明"_s);
    m_uploadButton = gallery::MakeControl<QPushButton>(page, u"uploadButton"_s);
    m_uploadButton->setText(u"上传图片"_s);
    m_uploadButton->setToolTip(u"为整改情况添加照片"_s);
    m_uploadButton->setAutoDefault(false);
    QObject::connect(m_uploadButton, &QAbstractButton::clicked, &page, [this] { PickAndUpload(); });
    QWidget::setTabOrder(DeleteButton(), m_uploadButton);
    QWidget::setTabOrder(m_uploadButton, Note().Button());
    LayoutPane();
}

void CTNPicChangeViewDlg::OnDestroyed() {
    // Its timer goes with the window, and nobody else would close the strip.
    if (m_running && m_running->isOver) {
        m_running.reset();
        GetKXProgressStrip()->CloseProgressBar();
    }
    IssuePane::OnDestroyed();
}

const issues::IssuePaneLayout& CTNPicChangeViewDlg::LayoutOf(const QSize& page) {
    m_layout = issues::LayoutRectifyPage(page);
    return m_layout;
}

void CTNPicChangeViewDlg::PlaceRest() {
    if (!m_uploadButton) {
        return;
    }
    m_uploadButton->setGeometry(m_layout.uploadButton);
    toolkit::PlaceLine(*m_stateText, m_layout.state);
    toolkit::PlaceLine(*m_rectifierText, m_layout.rectifier);
    toolkit::PlaceLine(*m_textCaption, m_layout.textCaption);
    m_rectifyBox->setGeometry(m_layout.text);
}

void CTNPicChangeViewDlg::EmptyGallery() {
    ResetGallery();
    LayoutPane();
}

void CTNPicChangeViewDlg::LoadRectify() {
    CountRecord();
    const auto isSame = SameRecord();
    rectify = {};
    TakeVoice();
    ShowVoice();
    ShowPhotoTexts(0);
    KX_DATA::RectifyRecord fetched;
    bool isRead = false;
    {
        const toolkit::WaitCursor wait;
        isRead = GetTNQuestionMng()->GetRectification(question.questionId, fetched);
    }
    // One that can't be read has no id either, under which pictures could be added; required as is.
    if (!isSame() || !isRead) {
        return;
    }
    rectify = std::move(fetched);
    rectify.questionId = question.questionId;
    // Of the current project, whichever the issue is of; required as is.
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    ReadFolder(project ? project->ppid : 0, project ? project->name : QString());
    TakeVoice();
    ShowVoice();
    BuildGallery(0);
}

void CTNPicChangeViewDlg::ShowRectifyText() {
    if (!m_rectifyBox) {
        return;
    }
    QString state;
    GetConvertProjStateTool()->StateToText(state, rectify.state);
    gallery::Say(*m_stateText, u"整改情况："_s, state, state);
    gallery::Say(*m_rectifierText, u"    整改人："_s, rectify.rectifierName, rectify.rectifierName);
    issues::ShowInBox(*m_rectifyBox, rectify.rectifyText);
}

bool CTNPicChangeViewDlg::MayChange() const {
    return !GetKXGlobalData()->IsWorksetMode() &&
           (viewInner == nullptr || viewInner->IsReadOnly() == 0);
}

/// The text is never editable: it is written in the editor alone.
void CTNPicChangeViewDlg::ApplyRights() {
    const bool mayChange = MayChange();
    // Only one upload runs at a time, whichever issue is shown meanwhile.
    Enable(m_uploadButton, mayChange && !IsUploading());
    Enable(EditButton(), mayChange);
    Enable(DeleteButton(), mayChange && viewInner != nullptr && !rectify.pics.empty());
}

void CTNPicChangeViewDlg::PickAndUpload() {
    const auto isSame = SameRecord();
    bool occupied = false;
    ZelvorNRQ_KXVeskPicture::PickImageFiles(pendingFiles, occupied);
    if (!isSame()) {
        return;
    }
    if (occupied) {
        // Those that could be opened go along with the next upload; required as is.
        KXTools::ShowMsgBox(Id(), u"文件已被占用"_s);
        return;
    }
    if (!pendingFiles.empty() && !IsUploading()) {
        Upload();
    }
}

void CTNPicChangeViewDlg::Upload() {
    Enable(m_uploadButton, false);
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    ReadFolder(project ? project->ppid : 0, project ? project->name : QString());
    m_running = std::make_shared<Running>();
    m_running->ppid = question.ppid;
    m_running->issue = question.questionId;
    m_running->rectify = rectify;
    m_running->count = int(pendingFiles.size());
    uploadCounter = 1;
    issues::UploadOrder order{std::exchange(pendingFiles, {}), Folder(), LoginName()};
    GetKXProgressStrip()->ShowProgressBar(ProgressText(), 0);
    // Whoever is told must be the page that still waits for this very upload.
    const std::weak_ptr<Running> running = m_running;
    issues::UploadReport report;
    report.onFile = [this, running](int number) {
        if (!running.expired()) {
            OnFile(number);
        }
    };
    report.onEnd = [this, running](const std::vector<KX_DATA::QuestionPicRecord>& stored) {
        if (!running.expired()) {
            OnUploaded(stored);
        }
    };
    issues::StartUpload(std::move(order), std::move(report));
}

QString CTNPicChangeViewDlg::ProgressText() const {
    return u"正在上传照片(%1/%2)"_s.arg(uploadCounter).arg(m_running->count);
}

void CTNPicChangeViewDlg::OnFile(int number) {
    uploadCounter = number;
    SetTimer(kProgressTimer, kAtOnceMs);
}

bool CTNPicChangeViewDlg::ShowsIssueOf(const Running& running) const {
    return HasWindow() && question.ppid == running.ppid && question.questionId == running.issue;
}

/// The files are the site's by now; they become pictures of the issue for which they were chosen,
/// whatever is shown, or nothing at all.
void CTNPicChangeViewDlg::OnUploaded(const std::vector<KX_DATA::QuestionPicRecord>& stored) {
    const std::shared_ptr<Running> running = m_running;
    uploadCounter = 1;
    const bool isAdded = !stored.empty() &&
                         GetTNQuestionMng()->AddRectifyPics(kRectifyKind, running->rectify, stored);
    running->isOver = true;
    if (isAdded && ShowsIssueOf(*running)) {
        rectify.pics.insert(rectify.pics.end(), stored.begin(), stored.end());
    }
    if (!HasWindow()) {
        m_running.reset();
        GetKXProgressStrip()->CloseProgressBar();
        return;
    }
    SetTimer(isAdded ? kCompleteTimer : kFailedTimer, kAtOnceMs);
}

void CTNPicChangeViewDlg::OnTimer(int timerId) {
    switch (timerId) {
    case kProgressTimer:
        KillTimer(kProgressTimer);
        OnProgress();
        break;
    case kCompleteTimer:
        KillTimer(kCompleteTimer);
        OnComplete();
        break;
    case kFailedTimer:
        KillTimer(kFailedTimer);
        OnFailed();
        break;
    default:
        IssuePane::OnTimer(timerId);
    }
}

void CTNPicChangeViewDlg::OnProgress() {
    // One that comes when the upload is over says nothing any more.
    if (m_running && !m_running->isOver) {
        GetKXProgressStrip()->SetShowInfo(ProgressText());
    }
}

void CTNPicChangeViewDlg::EndUpload() {
    m_running.reset();
    GetKXProgressStrip()->CloseProgressBar();
    if (HasWindow() && Widget()->window()->isVisible()) {
        Widget()->window()->raise();
        Widget()->window()->activateWindow();
    }
    // Whatever the rights are by now; required as is.
    Enable(m_uploadButton, true);
}

void CTNPicChangeViewDlg::OnComplete() {
    const std::shared_ptr<Running> running = m_running;
    if (!running) {
        return;
    }
    EndUpload();
    const toolkit::StillThere still(Id());
    KXTools::ShowMsgBox(Id(), u"上传完成!"_s);
    if (!still || !ShowsIssueOf(*running)) {
        return;
    }
    ApplyRights();
    // The line of the rectifier says so at the next ShowRectifyText; required as is.
    rectify.rectifierName = LoginName();
    RebuildGallery(State().currentIndex);
}

void CTNPicChangeViewDlg::OnFailed() {
    if (m_running) {
        EndUpload();
        KXTools::ShowMsgBox(Id(), u"上传失败!"_s);
    }
}

void CTNPicChangeViewDlg::DeletePicture() {
    const auto isSame = SameRecord();
    // The other page's question differs in one word, on purpose.
    if (CurrentPic() == nullptr || !toolkit::Prompts().AskOkCancel(Id(), u"确定删除当前照片!"_s) ||
        !isSame() || CurrentPic() == nullptr) {
        return;
    }
    const QString picId = CurrentPic()->picId;
    bool isDeleted = false;
    {
        const toolkit::WaitCursor wait;
        isDeleted = GetTNQuestionMng()->DeleteRectifyPics(kRectifyKind, rectify, {picId});
    }
    // A refusal is not told; required as is.
    if (isDeleted && isSame()) {
        RemovePicture(picId);
    }
}

void CTNPicChangeViewDlg::RemovePicture(const QString& picId) {
    const int index = State().currentIndex;
    issues::RemovePic(rectify.pics, picId, index);
    ApplyRights();
    rectify.rectifierName = LoginName();
    RebuildGallery(std::max(index - 1, 0));
    if (rectify.pics.empty()) {
        ShowPhotoTexts(0);
    }
}

void CTNPicChangeViewDlg::Edit() {
    const auto isSame = SameRecord();
    CTNRectityEditDlg editor(rectify);
    if (editor.DoModal(Id()) != DialogResult::Ok || !isSame()) {
        return;
    }
    rectify = editor.Rectify();
    rectify.rectifierName = LoginName();
    ShowRectifyText();
}
