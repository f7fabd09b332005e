// EXIF blocks by themselves: found, made upright, cut to what a JPEG can carry.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace host {

/// The block from its byte order mark on: what stands before it ("Exif", an offset) is left out.
/// Empty for what isn't one. Thread: any, as for all of these.
[[nodiscard]] QByteArrayView PlainExif(QByteArrayView bytes);

/// Tag 0x0112, 1 to 8; 1 where it is missing or nonsense.
[[nodiscard]] int ExifOrientation(QByteArrayView block);

/// The block as that of an upright JPEG: orientation 1, no thumbnail, at most kMostExif bytes. All
/// else stays where it is, notes of the camera's maker too, as these count from the block's
/// beginning. A block that is too long goes the way of TiffExif. Empty for what can't be read.
[[nodiscard]] QByteArray UprightExif(QByteArrayView block);

/// A block made of a TIFF file's own fields that speak of the exposure (TIFF 6.0 and EXIF 2.32), in
/// the file's byte order, with orientation 1. Empty for a file without any, and for a BigTIFF.
[[nodiscard]] QByteArray TiffExif(QByteArrayView tiff);

/// What a JPEG segment holds beside its length and the mark "Exif".
inline constexpr qsizetype kMostExif = 65535 - 2 - 6;

} // namespace host
