#include "viewers/IssueNote.h"

#include "base/PictureLog.h"
#include "viewers/DownloadWorker.h"
#include "viewers/GalleryItem.h"
#include "viewers/GalleryTimers.h"

#include <QCryptographicHash>
#include <QFile>

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

constexpr int kFirstLookMs = 1000;
/// Values of OnAudioProgress.
constexpr int kVoiceAwaited = 0;
constexpr int kVoiceArrived = 1;

} // namespace

void IssueNote::SetRecord(const QString& voiceUuid, const QString& voiceMd5, qint32 voiceState,
                          const QString& folder, const QString& serverText) {
    m_voiceUuid = voiceUuid;
    m_voiceMd5 = voiceMd5;
    m_voiceState = voiceState;
    m_folder = folder;
    m_serverText = serverText;
}

NoteTerms IssueNote::Terms() {
    NoteTerms terms;
    terms.source = [this] { return NoteSource{m_voiceUuid, Path(), m_voiceState}; };
    terms.change = NoteChange::GoesOn;
    terms.close = NoteClose::AllOfIt;
    terms.beforePress = [this] { return OnPress(); };
    return terms;
}

QString IssueNote::Path() const {
    return NotePath(m_folder, m_voiceUuid);
}

bool IssueNote::OnPress() {
    if (m_voiceUuid.isEmpty()) {
        return false;
    }
    if (!QFile::exists(Path())) {
        StartVoiceDownload();
        return false;
    }
    if (VerifyVoice()) {
        m_voiceState = kOnDisk;
    } else {
        StartVoiceDownload();
    }
    return true;
}

bool IssueNote::VerifyVoice() const {
    return FileMd5(Path()) == m_voiceMd5;
}

/// Isn't counted among the gallery's downloads, though its end is: one more may run for a time;
/// required as is.
void IssueNote::StartVoiceDownload() {
    // A worker takes a file that is there for the result. A uuid that is no name has no file.
    if (!Path().isEmpty()) {
        QFile::remove(Path());
    }
    DownloadTask task;
    task.target = m_window.Id();
    task.serverText = m_serverText;
    task.uuid = m_voiceUuid;
    task.path = Path();
    task.key = {kExtraAudio, DownloadKind::Audio};
    ZelvorNRQ_KXVeskPicture::WriteLog(
        u"[开始]下载照片,UUID=%1,Path=%2"_s.arg(task.uuid, task.path));
    m_voiceState = kWaiting;
    StartDownloadWorker(task);
    m_window.SetTimer(kNoteWaitTimer, kFirstLookMs);
}

void IssueNote::OnAudioProgress(int value) {
    if (value == kVoiceAwaited) {
        m_voiceState = kWaiting;
    } else if (value == kVoiceArrived) {
        m_voiceState = VerifyVoice() ? kOnDisk : kDownloadFailedState;
    }
}

QString FileMd5(const QString& path) {
    QFile file(path);
    QCryptographicHash sum(QCryptographicHash::Md5);
    if (!path.isEmpty() && file.open(QIODevice::ReadOnly)) {
        sum.addData(&file);
    }
    return QString::fromLatin1(sum.result().toHex());
}

} // namespace gallery
