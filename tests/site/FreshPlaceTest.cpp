#include "site/FreshPlace.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace site {
namespace {

using namespace Qt::StringLiterals;

void OpenAndClose(const QString& path) {
    const OpenedSite opened = OpenSite(path);
    ASSERT_FALSE(opened.fault) << opened.fault->text.toStdString();
}

TEST(FreshPlace, WhatIsMissingOrEmptyIsFreeAndLookingMakesNothing) {
    const support::TempFolder folder;
    EXPECT_TRUE(FreshPlace(folder.Path()).IsFree());
    EXPECT_TRUE(FreshPlace(folder.Path(u"a/b"_s)).IsFree());
    EXPECT_TRUE(QDir(folder.Path()).isEmpty());
}

TEST(FreshPlace, ASiteAFileAndSomebodysFolderAreNot) {
    const support::TempFolder folder;
    OpenAndClose(folder.Path(u"site"_s));
    folder.Write(u"mine/note.txt"_s, "x");
    for (const QString& name : {u"site"_s, u"mine"_s, u"mine/note.txt"_s}) {
        EXPECT_FALSE(FreshPlace(folder.Path(name)).IsFree()) << name.toStdString();
    }
}

TEST(FreshPlace, TakesBackWhatAnOpeningMadeWithTheFoldersAbove) {
    const support::TempFolder folder;
    const FreshPlace fresh(folder.Path(u"a/b/data"_s));
    OpenAndClose(folder.Path(u"a/b/data"_s));
    ASSERT_TRUE(QFileInfo::exists(folder.Path(u"a/b/data"_s)));
    fresh.TakeBack();
    EXPECT_TRUE(QDir(folder.Path()).isEmpty());
}

TEST(FreshPlace, AFolderThatWasThereStaysEmpty) {
    const support::TempFolder folder;
    ASSERT_TRUE(QDir(folder.Path()).mkdir(u"data"_s));
    const FreshPlace fresh(folder.Path(u"data"_s));
    OpenAndClose(folder.Path(u"data"_s));
    fresh.TakeBack();
    EXPECT_TRUE(QFileInfo(folder.Path(u"data"_s)).isDir());
    EXPECT_TRUE(QDir(folder.Path(u"data"_s)).isEmpty());
}

TEST(FreshPlace, WhatSomebodyPutThereMeanwhileStays) {
    const support::TempFolder folder;
    const FreshPlace fresh(folder.Path(u"a/data"_s));
    OpenAndClose(folder.Path(u"a/data"_s));
    folder.Write(u"a/data/note.txt"_s, "mine");
    fresh.TakeBack();
    EXPECT_EQ(folder.Read(u"a/data/note.txt"_s), "mine");
    EXPECT_EQ(QDir(folder.Path(u"a/data"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{u"note.txt"_s});
}

TEST(FreshPlace, ASiteThatWasThereBeforeIsNeverTakenBack) {
    const support::TempFolder folder;
    OpenAndClose(folder.Path(u"data"_s));
    FreshPlace(folder.Path(u"data"_s)).TakeBack();
    EXPECT_FALSE(FreshPlace(folder.Path(u"data"_s)).IsFree());
}

} // namespace
} // namespace site
