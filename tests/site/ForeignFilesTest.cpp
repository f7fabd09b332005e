// What a data folder holds that isn't the site's: never opened over, never removed, no link
// followed.
#include "site/StoreName.h"
#include "site/blobs/FileStore.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "tests/site/TempSite.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gmock/gmock.h>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

void WriteFile(const QString& path, const QByteArray& bytes = "mine") {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

/// Every file and link below a folder, by its path from there.
QStringList FilesBelow(const QString& folder) {
    QStringList files;
    QDirIterator below(folder, QDir::Files | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (below.hasNext()) {
        files << QDir(folder).relativeFilePath(below.next());
    }
    files.sort();
    return files;
}

/// A site with a folder beside it to which links lead.
class SiteWithAStranger : public testing::Test {
protected:
    void SetUp() override {
        site.folder.Close();
        WriteFile(Elsewhere(u"keep.txt"_s));
        WriteFile(Elsewhere(uuid));
        WriteFile(Elsewhere(uuid + u".part"_s));
        WriteFile(Elsewhere(u"0.jpg"_s));
        before = FilesBelow(Elsewhere({}));
    }
    [[nodiscard]] QString Elsewhere(const QString& name) const {
        return site.dir.filePath(u"elsewhere/"_s + name);
    }
    [[nodiscard]] QString Inside(const QString& name) const {
        return site.folder.Path() + u'/' + name;
    }
    [[nodiscard]] QString Aside(const QString& name) const {
        return Inside(u"set-aside/"_s + QDate::currentDate().toString(Qt::ISODate) + u'/' + name);
    }
    void Open() {
        const auto fault = site.folder.Open();
        ASSERT_FALSE(fault) << fault->text.toStdString();
        site.folder.SetTold([this](const QString& text) { told << text; });
    }
    void ExpectNothingLostElsewhere() const { EXPECT_EQ(FilesBelow(Elsewhere({})), before); }

    TempSite site;
    const QString uuid = NewStoreName();
    QStringList before;
    QStringList told;
};

/// The fault of opening a folder, kOther with an empty text if there was none.
OpenFault FaultOf(const QString& path) {
    DataFolder folder(path);
    return folder.Open().value_or(OpenFault{});
}

} // namespace

TEST(AFolderThatIsNoSite, IsRefusedWithASentenceAndLeftAsItIs) {
    QTemporaryDir home;
    WriteFile(home.filePath(u"bin/backup"_s));
    WriteFile(home.filePath(u"bin/python3"_s));
    WriteFile(home.filePath(u"cache/film.part"_s));
    WriteFile(home.filePath(u"信件.txt"_s));
    const QStringList before = FilesBelow(home.path());
    const OpenFault fault = FaultOf(home.path());
    EXPECT_EQ(fault.fault, Fault::NotASite);
    EXPECT_TRUE(fault.text.contains(u"原样未动"_s)) << fault.text.toStdString();
    EXPECT_EQ(FilesBelow(home.path()), before);
    EXPECT_FALSE(QFileInfo::exists(home.filePath(u"store"_s)));
}

TEST(AFolderThatIsNoSite, WithNothingButFilesInABinIsRefusedToo) {
    QTemporaryDir home;
    WriteFile(home.filePath(u"bin/backup"_s));
    EXPECT_EQ(FaultOf(home.path()).fault, Fault::NotASite);
    EXPECT_THAT(FilesBelow(home.path()), ElementsAre(u"bin/backup"_s));
}

TEST(AFolderThatIsNoSite, WithAnEmptyFileOfTheDatabasesNameIsRefusedToo) {
    QTemporaryDir home;
    WriteFile(home.filePath(u"site.db"_s), {});
    WriteFile(home.filePath(u"store/list.txt"_s));
    EXPECT_EQ(FaultOf(home.path()).fault, Fault::NotASite);
}

TEST(AFolderThatIsNoSite, IfItIsAFileItIsCalledOne) {
    QTemporaryDir dir;
    WriteFile(dir.filePath(u"letter"_s));
    const OpenFault fault = FaultOf(dir.filePath(u"letter"_s));
    EXPECT_EQ(fault.fault, Fault::NotASite);
    EXPECT_TRUE(fault.text.contains(u"不是文件夹"_s)) << fault.text.toStdString();
}

TEST(AFolderThatIsNoSite, IsTakenIfItIsEmptyOrABeginningOfOne) {
    QTemporaryDir dir;
    EXPECT_TRUE(FaultOf(dir.path()).text.isEmpty());
    QTemporaryDir begun;
    WriteFile(begun.filePath(u"site.db"_s), {});
    QDir(begun.path()).mkpath(u"store/incoming"_s);
    QDir(begun.path()).mkpath(u"bin"_s);
    EXPECT_TRUE(FaultOf(begun.path()).text.isEmpty());
}

TEST(AFolderThatIsNoSite, IsASiteOnceItWasOpenedEvenByALink) {
    TempSite site;
    site.folder.Close();
    const QString link = site.dir.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(site.folder.Path(), link));
    EXPECT_TRUE(FaultOf(link).text.isEmpty());
}

