#include "base/PictureLog.h"

#include "tests/support/ManualClock.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using ZelvorNRQ_KXVeskPicture::ClearLog;
using ZelvorNRQ_KXVeskPicture::LogFilePath;
using ZelvorNRQ_KXVeskPicture::LogProjectChange;
using ZelvorNRQ_KXVeskPicture::ResetLogCycle;
using ZelvorNRQ_KXVeskPicture::SetLogFilePath;
using ZelvorNRQ_KXVeskPicture::WriteLog;

class PictureLogTest : public testing::Test {
protected:
    PictureLogTest() {
        SetLogFilePath(folder.Path(u"VeskPicture.log"_s));
        ResetLogCycle();
    }
    ~PictureLogTest() override {
        SetLogFilePath(QString());
        ResetLogCycle();
    }

    [[nodiscard]] std::string Bytes() const {
        return folder.Read(u"VeskPicture.log"_s).toStdString();
    }
    /// The project with this number became the open one.
    static void ChangeProject(int number) {
        const QString name = u"P%1"_s.arg(number);
        LogProjectChange(&name, number);
    }

    support::TempFolder folder;
    support::ManualClock clock; // 2026-03-05 12:00:00
};

TEST_F(PictureLogTest, ALineHoldsLocalTimeAndTextAndEndsLikeOnWindows) {
    WriteLog(u"-------BIM-------"_s);
    EXPECT_EQ(Bytes(), "[2026-03-05 12:00:00] -------BIM-------\r\n");
}

TEST_F(PictureLogTest, LinesAreAppended) {
    WriteLog(u"a"_s);
    clock.Advance(61000);
    WriteLog(u"b"_s);
    EXPECT_EQ(Bytes(), "[2026-03-05 12:00:00] a\r\n[2026-03-05 12:01:01] b\r\n");
}

TEST_F(PictureLogTest, LinesAreWrittenInCodePage936) {
    WriteLog(u"中文€"_s);
    EXPECT_EQ(Bytes(), "[2026-03-05 12:00:00] \xD6\xD0\xCE\xC4\x80\r\n");
}

TEST_F(PictureLogTest, CharactersThatTheCodePageLacksAreReplaced) {
    WriteLog(u"a😀b한c"_s);
    EXPECT_EQ(Bytes(), "[2026-03-05 12:00:00] a?b?c\r\n");
}

TEST_F(PictureLogTest, WhatALogHeldBeforeStays) {
    folder.Write(u"VeskPicture.log"_s, "old\r\n");
    WriteLog(u"new"_s);
    EXPECT_EQ(Bytes(), "old\r\n[2026-03-05 12:00:00] new\r\n");
}

TEST_F(PictureLogTest, ClearingEmptiesTheFileAndMakesAMissingOne) {
    WriteLog(u"a"_s);
    ClearLog();
    EXPECT_EQ(Bytes(), "");
    ASSERT_TRUE(QFile::remove(LogFilePath()));
    ClearLog();
    EXPECT_TRUE(QFile::exists(LogFilePath()));
}

TEST_F(PictureLogTest, AnUnopenableFileLosesTheLineAndNothingElse) {
    // A folder can't be opened for writing by anybody, not even by root.
    const QString path = folder.Path(u"taken.log"_s);
    ASSERT_TRUE(QDir().mkpath(path));
    SetLogFilePath(path);
    WriteLog(u"lost"_s);
    ClearLog();
    EXPECT_TRUE(QDir(path).isEmpty());

    SetLogFilePath(folder.Path(u"no such folder/VeskPicture.log"_s));
    WriteLog(u"lost"_s);
    ClearLog();
    EXPECT_FALSE(QFile::exists(LogFilePath()));

    SetLogFilePath(folder.Path(u"VeskPicture.log"_s));
    WriteLog(u"kept"_s);
    EXPECT_EQ(Bytes(), "[2026-03-05 12:00:00] kept\r\n");
}

TEST_F(PictureLogTest, BeforeThePathIsSetLinesAreLost) {
    SetLogFilePath(QString());
    WriteLog(u"lost"_s);
    ClearLog();
    EXPECT_TRUE(QDir(folder.Path()).isEmpty());
}

