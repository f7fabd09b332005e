#include "host/import/PhotoTime.h"

#include "host/import/ExifLoad.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QString>

namespace host {

using namespace Qt::StringLiterals;

namespace {

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
    const ExifOwned data = LoadExif(jpeg);
    if (!data) {
        return std::nullopt;
    }
    ExifContent* details = data->ifd[EXIF_IFD_EXIF];
    const auto read = [&](ExifTag time, ExifTag offset) {
        return ReadExifTime(ExifTextOf(details, time), ExifTextOf(details, offset));
    };
    const auto taken = read(EXIF_TAG_DATE_TIME_ORIGINAL, EXIF_TAG_OFFSET_TIME_ORIGINAL);
    return taken ? taken : read(EXIF_TAG_DATE_TIME_DIGITIZED, EXIF_TAG_OFFSET_TIME_DIGITIZED);
}

} // namespace host