TEST_F(SiteWithAStranger, APartThatIsALinkIsRefusedAndNothingBehindItIsTouched) {
    for (const QString& part :
         {site::place::kStore, site::place::kBin, site::place::kWork, site::place::kLogs}) {
        ASSERT_TRUE(QDir().rename(Inside(part), Inside(part + u".kept"_s)));
        ASSERT_TRUE(QFile::link(Elsewhere({}), Inside(part)));
        const OpenFault fault = FaultOf(site.folder.Path());
        EXPECT_EQ(fault.fault, Fault::NotASite) << part.toStdString();
        EXPECT_TRUE(fault.text.contains(part) && fault.text.contains(u"链接"_s));
        ExpectNothingLostElsewhere();
        ASSERT_TRUE(QFile::remove(Inside(part)));
        ASSERT_TRUE(QDir().rename(Inside(part + u".kept"_s), Inside(part)));
    }
    ASSERT_TRUE(QFile::link(Elsewhere({}), Inside(site::place::kCache)));
    EXPECT_EQ(FaultOf(site.folder.Path()).fault, Fault::NotASite);
    ExpectNothingLostElsewhere();
}

TEST_F(SiteWithAStranger, UnknownThingsInTheBinAreSetAsideAndTold) {
    WriteFile(Inside(u"bin/python3"_s), "python");
    WriteFile(Inside(u"bin/我的 笔记.txt"_s), "notes");
    WriteFile(Inside(u"bin/old/list"_s), "list");
    WriteFile(Inside(u"bin/"_s + uuid), "picture");
    Open();
    EXPECT_THAT(FilesBelow(Aside(u"bin"_s)),
                ElementsAre(uuid, u"old/list"_s, u"python3"_s, u"我的 笔记.txt"_s));
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(u"python3"_s)) << told[0].toStdString();
    EXPECT_TRUE(told[0].contains(u"set-aside"_s)) << told[0].toStdString();
    site.folder.Close();
    told.clear();
    Open();
    EXPECT_THAT(told, IsEmpty()) << "once is enough";
}

TEST_F(SiteWithAStranger, OfTwoWithOneNameBothAreKept) {
    for (const QByteArray& bytes : {QByteArray("first"), QByteArray("second")}) {
        WriteFile(Inside(u"bin/backup"_s), bytes);
        Open();
        site.folder.Close();
    }
    EXPECT_THAT(FilesBelow(Aside(u"bin"_s)), ElementsAre(u"backup"_s, u"backup (2)"_s));
    QFile first(Aside(u"bin/backup"_s));
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    EXPECT_EQ(first.readAll(), "first");
}

TEST_F(SiteWithAStranger, ANameIsNeverTakenForAPlaceholder) {
    for (int time = 0; time < 2; ++time) {
        for (const QString& name : {u"%2"_s, u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}) {
            WriteFile(Inside(u"bin/"_s + name), name.toUtf8());
        }
        told.clear();
        Open();
        ASSERT_EQ(told.size(), 1);
        EXPECT_TRUE(told[0].contains(u"bin/%2、"_s)) << told[0].toStdString();
        EXPECT_TRUE(told[0].contains(u" 等 6 项"_s)) << told[0].toStdString();
        site.folder.Close();
    }
    EXPECT_THAT(FilesBelow(Aside(u"bin"_s)), testing::Contains(u"%2 (2)"_s));
}

TEST_F(SiteWithAStranger, LinksInTheBinAreMovedNotFollowed) {
    ASSERT_TRUE(QFile::link(Elsewhere(uuid), Inside(u"bin/"_s + uuid)));
    ASSERT_TRUE(QFile::link(Elsewhere({}), Inside(u"bin/folder"_s)));
    Open();
    ExpectNothingLostElsewhere();
    EXPECT_TRUE(QFileInfo(Aside(u"bin/"_s + uuid)).isSymLink());
    EXPECT_TRUE(QFileInfo(Aside(u"bin/folder"_s)).isSymLink());
}

