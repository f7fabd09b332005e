#include "host/qr/QrImage.h"
#include "host/qr/QrRead.h"

#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTransform>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

const QString kCode = u"kxissue:1:12:5b6f0d2e-7c1a-4b7e-9a55-0f3f6f1d2c3b"_s;

/// The code on a desk: a picture around it, in the middle of it.
QImage OnGround(const QImage& code, QSize size, const QTransform& seen = {}) {
    QImage scene(size, QImage::Format_RGB32);
    scene.fill(qRgb(150, 140, 120));
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QImage turned =
        code.convertToFormat(QImage::Format_ARGB32).transformed(seen, Qt::SmoothTransformation);
    painter.drawImage((size.width() - turned.width()) / 2, (size.height() - turned.height()) / 2,
                      turned);
    return scene;
}

TEST(Qr, ATextComesBackFromItsPicture) {
    for (const QString& text : {kCode, u"问题 裂缝 №1"_s, QString(2000, u'a')}) {
        EXPECT_EQ(ReadQr(QrImageOf(text, 4)), text);
    }
}

TEST(Qr, ThePictureHasAQuietZoneAndModulesOfWholePixels) {
    const QImage image = QrImageOf(u"a"_s, 3);
    ASSERT_EQ(image.size(), QSize((21 + 2 * kQuietModules) * 3, (21 + 2 * kQuietModules) * 3));
    for (int at = 0; at < image.width(); ++at) {
        for (int depth = 0; depth < kQuietModules * 3; ++depth) {
            EXPECT_EQ(image.pixel(at, depth), qRgb(255, 255, 255));
            EXPECT_EQ(image.pixel(depth, at), qRgb(255, 255, 255));
        }
    }
    // The finder pattern begins right there: seven dark modules.
    for (int at = 0; at < 7 * 3; ++at) {
        EXPECT_EQ(image.pixel(kQuietModules * 3 + at, kQuietModules * 3), qRgb(0, 0, 0));
    }
    EXPECT_EQ(image.pixel((kQuietModules + 7) * 3, kQuietModules * 3), qRgb(255, 255, 255));
}

TEST(Qr, WhatFitsInNoCodeHasNoPicture) {
    EXPECT_TRUE(QrImageOf({}, 4).isNull());
    EXPECT_TRUE(QrImageOf(u"a"_s, 0).isNull());
    EXPECT_FALSE(QrImageOf(QString(2331, u'a'), 1).isNull());
    EXPECT_TRUE(QrImageOf(QString(2332, u'a'), 1).isNull());
}

TEST(Qr, ATurnedCodeIsRead) {
    const QImage code = QrImageOf(kCode, 6);
    for (const int degrees : {90, 180, 270, 17, 45}) {
        EXPECT_EQ(ReadQr(OnGround(code, {900, 700}, QTransform().rotate(degrees))), kCode)
            << degrees;
    }
}

TEST(Qr, ACodeWithSpecksAndAStainIsRead) {
    QImage image = OnGround(QrImageOf(kCode, 6), {600, 500});
    QRandomGenerator dice(7);
    for (int speck = 0; speck < 4000; ++speck) {
        image.setPixel(dice.bounded(image.width()), dice.bounded(image.height()),
                       dice.bounded(2) != 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
    }
    QPainter(&image).fillRect(310, 260, 24, 24, Qt::gray);
    EXPECT_EQ(ReadQr(image), kCode);
}

TEST(Qr, ACodeSeenFromTheSideInAPhotographIsRead) {
    const QImage code = QrImageOf(kCode, 8);
    const double side = code.width();
    QTransform tilted;
    ASSERT_TRUE(QTransform::quadToQuad(
        QPolygonF({{0, 0}, {side, 0}, {side, side}, {0, side}}),
        QPolygonF({{0, 0}, {side, side * 0.12}, {side * 0.93, side * 0.9}, {side * 0.06, side}}),
        tilted));
    QTemporaryDir dir;
    const QString path = dir.filePath(u"photo.jpg"_s);
    ASSERT_TRUE(OnGround(code, {4000, 3000}, tilted).save(path, "JPG", 60));
    EXPECT_EQ(ReadQrFile(path).text, kCode);
    EXPECT_EQ(ReadQrFile(path).fault, QString());
}

TEST(Qr, ACodeOnTransparentGroundIsRead) {
    QImage image = QrImageOf(kCode, 4).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == qRgb(255, 255, 255)) {
                image.setPixel(x, y, qRgba(0, 0, 0, 0));
            }
        }
    }
    EXPECT_EQ(ReadQr(image), kCode);
}

TEST(Qr, APictureWithoutACodeSaysSoWithoutAFault) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"wall.png"_s);
    ASSERT_TRUE(OnGround(QImage(10, 10, QImage::Format_RGB32), {800, 600}).save(path));
    const QrReading reading = ReadQrFile(path);
    EXPECT_EQ(reading.text, QString());
    EXPECT_EQ(reading.fault, QString());
    EXPECT_EQ(ReadQr({}), QString());
}

TEST(Qr, APictureOfOnePixelsWidthIsReadAndHasNoCode) {
    QTemporaryDir dir;
    QImage narrow(1, 30'000, QImage::Format_RGB32);
    narrow.fill(Qt::white);
    const QString path = dir.filePath(u"narrow.png"_s);
    ASSERT_TRUE(narrow.save(path));
    const QrReading reading = ReadQrFile(path);
    EXPECT_EQ(reading.fault, QString());
    EXPECT_EQ(reading.text, QString());
    EXPECT_EQ(ReadQr(narrow), QString());
}

TEST(Qr, WhatIsNoPictureIsAFaultThatNamesIt) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"broken.jpg"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture at all");
    file.close();
    for (const QString& bad : {path, dir.filePath(u"gone.png"_s), dir.path()}) {
        const QrReading reading = ReadQrFile(bad);
        EXPECT_EQ(reading.text, QString());
        EXPECT_TRUE(reading.fault.contains(bad)) << reading.fault.toStdString();
    }
}

TEST(Qr, APictureOfTooManyPixelsIsToldToBeTooLarge) {
    QTemporaryDir dir;
    const QString path = dir.filePath(u"huge.ppm"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("P6\n30000 30000\n255\n");
    file.close();
    const QrReading reading = ReadQrFile(path);
    EXPECT_TRUE(reading.fault.contains(u"图片过大"_s)) << reading.fault.toStdString();
}

} // namespace
} // namespace host
