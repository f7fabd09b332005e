// The list, the places, the current item.
#include "viewers/PicViewDlg.h"

#include "base/PictureLog.h"
#include "base/StoredFile.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "viewers/Decoders.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct ButtonImage {
    gallery::GalleryButton button;
    QStringView file;
    ClipType clipType;
};
constexpr std::array<ButtonImage, gallery::kGalleryButtons> kButtonImages{{
    {gallery::kPrevPic, u"left_pic.png", ClipType::SideBySide},
    {gallery::kNextPic, u"right_pic.png", ClipType::SideBySide},
    {gallery::kThumbLeft, u"left_thumb.png", ClipType::SideBySide},
    {gallery::kThumbRight, u"right_thumb.png", ClipType::SideBySide},
    {gallery::kThumbUp, u"up_thumb.png", ClipType::Stacked},
    {gallery::kThumbDown, u"down_thumb.png", ClipType::Stacked},
}};

/// Threads that galleries began end before the application does, when all that they need still
/// lives. The host has ended its transfers by then.
void EndWithApplication() {
    static const bool once = [] {
        qAddPostRoutine([] {
            gallery::JoinDownloadWorkers();
            gallery::JoinDecoders();
        });
        return true;
    }();
    Q_UNUSED(once);
}

QString WorkFile(QStringView name) {
    QString folder;
    GetKXPathMng()->GetWorkFolder(folder);
    return folder + name.toString();
}

} // namespace

CPicViewDlg::CPicViewDlg() {
    ResetGallery();
}

CPicViewDlg::~CPicViewDlg() {
    if (m_pane) {
        static_cast<gallery::GalleryPane*>(m_pane.data())->Detach();
    }
}

QWidget* CPicViewDlg::MakeWindow(QWidget* parent) {
    EndWithApplication();
    m_pane = new gallery::GalleryPane(*this, parent);
    return m_pane;
}

void CPicViewDlg::OnCreated() {
    for (const ButtonImage& image : kButtonImages) {
        m_state.buttons[image.button].SetImage(QImage(WorkFile(image.file)), image.clipType);
    }
}

void CPicViewDlg::OnDestroyed() {
    // A pane that Qt is ending hands nothing on any more.
    if (HasWindow()) {
        static_cast<gallery::GalleryPane*>(m_pane.data())->Detach();
    }
    m_pane.clear();
    ClearPicItems();
    ResetGallery();
}

void CPicViewDlg::ResetGallery() {
    gallery::ResetState(m_state);
    extraAudio = {};
    m_big.Clear();
    m_pictures.Clear();
    m_dragFrom.reset();
    m_travel = 1;
    if (m_serverText.isEmpty()) {
        GetKXGlobalData()->GetClientVersionText(m_serverText);
    }
    if (m_defaultPicPath.isEmpty()) {
        m_defaultPicPath = WorkFile(u"DefaultPic.jpg");
    }
    if (!QFileInfo::exists(m_defaultPicPath)) {
        ZelvorNRQ_KXVeskPicture::WriteLog(u"找不到图片文件："_s + m_defaultPicPath);
    }
}

void CPicViewDlg::ClearPicItems() {
    gallery::ClearItems(m_state);
    m_big.Clear();
    m_pictures.Clear();
    m_dragFrom.reset();
}

void CPicViewDlg::SetPicItems(const std::vector<GalleryItem>& items) {
    // The new list may be the gallery's own.
    std::vector<GalleryItem> copy = items;
    ClearPicItems();
    for (GalleryItem& item : copy) {
        item.thumbDC.reset();
        item.fileThere = true;
        if (ZelvorNRQ_KXVeskPicture::IsFetched(item.picPath)) {
            item.picState = kOnDisk;
        }
        if (item.audioUuid.isEmpty()) {
            item.audioState = kNothingToFetch;
        }
    }
    m_state.items = std::move(copy);
    if (m_state.items.empty()) {
        for (CDirectUIButton& button : m_state.buttons) {
            button.Enable(false);
        }
        UpdateAreas();
        return;
    }
    StartDownloads();
    gallery::UpdateStepButtons(m_state);
    m_state.stripBar.minPos = 0;
    m_state.stripBar.maxPos = m_state.Count() - 1;
    SetPicRects(m_state.bigArea, m_state.stripArea);
    if (m_state.currentIndex >= 0) {
        OnCurPicChanged(m_state.currentIndex);
    }
}

void CPicViewDlg::SetPicRects(const QRect& bigArea, const QRect& stripArea) {
    if (bigArea.isEmpty() || stripArea.isEmpty()) {
        return;
    }
    const QRect oldBig = m_state.bigArea;
    const QRect oldStrip = m_state.stripArea;
    gallery::PlaceAreas(m_state, bigArea, stripArea, Sizes());
    m_state.zoom = gallery::ClampZoom(m_state.zoom, gallery::ViewOf(m_state, Ratio()));
    m_pictures.WantSharp(m_state, Id(), Ratio());
    EraseFreed(oldBig, oldStrip);
}

void CPicViewDlg::SelectPic(int index, gallery::StripMode mode) {
    // Freed whatever follows, so that the picture is rendered again; required as is.
    m_big.Expire(BigPlace());
    const int before = m_state.currentIndex;
    if (!gallery::MakeCurrent(m_state, index, mode, Sizes())) {
        PrepareBig();
        return;
    }
    m_travel = index > before ? 1 : -1;
    m_dragFrom.reset();
    m_pictures.ForgetSharp();
    m_pictures.GoTo(m_state.items[size_t(index)]);
    gallery::UpdateStepButtons(m_state);
    UpdateAreas();
    OnCurPicChanged(index);
    TakeFocus();
}

void CPicViewDlg::PageStrip(bool forward) {
    if (!gallery::PageStrip(m_state, forward, Sizes())) {
        return;
    }
    RunStripSlide();
    RepaintStrip();
}

gallery::SizeReader CPicViewDlg::Sizes() {
    return [this](int index) { return SizeOf(index); };
}

QSize CPicViewDlg::SizeOf(int index) {
    GalleryItem* item = m_state.ItemAt(index);
    // The file counts, not the state of its download; required as is.
    return item == nullptr ? QSize() : gallery::GalleryPictures::SizeOf(*item);
}

qintptr CPicViewDlg::OnEvent(const toolkit::WindowEvent& event) {
    const auto* named = static_cast<const gallery::KeyPayload*>(event.payload);
    switch (event.number) {
    case gallery::kDownloadDone:
        OnDownloadDone(named->key, qint32(event.second));
        break;
    case gallery::kDownloadProgress:
        OnDownloadProgress(named->key, int(event.second));
        break;
    case gallery::kSharpPartReady:
        m_pictures.WantSharp(m_state, Id(), Ratio());
        m_pane->update(m_state.bigArea);
        break;
    case gallery::kThumbReady:
        OnThumbReady();
        break;
    case gallery::kPaneShown:
        RepaintBig();
        PrepareStrip();
        break;
    case gallery::kPictureReady:
        OnPictureReady();
        break;
    default:
        return CPopTipDlg::OnEvent(event);
    }
    return 1;
}

void CPicViewDlg::OnTimer(int timerId) {
    if (timerId == gallery::kStripTimer) {
        RepaintStrip();
    } else if (timerId == gallery::kRenderTimer) {
        KillTimer(gallery::kRenderTimer);
        m_big.Expire(BigPlace());
        RepaintBig();
    }
}
