#include "tests/roads/SmallSite.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

namespace roads {
namespace {

using namespace Qt::StringLiterals;

struct ProgramEnd {
    int code = -1;
    QString out;
    QString err;
};

/// Runs a program from beside the test to its end.
ProgramEnd RunBeside(const QString& program, const QStringList& words, bool withPlatform) {
    QProcess process;
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    if (!withPlatform) {
        for (const QString& name : {u"QT_QPA_PLATFORM"_s, u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s}) {
            surroundings.remove(name);
        }
    }
    process.setProcessEnvironment(surroundings);
    process.start(QDir(QCoreApplication::applicationDirPath()).filePath(program), words);
    EXPECT_TRUE(process.waitForFinished(60'000));
    ProgramEnd end;
    end.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    end.out = QString::fromUtf8(process.readAllStandardOutput());
    end.err = QString::fromUtf8(process.readAllStandardError());
    return end;
}

ProgramEnd RunProgram(const QStringList& words, bool withPlatform = true) {
    return RunBeside(u"vesk-client"_s, words, withPlatform);
}

TEST(Program, ExplainsItselfInChinese) {
    const ProgramEnd end = RunProgram({u"--help"_s}, false);
    EXPECT_EQ(end.code, 0);
    EXPECT_TRUE(end.out.startsWith(u"用法："_s));
}

TEST(Program, WordsThatMakeNoSenseEndItWithTheHelp) {
    const ProgramEnd end = RunProgram({u"--nonsense"_s}, false);
    EXPECT_EQ(end.code, 2);
    EXPECT_TRUE(end.err.contains(u"--nonsense"_s));
    EXPECT_TRUE(end.err.contains(u"用法："_s));
}

TEST(Program, AskedToWalkItNamesTheProgramThatDoesAndMakesNothing) {
    const support::TempFolder folder;
    const ProgramEnd end =
        RunProgram({u"--tour"_s, folder.Path(u"out"_s), u"--data"_s, folder.Path(u"data"_s)});
    EXPECT_EQ(end.code, 2);
    EXPECT_TRUE(end.err.startsWith(u"走查客户端的是另一个程序：vesk-tour --tour"_s))
        << end.err.toStdString();
    EXPECT_TRUE(QDir(folder.Path()).isEmpty());
}

TEST(Program, TheWalkExplainsItselfAndRefusesWordsThatMakeNoSense) {
    const ProgramEnd help = RunBeside(u"vesk-tour"_s, {u"--help"_s}, false);
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.out.startsWith(u"用法："_s)) << help.out.toStdString();
    const ProgramEnd end = RunBeside(u"vesk-tour"_s, {u"--nonsense"_s}, false);
    EXPECT_EQ(end.code, 2);
    EXPECT_TRUE(end.err.contains(u"--nonsense"_s)) << end.err.toStdString();
    EXPECT_TRUE(end.err.contains(u"用法："_s));
}

TEST(Program, WithoutADisplayItSaysWhatCanBeDoneInstead) {
    const support::TempFolder folder;
    const ProgramEnd end = RunProgram({u"--data"_s, folder.Path()}, false);
    EXPECT_EQ(end.code, 1);
    EXPECT_TRUE(end.err.contains(u"vesk-tour --tour"_s)) << end.err.toStdString();
    EXPECT_TRUE(QDir(folder.Path()).isEmpty());
}

TEST(Program, AFolderThatCannotBeMadeIsTold) {
    const support::TempFolder folder;
    folder.Write(u"file"_s, "x");
    const ProgramEnd end = RunProgram({u"--data"_s, folder.Path(u"file/data"_s)});
    EXPECT_EQ(end.code, 1);
    EXPECT_TRUE(end.err.contains(folder.Path(u"file/data"_s))) << end.err.toStdString();
}

TEST(Program, AnUnknownUserEndsIt) {
    const support::TempFolder folder;
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    const ProgramEnd end = RunProgram({u"--data"_s, folder.Path(u"data"_s), u"--user"_s, u"谁"_s});
    EXPECT_EQ(end.code, 1);
    EXPECT_TRUE(end.err.contains(u"张伟"_s)) << end.err.toStdString();
}

TEST(Program, ImportsAFolderFromTheCommandLineAndDoesNotDoubleIt) {
    const support::TempFolder folder;
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    folder.Write(u"photos/a.jpg"_s, JpegBytes(qRgb(9, 200, 9)));
    const QStringList words = {u"import"_s,    folder.Path(u"photos"_s),
                               u"--project"_s, u"一期工程"_s,
                               u"--user"_s,    u"张伟"_s,
                               u"--data"_s,    folder.Path(u"data"_s)};
    const ProgramEnd first = RunProgram(words, false);
    EXPECT_EQ(first.code, 0) << first.err.toStdString();
    EXPECT_TRUE(first.out.contains(u"导入 1 张照片"_s)) << first.out.toStdString();
    const ProgramEnd second = RunProgram(words, false);
    EXPECT_EQ(second.code, 0);
    EXPECT_TRUE(second.out.contains(u"导入 0 张照片，重复 1 张"_s)) << second.out.toStdString();
}

/// Whether a process has its own answer to a signal.
bool Catches(qint64 process, int signal) {
    QFile status(u"/proc/%1/status"_s.arg(process));
    static_cast<void>(status.open(QIODevice::ReadOnly));
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("SigCgt:")) {
            return ((line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1)) & 1) != 0;
        }
    }
    return false;
}

TEST(Program, AClientThatIsToldToEndEndsAsFromItsMenu) {
    const support::TempFolder folder;
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    QProcess client;
    client.start(QDir(QCoreApplication::applicationDirPath()).filePath(u"vesk-client"_s),
                 {u"--data"_s, folder.Path(u"data"_s), u"--user"_s, u"张伟"_s});
    ASSERT_TRUE(support::WaitFor([&] { return Catches(client.processId(), SIGTERM); }));
    client.terminate();
    ASSERT_TRUE(client.waitForFinished(60'000));
    EXPECT_EQ(client.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(client.exitCode(), 0);
}

} // namespace
} // namespace roads
