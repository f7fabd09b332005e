#include "site/transfer/Transfer.h"

#include "site/StoreName.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/FolderBlobs.h"
#include "tests/site/TempSite.h"
#include "tests/support/FileSizeLimit.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <chrono>
#include <thread>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

class TransferSite : public TempSite {
public:
    TransferSite() {
        QFile file(dir.filePath(u"source"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(600000, 'p'));
        file.close();
        uuid = blobs.Upload(file.fileName(), {}).uuid;
        target = dir.filePath(u"cache/a.jpg"_s);
    }

    [[nodiscard]] TransferOutcome Fetch(const TransferRules& rules = {}) {
        return blobs.Fetch(uuid, target, {rules, {deadline, stop.get_token()}, [&](qint64 bytes) {
                                              steps.push_back(bytes);
                                          }});
    }
    /// A failure that left what was there and nothing else, and says what is wrong.
    void ExpectFailure(const TransferOutcome& outcome, const QString& text) {
        EXPECT_FALSE(outcome.ok);
        EXPECT_TRUE(outcome.text.contains(text)) << outcome.text.toStdString();
        EXPECT_EQ(Cached(), QStringList{u"a.jpg"_s});
        EXPECT_EQ(QFileInfo(target).size(), 3);
    }
    /// The cache holds an older file under the name.
    void PutOld() {
        QDir().mkpath(QFileInfo(target).path());
        QFile old(target);
        EXPECT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("old");
    }
    [[nodiscard]] QStringList Cached() const {
        return QDir(dir.filePath(u"cache"_s)).entryList(QDir::Files | QDir::Hidden);
    }

    FolderBlobs blobs{folder};
    QString uuid;
    QString target;
    std::vector<qint64> steps;
    std::stop_source stop;
    std::chrono::milliseconds deadline{0};
};

} // namespace

TEST(Transfer, AFileArrivesWholeAndUnderItsNameAlone) {
    TransferSite site;
    const TransferOutcome outcome = site.Fetch();
    EXPECT_TRUE(outcome.ok) << outcome.text.toStdString();
    EXPECT_EQ(site.Cached(), QStringList{u"a.jpg"_s});
    EXPECT_EQ(QFile(site.target).size(), 600000);
    EXPECT_EQ(site.steps, (std::vector<qint64>{262144, 524288, 600000}));
    EXPECT_EQ(site.blobs.SizeOf(site.uuid, {}), 600000);
}

TEST(Transfer, AFileThatIsThereIsReplacedByAWholeOne) {
    TransferSite site;
    site.PutOld();
    EXPECT_TRUE(site.Fetch().ok);
    EXPECT_EQ(QFile(site.target).size(), 600000);
}

TEST(Transfer, AFileThatIsThereWholeIsNotFetchedAgain) {
    TransferSite site;
    ASSERT_TRUE(site.Fetch().ok);
    site.steps.clear();
    TransferRules broken;
    broken.fault = TransferFault::AtStart;
    EXPECT_TRUE(site.Fetch(broken).ok);
    EXPECT_TRUE(site.steps.empty());
}

TEST(Transfer, AWholeFileThatSomebodyElsePutThereIsTakenAsItIs) {
    TransferSite site;
    QDir().mkpath(QFileInfo(site.target).path());
    ASSERT_TRUE(QFile::copy(site.dir.filePath(u"source"_s), site.target));
    TransferRules broken;
    broken.fault = TransferFault::AtStart;
    EXPECT_TRUE(site.Fetch(broken).ok);
    EXPECT_EQ(site.steps, (std::vector<qint64>{600000}));
}

TEST(Transfer, AFetchedFileThatWasDamagedSinceIsFetchedAgain) {
    TransferSite site;
    ASSERT_TRUE(site.Fetch().ok);
    QFile damaged(site.target);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
    damaged.write("x");
    // As much later as the coarsest clock of a file system sees.
    damaged.setFileTime(QDateTime::currentDateTime().addSecs(2), QFileDevice::FileModificationTime);
    damaged.close();
    site.steps.clear();
    EXPECT_TRUE(site.Fetch().ok);
    EXPECT_EQ(site.steps.size(), 3U);
    QFile file(site.target);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(1), "p");
}

TEST(Transfer, AFailureAtTheStartOrInTheMiddleKeepsWhatWasThere) {
    TransferSite site;
    site.PutOld();
    site.ExpectFailure(site.Fetch({0, TransferFault::AtStart}), u"传输中断"_s);
    EXPECT_TRUE(site.steps.empty());
    site.ExpectFailure(site.Fetch({0, TransferFault::InTheMiddle}), u"传输中断"_s);
    EXPECT_EQ(site.steps, (std::vector<qint64>{262144}));
}

TEST(Transfer, OneThatNeverEndsEndsWhenItIsToldTo) {
    TransferSite site;
    site.PutOld();
    TransferOutcome outcome;
    {
        const std::jthread waiting([&] { outcome = site.Fetch({0, TransferFault::NeverEnds}); });
        site.stop.request_stop();
    }
    site.ExpectFailure(outcome, u"已取消"_s);
}

TEST(Transfer, ASlowOneEndsAtOnceWhenItIsToldTo) {
    TransferSite site;
    site.PutOld();
    site.stop.request_stop();
    site.ExpectFailure(site.Fetch({1'000'000}), u"已取消"_s);
}

