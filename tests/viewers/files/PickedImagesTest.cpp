#include "viewers/PickedImages.h"

#include "viewers/ExifBlock.h"

#include "tests/support/AnsweredPrompts.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <gtest/gtest.h>
#include <libexif/exif-data.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <sys/stat.h>

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

struct ExifRelease {
    void operator()(ExifData* data) const { exif_data_unref(data); }
};
using ExifHolder = std::unique_ptr<ExifData, ExifRelease>;

void AddEntry(ExifData& data, ExifIfd directory, ExifTag tag, ExifFormat format,
              const QByteArray& bytes) {
    ExifEntry* entry = exif_entry_new();
    entry->tag = tag;
    entry->format = format;
    entry->components = format == EXIF_FORMAT_SHORT ? 1 : (unsigned long)bytes.size();
    entry->size = (unsigned int)bytes.size();
    entry->data = static_cast<unsigned char*>(malloc(size_t(bytes.size())));
    memcpy(entry->data, bytes.constData(), size_t(bytes.size()));
    exif_content_add_entry(data.ifd[directory], entry);
    exif_entry_unref(entry);
}

QByteArray BytesOf(ExifData& data) {
    unsigned char* bytes = nullptr;
    unsigned int size = 0;
    exif_data_save_data(&data, &bytes, &size);
    QByteArray block(reinterpret_cast<const char*>(bytes), qsizetype(size));
    free(bytes);
    return block;
}

/// Time, a place, an orientation and a small picture, as a camera writes them.
QByteArray CameraBlock(char orientation) {
    const ExifHolder data(exif_data_new());
    exif_data_set_byte_order(data.get(), EXIF_BYTE_ORDER_INTEL);
    AddEntry(*data, EXIF_IFD_0, EXIF_TAG_ORIENTATION, EXIF_FORMAT_SHORT,
             QByteArray(1, orientation) + QByteArray(1, 0));
    AddEntry(*data, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL, EXIF_FORMAT_ASCII,
             QByteArray("2026:03:05 08:00:00", 20));
    AddEntry(*data, EXIF_IFD_GPS, ExifTag(EXIF_TAG_GPS_LATITUDE_REF), EXIF_FORMAT_ASCII,
             QByteArray("N", 2));
    data->data = static_cast<unsigned char*>(calloc(1, 100));
    data->size = 100;
    return BytesOf(*data);
}

std::string TagText(const ExifData& data, ExifIfd directory, ExifTag tag) {
    ExifEntry* entry = exif_content_get_entry(data.ifd[directory], tag);
    char text[64] = "";
    return entry == nullptr ? std::string() : exif_entry_get_value(entry, text, sizeof text);
}

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

