#include "host/import/ImageSniff.h"

#include <cstdlib>

namespace host {

namespace {

[[nodiscard]] qsizetype Byte(QByteArrayView bytes, qsizetype at) {
    return static_cast<unsigned char>(bytes[at]);
}

[[nodiscard]] qsizetype BigEndian(QByteArrayView bytes, qsizetype at, int count) {
    qsizetype value = 0;
    for (int index = 0; index < count; ++index) {
        value = value * 256 + Byte(bytes, at + index);
    }
    return value;
}

[[nodiscard]] qsizetype LittleEndian(QByteArrayView bytes, qsizetype at, int count) {
    qsizetype value = 0;
    for (int index = count - 1; index >= 0; --index) {
        value = value * 256 + Byte(bytes, at + index);
    }
    return value;
}

constexpr qsizetype kEndOfImage = 0xD9;
constexpr qsizetype kStartOfScan = 0xDA;

/// A marker without a length: restart marks, start of image, and the fill bytes.
[[nodiscard]] bool StandsAlone(qsizetype marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

/// The next 0xFF that begins a marker at or behind `at`; size() if there is none.
[[nodiscard]] qsizetype NextMarker(QByteArrayView bytes, qsizetype at) {
    while (true) {
        at = bytes.indexOf('\xFF', at);
        if (at < 0 || at + 1 >= bytes.size()) {
            return bytes.size();
        }
        const qsizetype next = Byte(bytes, at + 1);
        if (next != 0 && next != 0xFF && !(next >= 0xD0 && next <= 0xD7)) {
            return at;
        }
        ++at;
    }
}

[[nodiscard]] bool JpegIsWhole(QByteArrayView bytes) {
    bool scanned = false;
    qsizetype at = 2;
    while (at + 1 < bytes.size()) {
        if (Byte(bytes, at) != 0xFF) {
            at = NextMarker(bytes, at);
            continue;
        }
        const qsizetype marker = Byte(bytes, at + 1);
        if (marker == kEndOfImage) {
            return scanned;
        }
        if (marker == 0xFF || marker == 0) {
            ++at;
        } else if (StandsAlone(marker)) {
            at += 2;
        } else {
            if (at + 4 > bytes.size()) {
                return false;
            }
            scanned = scanned || marker == kStartOfScan;
            const qsizetype behind = at + 2 + BigEndian(bytes, at + 2, 2);
            at = marker == kStartOfScan ? NextMarker(bytes, behind) : behind;
        }
    }
    return false;
}

[[nodiscard]] bool PngIsWhole(QByteArrayView bytes) {
    qsizetype at = 8;
    while (at + 12 <= bytes.size()) {
        const QByteArrayView type = bytes.sliced(at + 4, 4);
        const qsizetype behind = at + 12 + BigEndian(bytes, at, 4);
        if (behind > bytes.size()) {
            return false;
        }
        if (type == QByteArrayView("IEND")) {
            return true;
        }
        at = behind;
    }
    return false;
}

/// Behind a chain of data blocks, each with its length before it; -1 past the end.
[[nodiscard]] qsizetype BehindBlocks(QByteArrayView bytes, qsizetype at) {
    while (at < bytes.size()) {
        const qsizetype length = Byte(bytes, at);
        at += 1 + length;
        if (length == 0) {
            return at;
        }
    }
    return -1;
}

[[nodiscard]] qsizetype ColorTableSize(qsizetype flags) {
    return flags & 0x80 ? qsizetype{3} << ((flags & 7) + 1) : 0;
}

[[nodiscard]] bool GifIsWhole(QByteArrayView bytes) {
    if (bytes.size() < 13) {
        return false;
    }
    qsizetype at = 13 + ColorTableSize(Byte(bytes, 10));
    while (at >= 0 && at < bytes.size()) {
        switch (Byte(bytes, at)) {
        case 0x3B:
            return true;
        case 0x21:
            at = BehindBlocks(bytes, at + 2);
            break;
        case 0x2C:
            if (at + 11 > bytes.size()) {
                return false;
            }
            at = BehindBlocks(bytes, at + 11 + ColorTableSize(Byte(bytes, at + 9)));
            break;
        default:
            return false;
        }
    }
    return false;
}

[[nodiscard]] bool BmpIsWhole(QByteArrayView bytes) {
    constexpr qsizetype kLongHeader = 54;
    if (bytes.size() < kLongHeader) {
        return false;
    }
    const qsizetype pixels = LittleEndian(bytes, 10, 4);
    const qsizetype width = static_cast<qint32>(LittleEndian(bytes, 18, 4));
    const qsizetype height = std::abs(qsizetype{static_cast<qint32>(LittleEndian(bytes, 22, 4))});
    const qsizetype depth = LittleEndian(bytes, 28, 2);
    const qsizetype compression = LittleEndian(bytes, 30, 4);
    const qsizetype there = bytes.size() - pixels;
    if (width <= 0 || there < 0) {
        return false;
    }
    if (compression != 0 && compression != 3) {
        return LittleEndian(bytes, 34, 4) <= there;
    }
    // Divided, since the product of what a header may claim is past 64 bits.
    const qsizetype row = (width * depth + 31) / 32 * 4;
    return row == 0 || height <= there / row;
}

/// Byte order and 42, or 43 for a BigTIFF.
[[nodiscard]] bool IsTiffHead(QByteArrayView head) {
    return head.startsWith(QByteArrayView("II*\0", 4)) ||
           head.startsWith(QByteArrayView("MM\0*", 4)) ||
           head.startsWith(QByteArrayView("II+\0", 4)) ||
           head.startsWith(QByteArrayView("MM\0+", 4));
}

} // namespace

ImageKind SniffImage(QByteArrayView head) {
    if (head.startsWith("\xFF\xD8\xFF")) {
        return ImageKind::Jpeg;
    }
    if (head.startsWith(QByteArrayView("\x89PNG\r\n\x1A\n", 8))) {
        return ImageKind::Png;
    }
    if (head.startsWith("GIF87a") || head.startsWith("GIF89a")) {
        return ImageKind::Gif;
    }
    if (head.startsWith("BM") && head.size() >= 26 && LittleEndian(head, 14, 4) >= 12 &&
        LittleEndian(head, 14, 4) <= 124) {
        return ImageKind::Bmp;
    }
    if (head.size() >= 12 && head.sliced(4, 4) == QByteArrayView("ftyp")) {
        const QByteArrayView brand = head.sliced(8, 4);
        if (brand.startsWith("hei") || brand.startsWith("hev") || brand == QByteArrayView("mif1") ||
            brand == QByteArrayView("msf1")) {
            return ImageKind::Heic;
        }
    }
    if (head.size() >= 12 && head.startsWith("RIFF") &&
        head.sliced(8, 4) == QByteArrayView("WEBP")) {
        return ImageKind::WebP;
    }
    if (IsTiffHead(head)) {
        return ImageKind::Tiff;
    }
    return ImageKind::None;
}

bool ReachesItsEnd(ImageKind kind, QByteArrayView bytes) {
    switch (kind) {
    case ImageKind::Jpeg:
        return JpegIsWhole(bytes);
    case ImageKind::Png:
        return PngIsWhole(bytes);
    case ImageKind::Gif:
        return GifIsWhole(bytes);
    case ImageKind::Bmp:
        return BmpIsWhole(bytes);
    case ImageKind::None:
    case ImageKind::Heic:
    case ImageKind::Tiff:
    case ImageKind::WebP:
        break;
    }
    return false;
}

} // namespace host
