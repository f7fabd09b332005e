#include "viewers/PdfPicViewDlg.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "base/OpenProject.h"
#include "base/PictureLog.h"
#include "editors/CheckPtEditDlg.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "services/IPDFDrawingMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "viewers/PaneTexts.h"
#include "viewers/PdfPicViewWrap.h"
#include "viewers/PhotoSource.h"

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::PictureFacade;
using ZelvorNRQ_KXVeskPicture::ShowStatus;

namespace {

constexpr QSize kOwnSizeOfButtons(80, 25);

std::optional<KX_DATA::DrawingRecord> FetchRecord(qint32 drawingId) {
    const toolkit::WaitCursor wait;
    KX_DATA::DrawingRecord record;
    const bool isRead = GetPDFDrawingMng()->GetDrawing(drawingId, record) == KX_DATA::kServiceOk;
    return isRead ? std::optional(std::move(record)) : std::nullopt;
}

std::optional<KX_DATA::CheckpointPicDetail> FetchDetail(qint32 picId) {
    const toolkit::WaitCursor wait;
    // Of the current project, whichever the viewer was opened for; required as is.
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    KX_DATA::CheckpointPicDetail detail;
    const bool isRead = GetVeskPicMng()->GetCheckpointPics(project ? project->ppid : 0, picId,
                                                           detail) == KX_DATA::kServiceOk;
    return isRead ? std::optional(std::move(detail)) : std::nullopt;
}

QString ThumbFolder() {
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    QString folder;
    GetKXPathMng()->GetThumbFolder(folder, project ? project->ppid : 0,
                                   project ? project->name : QString());
    return folder;
}

DialogResult RunCheckpointEditor(const KX_DATA::CheckpointEdit& edit, const QString& markName,
                                 toolkit::WindowId parent) {
    CCheckPtEditDlg editor(edit, markName);
    return editor.DoModal(parent);
}

} // namespace

CPdfPicViewDlg::CPdfPicViewDlg(CPdfPicViewWrap* window)
    : runEditor(RunCheckpointEditor), wrap(window), m_note(*this, TermsOfNote()) {}

gallery::NoteTerms CPdfPicViewDlg::TermsOfNote() {
    gallery::NoteTerms terms;
    // The note is the checkpoint's: with a picture its file is the current one's, without any the
    // list's own.
    terms.source = [this] {
        gallery::NoteSource note{record.audioUuid, extraAudio.path, extraAudio.state};
        if (!items.empty()) {
            const gallery::NoteSource current = gallery::CurrentNote(State());
            note.path = current.path;
            note.state = current.state;
        }
        return note;
    };
    terms.change = gallery::NoteChange::GoesOn;
    return terms;
}

std::function<bool()> CPdfPicViewDlg::SameLoad() const {
    return [this, still = toolkit::StillThere(Id()), load = m_load] {
        return still && m_load == load;
    };
}

bool CPdfPicViewDlg::LoadCheckpoint(qint32 checkpoint, qint32 wantedPicId) {
    drawingId = checkpoint;
    ++m_load;
    const auto isSame = SameLoad();
    auto fetched = FetchRecord(checkpoint);
    // A checkpoint that was opened meanwhile is the one that stays.
    if (!isSame()) {
        return HasWindow();
    }
    if (!fetched) {
        return false;
    }
    record = std::move(*fetched);
    BuildGallery(wantedPicId);
    if (!isSame()) {
        return HasWindow();
    }
    ShowCheckpoint();
    m_comments.Load(checkpoint);
    return HasWindow();
}

