// The site simulator as a program of its own, stopped and killed.
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QProcess>

#include <csignal>
#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;

/// Simulates on the small site, with photos of a folder, until it is told otherwise.
class Phones : public testing::Test {
protected:
    Phones() {
        static_cast<void>(MakeSmallSite(m_folder.Path(u"data"_s)));
        for (int number = 0; number < 3; ++number) {
            m_folder.Write(u"photos/%1.jpg"_s.arg(number), JpegBytes(qRgb(9, 60 * number, 9)));
        }
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
    }

    void Start(const QString& rate, const QString& project = u"一期工程"_s) {
        m_out.clear();
        m_process.start(QDir(QCoreApplication::applicationDirPath()).filePath(u"vesk-client"_s),
                        {u"simulate"_s, u"--project"_s, project, u"--rate"_s, rate, u"--photos"_s,
                         m_folder.Path(u"photos"_s), u"--data"_s, m_folder.Path(u"data"_s)});
    }
    [[nodiscard]] bool WaitForLines(int count) {
        return support::WaitFor([&] { return ReadLines().size() >= count; });
    }
    void Signal(int number) const { kill(pid_t(m_process.processId()), number); }
    /// The exit code; -1 if it was killed.
    int WaitForEnd() {
        EXPECT_TRUE(m_process.waitForFinished(60'000));
        ReadLines();
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    const QStringList& ReadLines() {
        m_bytes += m_process.readAllStandardOutput();
        m_out = QString::fromUtf8(m_bytes).split(u'\n', Qt::SkipEmptyParts);
        return m_out;
    }
    void Forget() { m_bytes.clear(); }
    [[nodiscard]] QString Faults() { return QString::fromUtf8(m_process.readAllStandardError()); }
    [[nodiscard]] QString DataPath() const { return m_folder.Path(u"data"_s); }

private:
    support::TempFolder m_folder;
    QProcess m_process;
    QByteArray m_bytes;
    QStringList m_out;
};

struct Filed {
    int photos = 0;
    int issues = 0;
};

/// What lies beyond the small site's own; no item of it is half there.
Filed ExpectWhole(const QString& path) {
    site::DataFolder data(path);
    EXPECT_FALSE(data.Open().has_value());
    const auto count = [&](const QString& rest) {
        return data.Db().Value(u"SELECT count(*) FROM "_s + rest).toInt();
    };
    EXPECT_EQ(data.Db().Value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
    EXPECT_EQ(count(u"issue i WHERE theme NOT LIKE '问题%' AND NOT EXISTS"
                    " (SELECT 1 FROM issue_pic p WHERE p.issue_id = i.id)"_s),
              0);
    int stored = 0;
    QDirIterator walk(data.StorePath(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        stored += walk.next().contains(u"/incoming/"_s) ? 0 : 1;
    }
    EXPECT_EQ(stored, count(u"file"_s)) << "a file for each row and a row for each file";
    return {count(u"bim_photo"_s) - 5, count(u"issue"_s) - 2};
}

TEST_F(Phones, CtrlCEndsThemWithTheCountsAndEverythingWhole) {
    Filed before;
    for (const int number : {SIGINT, SIGTERM}) {
        Forget();
        Start(u"max"_s);
        ASSERT_TRUE(WaitForLines(9)) << Faults().toStdString();
        Signal(number);
        EXPECT_EQ(WaitForEnd(), 0) << Faults().toStdString();
        const Filed filed = ExpectWhole(DataPath());
        const int items = filed.photos + filed.issues - before.photos - before.issues;
        const QStringList lines = ReadLines();
        EXPECT_EQ(lines.size(), items + 1) << "a line for each, and the counts";
        EXPECT_TRUE(lines.last().startsWith(
            u"共提交 %1 条：照片 %2 张"_s.arg(items).arg(filed.photos - before.photos)))
            << lines.last().toStdString();
        before = filed;
    }
}

TEST_F(Phones, CtrlCEndsAWaitForTheNextItem) {
    Start(u"0.01"_s); // the next comes in more than an hour
    ASSERT_TRUE(WaitForLines(1)) << Faults().toStdString();
    Signal(SIGINT);
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_TRUE(ReadLines().last().startsWith(u"共提交 1 条："_s));
}

TEST_F(Phones, KilledAtAnyMomentTheyLeaveNoHalfItem) {
    int told = 0;
    for (const int lines : {2, 5, 11}) {
        Forget();
        Start(u"max"_s);
        ASSERT_TRUE(WaitForLines(lines)) << Faults().toStdString();
        Signal(SIGKILL);
        EXPECT_EQ(WaitForEnd(), -1);
        told += int(ReadLines().size());
        const Filed filed = ExpectWhole(DataPath());
        EXPECT_GE(filed.photos + filed.issues, told) << "what was told is there";
    }
}

TEST_F(Phones, AProjectThatDoesNotExistIsNamedWithThoseThatDo) {
    Start(u"1"_s, u"三期工程"_s);
    EXPECT_EQ(WaitForEnd(), 2);
    EXPECT_TRUE(Faults().contains(u"没有名为“三期工程”的工程。现有工程：一期工程、二期工程。"_s));
    EXPECT_EQ(ExpectWhole(DataPath()).photos, 0);
}

} // namespace
} // namespace roads
