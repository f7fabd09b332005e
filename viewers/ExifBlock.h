// What a camera wrote about a photo, for a copy of it that stands upright.
#pragma once

#include <QByteArray>
#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// The EXIF block (CIPA DC-008, EXIF 2.3) of a JPEG file with time, place and all else, save what
/// no longer holds: the orientation becomes 1, the small picture inside goes, and so do width and
/// height of one that is turned. Empty: there is none. Thread: any.
[[nodiscard]] QByteArray ExifForUpright(const QString& path);

/// The block as segment APP1 behind the start of a JPEG stream; the stream as it is for an empty
/// block, and for one that no segment has room for.
[[nodiscard]] QByteArray WithExif(const QByteArray& jpeg, const QByteArray& exif);

} // namespace ZelvorNRQ_KXVeskPicture
