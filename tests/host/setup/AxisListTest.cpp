#include "host/setup/AxisList.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QString Axes(const QString& cell) {
    const host::ListedNames listed = host::ListedAxes(cell);
    return listed.fault.isEmpty() ? listed.names.join(u' ') : listed.fault;
}

QString Floors(const QString& cell) {
    const host::FloorNames floors({u"B1"_s, u"1"_s, u"2"_s, u"3F"_s, u"4-5"_s, u"屋面"_s});
    const host::ListedNames listed = floors.Listed(cell);
    return listed.fault.isEmpty() ? listed.names.join(u' ') : listed.fault;
}

TEST(AxisList, NamesBetweenAllKindsOfSeparators) {
    EXPECT_EQ(Axes(u" 1、2, 3；4\n5;6，1 、"_s), u"1 2 3 4 5 6");
    EXPECT_EQ(Axes(QString()), QString());
    EXPECT_EQ(Axes(u"1/A、1-A、轴①"_s), u"1/A 1-A 轴①");
}

TEST(AxisList, RangesOfNumbersAndLetters) {
    EXPECT_EQ(Axes(u"9-12、2"_s), u"9 10 11 12 2");
    EXPECT_EQ(Axes(u"1～3"_s), u"1 2 3");
    EXPECT_EQ(Axes(u"a-c"_s), u"a b c");
    EXPECT_EQ(Axes(u"X9~X11"_s), u"X9 X10 X11");
    EXPECT_EQ(Axes(u"1-1~1-3"_s), u"1-1 1-2 1-3");
    EXPECT_EQ(Axes(u"1/A至1/C"_s), u"1/A 1/B 1/C");
}

TEST(AxisList, LettersThatAreNoAxesAreLeftOutOfRanges) {
    EXPECT_EQ(Axes(u"G-P"_s), u"G H J K L M N P");
    EXPECT_EQ(Axes(u"H-I"_s), u"H I");
    EXPECT_EQ(Axes(u"O"_s), u"O");
}

TEST(AxisList, RangesThatAreNoneAreTold) {
    EXPECT_EQ(Axes(u"5-3"_s), u"“5-3”不是从小到大的范围");
    EXPECT_EQ(Axes(u"3-3"_s), u"“3-3”不是从小到大的范围");
    EXPECT_EQ(Axes(u"c-A"_s), u"“c-A”不是从小到大的范围");
    EXPECT_EQ(Axes(u"A-c"_s), u"“A-c”不是从小到大的范围");
    EXPECT_EQ(Axes(u"1~B"_s), u"看不懂范围“1~B”");
    EXPECT_EQ(Axes(u"1-1001"_s), u"“1-1001”超过 1000 个");
    EXPECT_EQ(Axes(u"1-99999999"_s), u"“1-99999999”超过 1000 个");
    EXPECT_EQ(Axes(u"1-999999999999999999"_s), u"“1-999999999999999999”超过 1000 个");
    EXPECT_EQ(Axes(u"20261123-20261124"_s), u"20261123 20261124");
    EXPECT_EQ(Axes(u"1-1000、2000"_s), u"轴线超过 1000 条");
}

TEST(AxisList, WhatIsAPlainAxis) {
    for (const QString& axis : {u"1"_s, u"A"_s, u"1-A"_s, u"1/A"_s, u"A至"_s}) {
        EXPECT_TRUE(host::IsPlainAxis(axis)) << axis.toStdString();
    }
    for (const QString& axis : {u"1-2"_s, u"A-B"_s, u"1,2"_s, u"甲、乙"_s, u"1~"_s, u"2-1"_s}) {
        EXPECT_FALSE(host::IsPlainAxis(axis)) << axis.toStdString();
    }
}

TEST(AxisList, FloorsByNameByRangeAndAll) {
    EXPECT_EQ(Floors(u"2、B1"_s), u"2 B1");
    EXPECT_EQ(Floors(u"1-3F"_s), u"1 2 3F");
    EXPECT_EQ(Floors(u"B1 ~ 2，2"_s), u"B1 1 2");
    EXPECT_EQ(Floors(u"4-5"_s), u"4-5");
    EXPECT_EQ(Floors(u"3F-4-5"_s), u"3F 4-5");
    EXPECT_EQ(Floors(u"全部"_s), u"B1 1 2 3F 4-5 屋面");
    EXPECT_EQ(Floors(u"3"_s), u"没有楼层“3”");
    EXPECT_EQ(Floors(u"1-9"_s), u"没有楼层“1-9”");
    EXPECT_EQ(Floors(u"2-1"_s), u"“2-1”不是从低到高的范围");
}

} // namespace
