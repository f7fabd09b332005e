#include "host/import/ExifFacts.h"

#include "host/import/ExifLoad.h"
#include "host/import/PhotoTime.h"

#include <array>
#include <cmath>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestName = 100;

[[nodiscard]] QString NameOf(ExifData* data, ExifTag tag) {
    QString name;
    for (const QChar letter : QString::fromUtf8(ExifTextOf(data->ifd[EXIF_IFD_0], tag))) {
        if (letter.isPrint()) {
            name += letter;
        }
    }
    return name.simplified().left(kLongestName);
}

/// Makers that stand in the name of the model too are said once.
[[nodiscard]] QString CameraOf(ExifData* data) {
    const QString maker = NameOf(data, EXIF_TAG_MAKE);
    const QString model = NameOf(data, EXIF_TAG_MODEL);
    const bool isSaid = model.startsWith(maker, Qt::CaseInsensitive);
    return isSaid ? model : (maker + u' ' + model).trimmed();
}

[[nodiscard]] std::optional<double> Quotient(const ExifEntry* entry, ExifByteOrder order,
                                             unsigned long index) {
    constexpr size_t kSize = 8;
    if (entry == nullptr || entry->data == nullptr || entry->format != EXIF_FORMAT_RATIONAL ||
        entry->components <= index || entry->size < (index + 1) * kSize) {
        return std::nullopt;
    }
    const ExifRational number = exif_get_rational(entry->data + index * kSize, order);
    return number.denominator == 0
               ? std::nullopt
               : std::optional(double(number.numerator) / double(number.denominator));
}

/// Degrees, minutes and seconds, below zero for the letter.
[[nodiscard]] std::optional<double> AngleOf(ExifData* data, int tag, int letterTag, char below,
                                            double most) {
    ExifContent* place = data->ifd[EXIF_IFD_GPS];
    const ExifEntry* entry = exif_content_get_entry(place, static_cast<ExifTag>(tag));
    const ExifByteOrder order = exif_data_get_byte_order(data);
    double angle = 0;
    double unit = 1;
    for (unsigned long index = 0; index < 3; ++index) {
        const std::optional<double> part = Quotient(entry, order, index);
        if (!part) {
            return std::nullopt;
        }
        angle += *part / unit;
        unit *= 60;
    }
    const QByteArray letter = ExifTextOf(place, static_cast<ExifTag>(letterTag));
    if (angle > most) {
        return std::nullopt;
    }
    return letter.startsWith(below) ? -angle : angle;
}

[[nodiscard]] std::optional<double> DirectionOf(ExifData* data) {
    const ExifEntry* entry = exif_content_get_entry(
        data->ifd[EXIF_IFD_GPS], static_cast<ExifTag>(EXIF_TAG_GPS_IMG_DIRECTION));
    const std::optional<double> degrees = Quotient(entry, exif_data_get_byte_order(data), 0);
    // Some cameras write a full circle for north.
    return degrees && *degrees <= 360 ? std::optional(std::fmod(*degrees, 360)) : std::nullopt;
}

} // namespace

site::PhotoFacts ReadPhotoFacts(const QByteArray& jpeg) {
    site::PhotoFacts facts;
    const ExifOwned data = LoadExif(jpeg);
    if (!data) {
        return facts;
    }
    facts.taken = ExifTime(jpeg);
    facts.camera = CameraOf(data.get());
    const auto latitude =
        AngleOf(data.get(), EXIF_TAG_GPS_LATITUDE, EXIF_TAG_GPS_LATITUDE_REF, 'S', 90);
    const auto longitude =
        AngleOf(data.get(), EXIF_TAG_GPS_LONGITUDE, EXIF_TAG_GPS_LONGITUDE_REF, 'W', 180);
    if (latitude && longitude) {
        facts.latitude = latitude;
        facts.longitude = longitude;
    }
    facts.direction = DirectionOf(data.get());
    return facts;
}

} // namespace host