TEST(PickImageFiles, WhatIsNoFileCountsAsOneThatCannotBeOpened) {
    const support::TempFolder folder;
    const QString pipe = folder.Path(u"pipe.jpg"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkpath(folder.Path(u"folder.jpg"_s)));
    for (const QString& path : {pipe, folder.Path(u"folder.jpg"_s)}) {
        support::AnsweredPrompts prompts;
        prompts.ExpectOpenFiles(kFilter, {path});
        std::vector<PickedFile> picked;
        bool occupied = false;
        PickImageFiles(picked, occupied);
        EXPECT_TRUE(occupied) << path.toStdString();
        EXPECT_TRUE(picked.empty()) << path.toStdString();
    }
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

TEST(SaveReducedJpeg, KeepsTimeAndPlaceOfTheCameraAndStandsUprightOnce) {
    const support::TempFolder folder;
    const QString source = folder.Write(
        u"a.jpg"_s, ZelvorNRQ_KXVeskPicture::WithExif(
                        support::JpegBytes(support::CornerMarked({160, 320})), CameraBlock(6)));
    const QByteArray before = folder.Read(u"a.jpg"_s);
    const QString target = folder.Path(u"small.jpg"_s);
    ASSERT_TRUE(SaveReducedJpeg(source, target));
    EXPECT_EQ(folder.Read(u"a.jpg"_s), before) << "the source is left as it is";
    const ExifHolder data(exif_data_new_from_file(QFile::encodeName(target).constData()));
    EXPECT_EQ(TagText(*data, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL), "2026:03:05 08:00:00");
    EXPECT_EQ(TagText(*data, EXIF_IFD_GPS, ExifTag(EXIF_TAG_GPS_LATITUDE_REF)), "N");
    EXPECT_EQ(TagText(*data, EXIF_IFD_0, EXIF_TAG_ORIENTATION), "Top-left");
    EXPECT_EQ(data->size, 0U) << "no small picture inside";
    EXPECT_EQ(QImageReader(target).size(), QSize(320, 160)) << "not turned a second time";
}

TEST(SaveReducedJpeg, APictureWithoutABlockGetsNone) {
    const support::TempFolder folder;
    const QString source =
        folder.Write(u"a.jpg"_s, support::JpegBytes(support::CornerMarked({16, 8})));
    ASSERT_TRUE(SaveReducedJpeg(source, folder.Path(u"small.jpg"_s)));
    EXPECT_FALSE(folder.Read(u"small.jpg"_s).contains("Exif"));
}

TEST(SaveReducedJpeg, ABlockThatIsBrokenCostsNothingButItself) {
    const support::TempFolder folder;
    for (const qsizetype length : {8, 20, 60, 120}) {
        const QString source = folder.Write(
            u"a.jpg"_s,
            ZelvorNRQ_KXVeskPicture::WithExif(support::JpegBytes(support::CornerMarked({16, 8})),
                                              CameraBlock(1).left(length)));
        EXPECT_TRUE(SaveReducedJpeg(source, folder.Path(u"small.jpg"_s))) << length;
        EXPECT_EQ(QImage(folder.Path(u"small.jpg"_s)).size(), QSize(16, 8)) << length;
    }
}

TEST(SaveReducedJpeg, ABlockWithOneKindOfEntriesAloneIsKept) {
    const support::TempFolder folder;
    const QByteArray plain = support::JpegBytes(support::CornerMarked(QSize(40, 30)));
    for (const ExifIfd directory : {EXIF_IFD_0, EXIF_IFD_EXIF, EXIF_IFD_GPS}) {
        const ExifHolder data(exif_data_new());
        exif_data_set_byte_order(data.get(), EXIF_BYTE_ORDER_INTEL);
        const ExifTag tag = directory == EXIF_IFD_0      ? EXIF_TAG_MAKE
                            : directory == EXIF_IFD_EXIF ? EXIF_TAG_DATE_TIME_ORIGINAL
                                                         : ExifTag(EXIF_TAG_GPS_LATITUDE_REF);
        AddEntry(*data, directory, tag, EXIF_FORMAT_ASCII, QByteArray("N", 2));
        const QString path =
            folder.Write(u"one.jpg"_s, ZelvorNRQ_KXVeskPicture::WithExif(plain, BytesOf(*data)));
        EXPECT_FALSE(ZelvorNRQ_KXVeskPicture::ExifForUpright(path).isEmpty()) << directory;
    }
}

TEST(WithExif, ABlockThatNoSegmentHasRoomForIsLeftOut) {
    const QByteArray jpeg = support::JpegBytes(support::CornerMarked({16, 8}));
    EXPECT_EQ(ZelvorNRQ_KXVeskPicture::WithExif(jpeg, QByteArray(65534, 'x')), jpeg);
    EXPECT_EQ(ZelvorNRQ_KXVeskPicture::WithExif(jpeg, QByteArray(65533, 'x')).size(),
              jpeg.size() + 65533 + 4);
    EXPECT_EQ(ZelvorNRQ_KXVeskPicture::WithExif({}, "x"), QByteArray());
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
