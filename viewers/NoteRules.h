// What the player of voice notes does: one table for the button, one for the wait.
#pragma once

#include "toolkit/PlayState.h"

#include <QString>

namespace gallery {

enum class NoteImage { Play, Stop };

enum class NoteAction {
    None,
    StopPlaying, ///< end the note and go back to position 0
    Wait,        ///< look again in a second
    ShowWait,    ///< say that the note is on its way
    Play,
    ShowFailure,
};

struct NoteStep {
    NoteAction action = NoteAction::None;
    NoteImage image = NoteImage::Play; ///< of the button, once the action is done
};

/// The play button was pressed. `noteState`: a DownloadState.
[[nodiscard]] NoteStep OnPlayPressed(PlayState player, qint32 noteState);
/// A second of waiting is over. The image of a step without a change is Stop.
[[nodiscard]] NoteStep OnWaitTick(qint32 noteState);

/// "正在缓冲", while downloading with the number of the state behind it.
[[nodiscard]] QString WaitText(qint32 noteState);
/// "mm:ss / mm:ss"; both in seconds, minutes may pass 99.
[[nodiscard]] QString PositionText(quint32 position, quint32 length);
/// What the player says of a note that isn't played yet.
[[nodiscard]] QString IdleText(const QString& uuid);
[[nodiscard]] QString FailureText();

} // namespace gallery
