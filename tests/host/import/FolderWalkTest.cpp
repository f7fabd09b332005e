#include "host/import/FolderWalk.h"

#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QStringList Walked(const support::TempFolder& temp, const QStringList& roots) {
    QStringList names;
    host::WalkFolder(roots, [&](const QString& path) {
        names.append(QDir(temp.Path()).relativeFilePath(path));
        return true;
    });
    return names;
}

TEST(FolderWalk, FilesByNameBeforeFoldersByName) {
    const support::TempFolder temp;
    for (const QString& name :
         {u"b.jpg"_s, u"a.jpg"_s, u"z/1.jpg"_s, u"m/2.jpg"_s, u"m/n/3.jpg"_s}) {
        temp.Write(name, "x");
    }
    EXPECT_EQ(Walked(temp, {temp.Path()}),
              (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"m/2.jpg"_s, u"m/n/3.jpg"_s, u"z/1.jpg"_s}));
}

TEST(FolderWalk, HiddenFilesAreNamedAndHiddenFoldersNotEntered) {
    const support::TempFolder temp;
    temp.Write(u".thumb.jpg"_s, "x");
    temp.Write(u".trash/1.jpg"_s, "x");
    EXPECT_EQ(Walked(temp, {temp.Path()}), (QStringList{u".thumb.jpg"_s, u".trash"_s}));
}

TEST(FolderWalk, AFolderThatLeadsBackIsNotEntered) {
    const support::TempFolder temp;
    temp.Write(u"a.jpg"_s, "x");
    ASSERT_TRUE(QFile::link(temp.Path(), temp.Path(u"round"_s)));
    EXPECT_EQ(Walked(temp, {temp.Path()}), (QStringList{u"a.jpg"_s, u"round"_s}));
}

TEST(FolderWalk, ABrokenLinkIsNamedOnce) {
    const support::TempFolder temp;
    ASSERT_TRUE(QFile::link(u"/nowhere/at/all.jpg"_s, temp.Path(u"gone.jpg"_s)));
    EXPECT_EQ(Walked(temp, {temp.Path()}), QStringList{u"gone.jpg"_s});
}

TEST(FolderWalk, ARootMayBeAFile) {
    const support::TempFolder temp;
    temp.Write(u"a.jpg"_s, "x");
    temp.Write(u"f/b.jpg"_s, "x");
    EXPECT_EQ(Walked(temp, {temp.Path(u"f"_s), temp.Path(u"a.jpg"_s)}),
              (QStringList{u"f/b.jpg"_s, u"a.jpg"_s}));
}

TEST(FolderWalk, EndsWhenItIsTold) {
    const support::TempFolder temp;
    temp.Write(u"a.jpg"_s, "x");
    temp.Write(u"b.jpg"_s, "x");
    int seen = 0;
    host::WalkFolder({temp.Path()}, [&](const QString&) {
        ++seen;
        return false;
    });
    EXPECT_EQ(seen, 1);
}

} // namespace
