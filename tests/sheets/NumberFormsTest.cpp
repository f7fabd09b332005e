#include "sheets/NumberForms.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using sheets::NumberForm;
using sheets::NumberFormOf;
using sheets::NumberText;

TEST(NumberForms, NumbersAsTheyAre) {
    for (const QString& code :
         {u"General"_s, u"@"_s, u"0"_s, u"0.00"_s, u"#,##0"_s, u"#"_s, u"0.0##"_s, u"0_);(0)"_s,
          u"[Red]0;-0"_s, u"#,##0.00_ ;[Red]\\-#,##0.00\\ "_s, u"[$-804]General"_s}) {
        EXPECT_EQ(NumberFormOf(code), NumberForm::Plain) << code.toStdString();
    }
}

TEST(NumberForms, DaysAndTimes) {
    for (const QString& code : {u"yyyy-mm-dd"_s, u"m\"月\"d\"日\""_s, u"[h]:mm"_s, u"D"_s,
                                u"[$-804]yyyy\"年\"m\"月\";@"_s, u"AM/PM h"_s}) {
        EXPECT_EQ(NumberFormOf(code), NumberForm::Date) << code.toStdString();
    }
}

TEST(NumberForms, DressedNumbers) {
    for (const QString& code : {u"0%"_s, u"0\"层\""_s, u"\"day\"0"_s, u"000"_s, u"# ?/?"_s,
                                u"\\F0"_s, u"0.0E+0"_s, QString()}) {
        EXPECT_EQ(NumberFormOf(code), NumberForm::Dressed) << code.toStdString();
    }
}

TEST(NumberForms, ThoseThatEveryWorkbookHas) {
    for (const int number : {0, 1, 2, 3, 4, 37, 44, 49, 163}) {
        EXPECT_EQ(NumberFormOf(number), NumberForm::Plain) << number;
    }
    for (const int number : {14, 22, 27, 36, 45, 47, 50, 58}) {
        EXPECT_EQ(NumberFormOf(number), NumberForm::Date) << number;
    }
    for (const int number : {5, 8, 9, 13, 48}) {
        EXPECT_EQ(NumberFormOf(number), NumberForm::Dressed) << number;
    }
}

TEST(NumberForms, TextOfANumber) {
    EXPECT_EQ(NumberText(u"1.0"_s), u"1");
    EXPECT_EQ(NumberText(u"-1"_s), u"-1");
    EXPECT_EQ(NumberText(u"-0"_s), u"0");
    EXPECT_EQ(NumberText(u"0.30000000000000004"_s), u"0.3");
    EXPECT_EQ(NumberText(u"1E3"_s), u"1000");
    EXPECT_EQ(NumberText(u"13800138000"_s), u"13800138000");
    EXPECT_EQ(NumberText(u"x"_s), u"x");
}

} // namespace
