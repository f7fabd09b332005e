#include "host/drawings/ReaderFrames.h"

#include <QBuffer>
#include <QDataStream>
#include <QIODevice>

namespace host {

namespace {

constexpr qsizetype kLengthBytes = 4;
constexpr qsizetype kFewBytes = 512;
constexpr int kPixelBytes = 4;
constexpr QDataStream::Version kVersion = QDataStream::Qt_6_4;

/// Puts the length before what `write` writes; `more` bytes follow it.
template <typename Write> QByteArray Framed(qint64 more, const Write& write) {
    QByteArray bytes;
    bytes.reserve(kFewBytes);
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(kVersion);
    out << quint32(0);
    write(out);
    out.device()->seek(0);
    out << quint32(bytes.size() - kLengthBytes + more);
    return bytes;
}

bool WriteAll(QIODevice& device, const char* bytes, qint64 size) {
    return device.write(bytes, size) == size;
}

std::optional<QImage> ReadImage(QDataStream& in, qsizetype atMost) {
    qint32 width = 0;
    qint32 height = 0;
    in >> width >> height;
    if (width == 0 && height == 0) {
        return QImage();
    }
    if (width <= 0 || height <= 0 || qint64(width) * height * 4 > atMost) {
        return std::nullopt;
    }
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull()) {
        return std::nullopt;
    }
    for (int line = 0; line < height; ++line) {
        if (in.readRawData(reinterpret_cast<char*>(image.scanLine(line)), width * 4) != width * 4) {
            return std::nullopt;
        }
    }
    return image;
}

} // namespace

QByteArray FrameOf(const ReaderQuestion& question) {
    return Framed(0, [&](QDataStream& out) {
        out << question.path << qint32(question.render.page) << question.render.full
            << question.render.clip;
    });
}

QByteArray FrameOf(const ReaderAnswer& answer) {
    QBuffer buffer;
    const bool isWhole = buffer.open(QIODevice::WriteOnly) && SendFrame(answer, buffer);
    return isWhole ? buffer.data() : QByteArray();
}

bool SendFrame(const ReaderAnswer& answer, QIODevice& device) {
    const QImage& image = answer.image;
    const qint64 pixels = qint64(image.width()) * image.height();
    const QByteArray head = Framed(pixels * kPixelBytes, [&](QDataStream& out) {
        out << quint8(answer.fault) << qint32(answer.pages.size());
        for (const QSizeF& page : answer.pages) {
            out << page;
        }
        out << qint32(image.width()) << qint32(image.height());
    });
    bool isSent = WriteAll(device, head.constData(), head.size());
    for (int line = 0; line < image.height() && isSent; ++line) {
        isSent = WriteAll(device, reinterpret_cast<const char*>(image.constScanLine(line)),
                          qint64(image.width()) * kPixelBytes);
    }
    return isSent;
}

std::optional<qint64> FrameSize(const QByteArray& bytes) {
    if (bytes.size() < kLengthBytes) {
        return std::nullopt;
    }
    QDataStream in(bytes);
    quint32 length = 0;
    in >> length;
    return qint64(length) + kLengthBytes;
}

std::optional<ReaderQuestion> ReadQuestion(const QByteArray& frame) {
    QDataStream in(frame);
    in.setVersion(kVersion);
    quint32 length = 0;
    ReaderQuestion question;
    qint32 page = 0;
    in >> length >> question.path >> page >> question.render.full >> question.render.clip;
    question.render.page = page;
    if (in.status() != QDataStream::Ok || !in.atEnd()) {
        return std::nullopt;
    }
    return question;
}

std::optional<ReaderAnswer> ReadAnswer(const QByteArray& frame) {
    QDataStream in(frame);
    in.setVersion(kVersion);
    quint32 length = 0;
    quint8 fault = 0;
    qint32 pages = 0;
    in >> length >> fault >> pages;
    if (in.status() != QDataStream::Ok || fault > quint8(DrawingFault::NoReader) || pages < 0 ||
        pages > kMostSheets) {
        return std::nullopt;
    }
    ReaderAnswer answer;
    answer.fault = DrawingFault(fault);
    for (qint32 at = 0; at < pages; ++at) {
        in >> answer.pages.emplace_back();
    }
    const auto image = ReadImage(in, frame.size());
    if (!image || in.status() != QDataStream::Ok || !in.atEnd()) {
        return std::nullopt;
    }
    answer.image = *image;
    return answer;
}

} // namespace host
