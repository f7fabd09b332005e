// When a photo was taken.
#pragma once

#include <QByteArray>

#include <optional>

namespace host {

/// Time from the EXIF block of a JPEG file: the moment of the exposure, else of digitising (tags
/// 0x9003 and 0x9004 of EXIF 2.32), with its UTC offset (0x9011, 0x9012) where one is written, else
/// in the zone of this machine. Seconds since 1970; nothing without a block, or with a time that
/// can't be (zeros, 30th of February, before 1970). Thread: any.
[[nodiscard]] std::optional<qint64> ExifTime(const QByteArray& jpeg);

/// The same from the two texts. An unreadable offset counts as none.
[[nodiscard]] std::optional<qint64> ReadExifTime(const QByteArray& time, const QByteArray& offset);

} // namespace host
