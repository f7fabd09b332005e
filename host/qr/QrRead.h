// The QR code in a picture.
#pragma once

#include <QImage>
#include <QString>

namespace host {

/// Of the code that is found first, turned and seen from the side too; empty without one.
/// Thread: any.
[[nodiscard]] QString ReadQr(const QImage& image);

/// What the file of a picture says.
struct QrReading {
    QString text;  ///< empty: no code was found
    QString fault; ///< Chinese; empty: the picture was read
};

/// Of a photograph too: a very large one is made smaller first. Thread: any.
[[nodiscard]] QrReading ReadQrFile(const QString& path);

} // namespace host
