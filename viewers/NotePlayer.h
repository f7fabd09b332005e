// The player of voice notes beside a viewer's pictures.
#pragma once

#include "toolkit/controls/ImageButton.h"
#include "toolkit/media/WavePlayer.h"
#include "toolkit/windows/WindowObject.h"
#include "viewers/NoteRules.h"
#include "viewers/PlayProgressCtrl.h"

#include <QLabel>
#include <QPointer>

#include <functional>

namespace gallery {

enum NoteControl {
    kNoteProgress = 24006,
    kNoteStatus = 24128,
    kNoteButton = 24129, ///< also the command of a press
};

/// What a change of picture does to the note.
enum class NoteChange {
    Stops,        ///< the note that plays stops; the viewer shows the new one by ShowNote
    StopsIfOther, ///< only for another note than at the last change, which is then shown
    GoesOn,       ///< the note isn't the picture's
};

/// What the end of the window does to a note that plays.
enum class NoteClose {
    SoundOnly, ///< everything else goes with the window
    AllOfIt,   ///< the window will be shown again: the controls go back to rest
};

/// How a viewer's notes differ from those of the others.
struct NoteTerms {
    /// The note of the moment: for a press and for each second of waiting.
    std::function<NoteSource()> source;
    NoteChange change = NoteChange::Stops;
    NoteClose close = NoteClose::SoundOnly;
    /// Before anything else of a press; false: the press is done. May be empty.
    std::function<bool()> beforePress;
};

/// Play button, time display and progress bar, with the player behind them; counts the seconds by
/// the window's timers, since the player tells nobody where it is.
///
/// Knows nothing of photos: the terms tell it where its note is. A member of the viewer; the three
/// controls are children of the viewer's window, which places them, and are made anew with it. A
/// note stops at the latest when its controls go. Thread: user interface.
class NotePlayer final {
public:
    /// @param window  whose timers 102 and 103 are used; outlives the player.
    NotePlayer(toolkit::WindowObject& window, NoteTerms terms);

    /// Makes the controls: nothing to play yet.
    void MakeControls(QWidget* parent);
    /// Null without a window. 42 by 43.
    [[nodiscard]] CImageButton* Button() const { return m_button; }
    /// Null without a window. Meant to be 5 high.
    [[nodiscard]] CPlayProgressCtrl* Progress() const { return m_progress; }
    /// Null without a window. One line of text.
    [[nodiscard]] QLabel* Status() const { return m_status; }

    /// Says whether there is a note; one that plays goes on.
    void ShowNote();
    /// Another picture is current: does what the terms say.
    void OnPicChanged();
    /// True for the two timers that are the player's.
    bool OnTimer(int timerId);
    /// True for the button's command, which a click gives by itself.
    bool OnCommand(int commandId);
    /// The window closes: does what the terms say.
    void OnClose();

    /// Ends the note and goes back to position 0.
    void StopAudio();
    void StopIfPlaying();
    [[nodiscard]] bool IsPlaying() const { return m_player.GetPlayState() == PlayState::Playing; }
    /// Whole seconds of the note played last.
    [[nodiscard]] quint32 AudioSeconds() const { return m_audioSeconds; }

private:
    void OnPress();
    void OnSecond();
    void OnWaited();
    void PlayNote(const NoteSource& note);
    void ShowPos(quint32 pos);
    void ShowImage(NoteImage image);
    void ShowText(const QString& text);

    toolkit::WindowObject& m_window;
    const NoteTerms m_terms;
    WavePlayer m_player;
    quint32 m_audioSeconds = 0;
    QString m_lastUuid; ///< of the note at the last change of picture
    QPointer<CImageButton> m_button;
    QPointer<CPlayProgressCtrl> m_progress;
    QPointer<QLabel> m_status;
    QObject m_context; ///< last, so that nothing of the controls reaches a player that ends
};

} // namespace gallery
