#include "toolkit/media/KxMemDC.h"

#include <gtest/gtest.h>

namespace {

QImage Target(qreal ratio = 1) {
    QImage image(QSize(40, 30) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::gray);
    return image;
}

} // namespace

TEST(KxMemDC, IsCopiedToItsRectangleWhenItEnds) {
    QImage image = Target();
    QPainter painter(&image);
    {
        CKxMemDC surface(&painter, QRect(10, 5, 20, 10), false, true);
        surface.Painter().fillRect(QRect(0, 0, 20, 10), Qt::red);
        EXPECT_EQ(image.pixelColor(15, 10), QColor(Qt::gray)) << "not before it ends";
    }
    EXPECT_EQ(image.pixelColor(10, 5), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(29, 14), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(9, 5), QColor(Qt::gray));
    EXPECT_EQ(image.pixelColor(30, 14), QColor(Qt::gray));
}

TEST(KxMemDC, WithoutCopyLeavesTheTargetUntouched) {
    QImage image = Target();
    const QImage before = image.copy();
    {
        QPainter painter(&image);
        CKxMemDC surface(&painter, QRect(0, 0, 40, 30), true, false);
        surface.Painter().fillRect(QRect(0, 0, 40, 30), Qt::red);
        EXPECT_EQ(surface.Bitmap().pixelColor(5, 5), QColor(Qt::red));
    }
    EXPECT_EQ(image, before);
}

TEST(KxMemDC, TakesTheTargetsCoordinatesOnRequest) {
    QImage image = Target();
    {
        QPainter painter(&image);
        CKxMemDC surface(&painter, QRect(10, 5, 20, 10), true, true);
        surface.Painter().fillRect(QRect(10, 5, 20, 10), Qt::white);
        surface.Painter().fillRect(QRect(12, 7, 1, 1), Qt::red);
    }
    EXPECT_EQ(image.pixelColor(12, 7), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(13, 7), QColor(Qt::white));
}

TEST(KxMemDC, HasTheTargetsDevicePixels) {
    QImage image = Target(2);
    {
        QPainter painter(&image);
        CKxMemDC surface(&painter, QRect(10, 5, 20, 10), true, true);
        EXPECT_EQ(surface.DeviceSize(), QSize(40, 20));
        surface.Painter().fillRect(QRectF(10, 5, 0.5, 0.5), Qt::red);
    }
    EXPECT_EQ(image.pixelColor(20, 10), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(21, 10), QColor(Qt::white));
}

TEST(KxMemDC, KeepsAFinishedImageAsACache) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    image.fill(Qt::green);
    CKxMemDC cache(image);
    EXPECT_EQ(cache.Size(), QSize(20, 10));
    EXPECT_EQ(cache.Bitmap().pixelColor(0, 0), QColor(Qt::green));
}

TEST(KxMemDC, AnEmptyRectanglePaintsNothing) {
    QImage image = Target();
    const QImage before = image.copy();
    {
        QPainter painter(&image);
        const CKxMemDC surface(&painter, QRect(5, 5, 0, 0), true, true);
    }
    EXPECT_EQ(image, before);
}
