#include "viewers/PicStatic.h"

#include "tests/support/TempFolder.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QDateTime>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using support::IsNear;

namespace {

QImage Shown(const QString& path, const QSize& size) {
    CPicStatic control;
    control.resize(size);
    control.picPath = path;
    QImage image = control.grab().toImage();
    EXPECT_EQ(control.ClientRect(), QRect(QPoint(0, 0), size));
    return image;
}

/// Bounds of the pixels that differ from the first one.
QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

} // namespace

TEST(PicStatic, WithoutAPictureSaysSoInItsMiddle) {
    const QImage image = Shown(QString(), {200, 120});
    const QRect ink = InkOf(image);
    EXPECT_NEAR(ink.center().x(), 100, 2);
    EXPECT_GT(ink.width(), 40);
    EXPECT_NEAR(ink.bottom(), 60, 4) << "the text stands on the middle line";
    bool navy = false;
    for (int x = ink.left(); x <= ink.right(); ++x) {
        navy = navy || IsNear(image.pixelColor(x, ink.center().y()), QColor(0x15, 0x42, 0x8B), 60);
    }
    EXPECT_TRUE(navy);
}

TEST(PicStatic, ATallPictureInAWideControlShowsItsCoverCropWithoutDistortion) {
    const support::TempFolder folder;
    const QString path =
        folder.Write(u"a.jpg"_s, support::JpegBytes(support::CornerMarked({100, 400})));
    const QImage image = Shown(path, {200, 100});
    // The middle 100 by 50 of the picture: all four quarters meet in the control's middle.
    EXPECT_TRUE(IsNear(image.pixelColor(2, 2), support::kTopLeft));
    EXPECT_TRUE(IsNear(image.pixelColor(197, 2), support::kTopRight));
    EXPECT_TRUE(IsNear(image.pixelColor(2, 97), support::kBottomLeft));
    EXPECT_TRUE(IsNear(image.pixelColor(197, 97), support::kBottomRight));
    EXPECT_TRUE(IsNear(image.pixelColor(95, 45), support::kTopLeft));
    EXPECT_TRUE(IsNear(image.pixelColor(104, 54), support::kBottomRight));
}

TEST(PicStatic, AFileThatIsNoPictureLeavesTheBackground) {
    const support::TempFolder folder;
    const QString text = folder.Write(u"a.jpg"_s, "no picture");
    for (const QString& path : {text, folder.Path(u"none.jpg"_s)}) {
        const QImage image = Shown(path, {50, 50});
        EXPECT_EQ(image.pixelColor(25, 25), QColor(0xFA, 0xFA, 0xFA));
        EXPECT_TRUE(InkOf(image).isEmpty());
    }
}

TEST(PicStatic, APictureThatIsReplacedShowsAnew) {
    const support::TempFolder folder;
    const QString path =
        folder.Write(u"a.png"_s, support::PngBytes(support::OneColour({9, 9}, Qt::red)));
    CPicStatic control;
    control.resize(20, 20);
    control.picPath = path;
    EXPECT_EQ(control.grab().toImage().pixelColor(10, 10), QColor(Qt::red));
    control.picPath =
        folder.Write(u"b.png"_s, support::PngBytes(support::OneColour({9, 9}, Qt::blue)));
    EXPECT_EQ(control.grab().toImage().pixelColor(10, 10), QColor(Qt::blue));
}

TEST(PicStatic, WhatAPictureLeavesTransparentIsThePanesGrey) {
    const support::TempFolder folder;
    QImage clear(9, 9, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    const QImage image = Shown(folder.Write(u"a.png"_s, support::PngBytes(clear)), {20, 20});
    EXPECT_EQ(image.pixelColor(10, 10), QColor(250, 250, 250));
}

TEST(PicStatic, TheSameFileIsDecodedAnewForAnotherTimeOrAnotherSizeOnly) {
    const support::TempFolder folder;
    const auto write = [&](const QColor& colour) {
        return folder.Write(u"a.png"_s, support::PngBytes(support::OneColour({9, 9}, colour)));
    };
    const QDateTime time(QDate(2020, 1, 2), QTime(3, 4, 5));
    const auto stamp = [&](const QDateTime& when) {
        QFile file(folder.Path(u"a.png"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(when, QFileDevice::FileModificationTime));
    };
    CPicStatic control;
    control.resize(20, 20);
    control.picPath = write(Qt::red);
    stamp(time);
    const auto shown = [&] { return control.grab().toImage().pixelColor(10, 10); };
    EXPECT_EQ(shown(), QColor(Qt::red));
    write(Qt::blue);
    stamp(time);
    EXPECT_EQ(shown(), QColor(Qt::red)) << "its rendering is kept";
    control.resize(20, 21);
    EXPECT_EQ(shown(), QColor(Qt::blue));
    write(Qt::green);
    stamp(time.addSecs(1));
    EXPECT_EQ(shown(), QColor(Qt::green));
}
