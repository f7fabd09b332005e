#include "reminder/marks/MarkRules.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using KX_DATA::IssueFilterSource;
using KX_DATA::PicMarkGroup;
using KX_DATA::PicMarkItem;
using KX_DATA::PicMarkLeaf;

namespace {

const std::string kOthers = "others";

PicMarkLeaf Leaf(qint32 markId, qint32 count) {
    return {"a", "b", markId, count, u"质量"_s};
}

PicMarkItem Item(const std::string& name, std::vector<PicMarkLeaf> leaves) {
    return {"key-" + name, name, "t3", "t4", "t5", 99, 0, std::move(leaves)};
}

PicMarkGroup Floor(const std::string& name, std::vector<PicMarkItem> items) {
    return {name, 7, std::move(items)};
}

std::vector<std::string> Names(const std::vector<PicMarkGroup>& groups) {
    std::vector<std::string> names;
    for (const PicMarkGroup& group : groups) {
        names.push_back(group.name);
    }
    return names;
}

} // namespace

TEST(FoldOthers, MovesTheOthersBehindAllFloors) {
    std::vector<PicMarkGroup> groups = {Floor("A", {Item("x", {Leaf(1, 1)})}),
                                        Floor(kOthers, {Item("y", {Leaf(1, 1)})}),
                                        Floor("B", {Item("z", {Leaf(1, 1)})})};
    FoldOthers(groups, kOthers);
    EXPECT_EQ(Names(groups), (std::vector<std::string>{"A", "B", kOthers}));
}

TEST(FoldOthers, MergesItsItemsUnderTheTextsOfTheLastOne) {
    std::vector<PicMarkGroup> groups = {
        Floor(kOthers, {Item("x", {Leaf(1, 2)}), Item("y", {Leaf(3, 4)})})};
    FoldOthers(groups, kOthers);
    ASSERT_EQ(groups[0].items.size(), 1U);
    const PicMarkItem& merged = groups[0].items[0];
    EXPECT_EQ(merged.itemName, "y");
    EXPECT_EQ(merged.positionKey, "key-y");
    EXPECT_EQ(merged.total, 0);
    ASSERT_EQ(merged.leaves.size(), 2U);
    EXPECT_EQ(merged.leaves[0].markId, 1);
    EXPECT_EQ(merged.leaves[1].markId, 3);
}

TEST(FoldOthers, DropsTheOthersWithoutItems) {
    std::vector<PicMarkGroup> groups = {Floor(kOthers, {}), Floor("A", {})};
    FoldOthers(groups, kOthers);
    EXPECT_EQ(Names(groups), std::vector<std::string>{"A"});
}

TEST(FoldOthers, LeavesGroupsWithoutOthersAlone) {
    std::vector<PicMarkGroup> groups = {Floor("A", {}), Floor("B", {})};
    FoldOthers(groups, kOthers);
    EXPECT_EQ(Names(groups), (std::vector<std::string>{"A", "B"}));
}

TEST(IssueFilterList, SortsFloorsAsNumbersAndSwapsPairs) {
    const std::vector<IssueFilterSource> sources = {
        {1, 5, u"10"_s, {{1, 2}}}, {2, 6, u"2"_s, {}}, {3, 7, u"-1"_s, {}}};
    const auto entries = IssueFilterList(sources);
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, u"-1"_s);
    EXPECT_EQ(entries[1].name, u"2"_s);
    EXPECT_EQ(entries[2].name, u"10"_s);
    EXPECT_EQ(entries[2].id, 1);
    EXPECT_EQ(entries[2].count, 5);
    EXPECT_EQ(entries[2].values[0], std::make_pair(2, 1));
}

TEST(IssueFilterList, NamesWithoutANumberCountAsZero) {
    const auto entries =
        IssueFilterList({{1, 0, u"1层"_s, {}}, {2, 0, u"屋面"_s, {}}, {3, 0, u"-2"_s, {}}});
    EXPECT_EQ(entries[0].name, u"-2"_s);
    EXPECT_EQ(entries[1].name, u"屋面"_s);
    EXPECT_EQ(entries[2].name, u"1层"_s);
}

TEST(IssueFilterList, ALongRowOfDigitsSortsLastInsteadOfOverflowing) {
    const auto entries =
        IssueFilterList({{1, 0, u"99999999999999999999999"_s, {}}, {2, 0, u"3"_s, {}}});
    EXPECT_EQ(entries[0].name, u"3"_s);
}

TEST(IssueFilterList, ReadsBlanksAndASignBeforeTheDigitsAndStopsBehindThem) {
    QStringList names;
    for (const auto& entry : IssueFilterList({{1, 0, u"9"_s, {}},
                                              {2, 0, u"  +8x7"_s, {}},
                                              {3, 0, u" -1"_s, {}},
                                              {4, 0, u"0"_s, {}},
                                              {5, 0, u"- 5"_s, {}},
                                              {6, 0, u"/1"_s, {}},
                                              {7, 0, u":1"_s, {}},
                                              {8, 0, u"10"_s, {}},
                                              {9, 0, u"  "_s, {}},
                                              {10, 0, QString(), {}},
                                              {11, 0, u" +"_s, {}}})) {
        names << entry.name;
    }
    EXPECT_EQ(names, (QStringList{u" -1"_s, u"0"_s, u"- 5"_s, u"/1"_s, u":1"_s, u"  "_s, QString(),
                                  u" +"_s, u"  +8x7"_s, u"9"_s, u"10"_s}));
}

TEST(IssueFilterList, NumbersBeyondTheRangeAreItsLimitAndKeepTheirOrder) {
    const auto entries = IssueFilterList({{1, 0, u"2147483648"_s, {}},
                                          {2, 0, u"2147483647"_s, {}},
                                          {3, 0, u"2147483646"_s, {}},
                                          {4, 0, u"-2147483648"_s, {}}});
    EXPECT_EQ(entries[0].id, 4);
    EXPECT_EQ(entries[1].id, 3);
    EXPECT_EQ(entries[2].id, 1);
    EXPECT_EQ(entries[3].id, 2);
}

TEST(FoldOthers, KeepsTheGroupsIdAndAllTextsOfTheLastItem) {
    std::vector<PicMarkGroup> groups = {Floor(kOthers, {Item("x", {}), Item("y", {Leaf(3, 4)})})};
    groups[0].items[0].text3 = "other";
    FoldOthers(groups, kOthers);
    EXPECT_EQ(groups[0].id, 7);
    const PicMarkItem& merged = groups[0].items[0];
    EXPECT_EQ(merged.text3, "t3");
    EXPECT_EQ(merged.text4, "t4");
    EXPECT_EQ(merged.text5, "t5");
    EXPECT_EQ(merged.leaves[0].count, 4);
}

TEST(FoldOthers, OfTwoGroupsOfThatNameTakesTheFirst) {
    std::vector<PicMarkGroup> groups = {Floor(kOthers, {Item("x", {Leaf(1, 2)}), Item("y", {})}),
                                        Floor("A", {Item("z", {Leaf(1, 1)})}),
                                        Floor(kOthers, {Item("v", {Leaf(1, 1)}), Item("w", {})})};
    FoldOthers(groups, kOthers);
    EXPECT_EQ(Names(groups), (std::vector<std::string>{"A", kOthers, kOthers}));
    EXPECT_EQ(groups[1].items.size(), 2U);
    ASSERT_EQ(groups[2].items.size(), 1U);
    EXPECT_EQ(groups[2].items[0].itemName, "y");
    EXPECT_EQ(groups[2].items[0].leaves.size(), 1U);
}
