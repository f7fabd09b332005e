#include "viewers/NoteRules.h"

#include "base/StoredFile.h"
#include "viewers/GalleryItem.h"

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

/// What follows from the state of a note that is to be played.
/// @param onTheWay  the action while it isn't there yet.
NoteStep StepFor(qint32 noteState, NoteAction onTheWay) {
    switch (noteState) {
    case kWaiting:
    case kDownloading:
        return {onTheWay, NoteImage::Stop};
    case kOnDisk:
        return {NoteAction::Play, NoteImage::Stop};
    case kDownloadFailedState:
        return {NoteAction::ShowFailure, NoteImage::Play};
    default:
        // Out of reach of a press, since the button is disabled then.
        return {NoteAction::None, NoteImage::Stop};
    }
}

} // namespace

NoteStep OnPlayPressed(PlayState player, qint32 noteState) {
    if (player == PlayState::Playing) {
        return {NoteAction::StopPlaying, NoteImage::Play};
    }
    if (player != PlayState::Idle) {
        return {NoteAction::None, NoteImage::Stop};
    }
    return StepFor(noteState, NoteAction::Wait);
}

NoteStep OnWaitTick(qint32 noteState) {
    return StepFor(noteState, NoteAction::ShowWait);
}

QString WaitText(qint32 noteState) {
    // The number is the state's, not the percent; required as is.
    return noteState == kDownloading ? u"正在缓冲 %1%"_s.arg(noteState) : u"正在缓冲"_s;
}

QString PositionText(quint32 position, quint32 length) {
    return QString::asprintf("%02u:%02u / %02u:%02u", position / 60, position % 60, length / 60,
                             length % 60);
}

QString IdleText(const QString& uuid) {
    return uuid.isEmpty() ? u"无语音"_s : u"就绪"_s;
}

QString FailureText() {
    return u"下载语音失败"_s;
}

QString NotePath(const QString& folder, const QString& uuid) {
    return ZelvorNRQ_KXVeskPicture::StoredFilePath(folder, uuid,
                                                   ZelvorNRQ_KXVeskPicture::kNoteEnding);
}

int ProgressEnd(quint32 seconds) {
    // Passes through 16 bits, so that it begins anew at 65,536 seconds; required as is.
    return quint16(seconds);
}

NoteSource CurrentNote(const GalleryState& gallery) {
    const GalleryItem* item = gallery.ItemAt(gallery.currentIndex);
    if (item == nullptr) {
        return {};
    }
    return {item->audioUuid, item->audioPath, item->audioState};
}

} // namespace gallery
