#include "host/qr/QrImage.h"

#include <QPainter>

#include <memory>
#include <qrencode.h>

namespace host {

QImage QrImageOf(const QString& text, int modulePixels) {
    const QByteArray bytes = text.toUtf8();
    const std::unique_ptr<QRcode, void (*)(QRcode*)> code(
        bytes.isEmpty()
            ? nullptr
            : QRcode_encodeData(int(bytes.size()),
                                reinterpret_cast<const unsigned char*>(bytes.constData()), 0,
                                QR_ECLEVEL_M),
        QRcode_free);
    if (code == nullptr || modulePixels <= 0) {
        return {};
    }
    const int side = (code->width + 2 * kQuietModules) * modulePixels;
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int y = 0; y < code->width; ++y) {
        for (int x = 0; x < code->width; ++x) {
            // The lowest bit is the colour, the others say what the module is there for.
            if ((code->data[y * code->width + x] & 1) != 0) {
                painter.fillRect((x + kQuietModules) * modulePixels,
                                 (y + kQuietModules) * modulePixels, modulePixels, modulePixels,
                                 Qt::black);
            }
        }
    }
    return image;
}

} // namespace host
