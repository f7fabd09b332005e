#include "sheets/WorkbookReader.h"

#include "sheets/SheetText.h"
#include "sheets/TableReader.h"
#include "tests/sheets/BookMaker.h"
#include "tests/sheets/SheetMaker.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

#include <random>

namespace {

using namespace Qt::StringLiterals;
using sheets::TableBook;
using sheettest::BookOf;
using sheettest::BookPartsOf;
using sheettest::Zipped;
using testing::ElementsAre;

/// "1: a|b", a row each.
QStringList RowTexts(const sheets::TableSheet& sheet) {
    QStringList texts;
    for (const sheets::TableRow& row : sheet.rows) {
        texts << u"%1: %2"_s.arg(row.line).arg(
            QStringList(row.cells.begin(), row.cells.end()).join(u'|'));
    }
    return texts;
}

QStringList Faults(const TableBook& book) {
    QStringList texts;
    for (const sheets::TableFault& fault : book.faults) {
        texts << sheets::TextOf(fault);
    }
    return texts;
}

TableBook ReadOne(const QByteArray& rows) {
    return sheets::ReadWorkbook(BookOf({{u"楼层"_s, rows}}));
}

QStringList FaultsOfRows(const QByteArray& rows) {
    return Faults(ReadOne(rows));
}

TEST(WorkbookReader, TextsOfAllKindsAndNumbersAsAPersonSeesThem) {
    const TableBook book =
        ReadOne("<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c>"
                "<c r=\"C1\" t=\"inlineStr\"><is><t> 内 </t></is></c></row>"
                "<row r=\"3\"><c r=\"A3\"><v>1.0</v></c><c r=\"C3\"><v>-1</v></c>"
                "<c r=\"D3\"><v>0.30000000000000004</v></c><c r=\"E3\" t=\"b\"><v>1</v></c></row>"
                "<row><c s=\"2\"><v>12</v></c><c s=\"4\"><v>3</v></c><c s=\"1\"/></row>");
    EXPECT_EQ(Faults(book), QStringList());
    ASSERT_EQ(book.sheets.size(), 1);
    EXPECT_EQ(book.sheets[0].name, u"楼层");
    EXPECT_EQ(RowTexts(book.sheets[0]),
              QStringList({u"1: 一|二三|内"_s, u"3: 1||-1|0.3|TRUE"_s, u"4: 12|3"_s}));
}

TEST(WorkbookReader, AFormulaIsToldAndNotTakenByItsLastResult) {
    const TableBook book =
        ReadOne("<row r=\"5\"><c r=\"A5\"><v>1</v></c><c r=\"B5\"><f>A5+1</f><v>2</v></c>"
                "<c r=\"C5\" t=\"str\"><f t=\"shared\" si=\"0\"/><v>x</v></c></row>");
    EXPECT_EQ(Faults(book), QStringList({u"楼层 第 5 行 B 列是公式，请换成数值"_s,
                                         u"楼层 第 5 行 C 列是公式，请换成数值"_s}));
    EXPECT_EQ(RowTexts(book.sheets[0]), QStringList{u"5: 1"_s});
}

TEST(WorkbookReader, DaysDressedNumbersAndErrorValuesAreTold) {
    EXPECT_EQ(
        FaultsOfRows("<row r=\"2\"><c r=\"A2\" s=\"1\"><v>46024</v></c>"
                     "<c r=\"B2\" s=\"3\"><v>3</v></c><c r=\"C2\" t=\"e\"><v>#N/A</v></c>"
                     "<c r=\"D2\" s=\"5\"><v>1</v></c>"
                     "<c r=\"AB2\" t=\"d\"><v>2026-01-02</v></c></row>"),
        QStringList({u"楼层 第 2 行 A 列是日期，请改成文本"_s,
                     u"楼层 第 2 行 B 列的数字另有显示格式，请改成文本"_s,
                     u"楼层 第 2 行 C 列是错误值 #N/A"_s, u"楼层 第 2 行 D 列是日期，请改成文本"_s,
                     u"楼层 第 2 行 AB 列是日期，请改成文本"_s}));
}

TEST(WorkbookReader, AMergedCellHasItsTextInItsFirst) {
    auto parts = BookPartsOf({{u"a"_s, "<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\"/>"
                                       "<c r=\"C1\"><v>2</v></c></row>"}});
    parts[u"xl/worksheets/sheet1.xml"_s].replace(
        "<extLst>", "<mergeCells><mergeCell ref=\"A1:B2\"/></mergeCells><extLst>");
    EXPECT_EQ(RowTexts(sheets::ReadWorkbook(Zipped(parts)).sheets.at(0)),
              QStringList{u"1: 1||2"_s});
}

TEST(WorkbookReader, SheetsInTheirOrderWithoutHiddenOnes) {
    auto parts = BookPartsOf({{u"一"_s, "<row><c><v>1</v></c></row>"},
                              {u"二"_s, "<row><c><f>x</f></c></row>"},
                              {u"三"_s, {}}});
    parts[u"xl/workbook.xml"_s].replace("name=\"二\"", "name=\"二\" state=\"veryHidden\"");
    const TableBook book = sheets::ReadWorkbook(Zipped(parts));
    EXPECT_EQ(Faults(book), QStringList());
    ASSERT_EQ(book.sheets.size(), 2);
    EXPECT_EQ(book.sheets[1].name, u"三");
    EXPECT_TRUE(book.sheets[1].rows.empty());
}

TEST(WorkbookReader, WhatTheListsWriterWritesReadsBack) {
    const support::TempFolder folder;
    const QString path = folder.Path(u"a.xlsx"_s);
    sheets::XlsxFile file(path, {});
    WriteAll(file, {{qint64(7), u"_x0041_ =1+1"_s, QString()}, {qint64(8), u"二\n行"_s, u"-1"_s}});
    const TableBook book = sheets::ReadTableFile(path);
    EXPECT_EQ(Faults(book), QStringList());
    EXPECT_EQ(RowTexts(book.sheets.at(0)),
              QStringList({u"1: 编号|文字|时间"_s, u"2: 7|_x0041_ =1+1"_s, u"3: 8|二\n行|-1"_s}));
}

TEST(WorkbookReader, EveryCutOfAWorkbookIsToldAndNothingElseHappens) {
    const QByteArray all = BookOf({{u"a"_s, "<row><c><v>1</v></c></row>"}});
    for (qsizetype size = 4; size < all.size(); size += 7) {
        const TableBook book = sheets::ReadWorkbook(all.left(size));
        ASSERT_EQ(Faults(book), QStringList{u"工作簿已损坏或不完整"_s}) << size;
    }
}

TEST(WorkbookReader, APartThatBreaksOffOrContradictsIsDamage) {
    const auto good =
        BookPartsOf({{u"a"_s, "<row r=\"4\"><c r=\"B4\" t=\"s\"><v>1</v></c></row>"}});
    const auto damaged = [&good](const QString& part, auto change) {
        auto parts = good;
        change(parts[part]);
        return Faults(sheets::ReadWorkbook(Zipped(parts))).value(0);
    };
    const QString sheet = u"xl/worksheets/sheet1.xml"_s;
    for (const QString& part : {sheet, u"xl/sharedStrings.xml"_s, u"xl/styles.xml"_s}) {
        EXPECT_EQ(damaged(part, [](QByteArray& xml) { xml.chop(9); }), u"工作簿已损坏或不完整");
        EXPECT_EQ(damaged(part, [](QByteArray& xml) { xml.clear(); }), u"工作簿已损坏或不完整");
    }
    for (const auto& [from, to] :
         std::vector<std::pair<QByteArray, QByteArray>>{{"<v>1</v>", "<v>2</v>"},
                                                        {"<v>1</v>", "<v>-1</v>"},
                                                        {"<v>1</v>", "<v>x</v>"},
                                                        {"r=\"4\"", "r=\"0\""},
                                                        {"r=\"4\"", "r=\"2000000\""},
                                                        {"r=\"B4\"", "r=\"44\""},
                                                        {"r=\"B4\"", "r=\"XFE4\""},
                                                        {"r=\"B4\"", "r=\"ZZZZZZZZZZZZ4\""},
                                                        {"</row>", "</row><row r=\"4\"/>"},
                                                        {"</c>", "</c><c r=\"B4\"/>"}}) {
        EXPECT_EQ(damaged(sheet, [&](QByteArray& xml) { xml.replace(from, to); }),
                  u"工作簿已损坏或不完整")
            << to.constData();
    }
    EXPECT_EQ(damaged(u"xl/_rels/workbook.xml.rels"_s,
                      [](QByteArray& xml) { xml.replace("sheet1.xml", "sheet9.xml"); }),
              u"工作簿缺少工作表“a”，已损坏");
}

TEST(WorkbookReader, ADamagedByteIsSeenByItsSum) {
    QByteArray rows;
    for (int i = 1; i < 500; ++i) {
        rows += "<row><c><v>" + QByteArray::number(i * i) + "</v></c></row>";
    }
    const QByteArray all = BookOf({{u"a"_s, rows}});
    int told = 0;
    for (qsizetype at = 40; at < all.size(); at += 41) {
        QByteArray bytes = all;
        bytes[at] = char(bytes[at] ^ 0x10);
        told += sheets::ReadWorkbook(bytes).faults.empty() ? 0 : 1;
    }
    EXPECT_GT(told, 10);
}

TEST(WorkbookReader, WhateverStandsInItsPartsItIsReadOrTold) {
    const auto good = BookPartsOf(
        {{u"a"_s,
          "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c><c r=\"B1\"><v>1.5</v></c></row>"}});
    const QByteArray letters = "<>\"&;/= 09acrst\xFF";
    std::mt19937 chance(16); // NOLINT: the same each time
    const auto below = [&chance](qsizetype most) { return qsizetype(chance() % quint64(most)); };
    int whole = 0;
    for (int round = 0; round < 600; ++round) {
        auto parts = good;
        QByteArray& xml = *std::next(parts.begin(), below(parts.size()));
        if (round % 4 == 0) {
            xml.truncate(below(xml.size()));
        }
        for (qsizetype changes = below(6); changes > 0 && !xml.isEmpty(); --changes) {
            xml[below(xml.size())] = letters[below(letters.size())];
        }
        const TableBook book = sheets::ReadWorkbook(Zipped(parts));
        whole += book.faults.empty() ? 1 : 0;
        ASSERT_TRUE(!book.faults.empty() || !book.sheets.empty());
    }
    EXPECT_GT(whole, 0);
    EXPECT_LT(whole, 500);
}

TEST(WorkbookReader, DefinitionsInAPartAreRefused) {
    auto parts = BookPartsOf({{u"a"_s, "<row><c t=\"inlineStr\"><is><t>&a;</t></is></c></row>"}});
    for (const char* part : {"xl/worksheets/sheet1.xml", "xl/sharedStrings.xml"}) {
        auto changed = parts;
        changed[QString::fromLatin1(part)].replace("?>\n",
                                                   "?><!DOCTYPE x [<!ENTITY a \"aaaaaaaa\">]>");
        EXPECT_EQ(Faults(sheets::ReadWorkbook(Zipped(changed))),
                  QStringList{u"工作簿已损坏或不完整"_s});
    }
}

TEST(WorkbookReader, WhatUnpacksToTooMuchIsStoppedThere) {
    const QByteArray bytes = BookOf({{u"a"_s, QByteArray("<row></row>").repeated(600'000)}});
    EXPECT_LT(bytes.size(), 100'000);
    sheets::TableLimits limits;
    limits.unpacked = 5 * 1024 * 1024;
    EXPECT_EQ(Faults(sheets::ReadWorkbook(bytes, limits)),
              QStringList{u"工作簿解压后超过 5 MB，太大了"_s});
}

TEST(WorkbookReader, EndlessTextIsStoppedEarly) {
    const QByteArray bytes =
        BookOf({{u"a"_s, "<row><c t=\"inlineStr\"><is><t>" + QByteArray(20'000'000, 'a')}});
    EXPECT_THAT(Faults(sheets::ReadWorkbook(bytes)), ElementsAre(u"工作簿里有过长的文字"_s));
}

TEST(WorkbookReader, LimitsAreToldWithTheirLines) {
    sheets::TableLimits limits;
    limits.rows = 2;
    limits.columns = 3;
    limits.letters = 4;
    limits.cells = 5;
    limits.sheets = 1;
    const auto faults = [&limits](const QByteArray& rows) {
        return Faults(sheets::ReadWorkbook(BookOf({{u"a"_s, rows}}), limits));
    };
    const QByteArray row("<row><c><v>1</v></c></row>");
    EXPECT_EQ(faults("<row/>" + row.repeated(2) + "<row><c><v></v></c></row>"), QStringList());
    EXPECT_EQ(faults(row.repeated(5)), QStringList{u"a 第 3 行起超过 2 行，太多了"_s});
    EXPECT_EQ(faults("<row r=\"9\"><c r=\"D9\"><v>1</v></c><c r=\"E9\"><v>1</v></c></row>"),
              QStringList{u"a 第 9 行超过 3 列"_s});
    EXPECT_EQ(faults("<row><c><v>1234</v></c><c><v>12345</v></c></row>"),
              QStringList{u"a 第 1 行 B 列的文字超过 4 个字"_s});
    EXPECT_EQ(
        faults(QByteArray("<row><c><v>1</v></c><c><v>1</v></c><c><v>1</v></c></row>").repeated(2)),
        QStringList{u"a 第 2 行起超过 5 格，太多了"_s});
    EXPECT_EQ(Faults(sheets::ReadWorkbook(BookOf({{u"a"_s, row}, {u"b"_s, row}}), limits)),
              QStringList{u"工作簿超过 1 张工作表，太多了"_s});
}

TEST(WorkbookReader, ManyFaultsAreCounted) {
    const QByteArray rows = QByteArray("<row><c><f>1</f></c></row>").repeated(3'000);
    const QStringList faults = FaultsOfRows(rows);
    ASSERT_EQ(faults.size(), 1'001);
    EXPECT_EQ(faults[999], u"楼层 第 1000 行 A 列是公式，请换成数值");
    EXPECT_EQ(faults.back(), u"还有 2000 处，没有一一列出");
}

TEST(WorkbookReader, OtherArchivesAreNoWorkbooks) {
    for (const QMap<QString, QByteArray>& parts :
         {QMap<QString, QByteArray>{{u"content.xml"_s, "<a/>"}},
          QMap<QString, QByteArray>{
              {u"_rels/.rels"_s, "<Relationships><Relationship Id=\"a\" Type=\"x/officeDocument\" "
                                 "Target=\"word/document.xml\"/></Relationships>"},
              {u"word/document.xml"_s, "<document/>"}}}) {
        EXPECT_EQ(Faults(sheets::ReadWorkbook(Zipped(parts))),
                  QStringList{u"文件不是 Excel 工作簿（.xlsx）"_s});
    }
}

} // namespace
