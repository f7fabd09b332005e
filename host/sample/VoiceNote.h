// Voice notes for the sample photos.
#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace host {

/// An AMR narrow-band file (RFC 4867, single channel) with something between humming and speech:
/// syllables of changing pitch and vowel, with pauses. Equal arguments give equal bytes.
///
/// @param milliseconds  rounded up to whole frames of 20 ms; below 20 gives one frame.
/// @return              empty if the encoder can't be made. Thread: any.
[[nodiscard]] QByteArray MakeVoiceNote(quint64 seed, int milliseconds);

} // namespace host
