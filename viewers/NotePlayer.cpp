#include "viewers/NotePlayer.h"

#include "viewers/GalleryTimers.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

constexpr int kSecondMs = 1000;
constexpr QSize kButtonSize(42, 43);

} // namespace

NotePlayer::NotePlayer(toolkit::WindowObject& window, NoteTerms terms)
    : m_window(window), m_terms(std::move(terms)) {}

void NotePlayer::MakeControls(QWidget* parent) {
    m_lastUuid.clear();
    m_button = new CImageButton(parent);
    m_button->setObjectName(u"noteButton"_s);
    m_button->setText(u"播放"_s);
    m_button->setEnabled(false);
    ShowImage(NoteImage::Play);
    m_status = new QLabel(parent);
    m_status->setObjectName(u"noteStatus"_s);
    m_status->setTextFormat(Qt::PlainText);
    m_progress = new CPlayProgressCtrl(parent);
    m_progress->setObjectName(u"noteProgress"_s);
    m_progress->setAccessibleName(u"语音播放进度"_s);
    ShowText(IdleText({}));
    QObject::connect(m_button, &QAbstractButton::clicked, &m_context,
                     [this] { OnCommand(kNoteButton); });
    QObject::connect(m_button, &QObject::destroyed, &m_context, [this] { m_player.Stop(); });
}

void NotePlayer::ShowNote() {
    const NoteSource note = m_terms.source();
    if (m_button) {
        m_button->setEnabled(!note.uuid.isEmpty());
    }
    ShowText(IdleText(note.uuid));
}

void NotePlayer::OnPicChanged() {
    if (m_terms.change == NoteChange::Stops) {
        StopIfPlaying();
        return;
    }
    if (m_terms.change == NoteChange::GoesOn) {
        return;
    }
    const QString uuid = m_terms.source().uuid;
    const bool other = uuid != m_lastUuid;
    // A note that plays on keeps its time display.
    if (other || uuid.isEmpty()) {
        ShowNote();
    }
    // The texts come first: what stops leaves its time display; required as is.
    if (other) {
        StopIfPlaying();
    }
    m_lastUuid = uuid;
}

bool NotePlayer::OnTimer(int timerId) {
    if (timerId == kNoteTickTimer) {
        OnSecond();
    } else if (timerId == kNoteWaitTimer) {
        OnWaited();
    } else {
        return false;
    }
    return true;
}

bool NotePlayer::OnCommand(int commandId) {
    if (commandId != kNoteButton) {
        return false;
    }
    OnPress();
    return true;
}

void NotePlayer::OnClose() {
    if (m_terms.close == NoteClose::SoundOnly) {
        m_player.Stop();
        return;
    }
    // The wait for a note ends with the window alone, also where it is only hidden; required as is.
    StopIfPlaying();
    ShowNote();
}

void NotePlayer::StopAudio() {
    m_window.KillTimer(kNoteTickTimer);
    ShowPos(0);
    m_player.Stop();
    ShowImage(NoteImage::Play);
}

void NotePlayer::StopIfPlaying() {
    if (IsPlaying()) {
        StopAudio();
    }
}

void NotePlayer::OnPress() {
    if (m_terms.beforePress && !m_terms.beforePress()) {
        return;
    }
    const NoteSource note = m_terms.source();
    const NoteStep step = OnPlayPressed(m_player.GetPlayState(), note.state);
    ShowImage(step.image);
    switch (step.action) {
    case NoteAction::StopPlaying:
        StopAudio();
        return;
    case NoteAction::Wait:
        m_window.SetTimer(kNoteWaitTimer, kSecondMs);
        return;
    case NoteAction::Play:
        PlayNote(note);
        return;
    case NoteAction::ShowFailure:
        ShowText(FailureText());
        return;
    case NoteAction::ShowWait:
    case NoteAction::None:
        return;
    }
}

/// The end of a note is found by the seconds counted, and its last part of a second is cut off;
/// required as is.
void NotePlayer::OnSecond() {
    const quint32 pos = m_progress ? quint32(m_progress->GetPos()) + 1 : 0;
    ShowPos(pos);
    if (pos >= m_audioSeconds) {
        StopAudio();
    }
}

/// The wait isn't ended by a change of picture: a note of the new one that is there starts by
/// itself; required as is.
void NotePlayer::OnWaited() {
    const NoteSource note = m_terms.source();
    switch (OnWaitTick(note.state).action) {
    case NoteAction::ShowWait:
        ShowText(WaitText(note.state));
        return;
    case NoteAction::Play:
        m_window.KillTimer(kNoteWaitTimer);
        PlayNote(note);
        return;
    case NoteAction::ShowFailure:
        m_window.KillTimer(kNoteWaitTimer);
        ShowImage(NoteImage::Play);
        ShowText(FailureText());
        return;
    default:
        return;
    }
}

void NotePlayer::PlayNote(const NoteSource& note) {
    ShowImage(NoteImage::Stop);
    quint32 milliseconds = 0;
    m_player.Play(note.path, milliseconds);
    m_audioSeconds = milliseconds / kSecondMs;
    if (m_progress) {
        m_progress->SetRange(0, ProgressEnd(m_audioSeconds));
        m_progress->SetPos(0);
    }
    // The text stays until the first second is over; required as is.
    m_window.SetTimer(kNoteTickTimer, kSecondMs);
}

void NotePlayer::ShowPos(quint32 pos) {
    if (m_progress) {
        m_progress->SetPos(int(pos));
    }
    ShowText(PositionText(pos, m_audioSeconds));
}

void NotePlayer::ShowImage(NoteImage image) {
    if (!m_button) {
        return;
    }
    const bool play = image == NoteImage::Play;
    m_button->SetButtonImage(play ? u"play"_s : u"stop"_s, kButtonSize);
    m_button->setAccessibleName(play ? u"播放语音"_s : u"停止播放语音"_s);
    m_button->setToolTip(m_button->accessibleName());
}

void NotePlayer::ShowText(const QString& text) {
    if (m_status) {
        m_status->setText(text);
    }
}

} // namespace gallery
