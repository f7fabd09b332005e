#include "viewers/PickedImages.h"

#include "tests/support/AnsweredPrompts.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::PickedFile;
using ZelvorNRQ_KXVeskPicture::PickImageFiles;
using ZelvorNRQ_KXVeskPicture::SaveReducedJpeg;

namespace {

const QString kFilter = u"全部图片(*) (*.jpeg *.jpg *.png *.tif *.tiff *.gif *.jpe *.bmp);;"
                        u"jpg,jpeg文件(*.jpg;*.jpeg) (*.jpeg *.jpg);;"
                        u"png文件(*.png) (*.png);;"
                        u"tif,tiff文件(*.tif;*.tiff) (*.tif *.tiff);;"
                        u"gif,jpe文件(*.gif;*.jpe) (*.gif *.jpe);;"
                        u"bmp文件(*.bmp) (*.bmp)"_s;

} // namespace

TEST(PickImageFiles, ListsWhatCanBeOpenedAndTellsOfWhatCant) {
    const support::TempFolder folder;
    const QString first = folder.Write(u"梁.JPG"_s, "12345");
    const QString last = folder.Write(u"noext"_s, "1");
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(kFilter, {first, folder.Path(u"gone.png"_s), last});
    std::vector<PickedFile> picked;
    bool occupied = false;
    PickImageFiles(picked, occupied);
    EXPECT_TRUE(occupied);
    ASSERT_EQ(picked.size(), 2U);
    EXPECT_EQ(picked[0].fileName, u"梁.JPG");
    EXPECT_EQ(picked[0].filePath, first);
    EXPECT_EQ(picked[0].extension, u".JPG");
    EXPECT_EQ(picked[0].size, 5.0);
    EXPECT_EQ(picked[1].fileName, u"noext");
}

TEST(PickImageFiles, ACancelledDialogChangesNothing) {
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(kFilter, {});
    std::vector<PickedFile> picked;
    bool occupied = false;
    PickImageFiles(picked, occupied);
    EXPECT_FALSE(occupied);
    EXPECT_TRUE(picked.empty());
}

TEST(PickImageFiles, BackSlashesAreDoubledInWhatIsKeptAndOpened) {
    const support::TempFolder folder;
    folder.Write(u"a\\\\b.jpg"_s, "1");
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(kFilter, {folder.Path(u"a\\b.jpg"_s)});
    std::vector<PickedFile> picked;
    bool occupied = false;
    PickImageFiles(picked, occupied);
    ASSERT_EQ(picked.size(), 1U);
    EXPECT_TRUE(picked[0].filePath.endsWith(u"a\\\\b.jpg"_s));
    EXPECT_EQ(picked[0].fileName, u"b.jpg");
}

TEST(SaveReducedJpeg, KeepsThePixelSizeAndStandsUpright) {
    const support::TempFolder folder;
    const QImage upright = support::CornerMarked({320, 160});
    const QString source = folder.Write(
        u"a.jpg"_s, support::JpegBytes(upright.transformed(QTransform().rotate(270)), 6));
    const QString target = folder.Path(u"small.jpg"_s);
    EXPECT_TRUE(SaveReducedJpeg(source, target));
    EXPECT_EQ(QImageReader(target).format(), "jpeg");
    const QImage small(target);
    EXPECT_EQ(small.size(), QSize(320, 160));
    EXPECT_TRUE(support::IsNear(small.pixelColor(40, 40), support::kTopLeft, 30));
    EXPECT_LT(QFileInfo(target).size(), QFileInfo(source).size());
}

TEST(SaveReducedJpeg, WhatIsNoPictureOrCantBeWrittenFails) {
    const support::TempFolder folder;
    const QString text = folder.Write(u"text.jpg"_s, "no picture");
    EXPECT_FALSE(SaveReducedJpeg(text, folder.Path(u"small.jpg"_s)));
    EXPECT_FALSE(SaveReducedJpeg(folder.Path(u"none.jpg"_s), folder.Path(u"small.jpg"_s)));
    const QString picture =
        folder.Write(u"a.png"_s, support::PngBytes(support::CornerMarked({8, 8})));
    EXPECT_FALSE(SaveReducedJpeg(picture, folder.Path(u"no/folder.jpg"_s)));
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files).size(), 2);
}

TEST(SaveReducedJpeg, OnAFullDiskItFailsAndKeepsTheOldFile) {
    const support::TempFolder folder;
    QImage noise(200, 200, QImage::Format_RGB32);
    for (int i = 0; i < 200 * 200; ++i) {
        noise.setPixel(i % 200, i / 200, qRgb(i * 7919 % 256, i * 4729 % 256, i * 31 % 256));
    }
    const QString source = folder.Write(u"a.png"_s, support::PngBytes(noise));
    const QString target = folder.Write(u"small.jpg"_s, "old");
    const support::FileSizeLimit limit(1'000);
    EXPECT_FALSE(SaveReducedJpeg(source, target));
    EXPECT_EQ(folder.Read(u"small.jpg"_s), "old");
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}