TEST(Transfer, OneThatStandsStillEndsWithItsDeadline) {
    TransferSite site;
    site.PutOld();
    site.deadline = std::chrono::milliseconds(20);
    site.ExpectFailure(site.Fetch({0, TransferFault::NeverEnds}), u"等待的时间过长"_s);
    site.ExpectFailure(site.Fetch({1'000'000}), u"等待的时间过长"_s);
}

TEST(Transfer, ASlowOneWhoseBlocksKeepComingOutlastsItsDeadline) {
    TransferSite site;
    site.deadline = std::chrono::milliseconds(1000);
    const TransferOutcome outcome = site.Fetch({400});
    EXPECT_TRUE(outcome.ok) << outcome.text.toStdString();
}

TEST(Upload, OneThatIsToldToStopTakesNothingIn) {
    TransferSite site;
    const QString source = site.dir.filePath(u"source"_s);
    const auto rows = [&] {
        return site.folder.Db().Value(u"SELECT count(*) FROM file"_s).toInt();
    };
    const int before = rows();
    site.stop.request_stop();
    try {
        (void)site.blobs.Upload(source, {{}, {{}, site.stop.get_token()}, {}});
        ADD_FAILURE() << "it was taken in";
    } catch (const DataError& error) {
        EXPECT_EQ(error.GetFault(), Fault::Cancelled);
    }
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(site.blobs.SizeOf(site.uuid, {{}, site.stop.get_token()}), -1);
    EXPECT_EQ(site.blobs.SizeOf(site.uuid, {}), 600000);
}

TEST(Transfer, AFullDiskIsToldAndKeepsWhatWasThere) {
    TransferSite site;
    site.PutOld();
    // The reader of the database writes nothing of that size.
    const support::FileSizeLimit limit(300'000);
    site.ExpectFailure(site.Fetch(), u"磁盘空间不足"_s);
}

TEST(Transfer, AFolderInWhichNothingCanBeWrittenIsTold) {
    TransferSite site;
    site.target = QString::fromLatin1(support::kUnwritableFolder) + u"/a.jpg"_s;
    TransferOutcome outcome = site.Fetch();
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.text.contains(u"没有写入权限"_s)) << outcome.text.toStdString();
    // A file stands where the folder should be.
    site.target = site.dir.filePath(u"cache/a.jpg"_s);
    site.PutOld();
    site.target = site.dir.filePath(u"cache/a.jpg/b.jpg"_s);
    outcome = site.Fetch();
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.text.contains(u"没有写入权限"_s)) << outcome.text.toStdString();
}

TEST(Transfer, AMissingFolderIsMade) {
    TransferSite site;
    site.target = site.dir.filePath(u"cache/1/pics/a.jpg"_s);
    EXPECT_TRUE(site.Fetch().ok);
    EXPECT_EQ(QFile(site.target).size(), 600000);
}

TEST(Transfer, TwoAtOnceMayFetchTheSameFile) {
    TransferSite site;
    TransferOutcome other;
    {
        const std::jthread second([&] { other = site.blobs.Fetch(site.uuid, site.target, {{1}}); });
        EXPECT_TRUE(site.Fetch({1}).ok);
    }
    EXPECT_TRUE(other.ok);
    EXPECT_EQ(site.Cached(), QStringList{u"a.jpg"_s});
    EXPECT_EQ(QFile(site.target).size(), 600000);
}

TEST(Transfer, AnEmptyFileArrivesAsOne) {
    TransferSite site;
    QFile empty(site.dir.filePath(u"empty"_s));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    site.uuid = site.blobs.Upload(empty.fileName(), {}).uuid;
    EXPECT_TRUE(site.Fetch().ok);
    EXPECT_EQ(QFileInfo(site.target).size(), 0);
}

TEST(Transfer, LeftoversOfAKilledProcessGoAfterADay) {
    TransferSite site;
    site.PutOld();
    const QString folder = QFileInfo(site.target).path();
    const QDateTime longAgo = QDateTime::currentDateTime().addDays(-2);
    for (const auto& [name, time] :
         {std::pair(NewStoreName() + u".part"_s, longAgo),
          std::pair(NewStoreName() + u".part"_s, QDateTime::currentDateTime()),
          std::pair(u"我的 笔记.part"_s, longAgo)}) {
        QFile file(folder + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    EXPECT_EQ(site.Cached().size(), 4);
    RemoveLeftovers(site.dir.path());
    EXPECT_EQ(site.Cached().size(), 3);
    EXPECT_TRUE(site.Cached().contains(u"我的 笔记.part"_s));
}

TEST(Transfer, AStoredFileThatHasChangedIsRefused) {
    TransferSite site;
    QFile stored(site.folder.Store().PathOf(site.uuid));
    ASSERT_TRUE(stored.open(QIODevice::ReadWrite));
    stored.write("x");
    stored.close();
    const TransferOutcome outcome = site.Fetch();
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.text.contains(u"损坏"_s));
    EXPECT_TRUE(site.Cached().isEmpty());
}

TEST(Transfer, AFileMissingFromTheStoreIsToldAsMissing) {
    TransferSite site;
    ASSERT_TRUE(QFile::remove(site.folder.Store().PathOf(site.uuid)));
    const TransferOutcome outcome = site.Fetch();
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.text.contains(site.uuid));
    EXPECT_EQ(site.blobs.SizeOf(site.uuid, {}), -1);
}

TEST(Transfer, ATextThatIsNoUuidIsRefused) {
    TransferSite site;
    site.uuid = u"../site.db"_s;
    EXPECT_FALSE(site.Fetch().ok);
    EXPECT_TRUE(site.Cached().isEmpty());
}

} // namespace site
