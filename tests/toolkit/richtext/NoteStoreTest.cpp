// Files of rich texts by their content.
#include "toolkit/richtext/NoteStore.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QCryptographicHash>
#include <QDir>

#include <gtest/gtest.h>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

QString Md5(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

} // namespace

TEST(NoteStore, BytesLieUnderTheirDigestWithTheirEnding) {
    const support::TempFolder folder;
    const QString pages = folder.Path(u"a/b/"_s);
    const auto name = StoreBytes("page", pages, u".html"_s);
    ASSERT_TRUE(name);
    EXPECT_EQ(*name, Md5("page") + u".html"_s);
    EXPECT_EQ(folder.Read(u"a/b/"_s + *name), "page");
    EXPECT_EQ(QDir(pages).entryList(QDir::Files).size(), 1);
    EXPECT_EQ(StoreBytes("page", pages, u".html"_s), name) << "it is there already";
}

TEST(NoteStore, ACopyKeepsTheEndingInLowerCaseAndTheContentWhole) {
    const support::TempFolder folder;
    const QString picked = folder.Write(u"照片.JPG"_s, "jpeg bytes");
    const auto name = StoreCopy(picked, folder.Path(u"pages/"_s));
    ASSERT_TRUE(name);
    EXPECT_EQ(*name, Md5("jpeg bytes") + u".jpg"_s);
    EXPECT_EQ(folder.Read(u"pages/"_s + *name), "jpeg bytes");
    EXPECT_EQ(folder.Read(u"照片.JPG"_s), "jpeg bytes");
}

TEST(NoteStore, AnEndingThatCannotBePartOfAStoreNameIsLeftOut) {
    const support::TempFolder folder;
    for (const QString& name : {u"a.有 空"_s, u"a.01234567890"_s, u"a"_s, u"a."_s}) {
        const auto stored = StoreCopy(folder.Write(name, "x"), folder.Path(u"pages/"_s));
        ASSERT_TRUE(stored) << name.toStdString();
        EXPECT_EQ(*stored, Md5("x"));
    }
}

TEST(NoteStore, WhatCannotBeReadOrWrittenGivesNothing) {
    const support::TempFolder folder;
    EXPECT_FALSE(StoreCopy(folder.Path(u"none"_s), folder.Path(u"pages/"_s)));
    EXPECT_FALSE(StoreCopy(folder.Path(), folder.Path(u"pages/"_s))) << "a folder";
    const QString file = folder.Write(u"file"_s, "x");
    EXPECT_FALSE(StoreBytes("y", file + u"/in/"_s, {}));
    EXPECT_FALSE(StoreCopy(file, file + u"/in/"_s));
    EXPECT_FALSE(StoreBytes("y", {}, {})) << "no place is known";
    EXPECT_FALSE(StoreCopy(file, {}));
}

TEST(NoteStore, OnAFullDiskNothingIsStoredAndLaterAllOfIt) {
    const support::TempFolder folder;
    const QString pages = folder.Path(u"pages/"_s);
    // Less and more than Qt buffers.
    for (const int size : {3'000, 40'000}) {
        const QByteArray bytes(size, 'a');
        {
            const support::FileSizeLimit limit(1'000);
            EXPECT_FALSE(StoreBytes(bytes, pages, u".html"_s)) << size;
        }
        EXPECT_TRUE(QDir(pages).isEmpty());
        const auto name = StoreBytes(bytes, pages, u".html"_s);
        ASSERT_TRUE(name);
        EXPECT_EQ(folder.Read(u"pages/"_s + *name), bytes);
        EXPECT_TRUE(QFile::remove(pages + *name));
    }
}

TEST(NoteStore, OnAFullDiskNothingIsCopied) {
    const support::TempFolder folder;
    const QString pages = folder.Path(u"pages/"_s);
    for (const int size : {3'000, 40'000}) {
        const QString picked = folder.Write(u"a.png"_s, QByteArray(size, 'a'));
        const support::FileSizeLimit limit(1'000);
        EXPECT_FALSE(StoreCopy(picked, pages)) << size;
        EXPECT_FALSE(StoreAttached(picked, pages)) << size;
    }
}

TEST(NoteStore, AFileThatAFaultLeftShortIsWrittenAnew) {
    const support::TempFolder folder;
    const QString pages = folder.Path(u"pages/"_s);
    const auto name = StoreBytes("page", pages, u".html"_s);
    ASSERT_TRUE(name);
    folder.Write(u"pages/"_s + *name, "");
    EXPECT_EQ(StoreBytes("page", pages, u".html"_s), name);
    EXPECT_EQ(folder.Read(u"pages/"_s + *name), "page");
}

} // namespace toolkit
