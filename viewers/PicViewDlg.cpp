// The list, the places, the current item, the paint.
#include "viewers/PicViewDlg.h"

#include "base/PictureLog.h"
#include "base/StoredFile.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/Decoders.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPainter>

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
    m_surface.Detach();
}

QWidget* CPicViewDlg::MakeWindow(QWidget* parent) {
    EndWithApplication();
    return m_surface.Make(*this, parent);
}

void CPicViewDlg::OnCreated() {
    for (const ButtonImage& image : kButtonImages) {
        m_state.buttons[image.button].SetImage(QImage(WorkFile(image.file)), image.clipType);
    }
}

void CPicViewDlg::OnDestroyed() {
    m_surface.Detach();
    ClearPicItems();
    ResetGallery();
}

void CPicViewDlg::ResetGallery() {
    gallery::ResetState(m_state);
    extraAudio = {};
    m_picture.Clear();
    m_pictures.Clear();
    m_dragFrom.reset();
    if (m_serverText.isEmpty()) {
        GetKXGlobalData()->GetClientVersionText(m_serverText);
    }
    if (m_defaultPicPath.isEmpty()) {
        m_defaultPicPath = WorkFile(u"DefaultPic.jpg");
        m_strip.SetDefaultPicture(m_defaultPicPath);
    }
    if (!QFileInfo::exists(m_defaultPicPath)) {
        ZelvorNRQ_KXVeskPicture::WriteLog(u"找不到图片文件："_s + m_defaultPicPath);
    }
}

void CPicViewDlg::ClearPicItems() {
    gallery::ClearItems(m_state);
    m_picture.Clear();
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
    gallery::PlaceAreas(m_state, bigArea, stripArea, gallery::FileSizes(m_state));
    m_picture.OnPlaced();
    EraseFreed(oldBig, oldStrip);
}

void CPicViewDlg::SelectPic(int index, gallery::StripMode mode) {
    // Freed whatever follows, so that the picture is rendered again; required as is.
    m_picture.Expire();
    const int before = m_state.currentIndex;
    if (!gallery::MakeCurrent(m_state, index, mode, gallery::FileSizes(m_state))) {
        m_picture.Prepare();
        return;
    }
    m_dragFrom.reset();
    m_picture.GoTo(before);
    gallery::UpdateStepButtons(m_state);
    UpdateAreas();
    OnCurPicChanged(index);
    m_surface.TakeFocus();
}

void CPicViewDlg::PageStrip(bool forward) {
    if (gallery::PageStrip(m_state, forward, gallery::FileSizes(m_state))) {
        m_strip.Change();
    }
}

void CPicViewDlg::EraseFreed(const QRect& oldBig, const QRect& oldStrip) {
    const QRegion kept = QRegion(m_state.bigArea) + m_state.stripArea;
    m_state.paintEnabled = false;
    for (const QRect& freed : (QRegion(oldBig) + oldStrip) - kept) {
        m_surface.Repaint(freed);
    }
    m_state.paintEnabled = true;
    UpdateAreas();
}

void CPicViewDlg::UpdateAreas() {
    m_picture.Change();
    m_strip.Change();
}

void CPicViewDlg::OnShown() {
    toolkit::PostWindowEvent(Id(), gallery::kPaneShown);
}

void CPicViewDlg::OnPictureTaken() {
    if (!m_state.paintEnabled) {
        return;
    }
    // A slide has its pictures.
    if (!m_picture.IsSliding() && !m_strip.IsSliding()) {
        m_picture.Complete();
    }
    m_strip.Complete();
}

void CPicViewDlg::OnPaint(QPainter& painter, const QRegion& region) const {
    const QRegion areas = QRegion(m_state.bigArea) + m_state.stripArea;
    for (const QRect& rest : m_state.paintEnabled ? region - areas : region) {
        painter.fillRect(rest, toolkit::Colors::Pane());
    }
    if (!m_state.paintEnabled) {
        return;
    }
    if (region.intersects(m_state.bigArea)) {
        m_picture.Paint(painter);
    }
    if (region.intersects(m_state.stripArea)) {
        m_strip.Paint(painter);
    }
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
        m_picture.OnSharpReady();
        break;
    case gallery::kThumbReady:
        m_strip.OnThumbReady();
        break;
    case gallery::kPaneShown:
        m_picture.Repaint();
        m_strip.Prepare();
        break;
    case gallery::kPictureReady:
        m_picture.OnPictureReady();
        // Its thumbnail is cut from it, and what lies ahead may come to the strip likewise.
        m_strip.Repaint();
        break;
    default:
        return CPopTipDlg::OnEvent(event);
    }
    return 1;
}

void CPicViewDlg::OnTimer(int timerId) {
    if (timerId == gallery::kStripTimer) {
        m_strip.Repaint();
    } else if (timerId == gallery::kRenderTimer) {
        KillTimer(gallery::kRenderTimer);
        m_picture.Expire();
        m_picture.Repaint();
    }
}
