// What two sequences have in common.
#include "toolkit/compare/EditPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Numbers = std::vector<int>;

Numbers RandomNumbers(std::mt19937& random, int most, int kinds) {
    Numbers numbers(random() % std::size_t(most + 1));
    std::generate(numbers.begin(), numbers.end(), [&] { return int(random() % kinds); });
    return numbers;
}

int CountOf(const std::vector<CommonRun>& runs) {
    return std::accumulate(runs.begin(), runs.end(), 0,
                           [](int sum, const CommonRun& run) { return sum + run.count; });
}

/// By the table that holds every prefix against every other.
int LongestCommon(const Numbers& from, const Numbers& to) {
    std::vector<Numbers> best(from.size() + 1, Numbers(to.size() + 1, 0));
    for (std::size_t i = 1; i <= from.size(); ++i) {
        for (std::size_t j = 1; j <= to.size(); ++j) {
            best[i][j] = from[i - 1] == to[j - 1] ? best[i - 1][j - 1] + 1
                                                  : std::max(best[i - 1][j], best[i][j - 1]);
        }
    }
    return best.back().back();
}

/// The runs are equal on both sides, rise, don't touch and aren't empty.
void ExpectSound(const std::vector<CommonRun>& runs, const Numbers& from, const Numbers& to) {
    CommonRun before{0, 0, 0};
    bool isFirst = true;
    for (const CommonRun& run : runs) {
        EXPECT_GT(run.count, 0);
        EXPECT_GE(run.from, before.from + before.count);
        EXPECT_GE(run.to, before.to + before.count);
        EXPECT_TRUE(isFirst || run.from > before.from + before.count ||
                    run.to > before.to + before.count);
        ASSERT_LE(std::size_t(run.from + run.count), from.size());
        ASSERT_LE(std::size_t(run.to + run.count), to.size());
        EXPECT_TRUE(std::equal(from.begin() + run.from, from.begin() + run.from + run.count,
                               to.begin() + run.to));
        before = run;
        isFirst = false;
    }
}

TEST(CommonRuns, EmptySequencesHaveNothingInCommon) {
    EXPECT_THAT(CommonRuns({}, {}), IsEmpty());
    EXPECT_THAT(CommonRuns(Numbers{1}, {}), IsEmpty());
    EXPECT_THAT(CommonRuns({}, Numbers{1}), IsEmpty());
    EXPECT_THAT(CommonRuns(Numbers{1, 2}, Numbers{3}), IsEmpty());
}

TEST(CommonRuns, EqualSequencesAreOneRun) {
    EXPECT_THAT(CommonRuns(Numbers{1, 2, 3}, Numbers{1, 2, 3}), ElementsAre(CommonRun{0, 0, 3}));
}

TEST(CommonRuns, AroundWhatCameAndWentTheRestStays) {
    EXPECT_THAT(CommonRuns(Numbers{1, 2, 3, 4, 5}, Numbers{1, 2, 9, 4, 5}),
                ElementsAre(CommonRun{0, 0, 2}, CommonRun{3, 3, 2}));
    EXPECT_THAT(CommonRuns(Numbers{1, 2, 3}, Numbers{1, 3}),
                ElementsAre(CommonRun{0, 0, 1}, CommonRun{2, 1, 1}));
    EXPECT_THAT(CommonRuns(Numbers{1, 3}, Numbers{0, 1, 2, 3}),
                ElementsAre(CommonRun{0, 1, 1}, CommonRun{1, 3, 1}));
}

TEST(CommonRuns, OfRandomSequencesAsMuchStaysAsCan) {
    std::mt19937 random(1);
    for (int round = 0; round < 1500; ++round) {
        const int kinds = 2 + round % 12;
        const Numbers from = RandomNumbers(random, 40, kinds);
        const Numbers to = RandomNumbers(random, 40, kinds);
        const auto runs = CommonRuns(from, to);
        ExpectSound(runs, from, to);
        ASSERT_EQ(CountOf(runs), LongestCommon(from, to)) << "round " << round;
    }
}

TEST(CommonRuns, PastTheBoundTheRunsAreStillCommonOnes) {
    std::mt19937 random(2);
    for (int round = 0; round < 1500; ++round) {
        const int kinds = 3 + round % 60;
        const Numbers from = RandomNumbers(random, 60, kinds);
        const Numbers to = RandomNumbers(random, 60, kinds);
        ExpectSound(CommonRuns(from, to, round % 7), from, to);
    }
}

TEST(CommonRuns, PastTheBoundWhatStandsOnceOnEitherSideStays) {
    // 0 and 100, 200, ... stay between elements that are all different.
    Numbers from;
    Numbers to;
    for (int i = 0; i < 1000; ++i) {
        from.push_back(i % 100 == 0 ? i : 10'000 + i);
        to.push_back(i % 100 == 0 ? i : 20'000 + i);
    }
    const auto runs = CommonRuns(from, to, 50);
    ExpectSound(runs, from, to);
    EXPECT_EQ(CountOf(runs), 10);
}

TEST(CommonRuns, PastTheBoundWhatMovedIsHeldByTheLongerChain) {
    Numbers from(400);
    std::iota(from.begin(), from.end(), 0);
    Numbers to = from;
    std::rotate(to.begin(), to.begin() + 100, to.end());
    EXPECT_EQ(CountOf(CommonRuns(from, to, 3)), 300);
}

} // namespace
} // namespace toolkit
