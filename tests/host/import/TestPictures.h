// Small picture files of every sort, sound and broken, made in the tests.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QSize>

#include <utility>

namespace importtest {

/// A picture in the format that is told apart from others by its seed. `format`: "jpeg", "png",
/// "bmp".
[[nodiscard]] QByteArray Picture(const char* format, int seed, QSize size = {64, 48},
                                 bool progressive = false);
/// A GIF of 4 by 4 pixels.
[[nodiscard]] QByteArray Gif();

/// What an EXIF block says; empty texts are left out, orientation 0 too.
struct ExifText {
    QByteArray taken;       ///< "2024:03:12 14:25:36"
    QByteArray takenOffset; ///< "+08:00"
    QByteArray digitised;
    QByteArray digitisedOffset;
    int orientation = 0;
};
/// The JPEG with an EXIF block behind its first two bytes.
[[nodiscard]] QByteArray WithExif(const QByteArray& jpeg, const ExifText& text);
/// What a camera with a receiver writes; a place of 31.2304 and 121.4737 degrees.
struct GpsText {
    using Ratio = std::pair<int, int>;
    QByteArray maker = "Maker";
    QByteArray model = "Model 7";
    char north = 'N';
    char east = 'E';
    Ratio degrees{31, 1};
    Ratio direction{2715, 10};
};
[[nodiscard]] QByteArray WithGps(const QByteArray& jpeg, const GpsText& text);
/// The same with any segment.
[[nodiscard]] QByteArray WithSegment(const QByteArray& jpeg, char marker,
                                     const QByteArray& content);

} // namespace importtest