TEST_F(SiteWithAStranger, LinksAmongTheNotesAreMovedNotFollowed) {
    ASSERT_TRUE(QDir(site.folder.StorePath()).mkpath(u"incoming/dead"_s));
    ASSERT_TRUE(QFile::link(Elsewhere({}), Inside(u"store/incoming/link"_s)));
    ASSERT_TRUE(QFile::link(Elsewhere(uuid), Inside(u"store/incoming/dead/"_s + uuid)));
    WriteFile(Inside(u"store/incoming/dead/list"_s));
    Open();
    ExpectNothingLostElsewhere();
    EXPECT_TRUE(QFileInfo(Aside(u"store/incoming/link"_s)).isSymLink());
    EXPECT_TRUE(QFileInfo(Aside(u"store/incoming/dead/"_s + uuid)).isSymLink());
    EXPECT_TRUE(IsRealFile(Aside(u"store/incoming/dead/list"_s)));
    EXPECT_EQ(told.size(), 1);
}

TEST_F(SiteWithAStranger, AFolderOfNotesThatIsALinkIsMovedNotFollowed) {
    QDir(Inside(u"store/incoming"_s)).removeRecursively();
    ASSERT_TRUE(QFile::link(Elsewhere({}), Inside(u"store/incoming"_s)));
    Open();
    ExpectNothingLostElsewhere();
    EXPECT_TRUE(QFileInfo(Aside(u"store/incoming"_s)).isSymLink());
}

TEST_F(SiteWithAStranger, ANoteNeverRemovesWhatLiesBehindALinkInTheStore) {
    WriteFile(Inside(u"store/incoming/dead/"_s + uuid));
    const QString first = Inside(u"store/"_s + uuid.left(1));
    ASSERT_TRUE(QDir().mkpath(first));
    ASSERT_TRUE(QFile::link(Elsewhere({}), first + u'/' + uuid[1]));
    Open();
    ExpectNothingLostElsewhere();
}

TEST_F(SiteWithAStranger, LinksInTheCacheAreLeftAlone) {
    ASSERT_TRUE(QDir(site.folder.Path()).mkpath(u"cache/1/pics"_s));
    ASSERT_TRUE(QFile::link(Elsewhere({}), Inside(u"cache/1/thumbs"_s)));
    QFile old(Elsewhere(uuid + u".part"_s));
    ASSERT_TRUE(old.open(QIODevice::ReadWrite));
    ASSERT_TRUE(old.setFileTime(QDateTime::currentDateTime().addDays(-3),
                                QFileDevice::FileModificationTime));
    old.close();
    const QString link = Inside(u"cache/1/pics/"_s + NewStoreName() + u".part"_s);
    ASSERT_TRUE(QFile::link(old.fileName(), link));
    Open();
    ExpectNothingLostElsewhere();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(SiteWithAStranger, WhatALockedSiteWouldSetAsideWaits) {
    WriteFile(Inside(u"bin/backup"_s));
    Database writer(site.folder.DatabasePath(), 100);
    {
        const Transaction held(writer);
        const auto fault = site.folder.Open({100, true});
        EXPECT_FALSE(fault) << "somebody else's long change is no reason not to open";
        EXPECT_TRUE(IsRealFile(Inside(u"bin/backup"_s)));
        site.folder.Close();
    }
    Open();
    EXPECT_TRUE(IsRealFile(Aside(u"bin/backup"_s)));
}

TEST(SetAsideFolder, WhatCannotBeMovedStaysAndIsTold) {
    QTemporaryDir root;
    WriteFile(root.filePath(u"set-aside"_s), "a file in the way");
    WriteFile(root.filePath(u"bin/backup"_s));
    SetAside aside(root.path(), u"2026-11-22"_s);
    EXPECT_FALSE(aside.Take(u"bin/backup"_s));
    EXPECT_TRUE(IsRealFile(root.filePath(u"bin/backup"_s)));
    EXPECT_TRUE(aside.Story().contains(u"未能移走"_s)) << aside.Story().toStdString();
    EXPECT_TRUE(aside.Take(u"bin/nothing"_s)) << "what isn't there needn't be moved";
}

TEST(SetAsideFolder, ALongListIsToldByItsBeginningAndItsNumber) {
    QTemporaryDir root;
    SetAside aside(root.path(), u"2026-11-22"_s);
    EXPECT_TRUE(aside.Story().isEmpty());
    for (int number = 0; number < 7; ++number) {
        WriteFile(root.filePath(u"bin/%1"_s.arg(number)));
        EXPECT_TRUE(aside.Take(u"bin/%1"_s.arg(number)));
    }
    EXPECT_TRUE(aside.Story().contains(u"bin/0、bin/1、bin/2、bin/3、bin/4 等 7 项"_s))
        << aside.Story().toStdString();
}

} // namespace site
