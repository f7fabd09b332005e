#include "tests/host/import/ImportChild.h"

#include "host/import/Importer.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "tests/host/import/ImportSite.h"
#include "tests/host/import/TestPictures.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace importtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 24;
const char16_t* const kChildWord = u"--import-child";

void PutPictures(const ImportSite& site) {
    for (int index = 0; index < kPictures; ++index) {
        site.Put(u"%1.jpg"_s.arg(index, 2, 10, QChar(u'0')), Picture("jpeg", index, {320, 240}));
    }
}

/// After a crash and a new opening: rows and files belong together, and one more run files the
/// rest.
void ExpectWholeAndCompletable(ImportSite& site) {
    const std::optional<site::OpenFault> fault = site.folder.Open();
    ASSERT_FALSE(fault.has_value());
    EXPECT_EQ(site.folder.Db().Value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
    const auto before = site.Filed();
    EXPECT_EQ(site.StoredFiles(), static_cast<int>(before.size()));
    EXPECT_EQ(site.KnownFiles(), static_cast<int>(before.size()));
    for (const FiledPhoto& photo : before) {
        EXPECT_EQ(photo.bytes, site.temp.Read(u"pictures/"_s + photo.name));
    }
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.duplicates, static_cast<int>(before.size()));
    EXPECT_EQ(report.filed + report.duplicates, kPictures);
    EXPECT_EQ(site.Filed().size(), kPictures);
    EXPECT_EQ(site.StoredFiles(), kPictures);
}

} // namespace

QStringList ChildWords(const QString& data, const QString& pictures, const ChildFate& fate) {
    return {QString::fromUtf16(kChildWord), data, pictures, QString::number(fate.killAfter),
            QString::number(fate.largestFile)};
}

std::optional<int> RunAsChild(const QStringList& words) {
    if (words.size() < 6 || words[1] != QStringView(kChildWord)) {
        return std::nullopt;
    }
    const int killAfter = words[4].toInt();
    site::DataFolder folder(words[2]);
    if (folder.Open()) {
        return 3;
    }
    site::SqliteSite engine(folder);
    if (const auto limit = static_cast<rlim_t>(words[5].toLongLong()); limit > 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limits{limit, limit};
        setrlimit(RLIMIT_FSIZE, &limits);
    }
    host::ImportRequest request;
    request.roots = QStringList{words[3]};
    request.ppid = 1;
    request.user = u"张工"_s;
    const host::ImportReport report =
        host::Importer(engine).Run(request, [&](const host::ImportStep& step) {
            if (step.done == killAfter) {
                kill(getpid(), SIGKILL);
            }
            return true;
        });
    QTextStream(stdout) << report.Summary();
    return report.fault.isEmpty() ? 0 : 1;
}

TEST(ImportCrash, KilledBetweenTwoFilesNothingIsLostAndTheNextRunCompletes) {
    ImportSite site;
    PutPictures(site);
    site.folder.Close();
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                ChildWords(site.DataPath(), site.Pictures(), {7, 0}));
    ASSERT_TRUE(child.waitForFinished(60000));
    ASSERT_EQ(child.exitStatus(), QProcess::CrashExit);
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_EQ(site.Filed().size(), 7); // what was told as filed is there
    site.folder.Close();
    ExpectWholeAndCompletable(site);
}

TEST(ImportCrash, KilledAnywhereNothingIsHalfFiled) {
    for (int round = 1; round <= 4; ++round) {
        ImportSite site;
        PutPictures(site);
        site.folder.Close();
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    ChildWords(site.DataPath(), site.Pictures(), {}));
        // The kill meets whatever step the child is at when another file has come into the store.
        EXPECT_TRUE(support::WaitFor([&] {
            return site.StoredFiles() >= 4 * round || child.state() == QProcess::NotRunning;
        }));
        child.kill();
        ASSERT_TRUE(child.waitForFinished(60000));
        ExpectWholeAndCompletable(site);
    }
}

TEST(ImportCrash, AFullDiskStopsTheRunAndKeepsWhatWasFiled) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"b.bmp"_s, Picture("bmp", 2, {1600, 1200})); // 5.8 MB, more than the limit
    site.Put(u"c.jpg"_s, Picture("jpeg", 3));
    site.folder.Close();
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                ChildWords(site.DataPath(), site.Pictures(), {0, 5'000'000}));
    ASSERT_TRUE(child.waitForFinished(60000));
    EXPECT_EQ(child.exitCode(), 1);
    const QString said = QString::fromUtf8(child.readAllStandardOutput());
    EXPECT_TRUE(said.startsWith(u"导入中止："_s)) << said.toStdString();
    EXPECT_TRUE(said.contains(u"已导入的 1 张照片均已保存"_s)) << said.toStdString();
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_EQ(site.Filed().size(), 1);
    EXPECT_EQ(site.StoredFiles(), 1);
    const host::ImportReport report = host::Importer(*site.Engine()).Run(site.Request());
    EXPECT_EQ(report.filed, 2);
    EXPECT_EQ(report.duplicates, 1);
}

} // namespace importtest
