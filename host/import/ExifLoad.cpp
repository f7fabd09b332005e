#include "host/import/ExifLoad.h"

#include <algorithm>

namespace host {

ExifOwned LoadExif(const QByteArray& jpeg) {
    // The block stands at the beginning of a file; the rest needn't be looked through.
    constexpr qsizetype kLookThrough = 1 << 20;
    const auto length = static_cast<unsigned int>(std::min(jpeg.size(), kLookThrough));
    return ExifOwned(
        exif_data_new_from_data(reinterpret_cast<const unsigned char*>(jpeg.constData()), length));
}

QByteArray ExifTextOf(ExifContent* directory, ExifTag tag) {
    const ExifEntry* entry = exif_content_get_entry(directory, tag);
    if (entry == nullptr || entry->format != EXIF_FORMAT_ASCII || entry->data == nullptr) {
        return {};
    }
    const QByteArray text(reinterpret_cast<const char*>(entry->data),
                          static_cast<qsizetype>(entry->size));
    const qsizetype end = text.indexOf('\0');
    return text.left(end < 0 ? text.size() : end).trimmed();
}

} // namespace host
