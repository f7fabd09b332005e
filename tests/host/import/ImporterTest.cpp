#include "host/import/Importer.h"

#include "host/import/ImportFiler.h"
#include "site/IBlobs.h"
#include "site/IPhotoFacts.h"
#include "tests/host/import/ForeignPictures.h"
#include "tests/host/import/ImportSite.h"
#include "tests/host/import/TestPictures.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <gmock/gmock.h>

#include <algorithm>
#include <thread>

namespace {

using namespace Qt::StringLiterals;
using importtest::ImportSite;
using importtest::Picture;

TEST(Importer, FilesEachPictureWithItsOwnBytes) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"b.png"_s, Picture("png", 2));
    site.Put(u"deep/er/c.bmp"_s, Picture("bmp", 3));
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.filed, 3);
    EXPECT_EQ(report.Summary(), u"导入 3 张照片，重复 0 张，跳过 0 个文件。"_s);
    const auto photos = site.Filed();
    ASSERT_EQ(photos.size(), 3);
    EXPECT_EQ(photos[0].name, u"a.jpg"_s);
    EXPECT_EQ(photos[0].bytes, Picture("jpeg", 1));
    EXPECT_EQ(photos[0].uploader, u"张工"_s);
    EXPECT_EQ(photos[1].bytes, Picture("png", 2));
    EXPECT_EQ(photos[2].name, u"c.bmp"_s);
    EXPECT_EQ(photos[2].bytes, Picture("bmp", 3));
}

TEST(Importer, WhatTwoImportAtOnceIsFiledOnce) {
    constexpr int kPictures = 60;
    ImportSite site;
    for (int i = 0; i < kPictures; ++i) {
        site.Put(u"%1.jpg"_s.arg(i, 2, 10, QChar(u'0')), Picture("jpeg", i));
    }
    host::ImportReport theirs;
    std::thread other([&] {
        site::DataFolder folder(site.DataPath());
        ASSERT_FALSE(folder.Open());
        site::SqliteSite engine(folder);
        theirs = host::Importer(engine).Run(site.Request());
    });
    const host::ImportReport ours = host::Importer(*site.Engine()).Run(site.Request());
    other.join();
    EXPECT_EQ(ours.filed + theirs.filed, kPictures);
    EXPECT_EQ(ours.duplicates + theirs.duplicates, kPictures);
    EXPECT_EQ(site.Filed().size(), kPictures);
    EXPECT_EQ(site.StoredFiles(), kPictures);
}

TEST(Importer, PlaceAndMarkGoToEveryPhoto) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    host::ImportRequest request = site.Request();
    request.positionKey = u"key-2B"_s;
    request.markId = 2;
    (void)host::Importer(*site.Engine()).Run(request);
    ASSERT_EQ(site.Filed().size(), 1);
    EXPECT_EQ(site.Filed()[0].positionKey, u"key-2B"_s);
    EXPECT_EQ(site.Filed()[0].markId, 2);
}

TEST(Importer, TheOrientationStaysInTheStoredFile) {
    ImportSite site;
    const QByteArray upright =
        importtest::WithExif(Picture("jpeg", 1, {64, 48}), {{}, {}, {}, {}, 6});
    site.Put(u"a.jpg"_s, upright);
    (void)host::Importer(*site.Engine()).Run(site.Request());
    ASSERT_EQ(site.Filed().size(), 1);
    QByteArray stored = site.Filed()[0].bytes;
    EXPECT_EQ(stored, upright);
    QBuffer buffer(&stored);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    EXPECT_EQ(reader.read().size(), QSize(48, 64));
}

TEST(Importer, ASecondRunDoublesNothing) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"b.jpg"_s, Picture("jpeg", 2));
    (void)host::Importer(*site.Engine()).Run(site.Request());
    const host::ImportReport again = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(again.filed, 0);
    EXPECT_EQ(again.duplicates, 2);
    ASSERT_EQ(again.lines.size(), 2);
    EXPECT_EQ(again.lines[0].text, u"工程中已有相同的照片"_s);
    EXPECT_EQ(site.Filed().size(), 2);
    EXPECT_EQ(site.StoredFiles(), 2);
}

