#include "host/setup/SetupFile.h"

#include "tests/host/setup/PlanCase.h"
#include "tests/sheets/BookMaker.h"
#include "tests/support/TempFolder.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using host::ReadSetupFile;
using host::ReadSetupText;
using host::SetupTable;
using host::SetupTables;
using setuptest::TextsOf;

const QString kTableNames = u"工程、工作集、人员、标识、标签、楼层、轴网、交点、图纸"_s;

/// "3: a|b", a row each.
QStringList RowsOf(const SetupTables& tables, SetupTable table) {
    QStringList texts;
    for (const host::SetupRow& row : tables.Rows(table)) {
        texts << u"%1: %2"_s.arg(row.line).arg(
            QStringList(row.cells.begin(), row.cells.end()).join(u'|'));
    }
    return texts;
}

TEST(SetupFile, SectionsWithTheirCaptionsAndLines) {
    const SetupTables tables =
        ReadSetupText(u"# 说明\n\n[工程]\n名称,专业\n一期,土建\n# 停一下\n二期\n"
                      "［ 楼层 ］\n楼层\t工程\n1F\t一期\n"
                      "[工程]\n归档,名称\n是,三期\n"_s);
    EXPECT_EQ(TextsOf(tables.faults), QStringList());
    EXPECT_EQ(RowsOf(tables, SetupTable::Project),
              QStringList({u"5: 一期|土建|"_s, u"7: 二期||"_s, u"13: 三期||是"_s}));
    EXPECT_EQ(RowsOf(tables, SetupTable::Floor), QStringList{u"10: 一期|1F"_s});
    EXPECT_FALSE(tables.Rows(SetupTable::Project)[0].Has(host::column::kProjectArchived));
    EXPECT_FALSE(tables.Rows(SetupTable::Project)[2].Has(host::column::kProjectMajor));
}

TEST(SetupFile, WhatLooksLikeACommentButIsANameOrAColourStays) {
    EXPECT_EQ(
        RowsOf(ReadSetupText(u"[标识]\n颜色,名称\n#FF00aa,裂缝\n#注释\n"_s), SetupTable::Mark),
        QStringList{u"3: 裂缝|#FF00aa|"_s});
    EXPECT_EQ(
        RowsOf(ReadSetupText(u"[工程]\n名称\n#1楼\n#\n# 2\n\"#甲\"\n"_s), SetupTable::Project),
        QStringList({u"3: #1楼||"_s, u"6: #甲||"_s}));
}

TEST(SetupFile, CaptionsAreMeantHoweverTheyAreWritten) {
    EXPECT_EQ(RowsOf(ReadSetupText(u"[轴网]\nＸ轴,y 轴,楼层\n1,A,1F\n"_s), SetupTable::Axes),
              QStringList{u"3: |1F|1|A"_s});
}

TEST(SetupFile, WrongTablesAndCaptionsAreToldWithThoseThatThereAre) {
    EXPECT_EQ(
        TextsOf(ReadSetupText(
                    u"一期\n[房间]\n名称\n[楼层]\n工程,高度,楼层,楼层\n一期,3,1F\n[交点]\n工程\n"_s)
                    .faults),
        QStringList({u"第 1 行：不在任何表里；先写一行表名，例如 [工程]"_s,
                     u"第 2 行：不认识的表“房间”，可用的表："_s + kTableNames,
                     u"楼层 第 5 行：不认识的表头“高度”，可用的表头：工程、楼层"_s,
                     u"楼层 第 5 行：表头“楼层”重复了"_s, u"交点 第 8 行：缺少“楼层”一列"_s,
                     u"交点 第 8 行：缺少“X轴”一列"_s, u"交点 第 8 行：缺少“Y轴”一列"_s}));
}

TEST(SetupFile, ACellBesideTheTableIsTold) {
    EXPECT_EQ(TextsOf(ReadSetupText(u"[标签]\n名称,\n墙面,备注\n地面\n"_s).faults),
              QStringList{u"标签 第 3 行：B 列没有表头，却有“备注”"_s});
}

TEST(SetupFile, AFormulaIsToldInItsTable) {
    EXPECT_EQ(TextsOf(ReadSetupText(u"[楼层]\n工程,楼层\n一期,=A1\n"_s).faults),
              QStringList{u"楼层 第 3 行：B 列是公式，请换成数值"_s});
}

