#include "sheets/TableText.h"

#include "sheets/CsvFile.h"
#include "sheets/TableReader.h"
#include "sheets/TableTaker.h"
#include "tests/sheets/SheetMaker.h"
#include "tests/support/TempFolder.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QStringList LinesOf(const sheets::TableBook& book) {
    QStringList texts;
    for (const sheets::TableRow& row : book.sheets.at(0).rows) {
        texts << u"%1: %2"_s.arg(row.line).arg(
            QStringList(row.cells.begin(), row.cells.end()).join(u'|'));
    }
    for (const sheets::TableFault& fault : book.faults) {
        texts << sheets::TextOf(fault);
    }
    return texts;
}

QStringList Pasted(const QString& text) {
    return LinesOf(sheets::ReadPastedTable(text));
}

TEST(TableText, TabsCommasAndSemicolons) {
    EXPECT_EQ(Pasted(u"a\tb,c\n1\t2\n"_s), QStringList({u"1: a|b,c"_s, u"2: 1|2"_s}));
    EXPECT_EQ(Pasted(u"a,b;c,d\r\n1,2\r3,4"_s),
              QStringList({u"1: a|b;c|d"_s, u"2: 1|2"_s, u"3: 3|4"_s}));
    EXPECT_EQ(Pasted(u"a,b;c"_s), QStringList{u"1: a|b;c"_s});
    EXPECT_EQ(Pasted(u"a;b;c,d"_s), QStringList{u"1: a|b|c,d"_s});
    EXPECT_EQ(Pasted(u"标题\n \"a;b;\t\"\"c\",d\n"_s),
              QStringList({u"1: 标题"_s, u"2: a;b;\t\"c|d"_s}));
    EXPECT_EQ(Pasted(u"一\n二"_s), QStringList({u"1: 一"_s, u"2: 二"_s}));
    EXPECT_EQ(Pasted(QString()), QStringList());
}

TEST(TableText, EmptyCellsAndLinesKeepTheirPlace) {
    EXPECT_EQ(Pasted(u"\n , \n a ,,\u3000b\u3000,\n\n,x"_s),
              QStringList({u"3: a||b"_s, u"5: |x"_s}));
}

TEST(TableText, QuotedCellsHoldWhatSeparates) {
    EXPECT_EQ(Pasted(u"a,\"b\"\"c\",\"x,\ny\"\nd"_s),
              QStringList({u"1: a|b\"c|x,\ny"_s, u"3: d"_s}));
    EXPECT_EQ(Pasted(u"5\" 管\t \"甲\" \n\"\"\t乙"_s),
              QStringList({u"1: 5\" 管|甲"_s, u"2: |乙"_s}));
}

TEST(TableText, QuotesThatMakeNoSenseAreTold) {
    EXPECT_EQ(Pasted(u"a\nb,\"c\nd"_s),
              QStringList({u"1: a"_s, u"2: b|c\nd"_s, u"第 2 行 B 列的引号没有结束"_s}));
    EXPECT_EQ(Pasted(u"\"a\"b,c"_s),
              QStringList({u"1: a|c"_s, u"第 1 行 A 列在引号后面还有文字"_s}));
}

TEST(TableText, FormulasAreToldAndGuardedTextsAreTexts) {
    EXPECT_EQ(Pasted(u"=A1,'=A1,'-1,-1,+1,'a,'"_s),
              QStringList({u"1: |=A1|-1|-1|+1|'a|'"_s, u"第 1 行 A 列是公式，请换成数值"_s}));
}

TEST(TableText, ReadsFromTheLineThatItIsTold) {
    sheets::TableTaker taker({});
    taker.BeginSheet(u"楼层"_s);
    sheets::ReadSeparated(u"a\n=b", 40, taker);
    EXPECT_EQ(LinesOf(taker.Take()),
              QStringList({u"40: a"_s, u"楼层 第 41 行 A 列是公式，请换成数值"_s}));
}