TEST(Importer, WhatTheProjectHasIsntDecodedAgain) {
    ImportSite site;
    const QByteArray photo = Picture("jpeg", 1);
    const QString path = site.Put(u"a.jpg"_s, photo);
    host::ExaminedFile unreadable = host::ReadFile(path);
    unreadable.bytes = photo.left(photo.size() / 2);
    (void)host::ImportFiler(*site.Engine(), site.Request()).File(unreadable);
    ASSERT_EQ(site.Filed().size(), 1);
    // Decoding it would refuse it.
    site.Put(u"a.jpg"_s, unreadable.bytes);
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.duplicates, 1);
    EXPECT_EQ(report.refused, 0);
}

TEST(Importer, TheListNamesEveryFileInTheOrderOfTheWalk) {
    ImportSite site;
    for (int index = 0; index < 12; ++index) {
        const QString name = u"%1.jpg"_s.arg(index, 2, 10, QChar(u'0'));
        site.Put(name, index % 3 == 2 ? QByteArray("text") : Picture("jpeg", index % 3));
    }
    std::vector<QString> paths;
    const host::ImportReport report =
        host::Importer(*site.Engine()).Run(site.Request(), [&](const host::ImportStep& step) {
            paths.push_back(step.line.path);
            return true;
        });
    EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end()));
    EXPECT_EQ(paths.size(), 12);
    EXPECT_EQ(report.filed, 2);
    EXPECT_EQ(report.duplicates, 6);
    EXPECT_EQ(report.refused, 4);
    EXPECT_THAT(report.photoIds, testing::ElementsAre(1, 2));
}

TEST(Importer, TakenAndFiledAreTwoTimes) {
    ImportSite site;
    site.Put(u"a.jpg"_s, importtest::WithExif(Picture("jpeg", 1),
                                              {"2024:03:12 14:25:36", "+08:00", {}, {}, 0}));
    const auto engine = site.Engine();
    const qint64 before = engine->Now();
    (void)host::Importer(*engine).Run(site.Request());
    const auto details = engine->PhotoFacts().Of({1}, {1});
    ASSERT_EQ(details.size(), 1);
    EXPECT_GE(details[0].filed, before);
    EXPECT_LE(details[0].filed, engine->Now());
    EXPECT_EQ(details[0].facts.taken, 1710224736);
}

TEST(Importer, TheFileAsItCameIsStoredBesideTheJpegAndFoundAgain) {
    ImportSite site;
    const QByteArray heic =
        importtest::Heic(importtest::Corners(), {importtest::CameraExif(1), {}, 1, 1});
    site.Put(u"IMG_7.HEIC"_s, heic);
    const auto engine = site.Engine();
    EXPECT_EQ(host::Importer(*engine).Run(site.Request()).filed, 1);
    const auto details = engine->PhotoFacts().Of({1}, {1});
    ASSERT_EQ(details.size(), 1);
    EXPECT_EQ(details[0].name, u"IMG_7.jpg"_s);
    EXPECT_EQ(details[0].originalName, u"IMG_7.HEIC"_s);
    EXPECT_EQ(details[0].facts.camera, u"Maker Model 7"_s);
    const QString fetched = site.temp.Path(u"fetched"_s);
    EXPECT_TRUE(engine->Blobs().Fetch(details[0].originalUuid, fetched, {}).ok);
    QFile file(fetched);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), heic);
    EXPECT_EQ(site.StoredFiles(), 2);
    EXPECT_EQ(host::Importer(*engine).Run(site.Request()).duplicates, 1);
    EXPECT_EQ(site.StoredFiles(), 2);
}

TEST(Importer, AFiledPictureOfSeveralIsInTheListToo) {
    ImportSite site;
    importtest::TiffWishes wishes;
    wishes.pages = 3;
    site.Put(u"scan.tif"_s, importtest::Tiff(importtest::Corners(), wishes));
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.filed, 1);
    EXPECT_EQ(report.refused, 0);
    ASSERT_EQ(report.lines.size(), 1);
    EXPECT_EQ(report.lines[0].outcome, host::ImportOutcome::Filed);
    EXPECT_EQ(report.lines[0].note, u"共 3 页，只取第一页"_s);
}

