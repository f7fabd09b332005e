#include "host/ui/LocateText.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

void ExpectTarget(const QString& text, const QString& floor, qint32 markId, qint32 picId) {
    const auto target = ParseLocateText(text);
    ASSERT_TRUE(target) << qPrintable(text);
    EXPECT_EQ(target->floor, floor);
    EXPECT_EQ(target->markId, markId);
    EXPECT_EQ(target->picId, picId);
}

TEST(LocateText, IsReadFromItsRightEnd) {
    ExpectTarget(u"2-3-17"_s, u"2"_s, 3, 17);
    ExpectTarget(u"-1-3-17"_s, u"-1"_s, 3, 17);
    ExpectTarget(u"B-2-5-9"_s, u"B-2"_s, 5, 9);
    ExpectTarget(u"-0-1"_s, u""_s, 0, 1);
}

TEST(LocateText, WithoutTwoNumbersAtItsEndNamesNothing) {
    for (const QString& text : {u""_s, u"17"_s, u"3-17"_s, u"2-a-17"_s, u"2-3-"_s, u"2--17"_s}) {
        EXPECT_FALSE(ParseLocateText(text)) << qPrintable(text);
    }
}

TEST(FloorCaption, NamesNumbersAsFloorsAndLeavesOtherNamesAlone) {
    EXPECT_EQ(FloorCaption(u"-1"_s), u"-1层"_s);
    EXPECT_EQ(FloorCaption(u"屋面"_s), u"屋面"_s);
    EXPECT_EQ(FloorCaption(u""_s), u"无楼层"_s);
}

} // namespace
} // namespace host