TEST_F(PictureLogTest, AProjectsBannerNamesItWithItsId) {
    const QString name = u"示例工程"_s;
    LogProjectChange(&name, 42);
    EXPECT_EQ(Bytes(), "[2026-03-05 12:00:00] **********\xB9\xA4\xB3\xCC\xC3\xFB:"
                       "\xCA\xBE\xC0\xFD\xB9\xA4\xB3\xCC PPID:42**********\r\n");
}

TEST_F(PictureLogTest, TheFirstChangeOfTheProcessEmptiesTheFile) {
    WriteLog(u"before"_s);
    ChangeProject(1);
    EXPECT_THAT(Bytes(), Not(HasSubstr("before")));
    EXPECT_THAT(Bytes(), HasSubstr(":P1 PPID:1*"));
}

TEST_F(PictureLogTest, AfterThreeChangesAllBannersStandAndTheFourthEmptiesFirst) {
    for (int change = 1; change <= 3; ++change) {
        ChangeProject(change);
    }
    for (const char* banner : {":P1 PPID:1*", ":P2 PPID:2*", ":P3 PPID:3*"}) {
        EXPECT_THAT(Bytes(), HasSubstr(banner));
    }
    ChangeProject(4);
    EXPECT_THAT(Bytes(), Not(HasSubstr(":P3 ")));
    EXPECT_THAT(Bytes(), EndsWith(":P4 PPID:4**********\r\n"));
    ChangeProject(5);
    ChangeProject(6);
    EXPECT_THAT(Bytes(), HasSubstr(":P4 "));
    ChangeProject(7);
    EXPECT_THAT(Bytes(), Not(HasSubstr(":P6 ")));
}

TEST_F(PictureLogTest, AChangeToNoProjectAdvancesTheCycleWithoutABanner) {
    WriteLog(u"before"_s);
    LogProjectChange(nullptr, 0);
    EXPECT_EQ(Bytes(), "");
    LogProjectChange(nullptr, 0);
    ChangeProject(3);
    EXPECT_THAT(Bytes(), HasSubstr(":P3 "));
    ChangeProject(4);
    EXPECT_THAT(Bytes(), Not(HasSubstr(":P3 ")));
}

TEST_F(PictureLogTest, LinesOfSeveralThreadsStayWhole) {
    constexpr int kThreads = 4;
    constexpr int kLines = 100;
    std::atomic<bool> go = false;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < kThreads; ++writer) {
        writers.emplace_back([&go, writer] {
            while (!go) {
                std::this_thread::yield();
            }
            for (int line = 0; line < kLines; ++line) {
                WriteLog(u"w%1 l%2."_s.arg(writer).arg(line));
            }
        });
    }
    go = true;
    for (std::thread& writer : writers) {
        writer.join();
    }

    const QList<QByteArray> lines = folder.Read(u"VeskPicture.log"_s).split('\n');
    ASSERT_EQ(lines.size(), kThreads * kLines + 1);
    std::map<QByteArray, int> next;
    for (const QByteArray& line : lines.first(lines.size() - 1)) {
        ASSERT_TRUE(line.startsWith("[2026-03-05 12:00:00] w")) << line.toStdString();
        ASSERT_TRUE(line.endsWith(".\r")) << line.toStdString();
        const QByteArray writer = line.mid(22, 2);
        EXPECT_EQ(line.mid(26).chopped(2).toInt(), next[writer]++) << writer.toStdString();
    }
}

TEST_F(PictureLogTest, ClearingWhileOthersWriteLosesLinesAtMost) {
    std::atomic<bool> stop = false;
    std::thread writer([&stop] {
        while (!stop) {
            WriteLog(u"line"_s);
        }
    });
    for (int i = 0; i < 50; ++i) {
        ClearLog();
    }
    stop = true;
    writer.join();
    for (const QByteArray& line : folder.Read(u"VeskPicture.log"_s).split('\n')) {
        EXPECT_TRUE(line.isEmpty() || line == "[2026-03-05 12:00:00] line\r") << line.toStdString();
    }
}

} // namespace
