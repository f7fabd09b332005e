#include "site/sqlite/ListPlan.h"

#include <gtest/gtest.h>

namespace site {

TEST(PageSpan, TheFirstHalfIsWalkedFromTheFront) {
    const PageSpan span = SpanOf(100, 2, 30);
    EXPECT_EQ(span.offset, 30);
    EXPECT_EQ(span.count, 30);
    EXPECT_FALSE(span.fromEnd);
}

TEST(PageSpan, TheLastPageIsWalkedFromTheEndAndHoldsTheRest) {
    const PageSpan span = SpanOf(100, 4, 30);
    EXPECT_EQ(span.offset, 0);
    EXPECT_EQ(span.count, 10);
    EXPECT_TRUE(span.fromEnd);
}

TEST(PageSpan, PagesOutsideTheListAreEmpty) {
    EXPECT_EQ(SpanOf(100, 5, 30).count, 0);
    EXPECT_EQ(SpanOf(100, 0, 30).count, 0);
    EXPECT_EQ(SpanOf(100, -1, 30).count, 0);
    EXPECT_EQ(SpanOf(100, 1, 0).count, 0);
    EXPECT_EQ(SpanOf(0, 1, 30).count, 0);
}

TEST(ChoosePlan, ACommonFilterIsWalkedAndARareOneSorted) {
    PlanFacts facts;
    facts.walkRows = 1000000;
    facts.total = 300000;
    facts.sourceRows = 300000;
    EXPECT_EQ(ChoosePlan(facts, SpanOf(facts.total, 1, 30)), PagePlan::Walk);
    facts.total = 40;
    facts.sourceRows = 40;
    EXPECT_EQ(ChoosePlan(facts, SpanOf(facts.total, 1, 30)), PagePlan::Sort);
}

TEST(ChoosePlan, RowsThatMayLieTogetherAreNotWalkedTo) {
    PlanFacts facts;
    facts.walkRows = 1000000;
    facts.total = 2000;
    facts.sourceRows = 2000;
    EXPECT_EQ(ChoosePlan(facts, SpanOf(facts.total, 1, 30)), PagePlan::Walk);
    facts.clustered = true;
    EXPECT_EQ(ChoosePlan(facts, SpanOf(facts.total, 1, 30)), PagePlan::Sort);
}

} // namespace site
