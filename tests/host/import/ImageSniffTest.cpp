#include "host/import/ImageSniff.h"

#include "tests/host/import/TestPictures.h"

#include <gtest/gtest.h>

namespace {

using host::ImageKind;
using importtest::Picture;

TEST(ImageSniff, TellsTheKindByTheFirstBytes) {
    EXPECT_EQ(host::SniffImage(Picture("jpeg", 1)), ImageKind::Jpeg);
    EXPECT_EQ(host::SniffImage(Picture("png", 1)), ImageKind::Png);
    EXPECT_EQ(host::SniffImage(Picture("bmp", 1)), ImageKind::Bmp);
    EXPECT_EQ(host::SniffImage(importtest::Gif()), ImageKind::Gif);
    EXPECT_EQ(host::SniffImage(QByteArrayView("\0\0\0\x18"
                                              "ftypheic\0\0\0\0",
                                              16)),
              ImageKind::Heic);
    EXPECT_EQ(host::SniffImage(QByteArrayView("RIFF\x24\0\0\0WEBPVP8 ", 16)), ImageKind::WebP);
    for (const char* head : {"II*", "MM\0*", "II+", "MM\0+"}) {
        EXPECT_EQ(host::SniffImage(QByteArrayView(head, 4)), ImageKind::Tiff);
    }
}

TEST(ImageSniff, TextIsNoPicture) {
    EXPECT_EQ(host::SniffImage("BMW drove up the site road, said the log."), ImageKind::None);
    EXPECT_EQ(host::SniffImage(QByteArrayView("RIFF\x24\0\0\0WAVEfmt ", 16)), ImageKind::None);
    EXPECT_EQ(host::SniffImage("\xFF\xD8"), ImageKind::None);
    EXPECT_EQ(host::SniffImage(""), ImageKind::None);
}

TEST(ImageSniff, APictureIsWholeOnlyWithItsLastByte) {
    const struct {
        ImageKind kind;
        QByteArray bytes;
    } pictures[] = {{ImageKind::Jpeg, Picture("jpeg", 2)},
                    {ImageKind::Jpeg, Picture("jpeg", 2, {64, 48}, true)},
                    {ImageKind::Png, Picture("png", 2)},
                    {ImageKind::Bmp, Picture("bmp", 2)},
                    {ImageKind::Gif, importtest::Gif()}};
    for (const auto& [kind, bytes] : pictures) {
        EXPECT_TRUE(host::ReachesItsEnd(kind, bytes)) << static_cast<int>(kind);
        for (qsizetype length = 0; length < bytes.size(); ++length) {
            ASSERT_FALSE(host::ReachesItsEnd(kind, QByteArrayView(bytes).first(length)))
                << static_cast<int>(kind) << " cut at " << length;
        }
    }
}

TEST(ImageSniff, WhatAPhoneAppendsDoesNoHarm) {
    EXPECT_TRUE(host::ReachesItsEnd(ImageKind::Jpeg, Picture("jpeg", 3) + "MotionPhoto\xFF\xD8"));
}

TEST(ImageSniff, TheEndOfAThumbnailIsNotTheEndOfThePicture) {
    const QByteArray thumbnail = Picture("jpeg", 4, {16, 16});
    const QByteArray whole =
        importtest::WithSegment(Picture("jpeg", 5), '\xE1', "Exif" + thumbnail);
    EXPECT_TRUE(host::ReachesItsEnd(ImageKind::Jpeg, whole));
    EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Jpeg, whole.chopped(40)));
}

TEST(ImageSniff, AGifWithColoursOfItsPictureIsWhole) {
    QByteArray gif = importtest::Gif();
    const qsizetype flags = gif.indexOf(QByteArray::fromHex("2C")) + 9;
    gif[flags] = '\x80';
    gif.insert(flags + 1,
               QByteArray::fromHex("3B3B3B000000")); // two colours, the first like an end
    EXPECT_TRUE(host::ReachesItsEnd(ImageKind::Gif, gif));
    EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Gif, gif.chopped(1)));
}

TEST(ImageSniff, APackedBitmapIsWholeWithAllTheBytesThatItsHeaderNames) {
    QByteArray bmp = Picture("bmp", 1);
    bmp.replace(30, 4, QByteArray::fromHex("01000000")); // run lengths
    const qsizetype there = bmp.size() - quint8(bmp[10]);
    for (int byte = 0; byte < 4; ++byte) {
        bmp[34 + byte] = char(there >> 8 * byte & 0xFF);
    }
    EXPECT_TRUE(host::ReachesItsEnd(ImageKind::Bmp, bmp));
    EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Bmp, bmp.chopped(1)));
}

TEST(ImageSniff, HostileLengthsEndTheWalk) {
    EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Jpeg, QByteArray::fromHex("FFD8FFE0FFFF00")));
    EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Jpeg, QByteArray::fromHex("FFD8FFE00000FFD9")));
    EXPECT_FALSE(host::ReachesItsEnd(
        ImageKind::Png, QByteArray::fromHex("89504E470D0A1A0AFFFFFFFF4948445200000000")));
    EXPECT_FALSE(
        host::ReachesItsEnd(ImageKind::Gif, QByteArray::fromHex("474946383961040004008700002C")));
    QByteArray bmp = Picture("bmp", 1);
    bmp[25] = '\x7F'; // the height's highest byte
    EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Bmp, bmp));
}

TEST(ImageSniff, ABitmapWhoseSizeIsPastSixtyFourBitsIsNotWhole) {
    QByteArray bmp = Picture("bmp", 1);
    bmp.replace(18, 4, QByteArray::fromHex("00000040")); // width 2^30
    bmp.replace(28, 2, QByteArray::fromHex("4000"));     // 64 bits a pixel: a row is 2^33 bytes
    for (const char* height : {"00000040", "00000080", "ffffff7f"}) { // 2^30, -2^31, 2^31 - 1
        bmp.replace(22, 4, QByteArray::fromHex(height));
        EXPECT_FALSE(host::ReachesItsEnd(ImageKind::Bmp, bmp)) << height;
    }
}

} // namespace
