// What the EXIF block of a photo tells of its taking.
#pragma once

#include "site/PhotoFacts.h"

#include <QByteArray>

namespace host {

/// Of a JPEG file: time as PhotoTime.h says, camera, place and direction (tags 0x010F, 0x0110 and
/// those of the GPS directory, EXIF 2.32). What is missing or can't be is left out. Thread: any.
[[nodiscard]] site::PhotoFacts ReadPhotoFacts(const QByteArray& jpeg);

} // namespace host
