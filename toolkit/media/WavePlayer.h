// Plays a voice note.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/media/PlayState.h"

#include <QString>

#include <memory>

/// Plays one AMR file at a time on a thread of its own, which ends with the player; calls nobody
/// back. Without a device, or when the device fails, the note passes in silence.
/// Thread: user interface.
class TOOLKIT_EXPORT WavePlayer final {
public:
    WavePlayer();
    ~WavePlayer();
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;

    /// Starts playing and returns; a note that plays already is stopped first.
    /// @param lengthMs  out: 20 ms for each whole frame of the file, at most what 32 bits hold. 0
    ///                  for a file that isn't there or has no frame; then nothing plays.
    void Play(const QString& path, quint32& lengthMs);
    /// Silent when it returns. Without a note that plays nothing happens.
    void Stop();
    /// Playing until the end of the note or Stop.
    [[nodiscard]] PlayState GetPlayState() const;

private:
    struct Playback;
    std::unique_ptr<Playback> m_playback;
};
