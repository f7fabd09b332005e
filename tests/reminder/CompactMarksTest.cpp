// A group of the tree in little memory: what its leaves have in common is kept once.
#include "reminder/marks/CompactMarks.h"

#include <gtest/gtest.h>

using KX_DATA::PicMarkGroup;
using KX_DATA::PicMarkLeaf;

namespace {

PicMarkLeaf KindLeaf(int kind, qint32 count) {
    return {"kind " + std::to_string(kind), "b", 3, count, QStringLiteral("质量")};
}

/// One item with leaves of the kinds 0 to `kinds` - 1, in turns, all of one mark.
PicMarkGroup InTurns(int kinds, int turns) {
    PicMarkGroup group{"1", 7, {{"key", "name", "t3", "t4", "t5", 99, 0, {}}}};
    for (int i = 0; i < kinds * turns; ++i) {
        group.items[0].leaves.push_back(KindLeaf(i % kinds, i));
    }
    return group;
}

} // namespace

TEST(CompactMarks, EightKindsOfAMarkThatTakeTurnsAreKeptOnce) {
    const CompactMarks marks(InTurns(8, 3));
    EXPECT_EQ(marks.Kinds().size(), 8U);
    ASSERT_EQ(marks.LeafCount(), 24U);
    for (quint32 leaf = 0; leaf < 24; ++leaf) {
        EXPECT_EQ(marks.LeafAt(leaf).kind, leaf % 8);
        EXPECT_EQ(marks.LeafAt(leaf).count, qint32(leaf));
    }
}

TEST(CompactMarks, OfMoreKindsTheOldestIsForgottenAndKeptAgain) {
    PicMarkGroup group = InTurns(9, 1);
    group.items[0].leaves.push_back(KindLeaf(1, 0));
    group.items[0].leaves.push_back(KindLeaf(0, 0));
    const CompactMarks marks(group);
    EXPECT_EQ(marks.Kinds().size(), 10U);
    EXPECT_EQ(marks.LeafAt(9).kind, 1U) << "among the last eight";
    EXPECT_EQ(marks.LeafAt(10).kind, 9U) << "forgotten, so there once more";
    EXPECT_EQ(marks.Kinds()[9].text1, "kind 0");
}

TEST(CompactMarks, ALeafKeepsItsMarkThoughAnotherMarksLeavesReadTheSame) {
    PicMarkGroup group = InTurns(1, 1);
    for (const int kind : {1, 0}) {
        group.items[0].leaves.push_back(KindLeaf(kind, 0));
        group.items[0].leaves.back().markId = 4;
    }
    const CompactMarks marks(group);
    EXPECT_EQ(marks.Kinds()[marks.LeafAt(0).kind].markId, 3);
    EXPECT_EQ(marks.Kinds()[marks.LeafAt(2).kind].markId, 4);
}
