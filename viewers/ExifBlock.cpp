#include "viewers/ExifBlock.h"

#include <QFile>

#include <libexif/exif-data.h>

#include <cstdlib>
#include <memory>

namespace ZelvorNRQ_KXVeskPicture {

namespace {

constexpr ExifShort kUpright = 1;
/// From this orientation on width and height are exchanged.
constexpr ExifShort kFirstTurned = 5;
/// A segment counts its length with its two bytes of length.
constexpr qsizetype kLargestBlock = 65535 - 2;
constexpr qsizetype kStartMarker = 2;

struct ExifRelease {
    void operator()(ExifData* data) const { exif_data_unref(data); }
};
using ExifHolder = std::unique_ptr<ExifData, ExifRelease>;

void Remove(ExifContent* content, ExifTag tag) {
    if (ExifEntry* entry = exif_content_get_entry(content, tag)) {
        exif_content_remove_entry(content, entry);
    }
}

void StandUpright(ExifData& data) {
    ExifEntry* entry = exif_content_get_entry(data.ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
    if (entry == nullptr || entry->format != EXIF_FORMAT_SHORT || entry->components < 1 ||
        entry->size < sizeof(ExifShort)) {
        return;
    }
    const ExifByteOrder order = exif_data_get_byte_order(&data);
    if (exif_get_short(entry->data, order) >= kFirstTurned) {
        Remove(data.ifd[EXIF_IFD_EXIF], EXIF_TAG_PIXEL_X_DIMENSION);
        Remove(data.ifd[EXIF_IFD_EXIF], EXIF_TAG_PIXEL_Y_DIMENSION);
    }
    exif_set_short(entry->data, order, kUpright);
}

void RemoveSmallPicture(ExifData& data) {
    ExifContent* directory = data.ifd[EXIF_IFD_1];
    while (directory->count > 0) {
        exif_content_remove_entry(directory, directory->entries[0]);
    }
    // Of the library's own memory, which is the C library's.
    std::free(data.data);
    data.data = nullptr;
    data.size = 0;
}

QByteArray Saved(ExifData& data) {
    unsigned char* bytes = nullptr;
    unsigned int size = 0;
    exif_data_save_data(&data, &bytes, &size);
    const std::unique_ptr<unsigned char, decltype(&std::free)> holder(bytes, &std::free);
    return bytes == nullptr ? QByteArray()
                            : QByteArray(reinterpret_cast<const char*>(bytes), qsizetype(size));
}

} // namespace

QByteArray ExifForUpright(const QString& path) {
    const ExifHolder data(exif_data_new_from_file(QFile::encodeName(path).constData()));
    // The library makes an empty record of a file that has none.
    if (!data || (data->ifd[EXIF_IFD_0]->count == 0 && data->ifd[EXIF_IFD_EXIF]->count == 0 &&
                  data->ifd[EXIF_IFD_GPS]->count == 0)) {
        return {};
    }
    StandUpright(*data);
    RemoveSmallPicture(*data);
    QByteArray block = Saved(*data);
    if (block.size() > kLargestBlock) {
        // The maker's own notes are what is large, and mean something to the maker alone.
        Remove(data->ifd[EXIF_IFD_EXIF], EXIF_TAG_MAKER_NOTE);
        block = Saved(*data);
    }
    return block;
}

QByteArray WithExif(const QByteArray& jpeg, const QByteArray& exif) {
    if (exif.isEmpty() || exif.size() > kLargestBlock || jpeg.size() < kStartMarker) {
        return jpeg;
    }
    const auto length = quint16(exif.size() + 2);
    QByteArray segment("\xFF\xE1", 2);
    segment.append(char(length >> 8)).append(char(length & 0xFF)).append(exif);
    return jpeg.first(kStartMarker) + segment + jpeg.sliced(kStartMarker);
}

} // namespace ZelvorNRQ_KXVeskPicture
