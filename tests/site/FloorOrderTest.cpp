#include "site/FloorOrder.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

TEST(FloorOrder, NumbersSortByValueBehindNoFloorAndBeforeNames) {
    const QStringList expected{u""_s,  u"-2"_s, u"-1"_s,  u"0"_s,  u"1"_s,   u"1.5"_s,
                               u"2"_s, u"10"_s, u"100"_s, u"B1"_s, u"屋面"_s};
    QStringList floors = expected;
    std::reverse(floors.begin(), floors.end());
    std::sort(floors.begin(), floors.end(), [](const QString& a, const QString& b) {
        return FloorSortKey(a).toUtf8() < FloorSortKey(b).toUtf8();
    });
    EXPECT_EQ(floors, expected);
}

TEST(FloorOrder, ANumberTooLargeForTheShiftSortsAsAName) {
    EXPECT_LT(FloorSortKey(u"99999"_s), FloorSortKey(u"123456"_s));
    EXPECT_TRUE(FloorSortKey(u"123456"_s).startsWith(u"2"_s));
}

TEST(PositionText, JoinsTheAxesAndIsEmptyWithoutThem) {
    EXPECT_EQ(PositionText(u"3"_s, u"C"_s), u"3/C"_s);
    EXPECT_EQ(PositionText({}, {}), QString());
}

} // namespace site
