// The download queue of the gallery.
#include "viewers/PicViewDlg.h"

#include "base/PictureLog.h"
#include "viewers/DownloadWorker.h"

using namespace Qt::StringLiterals;

using gallery::DownloadKey;
using gallery::DownloadKind;

namespace {

constexpr int kStripTimerMs = 100;
/// Value of OnAudioProgress for a note that has arrived.
constexpr int kAudioArrived = 1;

/// One flag for the whole process, also where several galleries are open; required as is. A gallery
/// that ends with it set leaves it so, and the next list clears it.
bool& StripTimerFlag() {
    static bool flag = false;
    return flag;
}

} // namespace

void CPicViewDlg::StartDownloads() {
    if (m_state.items.empty()) {
        return;
    }
    while (const auto next = m_downloads.TakeNext()) {
        Fetch(*next);
    }
    UpdateStripTimer();
}

void CPicViewDlg::UpdateStripTimer() {
    switch (m_downloads.Tick(StripTimerFlag())) {
    case gallery::StripTick::Start:
        SetTimer(gallery::kStripTimer, kStripTimerMs);
        break;
    case gallery::StripTick::Stop:
        m_strip.Repaint();
        KillTimer(gallery::kStripTimer);
        break;
    case gallery::StripTick::Leave:
        break;
    }
}

void CPicViewDlg::StartDownload(int index, DownloadKind kind) {
    if (const auto download = m_downloads.Take({index, kind})) {
        Fetch(*download);
    }
}

void CPicViewDlg::Fetch(const gallery::Download& download) {
    ZelvorNRQ_KXVeskPicture::WriteLog(
        u"[开始]下载照片,UUID=%1,Path=%2"_s.arg(download.uuid, download.path));
    gallery::StartDownloadWorker({Id(), m_serverText, download.uuid, download.path, download.key});
}

void CPicViewDlg::OnDownloadProgress(const DownloadKey& key, int percent) {
    if (!m_downloads.NoteProgress(key, percent)) {
        OnAudioProgress(percent);
    }
}

void CPicViewDlg::OnDownloadDone(const DownloadKey& key, qint32 status) {
    m_downloads.MakeRoom();
    // The next download starts before this one's state is written: the visible item that has just
    // ended counts as running, and the strip goes on repainting; required as is.
    StartDownloads();
    m_downloads.Finish(key, status);
    if (status != 0) {
        return;
    }
    if (key.kind == DownloadKind::Audio) {
        OnAudioProgress(kAudioArrived);
    } else {
        ShowFinishedPicture(key.index);
    }
}

void CPicViewDlg::ShowFinishedPicture(int index) {
    GalleryItem* item = m_state.ItemAt(index);
    // What was there before the file was whole may have been no picture.
    if (item != nullptr) {
        item->unreadable = false;
    }
    if (item != nullptr && m_state.visible.Contains(index)) {
        gallery::UpdateCover(*item, gallery::GalleryPictures::SizeOf(*item));
    }
    if (item == nullptr || index != m_state.currentIndex) {
        return;
    }
    m_picture.Renew();
    gallery::ComputePicRect(m_state, gallery::FileSizes(m_state));
    m_picture.Repaint();
}
