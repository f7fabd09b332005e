#include "sample/SampleSite.h"

#include "site/ICatalogue.h"
#include "site/IComponents.h"
#include "site/IDrawings.h"
#include "site/IIssues.h"
#include "site/SetupState.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Catalogue.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/sample/SampleChild.h"
#include "tests/support/StoredFiles.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <unistd.h>

namespace sampletest {

using namespace Qt::StringLiterals;
using sample::SampleSize;

namespace {

const char16_t* const kChildWord = u"--sample-child";
constexpr int kFilingBegun = 90; // all pictures of the small site are drawn by then

struct EmptySite {
    EmptySite() : folder(dir.path() + u"/site"_s) { EXPECT_FALSE(folder.Open().has_value()); }

    [[nodiscard]] bool Create(const sample::SampleProgress& progress = {}) {
        site::SqliteSite site(folder);
        return sample::CreateSampleSite(site, SampleSize::Small, progress, error);
    }
    [[nodiscard]] int Count(const QString& table) const {
        return folder.Db().Value(u"SELECT count(*) FROM "_s + table).toInt();
    }
    [[nodiscard]] int StoredFiles() const { return support::CountStored(folder); }
    [[nodiscard]] bool HasWorkshop() const {
        return QDir(folder.Path() + u"/sample.part"_s).exists();
    }
    void ExpectNothing() const {
        for (const QString& table : {u"project"_s, u"bim_photo"_s, u"issue"_s, u"file"_s}) {
            EXPECT_EQ(Count(table), 0) << table.toStdString();
        }
        EXPECT_EQ(StoredFiles(), 0);
    }

    QTemporaryDir dir;
    site::DataFolder folder;
    QString error;
};

void WriteFile(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write("mine");
}

QString AsideIn(const EmptySite& site, const QString& name) {
    return site.folder.Path() + u"/set-aside/"_s + QDate::currentDate().toString(Qt::ISODate) +
           u'/' + name;
}

} // namespace

QStringList ChildWords(const QString& data, int killAt) {
    return {QString::fromUtf16(kChildWord), data, QString::number(killAt)};
}

std::optional<int> RunAsChild(const QStringList& words) {
    if (words.size() < 4 || words[1] != QStringView(kChildWord)) {
        return std::nullopt;
    }
    site::DataFolder folder(words[2]);
    if (folder.Open()) {
        return 3;
    }
    QString error;
    site::SqliteSite target(folder);
    const bool made = sample::CreateSampleSite(
        target, SampleSize::Small,
        [&](int done, int, const QString&) {
            if (done >= words[3].toInt()) {
                kill(getpid(), SIGKILL);
            }
            return true;
        },
        error);
    return made ? 0 : 1;
}

TEST(SampleWorkshop, ALinkInItsPlaceIsMovedNotFollowed) {
    EmptySite site;
    const QString elsewhere = site.dir.filePath(u"elsewhere"_s);
    ASSERT_TRUE(QDir().mkdir(elsewhere));
    WriteFile(elsewhere + u"/0.jpg"_s);
    ASSERT_TRUE(QFile::link(elsewhere, site.folder.Path() + u"/sample.part"_s));
    EXPECT_FALSE(site.Create([](int, int, const QString&) { return false; }));
    EXPECT_TRUE(QFile::exists(elsewhere + u"/0.jpg"_s));
    EXPECT_TRUE(QFileInfo(AsideIn(site, u"sample.part"_s)).isSymLink());
}

TEST(SampleWorkshop, WhatItDidNotDrawIsSetAsideAndTold) {
    EmptySite site;
    QStringList told;
    site.folder.SetTold([&](const QString& text) { told << text; });
    const QString workshop = site.folder.Path() + u"/sample.part"_s;
    ASSERT_TRUE(QDir().mkdir(workshop));
    WriteFile(workshop + u"/0.jpg"_s); // left by a crash
    WriteFile(workshop + u"/letter.txt"_s);
    EXPECT_FALSE(site.Create([](int, int, const QString&) { return false; }));
    EXPECT_EQ(QDir(AsideIn(site, u"sample.part"_s)).entryList(QDir::Files),
              QStringList{u"letter.txt"_s});
    EXPECT_EQ(told.size(), 1);
    EXPECT_FALSE(site.HasWorkshop());
}

/// One small site for the tests that only look at it.
class MadeSite : public testing::Test {
protected:
    static void SetUpTestSuite() {
        site = std::make_unique<EmptySite>();
        made = site->Create([](int done, int all, const QString& what) {
            ordered = ordered && done >= last && !what.isEmpty();
            last = done;
            total = all;
            return true;
        });
    }
    static void TearDownTestSuite() { site.reset(); }