void CPdfPicViewDlg::BuildGallery(qint32 wantedPicId) {
    items.clear();
    const QString folder = ThumbFolder();
    std::vector<gallery::PhotoEntry> photos;
    std::vector<GalleryItem> pictures;
    for (const KX_DATA::DrawingPicRef& pic : record.pics) {
        photos.push_back({pic.picId, 0, pic.uuid, record.audioUuid});
        pictures.push_back(gallery::FilesOf(photos.back(), folder));
        items.emplace_back().picId = pic.picId;
    }
    SetCurrentIndex(gallery::IndexOfPhoto(photos, wantedPicId));
    if (!pictures.empty()) {
        SetPicItems(pictures);
        return;
    }
    // A gallery that had pictures keeps them on the screen; required as is.
    extraAudio.uuid = record.audioUuid;
    extraAudio.path = gallery::NotePath(folder, record.audioUuid);
    extraAudio.progress = 0;
    extraAudio.state = record.audioUuid.isEmpty() ? kNothingToFetch : kWaiting;
    if (!record.audioUuid.isEmpty()) {
        StartDownload(gallery::kExtraAudio, gallery::DownloadKind::Audio);
    }
}

void CPdfPicViewDlg::OnCurPicChanged(int index) {
    m_note.OnPicChanged();
    ShowPicDetail(index);
}

void CPdfPicViewDlg::ShowPicDetail(int index) {
    // The gallery may show pictures that the checkpoint doesn't have.
    if (index < 0 || index >= int(items.size())) {
        return;
    }
    const qint32 picId = items[size_t(index)].picId;
    if (items[size_t(index)].loaded == 0) {
        const auto isSame = SameLoad();
        const auto detail = FetchDetail(picId);
        if (!isSame() || index >= int(items.size()) || items[size_t(index)].picId != picId) {
            return;
        }
        if (!detail) {
            ShowStatus(Id(), e_VeskPicMngStatus::PicInfoFailed);
            return;
        }
        gallery::Load(items[size_t(index)], *detail);
    }
    ShowItem(index);
}

void CPdfPicViewDlg::ShowItem(int index) {
    const DrawingViewItem& item = items[size_t(index)];
    m_texts.ShowPicture(item);
    const QString title =
        gallery::DrawingViewTitle(record.checkpointNo, item.name, index, int(items.size()));
    Widget()->setWindowTitle(toolkit::PlainTitle(title));
    if (wrap != nullptr) {
        wrap->ShowTitle(title);
    }
}

void CPdfPicViewDlg::ShowCheckpoint() {
    m_texts.ShowCheckpoint(record);
    m_note.ShowNote();
    Widget()->update();
}

void CPdfPicViewDlg::DeletePicture() {
    if (items.empty()) {
        ShowStatus(Id(), e_VeskPicMngStatus::NothingToDelete);
        return;
    }
    const auto isSame = SameLoad();
    if (!toolkit::Prompts().AskOkCancel(Id(), u"确定删除当前照片？"_s) || !isSame()) {
        return;
    }
    const int index = State().currentIndex;
    if (index < 0 || index >= int(items.size())) {
        return;
    }
    const qint32 picId = items[size_t(index)].picId;
    bool isDeleted = false;
    {
        const toolkit::WaitCursor wait;
        isDeleted = GetVeskPicMng()->DeleteCheckpointPic(drawingId, picId) != 0;
    }
    if (isDeleted && isSame()) {
        RemovePicture(picId);
    } else if (isSame()) {
        ShowStatus(Id(), e_VeskPicMngStatus::DeleteFailed);
    }
    if (isDeleted) {
        PictureFacade().Sink().RefreshPdfMarks();
    }
}

void CPdfPicViewDlg::RemovePicture(qint32 picId) {
    const auto isSame = SameLoad();
    std::erase_if(record.pics,
                  [&](const KX_DATA::DrawingPicRef& pic) { return pic.picId == picId; });
    BuildGallery(gallery::RemovePicture(items, picId));
    if (isSame()) {
        Widget()->update();
    }
}

void CPdfPicViewDlg::EditCheckpoint() {
    const auto isSame = SameLoad();
    if (runEditor(gallery::EditOf(drawingId, record), record.markName, Id()) != DialogResult::Ok ||
        !isSame()) {
        return;
    }
    auto fetched = FetchRecord(drawingId);
    if (!isSame()) {
        return;
    }
    if (!fetched) {
        ShowStatus(Id(), e_VeskPicMngStatus::CheckpointFailed);
        return;
    }
    // Neither the gallery nor the comments are read again; required as is.
    record = std::move(*fetched);
    ShowCheckpoint();
    PictureFacade().Sink().RefreshPdfMarks();
}

