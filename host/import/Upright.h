// What decoded pictures go through before they become a JPEG: on white, turned, with RGB colours.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QSize>

namespace host {

/// Where a stored pixel of a picture of this size lies in the upright one.
/// @param orientation  1 to 8 as in EXIF 2.32, tag 0x0112; others count as 1
[[nodiscard]] QPoint UprightPlace(QPoint stored, QSize size, int orientation);
/// Width and height change places for 5 to 8.
[[nodiscard]] QSize UprightSize(QSize size, int orientation);
/// In Format_RGB888. The picture itself for orientation 1.
[[nodiscard]] QImage Upright(QImage picture, int orientation);

/// What is transparent shows white. In Format_RGB888; null without memory for it.
[[nodiscard]] QImage OnWhite(const QImage& picture);

/// The ICC profile if it is one of RGB colours, as those of a JPEG are; else empty.
[[nodiscard]] QByteArray RgbProfile(const QByteArray& profile);

} // namespace host
