#include "toolkit/media/FileCopy.h"

#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using toolkit::CopyFileWhole;
using toolkit::CopyOutcome;
using toolkit::IfExists;

namespace {

QStringList FilesOf(const support::TempFolder& folder) {
    return QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

} // namespace

TEST(FileCopy, CopiesAndLeavesNothingBeside) {
    const support::TempFolder folder;
    const QString source = folder.Write(u"a"_s, "photo");
    EXPECT_EQ(CopyFileWhole(source, folder.Path(u"b"_s), IfExists::Keep), CopyOutcome::Copied);
    EXPECT_EQ(folder.Read(u"b"_s), "photo");
    EXPECT_EQ(FilesOf(folder), (QStringList{u"a"_s, u"b"_s}));
}

TEST(FileCopy, KeepsOrReplacesWhatIsThere) {
    const support::TempFolder folder;
    const QString source = folder.Write(u"a"_s, "new");
    const QString target = folder.Write(u"b"_s, "old");
    EXPECT_EQ(CopyFileWhole(source, target, IfExists::Keep), CopyOutcome::TargetExists);
    EXPECT_EQ(folder.Read(u"b"_s), "old");
    EXPECT_EQ(CopyFileWhole(source, target, IfExists::Replace), CopyOutcome::Copied);
    EXPECT_EQ(folder.Read(u"b"_s), "new");
    EXPECT_EQ(FilesOf(folder).size(), 2);
}

TEST(FileCopy, OntoItselfChangesNothing) {
    const support::TempFolder folder;
    const QString source = folder.Write(u"a"_s, "photo");
    for (const IfExists ifExists : {IfExists::Keep, IfExists::Replace}) {
        EXPECT_EQ(CopyFileWhole(source, folder.Path(u"./a"_s), ifExists), CopyOutcome::SameFile);
        EXPECT_EQ(folder.Read(u"a"_s), "photo");
    }
    ASSERT_TRUE(QFile::link(source, folder.Path(u"link"_s)));
    EXPECT_EQ(CopyFileWhole(source, folder.Path(u"link"_s), IfExists::Replace),
              CopyOutcome::SameFile);
    EXPECT_EQ(folder.Read(u"a"_s), "photo");
}

TEST(FileCopy, AFailureLeavesTheTargetAsItWas) {
    const support::TempFolder folder;
    const QString target = folder.Write(u"b"_s, "old");
    EXPECT_EQ(CopyFileWhole(folder.Path(u"none"_s), target, IfExists::Replace),
              CopyOutcome::Failed);
    EXPECT_EQ(folder.Read(u"b"_s), "old");
    const QString source = folder.Write(u"a"_s, "photo");
    EXPECT_EQ(CopyFileWhole(source, folder.Path(u"no/folder/b"_s), IfExists::Keep),
              CopyOutcome::Failed);
    QDir().mkdir(folder.Path(u"folder"_s));
    EXPECT_EQ(CopyFileWhole(source, folder.Path(u"folder"_s), IfExists::Replace),
              CopyOutcome::Failed);
    EXPECT_EQ(FilesOf(folder), (QStringList{u"a"_s, u"b"_s}));
}

TEST(FileCopy, AFullDiskLeavesTheTargetAsItWasAndNothingHalf) {
    const support::TempFolder folder;
    const QString source = folder.Write(u"a"_s, QByteArray(300'000, 'x'));
    const QString target = folder.Write(u"b"_s, "old");
    const support::FileSizeLimit limit(100'000);
    EXPECT_EQ(CopyFileWhole(source, target, IfExists::Replace), CopyOutcome::Failed);
    EXPECT_EQ(CopyFileWhole(source, folder.Path(u"c"_s), IfExists::Keep), CopyOutcome::Failed);
    EXPECT_EQ(folder.Read(u"b"_s), "old");
    EXPECT_EQ(FilesOf(folder), (QStringList{u"a"_s, u"b"_s}));
}

TEST(FileCopy, AFolderThatCantBeWrittenIsAFailure) {
    const support::TempFolder folder;
    const QString source = folder.Write(u"a"_s, "photo");
    EXPECT_EQ(CopyFileWhole(source, QString::fromLatin1(support::kUnwritableFolder) + u"/b"_s,
                            IfExists::Keep),
              CopyOutcome::Failed);
    EXPECT_EQ(CopyFileWhole(source, source + u"/b"_s, IfExists::Keep), CopyOutcome::Failed);
    EXPECT_EQ(folder.Read(u"a"_s), "photo");
}

TEST(FileCopy, ALinkThatLeadsNowhereTakesItsName) {
    const support::TempFolder folder;
    const QString source = folder.Write(u"a"_s, "photo");
    ASSERT_TRUE(QFile::link(folder.Path(u"gone"_s), folder.Path(u"link"_s)));
    EXPECT_EQ(CopyFileWhole(source, folder.Path(u"link"_s), IfExists::Keep),
              CopyOutcome::TargetExists);
}