    static inline std::unique_ptr<EmptySite> site;
    static inline bool made = false;
    static inline bool ordered = true;
    static inline int last = 0;
    static inline int total = -1;
};

TEST_F(MadeSite, IsFiledWithItsFiles) {
    ASSERT_TRUE(made) << site->error.toStdString();
    EXPECT_EQ(site->Count(u"project"_s), 2);
    EXPECT_EQ(site->Count(u"workset"_s), 1);
    EXPECT_EQ(site->Count(u"bim_photo"_s), 40);
    EXPECT_EQ(site->Count(u"pdf_photo"_s), 10);
    EXPECT_EQ(site->Count(u"drawing"_s), 6);
    EXPECT_EQ(site->Count(u"issue"_s), 8);
    EXPECT_EQ(site->StoredFiles(), site->Count(u"file"_s));
    EXPECT_FALSE(site->HasWorkshop());
}

TEST_F(MadeSite, IssuesHaveAHistoryThatEndsInWhatIsShownAndSomeHaveACodeThatLeadsToThem) {
    site::SqliteSite opened(site->folder);
    int rectified = 0;
    int coded = 0;
    int notes = 0;
    for (const qint32 ppid : {1, 2}) {
        site::ListFilter filter;
        filter.ppids = {ppid};
        for (const auto& row : opened.Issues().PageOf(filter, {{}, 1, 100}).rows) {
            const auto lines = opened.Issues().History(ppid, row.questionId);
            EXPECT_EQ(lines.back().deed, site::IssueDeed::Raised);
            EXPECT_GE(lines.front().at, lines.back().at);
            KX_DATA::RectifyRecord record;
            ASSERT_TRUE(opened.Issues().Rectification({ppid}, row.questionId, record));
            rectified += !record.rectifierName.isEmpty() && lines.size() > 2 ? 1 : 0;
            notes += record.voiceUuid.isEmpty() ? 0 : 1;
            KX_DATA::QuestionDetail detail;
            ASSERT_TRUE(opened.Issues().Detail(ppid, row.questionId, detail));
            EXPECT_TRUE(opened.Components().Find(ppid, detail.floor, detail.componentHandle));
            const auto found = opened.Issues().FindByQrCode({1, 2}, detail.qrCode);
            EXPECT_EQ(found.has_value(), !detail.qrCode.isEmpty());
            coded += found && found->questionId == row.questionId && found->ppid == ppid ? 1 : 0;
        }
    }
    EXPECT_GT(rectified, 1);
    EXPECT_GT(coded, 0);
    EXPECT_GT(notes, 0);
}

TEST_F(MadeSite, EveryDrawingIsAPdfOfOnePageWithCheckpointsOnIt) {
    site::SqliteSite opened(site->folder);
    int drawings = 0;
    for (const site::ProjectEntry& project : opened.Catalogue().Projects()) {
        for (const site::DrawingEntry& drawing : opened.Drawings().List(project.ppid)) {
            ++drawings;
            EXPECT_EQ(drawing.pages, 1);
            EXPECT_EQ(drawing.checkpoints, 2);
            QFile file(site->folder.Store().PathOf(drawing.fileUuid));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            EXPECT_EQ(file.read(5), "%PDF-");
            const auto flags = opened.Drawings().Flags({project.ppid}, drawing.id);
            EXPECT_GE(flags->front().comments, 3);
        }
    }
    EXPECT_EQ(drawings, 6);
}

TEST_F(MadeSite, TheProgressRoseToTheTotal) {
    EXPECT_TRUE(ordered);
    EXPECT_EQ(last, total);
}

TEST_F(MadeSite, PeopleHaveDifferentRights) {
    site::Catalogue tables(site->folder.Db());
    EXPECT_EQ(tables.RightsOf(u"张工"_s), (std::vector<qint32>{5, 21, 22, 38, site::kRightSetup}));
    EXPECT_EQ(tables.RightsOf(u"李工"_s), (std::vector<qint32>{5, 21, 22}));
    EXPECT_EQ(tables.RightsOf(u"王工"_s), (std::vector<qint32>{5, 21, 38}));
    EXPECT_TRUE(tables.RightsOf(u"赵总"_s).empty());
    EXPECT_EQ(tables.People().size(), 6);
}

TEST_F(MadeSite, EveryPhotoIsAPictureOfItsOwn) {
    EXPECT_EQ(site->folder.Db()
                  .Value(u"SELECT count(DISTINCT f.md5) FROM bim_photo p JOIN file f ON f.uuid = "
                         "p.file_uuid"_s)
                  .toInt(),
              40);
    site->folder.Db().ForEach(u"SELECT file_uuid FROM bim_photo"_s, {},
                              [&](const site::Statement& row) {
                                  QImageReader reader(site->folder.Store().PathOf(row.Text(0)));
                                  EXPECT_EQ(reader.format(), "jpeg");
                                  const QSize size = reader.read().size();
                                  EXPECT_EQ(size.width() * size.height(), 800 * 600);
                              });
}

TEST(SampleSite, ASiteThatExistsStaysAsItIs) {
    EmptySite site;
    site::SiteWriter(site.folder).AddProject(u"自己的工程"_s);
    EXPECT_TRUE(site.Create());
    EXPECT_EQ(site.Count(u"project"_s), 1);
    EXPECT_EQ(site.Count(u"bim_photo"_s), 0);
}

TEST(SampleSite, NoSiteIsMadeForNone) {
    EmptySite site;
    site::SqliteSite target(site.folder);
    EXPECT_TRUE(sample::CreateSampleSite(target, SampleSize::None, {}, site.error));
    site.ExpectNothing();
}

TEST(SampleSite, CancelledWhileDrawingNothingStays) {
    EmptySite site;
    EXPECT_FALSE(site.Create([&](int done, int, const QString&) { return done < 3; }));
    EXPECT_EQ(site.error, QString());
    site.ExpectNothing();
    EXPECT_FALSE(site.HasWorkshop());
}

TEST(SampleSite, CancelledWhileFilingNothingStays) {
    EmptySite site;
    EXPECT_FALSE(site.Create([&](int done, int, const QString&) { return done < kFilingBegun; }));
    EXPECT_EQ(site.error, QString());
    site.ExpectNothing();
    EXPECT_FALSE(site.HasWorkshop());
}

TEST(SampleSite, KilledWhileDrawingOrFilingTheNextStartMakesItAnew) {
    EmptySite site;
    for (const int killAt : {5, kFilingBegun}) {
        site.folder.Close();
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    ChildWords(site.folder.Path(), killAt));
        ASSERT_TRUE(child.waitForFinished(120000));
        ASSERT_EQ(child.exitStatus(), QProcess::CrashExit);
        ASSERT_FALSE(site.folder.Open().has_value());
        EXPECT_TRUE(site.HasWorkshop());
        site.ExpectNothing();
    }
    EXPECT_TRUE(site.Create()) << site.error.toStdString();
    EXPECT_EQ(site.Count(u"bim_photo"_s), 40);
    EXPECT_EQ(site.StoredFiles(), site.Count(u"file"_s));
    EXPECT_FALSE(site.HasWorkshop());
}

TEST(SampleSite, ASecondClientIsToldThatTheFirstIsStillAtIt) {
    EmptySite site;
    QLockFile first(site.folder.Path() + u"/sample.lock"_s);
    ASSERT_TRUE(first.tryLock());
    EXPECT_FALSE(site.Create());
    EXPECT_EQ(site.error, u"另一个客户端正在这个数据文件夹中生成示例工程，请稍后再打开。"_s);
    site.ExpectNothing();
}

TEST(SampleSite, AFolderWithoutRoomSaysSo) {
    EmptySite site;
    // Files where the workshop's folder should be, and where they could be set aside, stand for a
    // disk that takes nothing more.
    WriteFile(site.folder.Path() + u"/sample.part"_s);
    WriteFile(site.folder.Path() + u"/set-aside"_s);
    EXPECT_FALSE(site.Create());
    EXPECT_FALSE(site.error.isEmpty());
    site.ExpectNothing();
}

} // namespace sampletest