TEST(TableText, EncodingsOfThisWorld) {
    const QString text = u"楼层,备注\n1F,“裂缝”①\n"_s;
    const auto in = [&text](const char* name, const QByteArray& mark) {
        return sheets::DecodeTableText(mark + QByteArray(QStringEncoder(name).encode(text)));
    };
    for (const sheets::TableText& decoded :
         {in("UTF-8", {}), in("UTF-8", "\xEF\xBB\xBF"), in("UTF-16LE", "\xFF\xFE"),
          in("UTF-16BE", "\xFE\xFF"), in("GBK", {}), in("GB18030", {})}) {
        EXPECT_FALSE(decoded.fault);
        EXPECT_EQ(decoded.text, text);
    }
    EXPECT_EQ(sheets::DecodeTableText({}).text, QString());
}

TEST(TableText, GbkBeyondItsFirstPage) {
    const QString text = u"𠮷\n€"_s;
    EXPECT_EQ(sheets::DecodeTableText(QByteArray(QStringEncoder("GB18030").encode(text))).text,
              text);
}

TEST(TableText, WhatIsNoTextIsToldWithItsLine) {
    const auto fault = [](const QByteArray& bytes) {
        const sheets::TableText decoded = sheets::DecodeTableText(bytes);
        EXPECT_EQ(decoded.text, QString());
        return decoded.fault ? sheets::TextOf(*decoded.fault) : QString();
    };
    EXPECT_EQ(fault("a\nb\n\xFF\xFF\xFFz\n"),
              u"第 3 行的文字既不是 UTF-8 也不是 GBK，请另存为 UTF-8 后再试");
    EXPECT_EQ(fault(QByteArray("a\nb\0c", 5)), u"第 2 行有不是文字的内容，这不是文本文件");
    EXPECT_EQ(fault(QByteArray("\xFF\xFE\x00\xD8z\0", 6)),
              u"文件里有损坏的字符，请另存为 UTF-8 后再试");
    EXPECT_EQ(fault(QByteArray("\xFF\xFE"
                               "a\0b",
                               5)),
              u"文件里有损坏的字符，请另存为 UTF-8 后再试");
    EXPECT_EQ(fault("\xEF\xBB\xBF\xD2\xD2"), u"文件里有损坏的字符，请另存为 UTF-8 后再试");
}

TEST(TableText, WhatTheCsvWriterWritesReadsBack) {
    const support::TempFolder folder;
    const QString path = folder.Path(u"a.csv"_s);
    sheets::CsvFile file(path);
    const QStringList hard = {u"墙, \"裂\""_s, u"=A1"_s,  u"-1"_s, u"@x"_s,
                              u"＝一"_s,       u"a\nb"_s, u"'a"_s, u"\"+\"\n"_s};
    std::vector<sheets::SheetRow> rows;
    for (const QString& text : hard) {
        rows.push_back({qint64(-7), text, QString()});
    }
    WriteAll(file, rows);
    const sheets::TableBook book = sheets::ReadTableFile(path);
    EXPECT_TRUE(book.faults.empty());
    ASSERT_EQ(qsizetype(book.sheets.at(0).rows.size()), hard.size() + 1);
    for (qsizetype i = 0; i < hard.size(); ++i) {
        const sheets::TableRow& row = book.sheets[0].rows[size_t(i) + 1];
        EXPECT_EQ(row.cells.at(0), u"-7");
        EXPECT_EQ(row.cells.at(1), hard[i].trimmed());
    }
}

TEST(TableText, PastedTextHasALimitToo) {
    sheets::TableLimits limits;
    limits.bytes = 1024 * 1024;
    const sheets::TableBook book = sheets::ReadPastedTable(QString(600 * 1024, u'a'), limits);
    EXPECT_EQ(LinesOf(book), QStringList{u"粘贴的内容超过 1 MB，太大了"_s});
}

} // namespace
