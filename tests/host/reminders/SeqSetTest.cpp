#include "host/reminders/SeqSet.h"

#include <gtest/gtest.h>

#include <limits>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using Ranges = std::vector<site::SeqRange>;

SeqSet SetOf(const QString& text) {
    return SeqSet::FromText(text);
}

TEST(SeqSet, RangesThatTouchOrOverlapBecomeOne) {
    SeqSet set = SetOf(u"5-7,10,20-30"_s);
    EXPECT_EQ(set.Text(), u"5-7,10,20-30"_s);
    set.Add(8);
    EXPECT_EQ(set.Text(), u"5-8,10,20-30"_s);
    set.Add(9);
    EXPECT_EQ(set.Text(), u"5-10,20-30"_s);
    set.Add({15, 25});
    EXPECT_EQ(set.Text(), u"5-10,15-30"_s);
    set.Add({1, 100});
    EXPECT_EQ(set.Text(), u"1-100"_s);
}

TEST(SeqSet, WhatIsInItAlreadyChangesNothing) {
    SeqSet set = SetOf(u"5-7"_s);
    set.Add(6);
    set.Add({5, 7});
    set.Add({4, 3});
    EXPECT_EQ(set.Text(), u"5-7"_s);
}

TEST(SeqSet, KnowsWhatItHas) {
    const SeqSet set = SetOf(u"2,5-7"_s);
    for (const qint64 seq : {2, 5, 6, 7}) {
        EXPECT_TRUE(set.Has(seq)) << seq;
    }
    for (const qint64 seq : {1, 3, 4, 8}) {
        EXPECT_FALSE(set.Has(seq)) << seq;
    }
}

TEST(SeqSet, IsWholeUpToItsFirstGap) {
    EXPECT_EQ(SeqSet().Whole(), 0);
    EXPECT_EQ(SetOf(u"2-9"_s).Whole(), 0);
    EXPECT_EQ(SetOf(u"1-9,11"_s).Whole(), 9);
}

TEST(SeqSet, GapsAreWhatLacksWithinTheRange) {
    const SeqSet set = SetOf(u"1-3,6-7,10"_s);
    EXPECT_EQ(set.Gaps({1, 12}), (Ranges{{4, 5}, {8, 9}, {11, 12}}));
    EXPECT_EQ(set.Gaps({5, 8}), (Ranges{{5, 5}, {8, 8}}));
    EXPECT_EQ(set.Gaps({6, 7}), Ranges());
    EXPECT_EQ(set.Gaps({2, 10}), (Ranges{{4, 5}, {8, 9}}));
    EXPECT_EQ(SeqSet().Gaps({4, 6}), (Ranges{{4, 6}}));
}

TEST(SeqSet, ForgetsWhatIsNotAbove) {
    SeqSet set = SetOf(u"1-3,6-9,12"_s);
    set.Forget(7);
    EXPECT_EQ(set.Text(), u"8-9,12"_s);
    set.Forget(12);
    EXPECT_EQ(set.Text(), QString());
}

TEST(SeqSet, SetsAddUp) {
    SeqSet set = SetOf(u"1-3,8"_s);
    set.Add(SetOf(u"4,8-9"_s));
    EXPECT_EQ(set.Text(), u"1-4,8-9"_s);
}

TEST(SeqSet, TextThatIsNoneIsLeftOut) {
    EXPECT_EQ(SetOf(u"x,3-,-4,,7-5,0-2,9-10"_s).Text(), u"9-10"_s);
}

TEST(SeqSet, NumbersAtTheEndOfTheirRangeAreNumbersToo) {
    SeqSet set = SetOf(u"5-9223372036854775807"_s);
    set.Add(9);
    set.Add(3);
    set.Add({1, std::numeric_limits<qint64>::max()});
    EXPECT_EQ(set.Text(), u"1-9223372036854775807"_s);
    EXPECT_EQ(set.Gaps({1, std::numeric_limits<qint64>::max()}), Ranges());
    EXPECT_TRUE(set.Has(std::numeric_limits<qint64>::max()));
}

} // namespace
} // namespace host
