#include "tests/host/import/ForeignPictures.h"

#include "host/import/ExifBlock.h"
#include "host/import/FileExamination.h"
#include "host/import/PhotoTime.h"
#include "host/import/ViewJpeg.h"
#include "tests/host/import/TestPictures.h"
#include "tests/support/TempFolder.h"

#include <QBuffer>
#include <QColorSpace>
#include <QCryptographicHash>
#include <QImageReader>

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace Qt::StringLiterals;
using importtest::CameraExif;
using importtest::Corners;
using importtest::CornersOf;
using importtest::Heic;
using importtest::RgbIcc;
using importtest::Tiff;
using importtest::Webp;

const QString kUprightCorners = u"RGBW"_s;

host::ExaminedFile ExamineForeign(const QString& name, const QByteArray& bytes,
                                  const host::PictureLibraries& libraries) {
    const support::TempFolder temp;
    return host::ExamineFile(temp.Write(name, bytes), libraries);
}

host::ExaminedFile ExamineForeign(const QString& name, const QByteArray& bytes) {
    return ExamineForeign(name, bytes, host::SystemPictureLibraries());
}

/// As a viewer shows it, which turns what its EXIF block says.
QImage Shown(QByteArray jpeg) {
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "jpeg");
    reader.setAutoTransform(true);
    return reader.read();
}

struct Kind {
    QString name;
    std::function<QByteArray(const QImage&)> plain;
    std::function<QByteArray(const QImage&)> withAll; ///< EXIF of orientation 6, and a profile
};

std::vector<Kind> Kinds() {
    return {{u"IMG_1.HEIC"_s, [](const QImage& picture) { return Heic(picture); },
             [](const QImage& picture) {
                 return Heic(picture, {CameraExif(6), RgbIcc(), 1, 6});
             }},
            {u"IMG_1.tif"_s, [](const QImage& picture) { return Tiff(picture); },
             [](const QImage& picture) {
                 importtest::TiffWishes wishes;
                 wishes.orientation = 6;
                 wishes.icc = RgbIcc();
                 wishes.hasCamera = true;
                 return Tiff(picture, wishes);
             }},
            {u"IMG_1.webp"_s, [](const QImage& picture) { return Webp(picture); },
             [](const QImage& picture) {
                 return Webp(picture, {CameraExif(6), RgbIcc(), 1});
             }}};
}