void CPdfPicViewDlg::MakeControls() {
    QWidget& pane = *Widget();
    m_texts.MakeControls(pane);
    deleteBtn = gallery::MakeControl<UnderLineButton>(pane, u"deleteButton"_s);
    deleteBtn->setText(u"删除照片"_s);
    deleteBtn->setToolTip(u"删除当前照片"_s);
    m_note.MakeControls(&pane);
    editBtn = gallery::MakeControl<UnderLineButton>(pane, u"editButton"_s);
    editBtn->setText(u"编辑"_s);
    editBtn->setToolTip(u"编辑检查点"_s);
    m_comments.MakeControls(pane);
    reportBtn = gallery::MakeControl<QPushButton>(pane, u"reportButton"_s);
    reportBtn->setText(u"输出报告"_s);
    reportBtn->setToolTip(u"把此检查点的照片输出为报告"_s);
    reportBtn->setAutoDefault(false);
    QWidget::setTabOrder(m_comments.Box(), reportBtn);
    QWidget::setTabOrder(reportBtn, m_comments.SendButton());
    QObject::connect(deleteBtn, &QAbstractButton::clicked, &pane, [this] { DeletePicture(); });
    QObject::connect(editBtn, &QAbstractButton::clicked, &pane, [this] { EditCheckpoint(); });
    QObject::connect(reportBtn, &QAbstractButton::clicked, &pane, [this] {
        if (wrap != nullptr) {
            wrap->OutputReport();
        }
    });
}

void CPdfPicViewDlg::LimitToRights() {
    editBtn->setVisible(GetKXAuthMng()->HasRight(KX_DATA::kRightEdit));
    deleteBtn->setVisible(GetKXAuthMng()->HasRight(KX_DATA::kRightDelete));
    if (GetKXGlobalData()->IsWorksetMode()) {
        editBtn->setEnabled(false);
        deleteBtn->setEnabled(false);
        reportBtn->setEnabled(false);
        m_comments.Disable();
    }
}

void CPdfPicViewDlg::OnCreated() {
    CPicViewDlg::OnCreated();
    ZelvorNRQ_KXVeskPicture::WriteLog(u"-------PDF照片查看-------"_s);
    MakeControls();
    LimitToRights();
    LayoutPicPane();
}

void CPdfPicViewDlg::OnDestroyed() {
    m_note.StopIfPlaying();
    items.clear();
    CPicViewDlg::OnDestroyed();
}

void CPdfPicViewDlg::LayoutPicPane() {
    if (!m_texts.HasControls()) {
        return;
    }
    const gallery::PdfPaneLayout layout =
        gallery::LayoutPdfPane(Widget()->size(), kOwnSizeOfButtons);
    m_texts.LayOut(layout);
    deleteBtn->setGeometry(layout.deleteLink);
    m_note.Button()->move(layout.noteButton);
    m_note.Progress()->setGeometry(layout.noteProgress);
    toolkit::PlaceLine(*m_note.Status(), layout.noteStatus);
    editBtn->setGeometry(layout.editLink);
    m_comments.LayOut(layout);
    reportBtn->setGeometry(layout.report);
    reportBtn->show();
    SetPicRects(layout.bigArea, layout.stripArea);
    Widget()->update(layout.column);
}

void CPdfPicViewDlg::OnClose() {
    m_note.OnClose();
    PictureFacade().BringConsoleBack(kModePdf);
    Destroy();
}

qintptr CPdfPicViewDlg::OnEvent(const toolkit::WindowEvent& event) {
    if (event.number != toolkit::kDiscussDelete) {
        return CPicViewDlg::OnEvent(event);
    }
    m_comments.Delete();
    return 1;
}

void CPdfPicViewDlg::OnTimer(int timerId) {
    if (!m_note.OnTimer(timerId)) {
        CPicViewDlg::OnTimer(timerId);
    }
}
