#include "host/qr/QrRead.h"

#include <QDir>
#include <QImageReader>
#include <QPainter>

#include <ZXing/ReadBarcode.h>
#include <exception>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// The side at which a photograph is looked at first, and the one at which it is looked at again: a
// code in a corner is small there.
constexpr int kFirstSide = 1600;
constexpr int kLargestSide = 6000;
constexpr qint64 kLargePixels = 60'000'000;

QString CodeIn(const QImage& grey) {
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::QRCode);
    hints.setTryHarder(true);
    hints.setTryRotate(true);
    try {
        const ZXing::Result found =
            ZXing::ReadBarcode({grey.constBits(), grey.width(), grey.height(),
                                ZXing::ImageFormat::Lum, int(grey.bytesPerLine())},
                               hints);
        return found.isValid() ? QString::fromStdString(found.text()) : QString();
    } catch (const std::exception&) {
        return {}; // what the library makes nothing of is no code
    }
}

/// Of what is very narrow a pixel is left.
QSize Within(const QSize& size, int side) {
    return size.scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QImage NoLargerThan(const QImage& image, int side) {
    return qMax(image.width(), image.height()) <= side
               ? image
               : image.scaled(Within(image.size(), side), Qt::IgnoreAspectRatio,
                              Qt::SmoothTransformation);
}

} // namespace

QString ReadQr(const QImage& image) {
    if (image.isNull()) {
        return {};
    }
    // What is transparent stands on white.
    QImage opaque = image;
    if (image.hasAlphaChannel()) {
        opaque = QImage(image.size(), QImage::Format_RGB32);
        opaque.fill(Qt::white);
        QPainter(&opaque).drawImage(0, 0, image);
    }
    const QImage grey =
        NoLargerThan(opaque, kLargestSide).convertToFormat(QImage::Format_Grayscale8);
    const QImage small = NoLargerThan(grey, kFirstSide);
    const QString text = CodeIn(small);
    return !text.isEmpty() || small.size() == grey.size() ? text : CodeIn(grey);
}

QrReading ReadQrFile(const QString& path) {
    const QString name = QDir::toNativeSeparators(path);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    const bool isHuge = qint64(size.width()) * size.height() > kLargePixels;
    // Formats that can't be read smaller are refused by Qt where they would take too much memory.
    if (qMax(size.width(), size.height()) > kLargestSide) {
        reader.setScaledSize(Within(size, kLargestSide));
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        return {{},
                isHuge ? u"图片过大，没有读取：%1。请缩小后再试。"_s.arg(name)
                       : u"无法读取图片：%1。请选择图片文件。"_s.arg(name)};
    }
    return {ReadQr(image), {}};
}

} // namespace host
