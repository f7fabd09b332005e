// Speech synthesis for the sample's voice notes.
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <span>
#include <vector>

namespace sample {

/// Sound of one channel.
struct SpokenSound {
    std::vector<float> samples; ///< -1 to 1
    int rate = 0;               ///< samples in a second
};

/// The program that speaks; looked for in the search path.
[[nodiscard]] QString SpeechProgram();

/// Speaks a Chinese text by running the program; equal arguments give equal sound on one machine.
/// Of a long text only the first sentences are spoken.
///
/// @param seed     chooses voice, pitch and speed.
/// @return         none if the program isn't there (said once in the log), fails, or has nothing to
///                 say. Thread: any; waits for the program.
[[nodiscard]] std::optional<SpokenSound> Speak(const QString& text, quint64 seed,
                                               const QString& program = SpeechProgram());

/// Reads 16-bit PCM of one channel out of a RIFF WAVE file; a data chunk that is announced longer
/// than the file, as of a program that writes into a pipe, ends with the file. None for all else.
[[nodiscard]] std::optional<SpokenSound> ReadWave(const QByteArray& file);

/// The sound at another rate, without what that rate can't hold. Both rates are above 0.
[[nodiscard]] std::vector<float> Resampled(const SpokenSound& sound, int rate);

} // namespace sample