TEST(Importer, EqualBytesUnderTwoNamesAreOnePhoto) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"copy.jpg"_s, Picture("jpeg", 1));
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.filed, 1);
    EXPECT_EQ(report.duplicates, 1);
}

TEST(Importer, AnotherProjectMayHaveTheSamePhoto) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    (void)host::Importer(*site.Engine()).Run(site.Request());
    host::ImportRequest other = site.Request();
    other.ppid = 2;
    EXPECT_EQ(host::Importer(*site.Engine()).Run(other).filed, 1);
    EXPECT_EQ(site.Filed(2).size(), 1);
}

TEST(Importer, WhatIsNoPictureGetsALineAndTheRestIsFiled) {
    ImportSite site;
    site.Put(u"a.txt"_s, "text");
    site.Put(u"b.heic"_s, "heic");
    site.Put(u"c.jpg"_s, Picture("jpeg", 1));
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.filed, 1);
    EXPECT_EQ(report.refused, 2);
    EXPECT_TRUE(report.fault.isEmpty());
    ASSERT_EQ(report.lines.size(), 2);
    EXPECT_TRUE(report.lines[0].path.endsWith(u"a.txt"_s));
    EXPECT_TRUE(report.lines[1].path.endsWith(u"b.heic"_s));
}

TEST(Importer, AnEmptyFolderImportsNothing) {
    ImportSite site;
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.Summary(), u"导入 0 张照片，重复 0 张，跳过 0 个文件。"_s);
}

TEST(Importer, ProgressCountsEveryFileUpToTheTotal) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"b.txt"_s, "text");
    std::vector<std::pair<int, int>> steps;
    (void)host::Importer(*site.Engine()).Run(site.Request(), [&](const host::ImportStep& step) {
        steps.emplace_back(step.done, step.total);
        return true;
    });
    EXPECT_THAT(steps, testing::ElementsAre(testing::Pair(1, 2), testing::Pair(2, 2)));
}

TEST(Importer, ACancelledRunKeepsWhatWasFiled) {
    ImportSite site;
    for (int index = 0; index < 6; ++index) {
        site.Put(u"%1.jpg"_s.arg(index), Picture("jpeg", index));
    }
    const host::ImportReport report =
        host::Importer(*site.Engine()).Run(site.Request(), [](const host::ImportStep& step) {
            return step.done < 2;
        });
    EXPECT_TRUE(report.cancelled);
    EXPECT_EQ(report.Summary(), u"已取消。导入 2 张照片，重复 0 张，跳过 0 个文件。"_s);
    EXPECT_EQ(site.Filed().size(), 2);
    EXPECT_EQ(site.StoredFiles(), 2);
}

TEST(Importer, NamesAreCleanedBeforeTheyAreShown) {
    ImportSite site;
    site.Put(u"a\\b:c\u0007.jpg"_s, Picture("jpeg", 1));
    (void)host::Importer(*site.Engine()).Run(site.Request());
    ASSERT_EQ(site.Filed().size(), 1);
    EXPECT_EQ(site.Filed()[0].name, u"a_b_c.jpg"_s);
}

TEST(Importer, AFolderThatLostItsDatabaseStopsTheRunWithAMessage) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"b.jpg"_s, Picture("jpeg", 2));
    host::ImportRequest nowhere = site.Request();
    nowhere.ppid = 99; // the database refuses a photo of a project that it doesn't know
    const host::ImportReport report = host::Importer(*site.Engine()).Run(nowhere);
    EXPECT_FALSE(report.fault.isEmpty());
    EXPECT_EQ(report.filed, 0);
    EXPECT_EQ(report.lines.size(), 1);
    EXPECT_TRUE(report.Summary().startsWith(u"导入中止："_s));
    EXPECT_EQ(site.StoredFiles(), 0);
}

} // namespace
