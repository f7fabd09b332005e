// JPEG files of one colour, of any size and number of components, without holding their pixels.
#pragma once

#include <QByteArray>
#include <QSize>

#include <vector>

namespace support {

/// A baseline file (ITU-T T.81) whose blocks hold their mean alone.
/// @param components  one value each: 1 grey, 3 luminance and colour, 4 inks (255: no ink).
[[nodiscard]] QByteArray FlatJpeg(const QSize& size, const std::vector<int>& components);

} // namespace support