TEST(SetupFile, EncodingsAndWorkbooksGiveTheSame) {
    const support::TempFolder folder;
    const QString text = u"[楼层]\n工程,楼层\n一期,1\n一期,二三\n"_s;
    const QStringList rows = {u"3: 一期|1"_s, u"4: 一期|二三"_s};
    for (const char* name : {"UTF-8", "GBK"}) {
        const QByteArray bytes = QStringEncoder(name).encode(text);
        EXPECT_EQ(RowsOf(ReadSetupFile(folder.Write(u"a.txt"_s, bytes)), SetupTable::Floor), rows);
    }
    const QByteArray wide = QStringEncoder(QStringEncoder::Utf16LE).encode(text);
    EXPECT_EQ(RowsOf(ReadSetupFile(folder.Write(u"a.txt"_s, "\xFF\xFE" + wide)), SetupTable::Floor),
              rows);
    const QByteArray book = sheettest::BookOf(
        {{u"楼层"_s,
          "<row r=\"2\"><c t=\"inlineStr\"><is><t>工程</t></is></c><c t=\"inlineStr\"><is><t>"
          "楼层</t></is></c></row><row><c t=\"inlineStr\"><is><t>一期</t></is></c><c><v>1.0"
          "</v></c></row><row><c t=\"inlineStr\"><is><t>一期</t></is></c><c t=\"s\"><v>1</v>"
          "</c></row>"},
         {u"Sheet2"_s, {}}});
    const SetupTables tables = ReadSetupFile(folder.Write(u"a.xlsx"_s, book));
    EXPECT_EQ(TextsOf(tables.faults), QStringList());
    EXPECT_EQ(RowsOf(tables, SetupTable::Floor), rows);
}

TEST(SetupFile, FormulasAndUnknownSheetsOfAWorkbookAreTold) {
    const support::TempFolder folder;
    const QByteArray row("<row><c><f>1</f></c></row>");
    EXPECT_EQ(TextsOf(ReadSetupFile(
                          folder.Write(u"a.xlsx"_s, sheettest::BookOf(
                                                        {{u"楼层"_s, row},
                                                         {u"甲"_s, "<row><c><v>1</v></c></row>"}})))
                          .faults),
              QStringList({u"楼层 第 1 行：A 列是公式，请换成数值"_s,
                           u"不认识的表“甲”，可用的表："_s + kTableNames}));
}

TEST(SetupFile, AnEmptyFileAndNoFileAreTold) {
    const support::TempFolder folder;
    const QString nothing = u"文件里没有任何内容，可用的表："_s + kTableNames;
    EXPECT_EQ(TextsOf(ReadSetupFile(folder.Write(u"a.txt"_s, {})).faults), QStringList{nothing});
    EXPECT_EQ(TextsOf(ReadSetupText(u"[工程]\n名称\n"_s).faults), QStringList{nothing});
    EXPECT_EQ(TextsOf(ReadSetupFile(folder.Path(u"b.txt"_s)).faults),
              QStringList{u"没有这个文件："_s + folder.Path(u"b.txt"_s)});
}

TEST(SetupFile, APastedTableMayLackItsCaptions) {
    SetupTables tables;
    const sheets::TableSheet plain{{}, {{1, {u"一期"_s, u"1F"_s, u"1"_s, u"A"_s}}}};
    AddSetupTable(SetupTable::Crossing, plain, host::Captions::MayLack, tables);
    const sheets::TableSheet headed{
        {}, {{1, {u"楼层"_s, u"X轴"_s, u"Y轴"_s}}, {2, {u"2F"_s, u"1"_s, u"A"_s}}}};
    AddSetupTable(SetupTable::Crossing, headed, host::Captions::MayLack, tables);
    EXPECT_EQ(TextsOf(tables.faults), QStringList());
    EXPECT_EQ(RowsOf(tables, SetupTable::Crossing),
              QStringList({u"1: 一期|1F|1|A"_s, u"2: |2F|1|A"_s}));
}

TEST(SetupFile, APastedTableWithoutCaptionsMayLackTheProject) {
    SetupTables tables;
    const sheets::TableSheet floors{{}, {{1, {u"-1"_s}}, {2, {u"1"_s}}}};
    AddSetupTable(SetupTable::Floor, floors, host::Captions::MayLack, tables);
    const sheets::TableSheet named{{}, {{1, {u"一期"_s, u"2"_s}}, {2, {u"一期"_s}}}};
    AddSetupTable(SetupTable::Floor, named, host::Captions::MayLack, tables);
    const sheets::TableSheet axes{{}, {{1, {u"1"_s, u"1-6"_s, u"A-D"_s}}}};
    AddSetupTable(SetupTable::Axes, axes, host::Captions::MayLack, tables);
    EXPECT_EQ(RowsOf(tables, SetupTable::Floor),
              QStringList({u"1: |-1"_s, u"2: |1"_s, u"1: 一期|2"_s, u"2: 一期|"_s}));
    EXPECT_EQ(RowsOf(tables, SetupTable::Axes), QStringList{u"1: |1|1-6|A-D"_s});
}

} // namespace
