#include "host/setup/OrderMerge.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QString Merged(const QString& present, const QString& named) {
    return host::MergedOrder(present.split(u' ', Qt::SkipEmptyParts), named.split(u' ')).join(u' ');
}

QString Floors(const QString& present, const QString& named) {
    return host::MergedFloors(present.split(u' ', Qt::SkipEmptyParts), named.split(u' '))
        .join(u' ');
}

QString Misplaced(const QString& floors) {
    QStringList texts;
    for (const host::MisplacedFloor& floor : host::MisplacedFloors(floors.split(u' '))) {
        texts << floor.floor + u'<' + floor.below;
    }
    return texts.join(u' ');
}

TEST(OrderMerge, ANewNameStandsBesideItsNeighbours) {
    EXPECT_EQ(Merged(u"a b c"_s, u"b x"_s), u"a b x c");
    EXPECT_EQ(Merged(u"a b c"_s, u"x b"_s), u"a x b c");
    EXPECT_EQ(Merged(u"a b c"_s, u"x y b z c"_s), u"a x y b z c");
    EXPECT_EQ(Merged(u"a b c"_s, u"x y"_s), u"a b c x y");
    EXPECT_EQ(Merged(QString(), u"x y"_s), u"x y");
}

TEST(OrderMerge, KnownNamesChangePlacesAmongThemselves) {
    EXPECT_EQ(Merged(u"a b c d"_s, u"d b"_s), u"a d c b");
    EXPECT_EQ(Merged(u"a b c"_s, u"c b a"_s), u"c b a");
    EXPECT_EQ(Merged(u"a b c"_s, u"a c"_s), u"a b c");
    EXPECT_EQ(Merged(u"a b c"_s, u"x c y a"_s), u"x c y b a");
}

TEST(OrderMerge, NewFloorsAloneStandByTheirHeight) {
    EXPECT_EQ(Floors(u"1F 2F 4F 屋面"_s, u"3F"_s), u"1F 2F 3F 4F 屋面");
    EXPECT_EQ(Floors(u"1F 2F 屋面"_s, u"B1 3F"_s), u"B1 1F 2F 屋面 3F");
    EXPECT_EQ(Floors(u"1F 3F"_s, u"夹层"_s), u"1F 3F 夹层");
    EXPECT_EQ(Floors(u"1F 3F"_s, u"1F 夹层"_s), u"1F 夹层 3F");
    EXPECT_EQ(Floors(QString(), u"1F 3F 2F"_s), u"1F 3F 2F");
}

TEST(OrderMerge, HeightsAsNamesSayThem) {
    for (const auto& [name, height] : std::vector<std::pair<QString, double>>{{u"1"_s, 1},
                                                                              {u"-1"_s, -1},
                                                                              {u"3F"_s, 3},
                                                                              {u"f12"_s, 12},
                                                                              {u"2.5层"_s, 2.5},
                                                                              {u"B2"_s, -2},
                                                                              {u"B1F"_s, -1},
                                                                              {u"-1F"_s, -1},
                                                                              {u"三层"_s, 3},
                                                                              {u"二十一层"_s, 21},
                                                                              {u"十楼"_s, 10},
                                                                              {u"第五层"_s, 5},
                                                                              {u"地下一层"_s, -1},
                                                                              {u"负2层"_s, -2},
                                                                              {u"三十"_s, 30},
                                                                              {u"0"_s, 0}}) {
        EXPECT_EQ(host::FloorHeight(name), std::optional(height)) << name.toStdString();
    }
    for (const QString& name : {u"屋面"_s, u"2#3F"_s, u"A座1层"_s, u"夹层"_s, u"3F夹层"_s,
                                u"1-3F"_s, u"十一十"_s, QString(), u"一十"_s, u"RF"_s}) {
        EXPECT_EQ(host::FloorHeight(name), std::nullopt) << name.toStdString();
    }
}

TEST(OrderMerge, FloorsAboveHigherOnes) {
    EXPECT_EQ(Misplaced(u"B1 1F 夹层 2F 屋面"_s), QString());
    EXPECT_EQ(Misplaced(u"1F 3F 2F 夹层 2.5F 4F"_s), u"2F<3F 2.5F<3F");
    EXPECT_EQ(Misplaced(u"1F 1F"_s), QString());
}

} // namespace
