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
    while (m_state.activeDownloads < m_state.maxDownloads) {
        const auto next =
            gallery::NextDownload(m_state.items, m_state.visible, m_state.currentIndex);
        if (!next) {
            break;
        }
        StartDownload(next->index, next->kind);
    }
    UpdateStripTimer();
}

void CPicViewDlg::UpdateStripTimer() {
    if (gallery::AnyVisiblePending(m_state.items, m_state.visible)) {
        if (!StripTimerFlag()) {
            SetTimer(gallery::kStripTimer, kStripTimerMs);
        }
        StripTimerFlag() = true;
        return;
    }
    if (!StripTimerFlag()) {
        return;
    }
    StripTimerFlag() = false;
    RepaintStrip();
    KillTimer(gallery::kStripTimer);
}

void CPicViewDlg::StartDownload(int index, DownloadKind kind) {
    if (m_state.activeDownloads >= m_state.maxDownloads) {
        return;
    }
    ++m_state.activeDownloads;
    gallery::DownloadTask task;
    task.key = {index, kind};
    if (qint32* state = StateOf(task.key)) {
        *state = kDownloading;
    }
    task.target = Id();
    task.serverText = m_serverText;
    if (index == gallery::kExtraAudio) {
        task.uuid = extraAudio.uuid;
        task.path = extraAudio.path;
    } else if (const GalleryItem* item = m_state.ItemAt(index)) {
        const bool picture = kind == DownloadKind::Picture;
        task.uuid = picture ? item->picUuid : item->audioUuid;
        task.path = picture ? item->picPath : item->audioPath;
    }
    ZelvorNRQ_KXVeskPicture::WriteLog(
        u"[开始]下载照片,UUID=%1,Path=%2"_s.arg(task.uuid, task.path));
    gallery::StartDownloadWorker(task);
}

/// Null for an index that is not in the list.
qint32* CPicViewDlg::StateOf(const DownloadKey& key) {
    if (key.index == gallery::kExtraAudio) {
        return &extraAudio.state;
    }
    GalleryItem* item = m_state.ItemAt(key.index);
    if (item == nullptr) {
        return nullptr;
    }
    return key.kind == DownloadKind::Picture ? &item->picState : &item->audioState;
}

void CPicViewDlg::OnDownloadProgress(const DownloadKey& key, int percent) {
    if (key.index == gallery::kExtraAudio) {
        extraAudio.progress = percent;
    } else if (key.kind == DownloadKind::Audio) {
        OnAudioProgress(percent);
    } else if (GalleryItem* item = m_state.ItemAt(key.index)) {
        item->picProgress = percent;
    }
}

void CPicViewDlg::OnDownloadDone(const DownloadKey& key, qint32 status) {
    --m_state.activeDownloads;
    // The next download starts before this one's state is written: the visible item that has just
    // ended counts as running, and the strip goes on repainting; required as is.
    StartDownloads();
    if (qint32* state = StateOf(key)) {
        *state = status == 0 ? kOnDisk : kDownloadFailedState;
    }
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
        gallery::UpdateCover(*item, SizeOf(index));
    }
    if (item == nullptr || index != m_state.currentIndex) {
        return;
    }
    m_big.Clear();
    gallery::ComputePicRect(m_state, Sizes());
    RepaintBig();
}
