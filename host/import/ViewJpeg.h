// The JPEG that stands beside a picture which no viewer reads.
#pragma once

#include "host/import/ForeignPicture.h"

namespace host {

struct ViewJpeg {
    QByteArray bytes;
    QString refusal; ///< Chinese; empty: made
};

/// Upright, in the quality kViewQuality, with the EXIF block and the ICC profile of the picture.
/// Asks for the limits of FileExamination.h before anything is decoded. Thread: any.
[[nodiscard]] ViewJpeg MakeViewJpeg(ForeignPicture& picture);

inline constexpr int kViewQuality = 92;
/// What a JPEG of the library may have at most on a side.
inline constexpr int kMaxJpegSide = 65500;

} // namespace host
