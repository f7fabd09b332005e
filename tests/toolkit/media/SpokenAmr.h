// AMR files with a tone in them.
#pragma once

#include <QByteArray>

#include <span>

namespace support {

/// A tone of so many hertz, encoded for the narrow or the wide band.
[[nodiscard]] QByteArray NarrowTone(double hertz, int frames);
[[nodiscard]] QByteArray WideTone(double hertz, int frames);

/// The pitch of a sound, hertz: how often it rises through zero, first and last tenth left out.
[[nodiscard]] double PitchOf(std::span<const qint16> samples, int rate);
/// Root of the mean square.
[[nodiscard]] double LoudnessOf(std::span<const qint16> samples);

} // namespace support
