#include "sheets/TableReader.h"

#include "sheets/TableTaker.h"
#include "tests/sheets/BookMaker.h"
#include "tests/support/TempFolder.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

const QByteArray kOldBook("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and so on", 18);

QString OnlyFault(const sheets::TableBook& book) {
    EXPECT_EQ(book.faults.size(), 1);
    return book.faults.empty() ? QString() : sheets::TextOf(book.faults[0]);
}

TEST(TableReader, TheFormIsInTheBytesNotInTheName) {
    const support::TempFolder folder;
    const QByteArray book = sheettest::BookOf({{u"一"_s, "<row><c><v>1</v></c></row>"}});
    const QString asCsv = folder.Write(u"a.csv"_s, book);
    EXPECT_EQ(sheets::ReadTableFile(asCsv).sheets.at(0).name, u"一");
    const QString asBook = folder.Write(u"b.xlsx"_s, "一,二");
    EXPECT_EQ(sheets::ReadTableFile(asBook).sheets.at(0).rows.at(0).cells.at(1), u"二");
}

TEST(TableReader, OldAndLockedWorkbooksAreToldApart) {
    const support::TempFolder folder;
    EXPECT_EQ(OnlyFault(sheets::ReadTableFile(folder.Write(u"a.xls"_s, kOldBook))),
              u"文件是旧格式的工作簿（.xls），请在 Excel 里另存为 .xlsx 后再试");
    QByteArray name;
    for (const char letter : QByteArray("EncryptedPackage")) {
        name += letter;
        name += '\0';
    }
    EXPECT_EQ(OnlyFault(sheets::ReadTableFile(folder.Write(u"a.xlsx"_s, kOldBook + name))),
              u"文件有密码保护，请去掉密码后再试");
}

TEST(TableReader, WhatCannotBeReadIsTold) {
    const support::TempFolder folder;
    const QString gone = folder.Path(u"gone.csv"_s);
    EXPECT_EQ(OnlyFault(sheets::ReadTableFile(gone)), u"没有这个文件："_s + gone);
    EXPECT_EQ(OnlyFault(sheets::ReadTableFile(folder.Path())), u"不是文件："_s + folder.Path());
    EXPECT_EQ(OnlyFault(sheets::ReadTableFile(u"/dev/zero"_s)), u"不是文件：/dev/zero");
}

TEST(TableReader, AFileMayBeAsLargeAsAllowed) {
    const support::TempFolder folder;
    sheets::TableLimits limits;
    limits.bytes = 1024 * 1024;
    QByteArray lines = QByteArray("0123456789,abcd\n").repeated(64 * 1024);
    EXPECT_EQ(sheets::ReadTableFile(folder.Write(u"a.csv"_s, lines), limits).sheets[0].rows.size(),
              64 * 1024);
    lines += '\n';
    EXPECT_EQ(OnlyFault(sheets::ReadTableFile(folder.Write(u"a.csv"_s, lines), limits)),
              u"文件超过 1 MB，太大了");
}

TEST(TableReader, ColumnsAreCalledAsInSpreadsheets) {
    EXPECT_EQ(sheets::ColumnLetters(0), u"A");
    EXPECT_EQ(sheets::ColumnLetters(25), u"Z");
    EXPECT_EQ(sheets::ColumnLetters(26), u"AA");
    EXPECT_EQ(sheets::ColumnLetters(701), u"ZZ");
    EXPECT_EQ(sheets::ColumnLetters(702), u"AAA");
}

TEST(TableReader, AFaultIsASentenceWithItsPlace) {
    EXPECT_EQ(sheets::TextOf({u"楼层"_s, 5, 1, u"是公式"_s}), u"楼层 第 5 行 B 列是公式");
    EXPECT_EQ(sheets::TextOf({{}, 5, -1, u"空"_s}), u"第 5 行空");
    EXPECT_EQ(sheets::TextOf({u"楼层"_s, 0, -1, u"空"_s}), u"楼层：空");
    EXPECT_EQ(sheets::TextOf({{}, 0, -1, u"空"_s}), u"空");
}

} // namespace
