// Picture files for tests.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QString>

namespace support {

/// Colours of the quarters of a corner-marked picture.
inline const QColor kTopLeft(220, 30, 30);
inline const QColor kTopRight(30, 180, 30);
inline const QColor kBottomLeft(30, 30, 220);
inline const QColor kBottomRight(230, 200, 30);

/// Background of the gallery.
inline const QColor kPaneColour(0xFA, 0xFA, 0xFA);

/// Each quarter has its colour, so that a turned, mirrored or cropped picture shows as such.
[[nodiscard]] QImage CornerMarked(const QSize& size);
[[nodiscard]] QImage OneColour(const QSize& size, const QColor& colour);

/// @param orientation  1 to 8 as in EXIF 2.3, tag 0x0112: how the picture must be turned to stand
///                     upright; 0: no EXIF block.
[[nodiscard]] QByteArray JpegBytes(const QImage& image, int orientation = 0);
[[nodiscard]] QByteArray PngBytes(const QImage& image);
/// Two frames of 1 by 1: first red, then blue.
[[nodiscard]] QByteArray AnimatedGif();

/// True if no channel differs by more than `tolerance`.
[[nodiscard]] bool IsNear(const QColor& seen, const QColor& wanted, int tolerance = 12);

} // namespace support