TEST(ForeignPicture, BecomesAJpegBesideTheFileAsItCame) {
    for (const Kind& kind : Kinds()) {
        const QByteArray bytes = kind.plain(Corners());
        const host::ExaminedFile file = ExamineForeign(kind.name, bytes);
        EXPECT_EQ(file.refusal, QString()) << kind.name.toStdString();
        EXPECT_EQ(file.note, QString());
        EXPECT_EQ(file.original, bytes);
        EXPECT_EQ(file.originalName, kind.name);
        EXPECT_EQ(file.displayName, u"IMG_1.jpg"_s);
        EXPECT_EQ(file.md5.toLatin1(),
                  QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
        EXPECT_EQ(Shown(file.bytes).size(), QSize(64, 48));
        EXPECT_EQ(CornersOf(Shown(file.bytes)), kUprightCorners) << kind.name.toStdString();
    }
}

TEST(ForeignPicture, IsTurnedUprightOnceAndNotTwice) {
    // What is stored lies on its side: a quarter with the clock brings it upright.
    for (const Kind& kind : Kinds()) {
        const host::ExaminedFile file = ExamineForeign(kind.name, kind.withAll(Corners()));
        ASSERT_EQ(file.refusal, QString()) << kind.name.toStdString();
        const QImage shown = Shown(file.bytes);
        EXPECT_EQ(shown.size(), QSize(48, 64)) << kind.name.toStdString();
        EXPECT_EQ(CornersOf(shown), u"WRGB"_s) << kind.name.toStdString();
    }
}

TEST(ForeignPicture, KeepsTimeCameraAndProfile) {
    for (const Kind& kind : Kinds()) {
        const host::ExaminedFile file = ExamineForeign(kind.name, kind.withAll(Corners()));
        EXPECT_EQ(host::ExifTime(file.bytes), host::ReadExifTime("2024:03:12 14:25:36", {}))
            << kind.name.toStdString();
        EXPECT_TRUE(file.bytes.contains("Model 7")) << kind.name.toStdString();
        EXPECT_TRUE(file.bytes.contains(RgbIcc())) << kind.name.toStdString();
        EXPECT_TRUE(Shown(file.bytes).colorSpace().isValid());
    }
}

TEST(ForeignPicture, OfAllEightOrientationsEachIsUpright) {
    const QImage upright = Corners();
    for (int orientation = 1; orientation <= 8; ++orientation) {
        importtest::TiffWishes wishes;
        wishes.orientation = orientation;
        const host::ExaminedFile file = ExamineForeign(u"a.tif"_s, Tiff(upright, wishes));
        // The library that Qt reads JPEG with turns the same pixels by the same number.
        const QByteArray turned = importtest::WithExif(
            [&] {
                QByteArray jpeg;
                QBuffer buffer(&jpeg);
                buffer.open(QIODevice::WriteOnly);
                upright.save(&buffer, "jpeg", 95);
                return jpeg;
            }(),
            {{}, {}, {}, {}, orientation});
        EXPECT_EQ(CornersOf(Shown(file.bytes)), CornersOf(Shown(turned))) << orientation;
        EXPECT_EQ(Shown(file.bytes).size(), Shown(turned).size()) << orientation;
    }
}

TEST(ForeignPicture, TilesAndStripsOfATiffAreTheSamePicture) {
    importtest::TiffWishes wishes;
    wishes.isTiled = true;
    const QImage picture = Corners({100, 70});
    const QImage tiles = Shown(ExamineForeign(u"a.tif"_s, Tiff(picture, wishes)).bytes);
    const QImage strips = Shown(ExamineForeign(u"a.tif"_s, Tiff(picture)).bytes);
    EXPECT_EQ(CornersOf(tiles), kUprightCorners);
    EXPECT_EQ(tiles, strips);
}

TEST(ForeignPicture, WhatIsTransparentIsWhite) {
    QImage picture = Corners().convertToFormat(QImage::Format_RGBA8888);
    for (int y = 20; y < 30; ++y) {
        for (int x = 20; x < 40; ++x) {
            picture.setPixelColor(x, y, Qt::transparent);
        }
    }
    importtest::TiffWishes wishes;
    wishes.hasAlpha = true;
    for (const auto& [name, bytes] :
         {std::pair(u"a.tif"_s, Tiff(picture, wishes)), std::pair(u"a.webp"_s, Webp(picture))}) {
        const QImage shown = Shown(ExamineForeign(name, bytes).bytes);
        EXPECT_GT(shown.pixelColor(30, 25).green(), 245) << name.toStdString();
        EXPECT_EQ(CornersOf(shown), kUprightCorners) << name.toStdString();
    }
}

TEST(ForeignPicture, OfSeveralTheFirstIsTakenAndTheListSaysSo) {
    importtest::TiffWishes pages;
    pages.pages = 3;
    const host::ExaminedFile tiff = ExamineForeign(u"a.tif"_s, Tiff(Corners(), pages));
    EXPECT_EQ(tiff.note, u"共 3 页，只取第一页"_s);
    EXPECT_EQ(CornersOf(Shown(tiff.bytes)), kUprightCorners);
    const host::ExaminedFile heic = ExamineForeign(u"a.heic"_s, Heic(Corners(), {{}, {}, 2, 1}));
    EXPECT_EQ(heic.note, u"共 2 张，只取主图"_s);
    const host::ExaminedFile webp = ExamineForeign(u"a.webp"_s, Webp(Corners(), {{}, {}, 4}));
    EXPECT_EQ(webp.note, u"动画共 4 帧，只取第一帧"_s);
    EXPECT_EQ(CornersOf(Shown(webp.bytes)), kUprightCorners);
}

TEST(ForeignPicture, AHundredPagesAreCountedToo) {
    importtest::TiffWishes pages;
    pages.pages = 100;
    EXPECT_EQ(ExamineForeign(u"a.tif"_s, Tiff(Corners({16, 12}), pages)).note,
              u"共 100 页，只取第一页"_s);
}

TEST(ForeignPicture, ASmallCopyIsNoPage) {
    importtest::TiffWishes wishes;
    wishes.hasSmallCopy = true;
    EXPECT_EQ(ExamineForeign(u"a.tif"_s, Tiff(Corners(), wishes)).note, QString());
}

TEST(ForeignPicture, WithoutADecoderTheRefusalSaysWhatToInstall) {
    const host::ExaminedFile file =
        ExamineForeign(u"a.heic"_s, Heic(Corners()), host::PictureLibraries{[] { return false; }});
    EXPECT_EQ(file.refusal, u"HEIC 格式无法读取：本机的 libheif 没有 HEVC 解码器，请安装 libde265-0"
                            "（新版系统为 libheif-plugin-libde265）后重新导入"_s);
    EXPECT_TRUE(file.bytes.isEmpty());
    EXPECT_TRUE(file.original.isEmpty());
    EXPECT_TRUE(host::SystemPictureLibraries().readHevc());
}

TEST(ForeignPicture, CutOffAnywhereItIsRefusedAndNothingElse) {
    for (const Kind& kind : Kinds()) {
        const QByteArray whole = kind.withAll(Corners());
        int refused = 0;
        for (qsizetype size = 16; size < whole.size(); size += 37) {
            const host::ExaminedFile file = ExamineForeign(kind.name, whole.left(size));
            refused += file.refusal.isEmpty() ? 0 : 1;
            EXPECT_TRUE(!file.refusal.isEmpty() || CornersOf(Shown(file.bytes)) == u"WRGB"_s)
                << kind.name.toStdString() << " of " << size;
        }
        EXPECT_GT(refused, 10) << kind.name.toStdString();
        EXPECT_FALSE(ExamineForeign(kind.name, whole.left(whole.size() / 2)).refusal.isEmpty());
    }
}

TEST(ForeignPicture, CraftedBytesAreRefusedOrTakenWithoutHarm) {
    for (const Kind& kind : Kinds()) {
        const QByteArray whole = kind.withAll(Corners());
        quint32 random = 12345;
        for (int round = 0; round < 200; ++round) {
            QByteArray crafted = whole;
            for (int change = 0; change < 4; ++change) {
                random = random * 1664525 + 1013904223;
                crafted[12 + (random >> 8) % (crafted.size() - 12)] = static_cast<char>(random);
            }
            const host::ExaminedFile file = ExamineForeign(kind.name, crafted);
            EXPECT_EQ(file.refusal.isEmpty(), !file.bytes.isEmpty());
        }
    }
}

TEST(ForeignPicture, TooManyPixelsAreRefusedBeforeAnythingIsDecoded) {
    EXPECT_EQ(ExamineForeign(u"a.tif"_s, importtest::TiffOfSize(30000, 30000)).refusal,
              u"图片太大：30000×30000 像素，上限为 20000 万像素"_s);
    EXPECT_EQ(ExamineForeign(u"a.tif"_s, importtest::TiffOfSize(70000, 10)).refusal,
              u"图片太长：70000×10 像素，每边上限为 65500 像素"_s);
    // The longest sides that a lossless WebP can claim.
    QByteArray webp = Webp(Corners());
    const qsizetype head = webp.indexOf("VP8L") + 9;
    webp.replace(head, 4, QByteArray::fromHex("FFFFFF0F"));
    EXPECT_EQ(ExamineForeign(u"a.webp"_s, webp).refusal,
              u"图片太大：16384×16384 像素，上限为 20000 万像素"_s);
}

TEST(ForeignPicture, ASizeWithoutTheDataIsRefused) {
    EXPECT_EQ(ExamineForeign(u"a.tif"_s, importtest::TiffOfSize(8000, 8000)).refusal,
              u"图片已损坏或不完整，无法解码"_s);
    EXPECT_FALSE(ExamineForeign(u"a.tif"_s, importtest::TiffOfSize(0, 8000)).refusal.isEmpty());
}

} // namespace
