#include "tests/viewers/support/SamplePictures.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include <cstdlib>

namespace support {

namespace {

constexpr int kQuality = 95;

QByteArray Written(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(kQuality);
    writer.write(image);
    return bytes;
}

/// An EXIF block that holds nothing but the orientation.
QByteArray ExifSegment(int orientation) {
    QByteArray segment("\xFF\xE1\x00\x22"
                       "Exif\0\0"
                       "MM\0\x2A\0\0\0\x08"
                       "\0\x01"
                       "\x01\x12\0\x03\0\0\0\x01\0",
                       29);
    return segment.append(char(orientation)).append(QByteArray(6, '\0'));
}

} // namespace

QImage CornerMarked(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    const int x = size.width() / 2;
    const int y = size.height() / 2;
    painter.fillRect(0, 0, x, y, kTopLeft);
    painter.fillRect(x, 0, size.width() - x, y, kTopRight);
    painter.fillRect(0, y, x, size.height() - y, kBottomLeft);
    painter.fillRect(x, y, size.width() - x, size.height() - y, kBottomRight);
    return image;
}

QImage OneColour(const QSize& size, const QColor& colour) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QByteArray JpegBytes(const QImage& image, int orientation) {
    QByteArray bytes = Written(image, "jpeg");
    if (orientation != 0) {
        bytes.insert(2, ExifSegment(orientation));
    }
    return bytes;
}

QByteArray PngBytes(const QImage& image) {
    return Written(image, "png");
}

QByteArray AnimatedGif() {
    return QByteArray::fromHex("474946383961"                 // GIF89a
                               "01000100f00000"               // 1 by 1, two colours
                               "ff00000000ff"                 // red, blue
                               "21f904000a000000"             // a tenth of a second
                               "2c00000000010001000002024401" // colour 0
                               "00"                           //
                               "21f904000a000000"             //
                               "2c00000000010001000002024c01" // colour 1
                               "003b");
}

bool IsNear(const QColor& seen, const QColor& wanted, int tolerance) {
    return std::abs(seen.red() - wanted.red()) <= tolerance &&
           std::abs(seen.green() - wanted.green()) <= tolerance &&
           std::abs(seen.blue() - wanted.blue()) <= tolerance;
}

} // namespace support
