#include "site/sqlite/HitSet.h"

#include <gtest/gtest.h>

namespace site {

TEST(HitSet, HoldsWhatWasAddedAndNothingElse) {
    HitSet set;
    for (const qint64 id : {3, 64, 1000000}) {
        set.Add(id);
    }
    EXPECT_TRUE(set.Has(64));
    EXPECT_FALSE(set.Has(65));
    EXPECT_FALSE(set.Has(5000000));
    EXPECT_FALSE(set.Has(-1));
    EXPECT_EQ(set.Count(), 3);
    EXPECT_EQ(set.Ids(), (std::vector<qint64>{3, 64, 1000000}));
}

TEST(HitSet, IdsBelowTheBaseAreNoMembers) {
    HitSet set(1000);
    set.Add(999);
    set.Add(1000);
    EXPECT_EQ(set.Ids(), (std::vector<qint64>{1000}));
    EXPECT_FALSE(set.Has(999));
}

TEST(HitSet, IntersectingKeepsWhatBothHold) {
    HitSet big;
    HitSet small;
    for (const qint64 id : {1, 70, 500}) {
        big.Add(id);
    }
    small.Add(70);
    small.Add(71);
    big.Intersect(small);
    EXPECT_EQ(big.Ids(), (std::vector<qint64>{70}));
}

} // namespace site
