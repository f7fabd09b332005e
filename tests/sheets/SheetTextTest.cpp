#include "sheets/SheetText.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QString CellText(const QString& text) {
    QByteArray utf8;
    EXPECT_FALSE(sheets::WriteCellText(text, utf8));
    return QString::fromUtf8(utf8);
}

QByteArray CsvText(const QString& text) {
    QByteArray line;
    sheets::AppendCsvText(text, line);
    return line;
}

TEST(SheetText, ACellKeepsWhatXmlCanHold) {
    EXPECT_EQ(CellText(u"墙面 <开裂> & \"渗漏\"\t两处"_s), u"墙面 <开裂> & \"渗漏\"\t两处"_s);
    EXPECT_EQ(CellText(u"😀 𠮷 é ﷐"_s), u"😀 𠮷 é ﷐"_s);
    EXPECT_EQ(CellText({}), QString());
}

TEST(SheetText, CharactersThatXmlCannotHoldAreLeftOut) {
    EXPECT_EQ(CellText(u"a\u0001b\u0008c\u000Bd\u001Fe"_s + QChar(0)), u"abcde"_s);
    EXPECT_EQ(CellText(u"a"_s + QChar(0xFFFE) + QChar(0xFFFF) + u'b'), u"ab"_s);
    EXPECT_EQ(CellText(u"a"_s + QChar(0xD800) + u'b' + QChar(0xDC00)), u"ab"_s);
}

TEST(SheetText, LineEndsOfEverySystemAreLineFeeds) {
    EXPECT_EQ(CellText(u"一\r\n二\r三\n四\r"_s), u"一\n二\n三\n四\n"_s);
}

TEST(SheetText, WhatLooksLikeAnEscapeStaysText) {
    EXPECT_EQ(CellText(u"_x0041_ _xZZZZ_ _x00_"_s), u"_x005F_x0041_ _xZZZZ_ _x00_"_s);
    EXPECT_EQ(CellText(u"_x000a_x000A_"_s), u"_x005F_x000a_x005F_x000A_"_s);
}

TEST(SheetText, TheLongestTextStaysWholeAndALongerOneEndsWithASign) {
    QByteArray utf8;
    EXPECT_FALSE(sheets::WriteCellText(QString(sheets::kLongestCell, u'长'), utf8));
    EXPECT_EQ(QString::fromUtf8(utf8), QString(sheets::kLongestCell, u'长'));
    EXPECT_TRUE(sheets::WriteCellText(QString(sheets::kLongestCell + 1, u'长'), utf8));
    EXPECT_EQ(QString::fromUtf8(utf8), QString(sheets::kLongestCell - 1, u'长') + u'…');
}

TEST(SheetText, ALongTextIsNotCutWithinACharacter) {
    QByteArray utf8;
    EXPECT_TRUE(sheets::WriteCellText(QString(sheets::kLongestCell - 2, u'a') + u"😀😀"_s, utf8));
    EXPECT_EQ(QString::fromUtf8(utf8), QString(sheets::kLongestCell - 2, u'a') + u'…');
}

TEST(SheetText, EscapesCountForTheLimit) {
    QByteArray utf8;
    EXPECT_TRUE(sheets::WriteCellText(u"_x0041_"_s.repeated(4000), utf8));
    EXPECT_LE(QString::fromUtf8(utf8).size(), sheets::kLongestCell);
    EXPECT_TRUE(utf8.endsWith("…"));
}

TEST(SheetText, LinesOfATextInItsColumn) {
    EXPECT_EQ(sheets::LinesIn({}, 10, 5), 1);
    EXPECT_EQ(sheets::LinesIn(u"0123456789"_s, 10, 5), 1);
    EXPECT_EQ(sheets::LinesIn(u"0123456789a"_s, 10, 5), 2);
    EXPECT_EQ(sheets::LinesIn(u"一二三四五"_s, 10, 5), 1);
    EXPECT_EQ(sheets::LinesIn(u"一二三四五六"_s, 10, 5), 2);
    EXPECT_EQ(sheets::LinesIn(u"一\n二\n三"_s, 10, 5), 3);
    EXPECT_EQ(sheets::LinesIn(QString(100, u'长'), 10, 5), 5);
    EXPECT_EQ(sheets::LinesIn(u"一"_s, 0, 5), 2) << "a column without width";
}

TEST(SheetText, AFieldIsQuotedWhereItMustBe) {
    EXPECT_EQ(CsvText(u"墙面"_s), "墙面");
    EXPECT_EQ(CsvText(u"一,二"_s), "\"一,二\"");
    EXPECT_EQ(CsvText(u"说\"好\""_s), "\"说\"\"好\"\"\"");
    EXPECT_EQ(CsvText(u"一\r\n二\r三"_s), "\"一\n二\n三\"");
    EXPECT_EQ(CsvText({}), "");
}

TEST(SheetText, AFieldIsNeverAFormula) {
    for (const QString& text : {u"=1+1"_s, u"+1"_s, u"-1"_s, u"@A1"_s, u"\t=1"_s, u"＝1"_s,
                                u"＋1"_s, u"－1"_s, u"＠A"_s}) {
        EXPECT_EQ(CsvText(text), "'" + text.toUtf8());
    }
    EXPECT_EQ(CsvText(u"\r=1"_s), "\"'\n=1\"");
    EXPECT_EQ(CsvText(u"=HYPERLINK(\"http://x\",\"y\")"_s),
              "\"'=HYPERLINK(\"\"http://x\"\",\"\"y\"\")\"");
    EXPECT_EQ(CsvText(u"1=1"_s), "1=1");
}

TEST(SheetText, AFieldHasNoZeros) {
    EXPECT_EQ(CsvText(u"a"_s + QChar(0) + u'b'), "ab");
}

} // namespace
