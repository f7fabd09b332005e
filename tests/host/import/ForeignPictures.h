// HEIC, TIFF and WebP files, made by the libraries' own encoders.
#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace importtest {

/// Grey but for its corners: red, green, blue, white from the upper left one on, clockwise.
[[nodiscard]] QImage Corners(QSize size = {64, 48});
/// The letters R, G, B, W (or "?") in the order of Corners: which corner is where.
[[nodiscard]] QString CornersOf(const QImage& picture);

/// An EXIF block with maker, model, time and orientation, without what stands before it.
[[nodiscard]] QByteArray CameraExif(int orientation, bool isBig = false);
/// An ICC profile as Qt writes that of sRGB.
[[nodiscard]] QByteArray RgbIcc();

struct HeicWishes {
    QByteArray exif;
    QByteArray icc;
    int pictures = 1;
    int orientation = 1; ///< a turn of the file's own, as EXIF numbers them
};
[[nodiscard]] QByteArray Heic(const QImage& picture, const HeicWishes& wishes = {});

struct TiffWishes {
    int orientation = 1;
    int pages = 1;
    bool hasSmallCopy = false; ///< a reduced copy behind the pages
    bool isTiled = false;
    bool hasAlpha = false; ///< of the picture
    QByteArray icc;
    bool hasCamera = false; ///< maker, model and the time of the exposure
};
[[nodiscard]] QByteArray Tiff(const QImage& picture, const TiffWishes& wishes = {});
/// A TIFF of one page whose header claims this size.
[[nodiscard]] QByteArray TiffOfSize(quint32 width, quint32 height);

struct WebpWishes {
    QByteArray exif;
    QByteArray icc;
    int frames = 1;
};
[[nodiscard]] QByteArray Webp(const QImage& picture, const WebpWishes& wishes = {});

} // namespace importtest
