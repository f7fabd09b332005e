// Locks whose process has died, at whatever moment.
#include "site/blobs/OwnedLock.h"

#include "site/IClientFolders.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLockFile>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

/// A lock as a process leaves it that dies between making it and writing itself into it.
void LeaveEmptyLock(const QString& path, qint64 secondsAgo) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo),
                                 QFileDevice::FileModificationTime));
}

bool IsTaken(const QString& path) {
    QLockFile lock(path);
    lock.setStaleLockTime(0);
    return TakeLock(lock);
}

TEST(OwnedLock, AnEmptyOneIsTakenOverOnceItCannotBeBeingWritten) {
    const QTemporaryDir dir;
    const QString path = dir.path() + u"/lock.pid"_s;
    EXPECT_TRUE(IsTaken(path)) << "there was none";
    LeaveEmptyLock(path, 3600);
    EXPECT_TRUE(IsTaken(path));
    LeaveEmptyLock(path, 0);
    EXPECT_FALSE(IsTaken(path));
    EXPECT_TRUE(QFile::exists(path));
}

TEST(OwnedLock, OneOfALivingProcessStaysItsOwnHoweverOld) {
    const QTemporaryDir dir;
    const QString path = dir.path() + u"/lock.pid"_s;
    QLockFile mine(path);
    mine.setStaleLockTime(0);
    ASSERT_TRUE(mine.tryLock());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-3),
                                 QFileDevice::FileModificationTime));
    EXPECT_FALSE(IsTaken(path));
    EXPECT_TRUE(QFile::exists(path));
}

TEST(OwnedLock, ALinkIsNotFollowed) {
    const QTemporaryDir dir;
    const QString target = dir.path() + u"/precious"_s;
    LeaveEmptyLock(target, 3600);
    const QString path = dir.path() + u"/lock.pid"_s;
    ASSERT_TRUE(QFile::link(target, path));
    EXPECT_FALSE(IsTaken(path));
    EXPECT_TRUE(QFile::exists(target));
    EXPECT_TRUE(QFile::exists(path));
}

TEST(OwnedLock, NotesBehindOneAreClearedWhenTheFolderIsOpened) {
    TempSite site;
    const QString store = site.folder.StorePath();
    const QString notes = store + u"/incoming/0f8fad5b-d9cb-469f-a165-70867728950e"_s;
    site.folder.Close();
    ASSERT_TRUE(QDir().mkpath(notes));
    LeaveEmptyLock(notes + u"/lock.pid"_s, 3600);
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_FALSE(QDir(notes).exists());
}

TEST(OwnedLock, TheWorkshopBehindOneCanBeEntered) {
    TempSite site;
    LeaveEmptyLock(site.folder.Path() + u"/sample.lock"_s, 3600);
    SqliteSite engine(site.folder);
    const auto workshop = engine.Folders().Workshop([](const QString&) { return false; });
    EXPECT_TRUE(workshop->Enter());
}

} // namespace
} // namespace site
