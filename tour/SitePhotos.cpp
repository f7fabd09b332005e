#include "tour/SitePhotos.h"

#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>

#include <libexif/exif-data.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(640, 480);
constexpr int kMinutesBetween = 7;

/// Storeys of a frame against the sky, one more column in each picture.
QByteArray DrawBuilding(int number) {
    QImage picture(kSize, QImage::Format_RGB32);
    picture.fill(QColor::fromHsv(205, 60 + number * 4, 235 - number * 3));
    QPainter painter(&picture);
    painter.fillRect(0, 400, kSize.width(), 80, QColor(150, 130, 105));
    const QColor concrete = QColor::fromHsv(35, 15, 150 + number * 5);
    for (int storey = 0; storey < 4; ++storey) {
        painter.fillRect(80, 100 + storey * 75, 480, 14, concrete);
    }
    for (int column = 0; column <= number % 6 + 2; ++column) {
        painter.fillRect(90 + column * 56, 100, 16, 300, concrete);
    }
    painter.end();
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    picture.save(&file, "JPEG", 88);
    return bytes;
}

void AddText(ExifContent* directory, ExifTag tag, const QByteArray& text) {
    ExifEntry* entry = exif_entry_new();
    exif_content_add_entry(directory, entry);
    entry->tag = tag;
    entry->format = EXIF_FORMAT_ASCII;
    entry->components = static_cast<unsigned long>(text.size()) + 1;
    entry->size = static_cast<unsigned int>(text.size()) + 1;
    // The entry frees it, by the library's own allocator.
    entry->data = static_cast<unsigned char*>(std::malloc(entry->size));
    if (entry->data != nullptr) {
        std::memcpy(entry->data, text.constData(), entry->size);
    }
    exif_entry_unref(entry);
}

QByteArray ExifBlockOf(const QDateTime& taken) {
    const std::unique_ptr<ExifData, decltype(&exif_data_unref)> data(exif_data_new(),
                                                                     &exif_data_unref);
    exif_data_set_byte_order(data.get(), EXIF_BYTE_ORDER_INTEL);
    AddText(data->ifd[EXIF_IFD_0], EXIF_TAG_MAKE, "Vesk");
    AddText(data->ifd[EXIF_IFD_0], EXIF_TAG_MODEL, "Site Camera 2");
    AddText(data->ifd[EXIF_IFD_EXIF], EXIF_TAG_DATE_TIME_ORIGINAL,
            taken.toString(u"yyyy:MM:dd HH:mm:ss"_s).toLatin1());
    unsigned char* bytes = nullptr;
    unsigned int size = 0;
    exif_data_save_data(data.get(), &bytes, &size);
    const std::unique_ptr<unsigned char, decltype(&std::free)> owned(bytes, &std::free);
    return {reinterpret_cast<const char*>(bytes), qsizetype(size)};
}

/// Behind the start of the image, as JPEG has its segments (ITU-T T.81, B.1.1.4).
QByteArray WithExifBlock(const QByteArray& jpeg, const QByteArray& block) {
    const qsizetype length = block.size() + 2;
    const char head[] = {'\xFF', '\xE1', char(length >> 8), char(length & 0xFF)};
    return jpeg.left(2) + QByteArray(head, sizeof head) + block + jpeg.mid(2);
}

} // namespace

int WriteSitePhotos(const QString& folder, int count) {
    const QDateTime first(QDate(2026, 3, 2), QTime(8, 30));
    int written = 0;
    for (int number = 1; number <= count; ++number) {
        QFile file(QDir(folder).filePath(u"巡检_%1.jpg"_s.arg(number, 2, 10, QChar(u'0'))));
        const QDateTime taken = first.addSecs(number * kMinutesBetween * 60LL);
        const QByteArray photo = WithExifBlock(DrawBuilding(number), ExifBlockOf(taken));
        if (file.open(QIODevice::WriteOnly) && file.write(photo) == photo.size()) {
            ++written;
        }
    }
    return written;
}

} // namespace tour
