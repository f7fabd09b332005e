#include "host/import/ViewJpeg.h"

#include "host/import/FileExamination.h"

#include <QBuffer>
#include <QImageWriter>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr char kExifSegment = '\xE1';
constexpr char kProfileSegment = '\xE2';

[[nodiscard]] QByteArray JpegSegment(char marker, const QByteArray& mark,
                                     const QByteArray& content) {
    const qsizetype length = 2 + mark.size() + content.size();
    QByteArray segment("\xFF");
    segment += marker;
    segment += static_cast<char>(length >> 8);
    segment += static_cast<char>(length & 0xFF);
    return segment + mark + content;
}

/// ICC.1, B.4: as many segments as it takes, each with its number and how many there are.
[[nodiscard]] QByteArray ProfileSegments(const QByteArray& profile) {
    constexpr qsizetype kPart = 65535 - 2 - 14;
    const qsizetype parts = (profile.size() + kPart - 1) / kPart;
    if (parts > 255) {
        return {};
    }
    QByteArray segments;
    for (qsizetype part = 0; part < parts; ++part) {
        QByteArray mark("ICC_PROFILE\0", 12);
        mark += static_cast<char>(part + 1);
        mark += static_cast<char>(parts);
        segments += JpegSegment(kProfileSegment, mark, profile.mid(part * kPart, kPart));
    }
    return segments;
}

[[nodiscard]] QString SizeRefusal(QSize size) {
    if (size.isEmpty()) {
        return u"图片已损坏，读不出尺寸"_s;
    }
    if (const QString tooLarge = TooManyPixels(size); !tooLarge.isEmpty()) {
        return tooLarge;
    }
    return std::max(size.width(), size.height()) > kMaxJpegSide
               ? u"图片太长：%1×%2 像素，每边上限为 %3 像素"_s.arg(size.width())
                     .arg(size.height())
                     .arg(kMaxJpegSide)
               : QString();
}

} // namespace

ViewJpeg MakeViewJpeg(ForeignPicture& picture) {
    const PictureHead& head = picture.Head();
    const QString refusal = head.refusal.isEmpty() ? SizeRefusal(head.size) : head.refusal;
    if (!refusal.isEmpty()) {
        return {{}, refusal};
    }
    QImage image = picture.Decode();
    if (image.isNull()) {
        return {{}, u"图片已损坏或不完整，无法解码"_s};
    }
    ViewJpeg jpeg;
    QBuffer buffer(&jpeg.bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(kViewQuality);
    if (!writer.write(image)) {
        return {{}, u"无法转存为 JPEG"_s};
    }
    image = {};
    QByteArray segments;
    if (!head.exif.isEmpty()) {
        segments += JpegSegment(kExifSegment, QByteArray("Exif\0\0", 6), head.exif);
    }
    segments += ProfileSegments(head.colourProfile);
    jpeg.bytes.insert(2, segments);
    return jpeg;
}

} // namespace host
