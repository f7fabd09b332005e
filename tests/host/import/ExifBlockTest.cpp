#include "host/import/ExifBlock.h"

#include "tests/host/import/ForeignPictures.h"

#include <gtest/gtest.h>

namespace {

using importtest::CameraExif;

TEST(ExifBlock, IsFoundBehindWhatStandsBeforeIt) {
    const QByteArray block = CameraExif(6);
    EXPECT_EQ(host::PlainExif(block), block);
    EXPECT_EQ(host::PlainExif("Exif" + QByteArray(2, '\0') + block), block);
    EXPECT_EQ(host::PlainExif(QByteArray(3, '\0') + '\6' + "Exif" + QByteArray(2, '\0') + block),
              block);
    EXPECT_TRUE(host::PlainExif("no block at all").isEmpty());
    EXPECT_TRUE(host::PlainExif({}).isEmpty());
}

TEST(ExifBlock, ItsOrientationIsReadInBothByteOrders) {
    for (const bool isBig : {false, true}) {
        EXPECT_EQ(host::ExifOrientation(CameraExif(6, isBig)), 6);
        EXPECT_EQ(host::ExifOrientation(CameraExif(9, isBig)), 1);
    }
    EXPECT_EQ(host::ExifOrientation({}), 1);
}

TEST(ExifBlock, UprightItDiffersInTheOrientationAlone) {
    for (const bool isBig : {false, true}) {
        EXPECT_EQ(host::UprightExif(CameraExif(6, isBig)), CameraExif(1, isBig));
    }
}

TEST(ExifBlock, UprightItHasNoThumbnail) {
    QByteArray block = CameraExif(1);
    const QByteArray plain = block;
    block[8 + 2 + 4 * 12] = '\x55';
    EXPECT_EQ(host::UprightExif(block), plain);
}

TEST(ExifBlock, OneThatIsTooLongKeepsWhatIsShort) {
    const QByteArray block = host::UprightExif(CameraExif(6) + QByteArray(70000, 'x'));
    EXPECT_LT(block.size(), 400);
    EXPECT_EQ(host::ExifOrientation(block), 1);
    EXPECT_TRUE(block.contains("Model 7"));
    EXPECT_TRUE(block.contains("2024:03:12 14:25:36"));
}

TEST(ExifBlock, ATiffGivesWhatSpeaksOfTheExposure) {
    importtest::TiffWishes wishes;
    wishes.orientation = 8;
    wishes.hasCamera = true;
    const QByteArray block = host::TiffExif(importtest::Tiff(importtest::Corners(), wishes));
    EXPECT_EQ(host::ExifOrientation(block), 1);
    EXPECT_TRUE(block.contains("Maker"));
    EXPECT_TRUE(block.contains("2024:03:12 14:25:36"));
    EXPECT_LT(block.size(), 400);
}

TEST(ExifBlock, ATiffWithoutACameraGivesNone) {
    EXPECT_TRUE(host::TiffExif(importtest::Tiff(importtest::Corners())).isEmpty());
    EXPECT_TRUE(host::TiffExif("no tiff").isEmpty());
}

TEST(ExifBlock, BrokenOnesDoNoHarm) {
    for (const bool isBig : {false, true}) {
        const QByteArray whole = CameraExif(6, isBig);
        for (qsizetype size = 0; size < whole.size(); ++size) {
            (void)host::UprightExif(whole.left(size));
            EXPECT_LE(host::TiffExif(whole.left(size)).size(), host::kMostExif);
        }
        for (qsizetype at = 4; at < whole.size(); ++at) {
            QByteArray crafted = whole;
            crafted[at] = '\xFF';
            const int orientation = host::ExifOrientation(crafted);
            EXPECT_TRUE(orientation >= 1 && orientation <= 8) << at;
            EXPECT_LE(host::UprightExif(crafted).size(), crafted.size());
            (void)host::TiffExif(crafted);
        }
    }
}

} // namespace
