// What the player of voice notes does: one table for the button, one for the wait.
#pragma once

#include "toolkit/media/PlayState.h"
#include "viewers/GalleryState.h"

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

/// Where a note lies on disk; empty for a text that is no uuid. `folder` ends with its separator.
[[nodiscard]] QString NotePath(const QString& folder, const QString& uuid);
/// Upper end of the progress bar for a note of so many seconds.
[[nodiscard]] int ProgressEnd(quint32 seconds);

/// The note of the moment, as a viewer knows it.
struct NoteSource {
    QString uuid; ///< empty: no note
    QString path;
    qint32 state = 0; ///< a DownloadState
};
/// That of the gallery's current item; none if there is no such item.
[[nodiscard]] NoteSource CurrentNote(const GalleryState& gallery);

} // namespace gallery
