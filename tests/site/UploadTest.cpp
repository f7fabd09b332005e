// Uploads: their rules and limits, what they can't take, and what becomes of those that nothing
// refers to.
#include "site/IChanges.h"
#include "site/blobs/FileStore.h"
#include "tests/site/IssueSite.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QDirIterator>

#include <chrono>
#include <stop_token>
#include <thread>

namespace site {
namespace {

using namespace Qt::StringLiterals;

struct UploadSite : sitetest::IssueSite {
    UploadSite() {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(600'000, 'p'));
    }
    /// The sentence with which an upload ends; nothing of it is in the site then.
    [[nodiscard]] QString FaultOf(const QString& from, const TransferTerms& terms) {
        const qint64 rows = Count(u"file"_s);
        const qint64 free = Count(u"upload"_s);
        const int files = FilesInStore();
        try {
            (void)engine.Blobs().Upload(from, terms);
            ADD_FAILURE() << "taken in";
        } catch (const DataError& error) {
            EXPECT_EQ(Count(u"file"_s), rows);
            EXPECT_EQ(Count(u"upload"_s), free);
            EXPECT_EQ(FilesInStore(), files);
            return error.Text();
        }
        return {};
    }
    /// Notes too.
    [[nodiscard]] int FilesInStore() const {
        int count = 0;
        QDirIterator files(folder.StorePath(), QDir::Files, QDirIterator::Subdirectories);
        for (; files.hasNext(); files.next()) {
            ++count;
        }
        return count;
    }
    /// Opened again so many seconds after the upload that is at `uploadedAt`.
    void OpenAgain(qint64 later) {
        const qint64 now = folder.Now() + later;
        ASSERT_FALSE(DataFolder(folder.Path()).Open({500, true, [now] { return now; }}));
    }

    const QString path = dir.filePath(u"up.jpg"_s);
};

TEST(UploadRules, AFaultAtTheStartAndInTheMiddleTakesNothingIn) {
    UploadSite site;
    for (const TransferFault fault : {TransferFault::AtStart, TransferFault::InTheMiddle}) {
        EXPECT_EQ(site.FaultOf(site.path, {{0, fault}, {}, {}}),
                  u"文件传输中断，请检查网络后重试。"_s);
    }
}

TEST(UploadRules, OneThatNeverEndsEndsAtItsDeadline) {
    UploadSite site;
    const TransferTerms terms{
        {0, TransferFault::NeverEnds}, {std::chrono::milliseconds(20), {}}, {}};
    EXPECT_TRUE(site.FaultOf(site.path, terms).contains(u"等待的时间过长"_s));
}

TEST(UploadRules, OneThatIsStoppedBetweenTwoBlocksTakesNothingIn) {
    UploadSite site;
    std::stop_source stop;
    std::vector<qint64> told;
    const TransferTerms terms{{}, {{}, stop.get_token()}, [&](qint64 bytes) {
                                  told.push_back(bytes);
                                  stop.request_stop();
                              }};
    EXPECT_EQ(site.FaultOf(site.path, terms), u"文件传输已取消。"_s);
    EXPECT_EQ(told.size(), 1U);
}

TEST(UploadRules, AHugeFileIsTakenBlockByBlockAndCanBeStopped) {
    UploadSite site;
    QFile huge(site.dir.filePath(u"huge.jpg"_s));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize((2LL << 30) + 1));
    huge.close();
    std::stop_source stop;
    qint64 last = 0;
    const TransferTerms terms{{}, {{}, stop.get_token()}, [&](qint64 bytes) {
                                  last = bytes;
                                  if (bytes >= 1'000'000) {
                                      stop.request_stop();
                                  }
                              }};
    EXPECT_EQ(site.FaultOf(huge.fileName(), terms), u"文件传输已取消。"_s);
    EXPECT_LT(last, 1'500'000);
}

TEST(UploadRules, AFullDiskTakesNothingIn) {
    UploadSite site;
    const support::FileSizeLimit limit(300'000);
    EXPECT_TRUE(site.FaultOf(site.path, {}).contains(u"磁盘空间不足"_s));
}

TEST(UploadRules, WhatVanishedAndWhatCantBeReadIsToldApart) {
    UploadSite site;
    EXPECT_TRUE(site.FaultOf(site.dir.filePath(u"gone.jpg"_s), {}).contains(u"找不到"_s));
    EXPECT_TRUE(site.FaultOf(site.dir.path(), {}).contains(u"文件无法读取"_s));
}

TEST(UploadRules, TheLongestNamesThatTheFileSystemHasAreTaken) {
    UploadSite site;
    for (const QString& name : {QString(255, u'a'), QString(85, u'长')}) {
        const QString longest = site.dir.filePath(name);
        ASSERT_TRUE(QFile::copy(site.path, longest)) << name.size();
        EXPECT_EQ(site.engine.Blobs().Upload(longest, {}).size, 600'000);
    }
    EXPECT_NE(site.FaultOf(site.dir.filePath(QString(255, u'长')), {}), QString())
        << "no file system here has it";
}

TEST(UploadSweep, WhatNothingRefersToGoesADayLaterAndWhatAPictureHasStays) {
    UploadSite site;
    const KX_DATA::UploadResult lost = site.Upload("lost");
    const KX_DATA::QuestionPicRecord kept = site.Uploaded(u"g1"_s);
    ASSERT_TRUE(site.Issues().AddRectifyPics({site.ppid}, site.questionId, {kept}, site.wang));
    site.OpenAgain(23 * 3600);
    EXPECT_TRUE(site.folder.Store().Has(lost.uuid)) << "another running client may take it";
    site.OpenAgain(25 * 3600);
    EXPECT_FALSE(site.folder.Store().Has(lost.uuid));
    EXPECT_EQ(site.Count(u"upload"_s), 0);
    EXPECT_EQ(site.Count(u"file WHERE kind = 9"_s), 0);
    EXPECT_TRUE(site.folder.Store().Has(kept.fileUuid));
    EXPECT_TRUE(site.folder.Store().Has(kept.thumbUuid));
}

TEST(UploadSweep, WhoComesTooLateWithASweptFileIsRefusedWhole) {
    UploadSite site;
    const KX_DATA::QuestionPicRecord late = site.Uploaded(u"g1"_s);
    site.OpenAgain(25 * 3600);
    EXPECT_THROW(
        (void)site.Issues().AddRectifyPics({site.ppid}, site.questionId, {late}, site.wang),
        DataError);
    EXPECT_TRUE(site.Rectification().pics.empty());
}

TEST(PicFiling, AnotherThreadFilesUploadedPicturesAndTheSiteTellsOfItAsItsOwn) {
    UploadSite site;
    const std::vector pics{site.Uploaded(u"g1"_s)};
    site.engine.Changes().Look();
    bool added = false;
    std::jthread([&] {
        added = site.engine.PicFiling().AddRectifyPics({site.ppid}, site.questionId, pics,
                                                       site.wang, {});
    }).join();
    EXPECT_TRUE(added);
    EXPECT_EQ(site.Rectification().pics.size(), 1U);
    const Changes told = site.engine.Changes().Since(0, 1000).changes;
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().kind, ChangeKind::Issue);
    EXPECT_TRUE(told.back().byThisSite);
}

} // namespace
} // namespace site
