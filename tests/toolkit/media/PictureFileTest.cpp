#include "toolkit/media/PictureFile.h"

#include "tests/support/TempFolder.h"
#include "tests/viewers/support/FlatJpeg.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QTransform>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using support::CornerMarked;
using support::IsNear;
using toolkit::DecodePicture;
using toolkit::ReadPictureSize;

namespace {

class PictureFile : public testing::Test {
protected:
    QString Write(const QByteArray& bytes) {
        return folder.Write(u"%1.jpg"_s.arg(++m_count), bytes);
    }
    [[nodiscard]] static QImage Decode(const QString& path, const QSize& size,
                                       const QRect& part = {}) {
        return DecodePicture({path, part, size, QColor(250, 250, 250)});
    }

    support::TempFolder folder;

private:
    int m_count = 0;
};

void ExpectUpright(const QImage& image, int orientation) {
    const int x = image.width();
    const int y = image.height();
    EXPECT_TRUE(IsNear(image.pixelColor(x / 4, y / 4), support::kTopLeft)) << orientation;
    EXPECT_TRUE(IsNear(image.pixelColor(x * 3 / 4, y / 4), support::kTopRight)) << orientation;
    EXPECT_TRUE(IsNear(image.pixelColor(x / 4, y * 3 / 4), support::kBottomLeft)) << orientation;
    EXPECT_TRUE(IsNear(image.pixelColor(x * 3 / 4, y * 3 / 4), support::kBottomRight))
        << orientation;
}

/// Counts what is said to nobody while it lives.
class Overheard final {
public:
    Overheard() : m_before(qInstallMessageHandler(&Overheard::Count)) { said = 0; }
    ~Overheard() { qInstallMessageHandler(m_before); }
    Overheard(const Overheard&) = delete;
    Overheard& operator=(const Overheard&) = delete;

    static inline int said = 0;

private:
    static void Count(QtMsgType, const QMessageLogContext&, const QString&) { ++said; }

    QtMessageHandler m_before;
};

/// Check sum of a PNG chunk (PNG, annex D).
quint32 Crc32(const QByteArray& bytes) {
    quint32 sum = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum & 1U) != 0 ? 0xEDB88320U ^ (sum >> 1U) : sum >> 1U;
        }
    }
    return ~sum;
}

/// How an upright picture lies in a file that must be turned by `orientation`.
QImage AsStored(const QImage& upright, int orientation) {
    const auto turned = [&](int degrees) {
        return upright.transformed(QTransform().rotate(degrees));
    };
    switch (orientation) {
    case 2:
        return upright.mirrored(true, false);
    case 3:
        return turned(180);
    case 4:
        return upright.mirrored(false, true);
    case 5:
        return turned(90).mirrored(true, false);
    case 6:
        return turned(270);
    case 7:
        return turned(90).mirrored(false, true);
    case 8:
        return turned(90);
    default:
        return upright;
    }
}

} // namespace

TEST_F(PictureFile, StandsUprightByItsCamerasOrientation) {
    const QImage upright = CornerMarked({320, 160});
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QString path = Write(support::JpegBytes(AsStored(upright, orientation), orientation));
        EXPECT_EQ(ReadPictureSize(path), QSize(320, 160)) << orientation;
        const QImage image = Decode(path, {80, 40});
        ASSERT_EQ(image.size(), QSize(80, 40)) << orientation;
        ExpectUpright(image, orientation);
    }
}

TEST_F(PictureFile, AnUprightPartIsTheSameInEveryOrientation) {
    const QImage upright = CornerMarked({320, 160});
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QString path = Write(support::JpegBytes(AsStored(upright, orientation), orientation));
        // The quarter at the top right with a little of its neighbours, reduced and enlarged.
        for (const QSize& size : {QSize(44, 22), QSize(352, 176)}) {
            const QImage image = Decode(path, size, QRect(144, 0, 176, 88));
            ASSERT_EQ(image.size(), size) << orientation;
            const int x = size.width();
            const int y = size.height();
            EXPECT_TRUE(IsNear(image.pixelColor(x / 2, y / 2), support::kTopRight)) << orientation;
            EXPECT_TRUE(IsNear(image.pixelColor(x / 44, y / 2), support::kTopLeft)) << orientation;
            EXPECT_TRUE(IsNear(image.pixelColor(x / 2, y - 1), support::kBottomRight, 40))
                << orientation;
        }
    }
}

