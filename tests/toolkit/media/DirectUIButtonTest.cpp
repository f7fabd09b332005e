#include "toolkit/controls/DirectUIButton.h"

#include <QPainter>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QColor kFrames[] = {Qt::red, Qt::green, Qt::blue, Qt::black};

/// Four frames of 10 by 20, one colour each.
QImage Frames(ClipType clipType) {
    const bool stacked = clipType == ClipType::Stacked;
    QImage image(stacked ? QSize(10, 80) : QSize(40, 20), QImage::Format_RGB32);
    QPainter painter(&image);
    for (int i = 0; i < 4; ++i) {
        painter.fillRect(stacked ? QRect(0, 20 * i, 10, 20) : QRect(10 * i, 0, 10, 20), kFrames[i]);
    }
    return image;
}

CDirectUIButton Sample() {
    CDirectUIButton button(24066, ButtonArrow::Left, u"上一张"_s);
    button.rect = QRect(20, 10, 10, 20);
    button.SetImage(Frames(ClipType::SideBySide), ClipType::SideBySide);
    button.Enable(true);
    return button;
}

QImage Painted(const CDirectUIButton& button) {
    QImage image(60, 50, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    button.Paint(painter);
    return image;
}

QColor ColourOf(const CDirectUIButton& button) {
    return Painted(button).pixelColor(button.rect.center());
}

} // namespace

TEST(DirectUIButton, ShowsTheFrameOfItsState) {
    for (const ClipType clipType : {ClipType::SideBySide, ClipType::Stacked}) {
        CDirectUIButton button = Sample();
        button.SetImage(Frames(clipType), clipType);
        EXPECT_EQ(ColourOf(button), kFrames[0]);
        EXPECT_TRUE(button.PointAt({25, 15}));
        EXPECT_EQ(ColourOf(button), kFrames[1]);
        EXPECT_TRUE(button.Press({25, 15}));
        EXPECT_EQ(ColourOf(button), kFrames[2]);
        button.Enable(false);
        EXPECT_EQ(ColourOf(button), kFrames[3]);
    }
}

TEST(DirectUIButton, IsClickedByAPressAndAReleaseOnIt) {
    CDirectUIButton button = Sample();
    EXPECT_FALSE(button.Press({5, 5}));
    EXPECT_FALSE(button.Release({25, 15}));
    button.Press({25, 15});
    EXPECT_FALSE(button.Release({5, 5})) << "let go outside";
    button.Press({25, 15});
    EXPECT_TRUE(button.Release({29, 29}));
}

TEST(DirectUIButton, DisabledTakesNoInput) {
    CDirectUIButton button = Sample();
    button.Enable(false);
    EXPECT_FALSE(button.Hits({25, 15}));
    EXPECT_FALSE(button.PointAt({25, 15}));
    EXPECT_FALSE(button.Press({25, 15}));
}

TEST(DirectUIButton, TellsOnlyChangesOfHover) {
    CDirectUIButton button = Sample();
    EXPECT_FALSE(button.PointAt({0, 0}));
    EXPECT_TRUE(button.PointAt({25, 15}));
    EXPECT_FALSE(button.PointAt({26, 15}));
    EXPECT_TRUE(button.PointAt({-1, -1}));
}

TEST(DirectUIButton, KeepsItsFramesProportionsInTheMiddle) {
    CDirectUIButton button = Sample();
    button.rect = QRect(10, 10, 40, 20);
    const QImage image = Painted(button);
    EXPECT_EQ(image.pixelColor(30, 20), kFrames[0]);
    EXPECT_EQ(image.pixelColor(23, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(36, 20), QColor(Qt::white));
}

TEST(DirectUIButton, WithoutAnImageAnArrowStandsInItsPlace) {
    CDirectUIButton button = Sample();
    button.SetImage(QImage(), ClipType::SideBySide);
    button.rect = QRect(10, 10, 30, 30);
    const QImage image = Painted(button);
    int left = 0;
    int right = 0;
    for (int y = 10; y < 40; ++y) {
        for (int x = 10; x < 40; ++x) {
            (x < 25 ? left : right) += image.pixelColor(x, y) != QColor(Qt::white);
        }
    }
    EXPECT_GT(left + right, 20);
    EXPECT_NE(Painted(button), image.mirrored(true, false)) << "it points to one side";
}

TEST(DirectUIButton, WithoutAPlaceNothingIsPaintedOrHit) {
    CDirectUIButton button = Sample();
    button.rect = {};
    EXPECT_FALSE(button.Hits({0, 0}));
    const QImage image = Painted(button);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
}

TEST(DirectUIButton, ItsTipIsNameAndKey) {
    EXPECT_EQ(CDirectUIButton(7, ButtonArrow::Left, u"上一张"_s, u"←"_s).Tip(), u"上一张（←）"_s);
    EXPECT_EQ(CDirectUIButton(7, ButtonArrow::Left, u"上一张"_s).Tip(), u"上一张"_s);
}

TEST(DirectUIButton, EnabledAgainItIsNeitherUnderThePointerNorPressed) {
    CDirectUIButton button = Sample();
    button.PointAt({25, 15});
    button.Press({25, 15});
    button.Enable(false);
    button.Enable(true);
    EXPECT_EQ(ColourOf(button), kFrames[0]);
    EXPECT_FALSE(button.Release({25, 15}));
    EXPECT_EQ(ColourOf(button), kFrames[0]);
}

TEST(DirectUIButton, AFrameIsTakenWholeOfStackedOnes) {
    CDirectUIButton button = Sample();
    QImage image = Frames(ClipType::Stacked);
    QPainter painter(&image);
    painter.fillRect(QRect(0, 0, 3, 80), Qt::yellow);
    painter.end();
    button.SetImage(image, ClipType::Stacked);
    const QImage painted = Painted(button);
    EXPECT_EQ(painted.pixelColor(20, 20), QColor(Qt::yellow));
    EXPECT_EQ(painted.pixelColor(21, 20), QColor(Qt::yellow));
    EXPECT_EQ(painted.pixelColor(24, 10), QColor(Qt::red));
    EXPECT_EQ(painted.pixelColor(29, 29), QColor(Qt::red));
}
