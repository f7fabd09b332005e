#include "reminder/marks/PicMarkTree.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using KX_DATA::PicMarkGroup;
using KX_DATA::PicMarkItem;
using KX_DATA::PicMarkLeaf;
using KX_DATA::ShownPicItem;
using KX_DATA::ShownPicMarks;

namespace {

PicMarkLeaf TreeLeaf(qint32 markId, qint32 count) {
    return {"a", "b", markId, count, u"质量"_s};
}

PicMarkItem TreeItem(const std::string& name, std::vector<PicMarkLeaf> leaves) {
    return {"key-" + name, name, "t3", "t4", "t5", 99, 0, std::move(leaves)};
}

/// Floor "1" cut by what is ticked.
PicMarkGroup Cut(std::vector<PicMarkItem> items, const ShownPicMarks& marks) {
    PicMarkTree tree;
    tree.SetGroups({{"0", 6, {}}, {"1", 7, std::move(items)}});
    GroupSelection selected;
    EXPECT_TRUE(SelectGroup(marks, "1", u"二级"_s, selected));
    return tree.Cut(1, selected);
}

GroupSelection Selected(const ShownPicMarks& marks, const std::string& floor) {
    GroupSelection selected;
    EXPECT_TRUE(SelectGroup(marks, floor, u"二级"_s, selected));
    return selected;
}

ShownPicMarks Ticked(std::map<qint32, std::vector<ShownPicItem>> marks) {
    return {{"1", {{u"二级"_s, std::move(marks)}}}};
}

} // namespace

TEST(SelectGroup, NothingTickedPassesNoGroup) {
    GroupSelection selected;
    EXPECT_FALSE(SelectGroup({}, "1", u"二级"_s, selected));
}

TEST(SelectGroup, AnEmptyInnerMapPassesTheWholeGroup) {
    EXPECT_TRUE(Selected({{"1", {}}}, "1").takeAll);
}

TEST(SelectGroup, AnotherSecondLevelSkipsTheGroup) {
    const ShownPicMarks marks = {{"1", {{u"别的"_s, {}}}}};
    GroupSelection selected;
    EXPECT_FALSE(SelectGroup(marks, "1", u"二级"_s, selected));
}

TEST(SelectGroup, ASecondLevelWithoutMarksPassesTheWholeGroup) {
    EXPECT_TRUE(Selected({{"1", {{u"二级"_s, {}}}}}, "1").takeAll);
}

TEST(PicMarkTree, TheWholeGroupKeepsItsLeavesAndCountsThem) {
    const PicMarkGroup cut = Cut({TreeItem("x", {TreeLeaf(1, 2), TreeLeaf(2, 3)})}, {{"1", {}}});
    EXPECT_EQ(cut.name, "1");
    ASSERT_EQ(cut.items.size(), 1U);
    EXPECT_EQ(cut.items[0].total, 5);
    EXPECT_EQ(cut.items[0].groupId, 7);
    EXPECT_EQ(cut.items[0].leaves.size(), 2U);
    EXPECT_EQ(cut.items[0].positionKey, "key-x");
    EXPECT_EQ(cut.items[0].text5, "t5");
}

TEST(PicMarkTree, AnItemWithoutLeavesDropsOutOfTheWholeGroupToo) {
    const PicMarkGroup cut = Cut({TreeItem("x", {}), TreeItem("y", {TreeLeaf(1, 2)})}, {{"1", {}}});
    ASSERT_EQ(cut.items.size(), 1U);
    EXPECT_EQ(cut.items[0].itemName, "y");
}

TEST(PicMarkTree, AMarkThatIsNotTickedLosesItsLeavesAndEmptyItemsGo) {
    const PicMarkGroup cut = Cut({TreeItem("x", {TreeLeaf(2, 3), TreeLeaf(1, 2), TreeLeaf(5, 4)}),
                                  TreeItem("y", {TreeLeaf(2, 1)})},
                                 Ticked({{1, {}}, {5, {}}}));
    ASSERT_EQ(cut.items.size(), 1U);
    EXPECT_EQ(cut.items[0].itemName, "x");
    EXPECT_EQ(cut.items[0].total, 6);
    ASSERT_EQ(cut.items[0].leaves.size(), 2U);
    EXPECT_EQ(cut.items[0].leaves[0].markId, 1);
    EXPECT_EQ(cut.items[0].leaves[0].markName, u"质量"_s);
    EXPECT_EQ(cut.items[0].leaves[1].markId, 5);
}

TEST(PicMarkTree, ALeafWhoseMarkIsTickedForOtherItemsOnlyDropsOutOfThisItemButStaysInTheOthers) {
    const PicMarkGroup cut = Cut({TreeItem("x", {TreeLeaf(1, 9)}), TreeItem("y", {TreeLeaf(1, 9)})},
                                 Ticked({{1, {{"y", 11}, {"y", 12}}}}));
    ASSERT_EQ(cut.items.size(), 1U);
    EXPECT_EQ(cut.items[0].itemName, "y");
    EXPECT_EQ(cut.items[0].leaves[0].count, 2);
    EXPECT_EQ(cut.items[0].total, 2);
}

TEST(PicMarkTree, TickedPhotosCountByTheNameOfTheirItemInWhateverOrderTheyCome) {
    const std::vector<PicMarkItem> items = {TreeItem("b", {TreeLeaf(1, 9)}),
                                            TreeItem("a", {TreeLeaf(1, 9), TreeLeaf(2, 9)}),
                                            TreeItem("c", {TreeLeaf(1, 9)})};
    for (const std::vector<ShownPicItem>& photos :
         {std::vector<ShownPicItem>{{"a", 1}, {"a", 2}, {"b", 3}},
          std::vector<ShownPicItem>{{"a", 1}, {"b", 3}, {"a", 2}},
          std::vector<ShownPicItem>{{"b", 3}, {"a", 1}, {"nowhere", 5}, {"a", 2}}}) {
        const PicMarkGroup cut = Cut(items, Ticked({{1, photos}}));
        ASSERT_EQ(cut.items.size(), 2U);
        EXPECT_EQ(cut.items[0].itemName, "b");
        EXPECT_EQ(cut.items[0].total, 1);
        EXPECT_EQ(cut.items[1].itemName, "a");
        EXPECT_EQ(cut.items[1].total, 2);
        EXPECT_EQ(cut.items[1].leaves.size(), 1U);
    }
}

TEST(PicMarkTree, TwoItemsOfTheSameNameBothGetItsPhotos) {
    const PicMarkGroup cut = Cut({TreeItem("x", {TreeLeaf(1, 9)}), TreeItem("x", {TreeLeaf(1, 9)})},
                                 Ticked({{1, {{"x", 1}}}}));
    ASSERT_EQ(cut.items.size(), 2U);
    EXPECT_EQ(cut.items[1].total, 1);
}

TEST(PicMarkTree, NewGroupsReplaceTheOldOnesWithTheirLeaves) {
    PicMarkTree tree;
    tree.SetGroups({{"1", 7, {TreeItem("x", {TreeLeaf(1, 9), TreeLeaf(2, 9)})}}});
    tree.SetGroups({{"1", 7, {TreeItem("z", {TreeLeaf(2, 4)})}}});
    const ShownPicMarks marks = Ticked({{2, {}}});
    EXPECT_EQ(tree.Cut(0, Selected(marks, "1")).items[0].total, 4);
    EXPECT_EQ(tree.TakeGroups().size(), 1U);
    EXPECT_TRUE(tree.Groups().empty());
}
