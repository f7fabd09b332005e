#include "viewers/PlayProgressCtrl.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

namespace {

const QColor kBackground(0xF8, 0xFC, 0xFD);
const QColor kFrame(0xCC, 0xDD, 0xE7);
const QColor kGroove(0xDA, 0xE7, 0xEE);
const QColor kTop(0x84, 0xC5, 0xFF);
const QColor kMiddle(0x0F, 0x41, 0xCD);
const QColor kBottom(0x6E, 0x96, 0xFF);

QImage Painted(int lower, int upper, int pos, const QSize& size = {100, 10},
               bool vertical = false) {
    CPlayProgressCtrl bar;
    bar.resize(size);
    bar.SetRange(lower, upper);
    bar.SetPos(pos);
    bar.SetVertical(vertical);
    return bar.grab().toImage();
}

void ExpectFrameAndGrooveOnly(const QImage& image) {
    const int right = image.width() - 1;
    const int bottom = image.height() - 2;
    for (const QPoint& corner :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
        EXPECT_EQ(image.pixelColor(corner), kFrame);
    }
    for (int x = 1; x < right; ++x) {
        EXPECT_EQ(image.pixelColor(x, 2), kGroove);
    }
    EXPECT_EQ(image.pixelColor(5, image.height() - 1), kBackground) << "the frame leaves a line";
}

} // namespace

TEST(PlayProgressCtrl, AtPositionZeroPaintsFrameAndGrooveOnly) {
    ExpectFrameAndGrooveOnly(Painted(0, 10, 0));
}

TEST(PlayProgressCtrl, ARangeOfZeroToZeroPaintsFrameAndGrooveOnly) {
    ExpectFrameAndGrooveOnly(Painted(0, 0, 0));
    ExpectFrameAndGrooveOnly(Painted(0, 0, 7));
}

TEST(PlayProgressCtrl, TheBarHasFourLinesAndIsNarrowedAtEachEnd) {
    const QImage image = Painted(0, 10, 5);
    EXPECT_EQ(image.pixelColor(1, 0), kTop);
    EXPECT_EQ(image.pixelColor(1, 1), kMiddle);
    EXPECT_EQ(image.pixelColor(1, 2), kMiddle);
    EXPECT_EQ(image.pixelColor(1, 3), kBottom);
    EXPECT_EQ(image.pixelColor(1, 4), kGroove);
    EXPECT_EQ(image.pixelColor(0, 1), kFrame);
    EXPECT_EQ(image.pixelColor(48, 1), kMiddle);
    EXPECT_EQ(image.pixelColor(49, 1), kGroove);
}

TEST(PlayProgressCtrl, OfABarOfOnePixelOrTwoNothingIsLeft) {
    ExpectFrameAndGrooveOnly(Painted(0, 100, 1));
    ExpectFrameAndGrooveOnly(Painted(0, 100, 2));
    EXPECT_EQ(Painted(0, 100, 3).pixelColor(1, 1), kMiddle);
    EXPECT_EQ(Painted(0, 1, 1, {1, 40}, true), Painted(0, 1, 0, {1, 40}, true)) << "upright";
}

TEST(PlayProgressCtrl, ThePixelsAreTruncated) {
    const QImage image = Painted(0, 3, 2);
    EXPECT_EQ(image.pixelColor(64, 1), kMiddle);
    EXPECT_EQ(image.pixelColor(65, 1), kGroove);
}

TEST(PlayProgressCtrl, ALowerEndOtherThanZeroCounts) {
    const QImage image = Painted(10, 20, 15);
    EXPECT_EQ(image.pixelColor(48, 1), kMiddle);
    EXPECT_EQ(image.pixelColor(50, 1), kGroove);
}

TEST(PlayProgressCtrl, AVerticalBarBeginsAtItsHeight) {
    const QImage image = Painted(0, 10, 5, {20, 100}, true);
    EXPECT_EQ(image.pixelColor(10, 49), kGroove);
    EXPECT_EQ(image.pixelColor(10, 50), kTop);
    EXPECT_EQ(image.pixelColor(10, 53), kBottom);
    EXPECT_EQ(image.pixelColor(10, 54), kGroove);
    EXPECT_EQ(image.pixelColor(1, 51), kMiddle) << "narrowed by one pixel";
    EXPECT_EQ(image.pixelColor(18, 51), kMiddle);
    EXPECT_NE(image.pixelColor(19, 51), kMiddle);
}

TEST(PlayProgressCtrl, PositionsAreClamped) {
    CPlayProgressCtrl bar;
    bar.SetRange(0, 90);
    bar.SetPos(200);
    EXPECT_EQ(bar.GetPos(), 90);
    bar.SetPos(-1);
    EXPECT_EQ(bar.GetPos(), 0);
    bar.SetPos(60);
    bar.SetRange(0, 30);
    EXPECT_EQ(bar.GetPos(), 30);
    bar.SetRange(5, 1);
    EXPECT_EQ(bar.Upper(), 5);
}
