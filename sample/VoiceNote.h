// Voice notes for the sample photos.
#pragma once

#include "sample/SpokenVoice.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace sample {

/// An AMR narrow-band file (RFC 4867, single channel) with something between humming and speech:
/// syllables of changing pitch and vowel, with pauses. Equal arguments give equal bytes.
///
/// @param milliseconds  rounded up to whole frames of 20 ms; below 20 gives one frame.
/// @return              empty if the encoder can't be made. Thread: any.
[[nodiscard]] QByteArray MakeVoiceNote(quint64 seed, int milliseconds);

/// An AMR narrow-band file in which somebody speaks the text, with a short pause before and behind
/// it. As MakeVoiceNote(seed, milliseconds) if nobody can speak it or there is no text.
/// Thread: any; waits for the program that speaks.
[[nodiscard]] QByteArray MakeSpokenNote(const QString& text, quint64 seed, int milliseconds,
                                        const QString& program = SpeechProgram());

} // namespace sample
