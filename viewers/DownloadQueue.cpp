#include "viewers/DownloadQueue.h"

namespace gallery {

std::optional<Download> DownloadQueue::TakeNext() {
    const auto next = NextDownload(m_state.items, m_state.visible, m_state.currentIndex);
    return next ? Take(*next) : std::nullopt;
}

std::optional<Download> DownloadQueue::Take(const DownloadKey& key) {
    if (m_state.activeDownloads >= m_state.maxDownloads) {
        return std::nullopt;
    }
    ++m_state.activeDownloads;
    SetState(key, kDownloading);
    if (key.index == kExtraAudio) {
        return Download{key, m_extra.uuid, m_extra.path};
    }
    const GalleryItem* item = m_state.ItemAt(key.index);
    if (item == nullptr) {
        return Download{key, {}, {}};
    }
    return key.kind == DownloadKind::Picture ? Download{key, item->picUuid, item->picPath}
                                             : Download{key, item->audioUuid, item->audioPath};
}

void DownloadQueue::Finish(const DownloadKey& key, qint32 status) {
    SetState(key, status == 0 ? kOnDisk : kDownloadFailedState);
}

bool DownloadQueue::NoteProgress(const DownloadKey& key, int percent) {
    if (key.index == kExtraAudio) {
        m_extra.progress = percent;
        return true;
    }
    if (key.kind == DownloadKind::Audio) {
        return false;
    }
    if (GalleryItem* item = m_state.ItemAt(key.index)) {
        item->picProgress = percent;
    }
    return true;
}

StripTick DownloadQueue::Tick(bool& running) const {
    const bool pending = AnyVisiblePending(m_state.items, m_state.visible);
    if (pending == running) {
        return StripTick::Leave;
    }
    running = pending;
    return pending ? StripTick::Start : StripTick::Stop;
}

void DownloadQueue::SetState(const DownloadKey& key, DownloadState state) {
    if (key.index == kExtraAudio) {
        m_extra.state = state;
    } else if (GalleryItem* item = m_state.ItemAt(key.index)) {
        (key.kind == DownloadKind::Picture ? item->picState : item->audioState) = state;
    }
}

} // namespace gallery
