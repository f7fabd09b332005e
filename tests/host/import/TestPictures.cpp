#include "tests/host/import/TestPictures.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QList>

namespace importtest {

QByteArray Picture(const char* format, int seed, QSize size, bool progressive) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(
                x, y,
                qRgb((x * 3 + seed * 31) & 255, (y * 5 + seed) & 255, (x * y + seed * 7) & 255));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return bytes;
}

QByteArray Gif() {
    return QByteArray::fromHex("474946383961" // GIF89a
                               "04000400F00000"
                               "000000FFFFFF"
                               "21F9040000000000"
                               "2C000000000400040000"
                               "0205848FA91900"
                               "3B")
        .replace(QByteArray::fromHex("0205848FA91900"),
                 QByteArray::fromHex("0204448460570000").left(7));
}

namespace {

void PutShort(QByteArray& target, int value) {
    target.append(static_cast<char>(value & 0xFF)).append(static_cast<char>(value >> 8));
}

void PutLong(QByteArray& target, qsizetype value) {
    PutShort(target, static_cast<int>(value & 0xFFFF));
    PutShort(target, static_cast<int>(value >> 16));
}

struct Entry {
    int tag;
    int type; ///< 2 text, 3 short, 4 long, 5 quotients
    QByteArray value;
};

/// A directory at `at` of the block; longer values follow it.
[[nodiscard]] QByteArray Directory(const QList<Entry>& entries, qsizetype at) {
    QByteArray table;
    QByteArray values;
    const qsizetype valuesAt = at + 2 + 12 * entries.size() + 4;
    PutShort(table, static_cast<int>(entries.size()));
    for (const Entry& entry : entries) {
        PutShort(table, entry.tag);
        PutShort(table, entry.type);
        PutLong(table, entry.type == 2   ? entry.value.size()
                       : entry.type == 5 ? entry.value.size() / 8
                                         : 1);
        if (entry.value.size() <= 4) {
            table.append(entry.value.leftJustified(4, '\0'));
        } else {
            PutLong(table, valuesAt + values.size());
            values.append(entry.value);
        }
    }
    PutLong(table, 0);
    return table + values;
}

} // namespace

QByteArray WithSegment(const QByteArray& jpeg, char marker, const QByteArray& content) {
    QByteArray segment("\xFF");
    const qsizetype length = content.size() + 2;
    segment.append(marker);
    segment.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xFF));
    return jpeg.left(2) + segment + content + jpeg.mid(2);
}

QByteArray WithExif(const QByteArray& jpeg, const ExifText& text) {
    QList<Entry> details;
    const auto addText = [&](int tag, const QByteArray& value) {
        if (!value.isEmpty()) {
            details.append({tag, 2, value + '\0'});
        }
    };
    addText(0x9003, text.taken);
    addText(0x9004, text.digitised);
    addText(0x9011, text.takenOffset);
    addText(0x9012, text.digitisedOffset);
    QList<Entry> main;
    if (text.orientation != 0) {
        main.append({0x0112, 3, QByteArray(1, static_cast<char>(text.orientation))});
    }
    QByteArray pointer;
    const qsizetype detailsAt = 8 + 2 + 12 * (main.size() + 1) + 4;
    PutLong(pointer, detailsAt);
    main.append({0x8769, 4, pointer});
    QByteArray block("Exif\0\0II*\0", 10);
    PutLong(block, 8);
    block += Directory(main, 8) + Directory(details, detailsAt);
    return WithSegment(jpeg, '\xE1', block);
}

QByteArray WithGps(const QByteArray& jpeg, const GpsText& text) {
    const auto quotients = [](const QList<GpsText::Ratio>& ratios) {
        QByteArray bytes;
        for (const auto& [above, below] : ratios) {
            PutLong(bytes, above);
            PutLong(bytes, below);
        }
        return bytes;
    };
    const QList<Entry> place{
        {1, 2, QByteArray(1, text.north) + '\0'},
        {2, 5, quotients({text.degrees, {13, 1}, {4944, 100}})},
        {3, 2, QByteArray(1, text.east) + '\0'},
        {4, 5, quotients({{121, 1}, {28, 1}, {2532, 100}})},
        {0x11, 5, quotients({text.direction})},
    };
    QList<Entry> main{{0x010F, 2, text.maker + '\0'}, {0x0110, 2, text.model + '\0'}};
    const auto placeAt = [&] { return 8 + Directory(main, 8).size(); };
    const auto pointer = [](qsizetype at) {
        QByteArray bytes;
        PutLong(bytes, at);
        return bytes;
    };
    main.append({0x8825, 4, pointer(0)});
    main.last().value = pointer(placeAt());
    QByteArray block("Exif\0\0II*\0", 10);
    PutLong(block, 8);
    block += Directory(main, 8) + Directory(place, placeAt());
    return WithSegment(jpeg, '\xE1', block);
}

} // namespace importtest
