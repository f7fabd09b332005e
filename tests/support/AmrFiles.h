// AMR files for tests.
#pragma once

#include <QByteArray>

namespace support {

/// A narrow-band file (RFC 4867) of so many frames of 20 ms without speech, one byte each.
[[nodiscard]] inline QByteArray SilentAmr(int frames) {
    return "#!AMR\n" + QByteArray(frames, '\x7C');
}

} // namespace support
