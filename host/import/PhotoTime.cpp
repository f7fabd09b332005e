#include "host/import/PhotoTime.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QString>

#include <libexif/exif-data.h>

#include <algorithm>
#include <memory>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// The block stands at the beginning of a file; the rest needn't be looked through.
constexpr qsizetype kLookThrough = 1 << 20;

struct ExifDeleter {
    void operator()(ExifData* data) const { exif_data_unref(data); }
};

/// Text of a tag of the photo's own directory; empty if it is missing or no text.
[[nodiscard]] QByteArray TagText(ExifData* data, ExifTag tag) {
    const ExifEntry* entry = exif_content_get_entry(data->ifd[EXIF_IFD_EXIF], tag);
    if (entry == nullptr || entry->format != EXIF_FORMAT_ASCII || entry->data == nullptr) {
        return {};
    }
    const QByteArray text(reinterpret_cast<const char*>(entry->data),
                          static_cast<qsizetype>(entry->size));
    return text
        .left(std::max<qsizetype>(0, text.indexOf('\0') < 0 ? text.size() : text.indexOf('\0')))
        .trimmed();
}

/// Seconds east of Greenwich from "+08:00"; nothing for what isn't one.
[[nodiscard]] std::optional<int> ReadOffset(const QByteArray& offset) {
    static const QRegularExpression form(u"^([+-])(\\d\\d):(\\d\\d)$"_s);
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(offset));
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const int hours = match.captured(2).toInt();
    const int minutes = match.captured(3).toInt();
    if (hours > 14 || minutes > 59) {
        return std::nullopt;
    }
    const int seconds = (hours * 60 + minutes) * 60;
    return match.captured(1) == u"-"_s ? -seconds : seconds;
}

} // namespace

std::optional<qint64> ReadExifTime(const QByteArray& time, const QByteArray& offset) {
    QDateTime moment = QDateTime::fromString(QString::fromLatin1(time), u"yyyy:MM:dd HH:mm:ss"_s);
    if (!moment.isValid()) {
        return std::nullopt;
    }
    if (const std::optional<int> east = ReadOffset(offset)) {
        moment = QDateTime(moment.date(), moment.time(), Qt::OffsetFromUTC, *east);
    }
    const qint64 seconds = moment.toSecsSinceEpoch();
    return seconds > 0 ? std::optional(seconds) : std::nullopt;
}

std::optional<qint64> ExifTime(const QByteArray& jpeg) {
    const auto length = static_cast<unsigned int>(std::min(jpeg.size(), kLookThrough));
    const std::unique_ptr<ExifData, ExifDeleter> data(
        exif_data_new_from_data(reinterpret_cast<const unsigned char*>(jpeg.constData()), length));
    if (!data) {
        return std::nullopt;
    }
    const auto read = [&](ExifTag time, ExifTag offset) {
        return ReadExifTime(TagText(data.get(), time), TagText(data.get(), offset));
    };
    const auto taken = read(EXIF_TAG_DATE_TIME_ORIGINAL, EXIF_TAG_OFFSET_TIME_ORIGINAL);
    return taken ? taken : read(EXIF_TAG_DATE_TIME_DIGITIZED, EXIF_TAG_OFFSET_TIME_DIGITIZED);
}

} // namespace host
