#include "sheets/ZipCheck.h"

#include "tests/support/TempFolder.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// An archive of one part, made by another program.
QString Packed(const support::TempFolder& folder, const QString& name, const QByteArray& bytes) {
    folder.Write(name, bytes);
    QProcess python;
    python.setWorkingDirectory(folder.Path());
    python.start(u"python3"_s, {u"-m"_s, u"zipfile"_s, u"-c"_s, u"a.zip"_s, name});
    EXPECT_TRUE(python.waitForFinished());
    EXPECT_EQ(python.exitCode(), 0);
    return folder.Path(u"a.zip"_s);
}

const QByteArray kBook =
    "<?xml version=\"1.0\"?>\n<sheet a=\"b\">" + QByteArray(5000, 'x') + "</sheet>";

TEST(ZipCheck, WhatEndsAsItBeganIsWhole) {
    const support::TempFolder folder;
    EXPECT_TRUE(sheets::IsWholeWorkbook(Packed(folder, u"sheet.xml"_s, kBook)));
    EXPECT_TRUE(sheets::IsWholeWorkbook(Packed(folder, u"sheet.xml"_s, kBook + '\n')));
    EXPECT_TRUE(
        sheets::IsWholeWorkbook(Packed(folder, u"sheet.xml"_s, "<?xml version=\"1.0\"?>\n<sst/>")));
    EXPECT_TRUE(sheets::IsWholeWorkbook(Packed(folder, u"a.jpeg"_s, "anything")));
}

TEST(ZipCheck, APartThatBreaksOffIsNot) {
    const support::TempFolder folder;
    for (const qsizetype left :
         {kBook.size() - 1, kBook.size() - 8, qsizetype(3000), qsizetype(10), qsizetype(0)}) {
        EXPECT_FALSE(sheets::IsWholeWorkbook(Packed(folder, u"sheet.xml"_s, kBook.left(left))))
            << left;
    }
    EXPECT_FALSE(sheets::IsWholeWorkbook(Packed(folder, u"a.rels"_s, "<a><b/>")));
}

TEST(ZipCheck, AnArchiveThatBreaksOffIsNot) {
    const support::TempFolder folder;
    Packed(folder, u"sheet.xml"_s, kBook);
    const QByteArray all = folder.Read(u"a.zip"_s);
    for (const qsizetype left : {all.size() - 1, all.size() / 2, qsizetype(22), qsizetype(0)}) {
        EXPECT_FALSE(sheets::IsWholeWorkbook(folder.Write(u"b.zip"_s, all.left(left)))) << left;
    }
    EXPECT_FALSE(sheets::IsWholeWorkbook(folder.Path(u"none"_s)));
}

TEST(ZipCheck, ADamagedByteIsSeen) {
    const support::TempFolder folder;
    QByteArray bytes;
    for (int i = 0; i < 500; ++i) {
        bytes += QByteArray::number(i * i);
    }
    Packed(folder, u"a.jpeg"_s, bytes);
    QByteArray all = folder.Read(u"a.zip"_s);
    all[300] = char(all[300] ^ 1);
    EXPECT_FALSE(sheets::IsWholeWorkbook(folder.Write(u"b.zip"_s, all)));
}

} // namespace
