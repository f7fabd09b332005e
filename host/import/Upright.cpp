#include "host/import/Upright.h"

#include <QPainter>

#include <cstring>

namespace host {

QPoint UprightPlace(QPoint stored, QSize size, int orientation) {
    const int x = stored.x();
    const int y = stored.y();
    const int right = size.width() - 1 - x;
    const int below = size.height() - 1 - y;
    switch (orientation) {
    case 2:
        return {right, y};
    case 3:
        return {right, below};
    case 4:
        return {x, below};
    case 5:
        return {y, x};
    case 6:
        return {below, x};
    case 7:
        return {below, right};
    case 8:
        return {y, right};
    default:
        return stored;
    }
}

QSize UprightSize(QSize size, int orientation) {
    return orientation >= 5 && orientation <= 8 ? size.transposed() : size;
}

QImage Upright(QImage picture, int orientation) {
    if (orientation <= 1 || orientation > 8) {
        return picture;
    }
    const QSize size = picture.size();
    QImage upright(UprightSize(size, orientation), QImage::Format_RGB888);
    if (upright.isNull()) {
        return {};
    }
    uchar* const bits = upright.bits();
    for (int y = 0; y < size.height(); ++y) {
        const uchar* const row = picture.constScanLine(y);
        for (int x = 0; x < size.width(); ++x) {
            const QPoint place = UprightPlace({x, y}, size, orientation);
            std::memcpy(bits + place.y() * upright.bytesPerLine() + place.x() * qsizetype{3},
                        row + x * qsizetype{3}, 3);
        }
    }
    return upright;
}

QImage OnWhite(const QImage& picture) {
    QImage opaque(picture.size(), QImage::Format_RGB888);
    if (opaque.isNull()) {
        return {};
    }
    opaque.fill(Qt::white);
    QPainter painter(&opaque);
    painter.drawImage(0, 0, picture);
    return opaque;
}

QByteArray RgbProfile(const QByteArray& profile) {
    // ICC.1, 7.2: the colour space of the data stands at byte 16 of a header of 128.
    const bool isRgb = profile.size() > 128 && profile.mid(16, 4) == "RGB ";
    return isRgb ? profile : QByteArray();
}

} // namespace host