TEST_F(PictureFile, AnswersWithTheSizeAskedForInTheFormatOfScreens) {
    const QString path = Write(support::JpegBytes(CornerMarked({300, 200})));
    const QImage image = Decode(path, {31, 47});
    EXPECT_EQ(image.size(), QSize(31, 47));
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    EXPECT_EQ(image.devicePixelRatio(), 1);
    EXPECT_EQ(Decode(path, {600, 400}).size(), QSize(600, 400));
}

TEST_F(PictureFile, IsToldByItsContentNotByItsName) {
    const QString path = Write(support::PngBytes(CornerMarked({30, 20})));
    EXPECT_EQ(ReadPictureSize(path), QSize(30, 20));
    ExpectUpright(Decode(path, {30, 20}), 0);
}

TEST_F(PictureFile, WhatIsTransparentShowsTheBackground) {
    QImage image(20, 20, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QString path = Write(support::PngBytes(image));
    EXPECT_EQ(Decode(path, {10, 10}).pixelColor(5, 5), QColor(250, 250, 250));
}

TEST_F(PictureFile, NoPictureGivesNoSizeAndNoImage) {
    const QByteArray jpeg = support::JpegBytes(CornerMarked({300, 200}));
    for (const QString& path :
         {folder.Path(u"none.jpg"_s), folder.Path(), Write(""), Write("just a text\n"),
          Write(jpeg.left(20)), Write(QByteArray("\x89PNG\r\n\x1a\n", 8)),
          Write("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>")}) {
        EXPECT_TRUE(ReadPictureSize(path).isEmpty()) << path.toStdString();
        EXPECT_TRUE(Decode(path, {10, 10}).isNull()) << path.toStdString();
        EXPECT_TRUE(toolkit::DecodeWholePicture(path).isNull()) << path.toStdString();
    }
}

TEST_F(PictureFile, AFileThatBreaksOffGivesWhatThereIsOfIt) {
    const QByteArray jpeg = support::JpegBytes(CornerMarked({300, 200}));
    const QString path = Write(jpeg.left(jpeg.size() * 2 / 3));
    EXPECT_EQ(ReadPictureSize(path), QSize(300, 200));
    const QImage image = Decode(path, {30, 20});
    ASSERT_FALSE(image.isNull());
    EXPECT_TRUE(IsNear(image.pixelColor(5, 2), support::kTopLeft));
}

TEST_F(PictureFile, ADamagedFileSaysNothingBesideTheScreen) {
    const QByteArray jpeg = support::JpegBytes(CornerMarked({300, 200}));
    const QString path = Write(jpeg.left(jpeg.size() * 2 / 3));
    ASSERT_FALSE(Decode(Write(jpeg), {30, 20}).isNull());
    const Overheard overheard;
    EXPECT_FALSE(Decode(path, {30, 20}).isNull());
    EXPECT_EQ(overheard.said, 0);
}

TEST_F(PictureFile, InksAndGreyAndSixteenBitsAreShown) {
    const QImage cyan = Decode(Write(support::FlatJpeg({64, 48}, {0, 255, 255, 255})), {16, 12});
    ASSERT_FALSE(cyan.isNull());
    EXPECT_TRUE(IsNear(cyan.pixelColor(8, 6), QColor(0, 255, 255)));
    const QImage grey = Decode(Write(support::FlatJpeg({64, 48}, {100})), {16, 12});
    EXPECT_EQ(grey.format(), QImage::Format_RGB32);
    EXPECT_TRUE(IsNear(grey.pixelColor(8, 6), QColor(100, 100, 100)));
    const QImage deep = CornerMarked({40, 20}).convertToFormat(QImage::Format_RGBA64);
    ExpectUpright(Decode(Write(support::PngBytes(deep)), {40, 20}), 0);
}

TEST_F(PictureFile, AnAnimationShowsItsFirstFrame) {
    const QString path = Write(support::AnimatedGif());
    EXPECT_EQ(ReadPictureSize(path), QSize(1, 1));
    EXPECT_EQ(Decode(path, {4, 4}).pixelColor(2, 2), QColor(Qt::red));
}

TEST_F(PictureFile, ThirtyThousandSquareIsReducedWhileItIsRead) {
    const QString path = Write(support::FlatJpeg({30000, 30000}, {200}));
    EXPECT_EQ(ReadPictureSize(path), QSize(30000, 30000));
    const QImage image = Decode(path, {90, 90}, QRect(0, 0, 30000, 30000));
    ASSERT_EQ(image.size(), QSize(90, 90));
    EXPECT_TRUE(IsNear(image.pixelColor(45, 45), QColor(200, 200, 200)));
}

TEST_F(PictureFile, APlainPictureOfThatSizeIsRefused) {
    // The header alone says 30,000 by 30,000.
    QByteArray png = support::PngBytes(CornerMarked({16, 16}));
    png.replace(16, 8, QByteArray::fromHex("0000753000007530"));
    const quint32 check = qToBigEndian(Crc32(png.mid(12, 17)));
    png.replace(29, 4, reinterpret_cast<const char*>(&check), 4);
    EXPECT_TRUE(ReadPictureSize(Write(png)).isEmpty());
    // The same with a size that is let in, so that it is the size that was refused above.
    png.replace(16, 8, QByteArray::fromHex("0000003000000030"));
    const quint32 other = qToBigEndian(Crc32(png.mid(12, 17)));
    png.replace(29, 4, reinterpret_cast<const char*>(&other), 4);
    EXPECT_EQ(ReadPictureSize(Write(png)), QSize(48, 48));
}

TEST_F(PictureFile, AVeryThinPictureAndASinglePixelAreShown) {
    const QString thin = Write(support::PngBytes(support::OneColour({10, 20000}, Qt::darkGreen)));
    EXPECT_EQ(ReadPictureSize(thin), QSize(10, 20000));
    const QImage cover = Decode(thin, {94, 79}, QRect(0, 9996, 10, 8));
    ASSERT_EQ(cover.size(), QSize(94, 79));
    EXPECT_EQ(cover.pixelColor(40, 40), QColor(Qt::darkGreen));
    const QString dot = Write(support::PngBytes(support::OneColour({1, 1}, Qt::darkGreen)));
    EXPECT_EQ(Decode(dot, {94, 79}, QRect(0, 0, 1, 1)).pixelColor(0, 0), QColor(Qt::darkGreen));
}

TEST_F(PictureFile, APartBesideThePictureIsTheWholePicture) {
    const QString path = Write(support::JpegBytes(CornerMarked({300, 200})));
    ExpectUpright(Decode(path, {30, 20}, QRect(400, 400, 10, 10)), 0);
    EXPECT_TRUE(Decode(path, QSize()).isNull());
}

TEST_F(PictureFile, AStoppedDecodingEndsWithAUselessResult) {
    const QString path = Write(support::JpegBytes(CornerMarked({300, 200})));
    const std::atomic<bool> stop{true};
    EXPECT_TRUE(DecodePicture({path, {}, {30, 20}, Qt::white}, &stop).isNull());
}

TEST_F(PictureFile, APartBelowTheMiddleIsThatPartReducedAndEnlarged) {
    const QString path = Write(support::JpegBytes(CornerMarked({320, 160})));
    for (const QSize& size : {QSize(44, 22), QSize(352, 176)}) {
        const QImage image = Decode(path, size, QRect(144, 72, 176, 88));
        ASSERT_EQ(image.size(), size);
        const int x = size.width();
        const int y = size.height();
        EXPECT_TRUE(IsNear(image.pixelColor(x / 2, y / 2), support::kBottomRight));
        EXPECT_TRUE(IsNear(image.pixelColor(x / 2, y - 2), support::kBottomRight));
        EXPECT_TRUE(IsNear(image.pixelColor(x / 44, y / 2), support::kBottomLeft));
    }
}

TEST_F(PictureFile, APartBetweenTheEdgesIsReducedInItsPlace) {
    const QString path = Write(support::JpegBytes(CornerMarked({320, 160})));
    // The middle of the picture lies 10 pixels below the part's top.
    const QImage image = Decode(path, {44, 22}, QRect(144, 40, 176, 88));
    EXPECT_TRUE(IsNear(image.pixelColor(22, 5), support::kTopRight));
    EXPECT_TRUE(IsNear(image.pixelColor(22, 16), support::kBottomRight));
}
