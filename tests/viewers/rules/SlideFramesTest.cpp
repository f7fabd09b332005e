#include "viewers/SlideFrames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using gallery::ItemRange;
using testing::ElementsAre;

namespace {

/// Four cells of 100 by 85 from x 30.
gallery::StripShape FourCells() {
    return gallery::ShapeOf(QRect(0, 0, 460, 95));
}

std::optional<gallery::StripSlide> PlanStrip(const ItemRange& saved, const ItemRange& now) {
    return gallery::PlanStripSlide({FourCells(), saved, now});
}

} // namespace

TEST(SlideOffsets, TenEqualStepsEndExactlyOnTheDistance) {
    EXPECT_THAT(gallery::SlideOffsets(100),
                ElementsAre(0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100));
}

TEST(SlideOffsets, AnOvershootEndsExactlyOnTheDistanceToo) {
    EXPECT_THAT(gallery::SlideOffsets(25),
                ElementsAre(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 25));
}

TEST(SlideOffsets, ADistanceBelowTenIsOneFrame) {
    EXPECT_THAT(gallery::SlideOffsets(9), ElementsAre(9));
    EXPECT_THAT(gallery::SlideOffsets(0), ElementsAre(0));
}

TEST(PictureSlide, GoesForwardToTheLeftAndArrivesOnThePlace) {
    const QRect area(0, 0, 600, 400);
    const QRect oldRect(105, 5, 390, 390);
    const QRect newRect(5, 45, 590, 310);
    const auto slide = gallery::PictureSlide({area, oldRect, newRect, true, 3, 4});
    EXPECT_EQ(slide.distance, (600 - 590) / 2 + 590 + 1);
    EXPECT_EQ(slide.OldAt(0), oldRect);
    EXPECT_EQ(slide.NewAt(slide.distance), newRect);
    EXPECT_EQ(slide.NewAt(0), newRect.translated(slide.distance, 0));
    EXPECT_FALSE(slide.OldAt(slide.distance).intersects(area));
    EXPECT_EQ(slide.bounds, area);
}

TEST(PictureSlide, GoesBackToTheRightAndVerticallyBesideAVerticalStrip) {
    const QRect area(0, 0, 600, 400);
    const QRect rect(105, 5, 390, 390);
    const auto back = gallery::PictureSlide({area, rect, rect, true, 4, 3});
    EXPECT_EQ(back.OldAt(10), rect.translated(10, 0));
    const auto down = gallery::PictureSlide({area, rect, rect, false, 4, 3});
    EXPECT_EQ(down.OldAt(10), rect.translated(0, 10));
    EXPECT_EQ(down.distance, (400 - 390) / 2 + 390 + 1);
    const auto up = gallery::PictureSlide({area, rect, rect, false, 3, 4});
    EXPECT_EQ(up.OldAt(10), rect.translated(0, -10));
    EXPECT_EQ(up.NewAt(0), rect.translated(0, up.distance));
}

TEST(StripSlide, APageForwardMovesAllCellsOut) {
    const auto plan = PlanStrip({0, 3}, {4, 7});
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->outgoing, (ItemRange{0, 3}));
    EXPECT_EQ(plan->slide.distance, 400);
    EXPECT_TRUE(plan->slide.forward);
    EXPECT_EQ(plan->slide.bounds, QRect(30, 0, 400, 85));
    EXPECT_EQ(plan->slide.oldRect, plan->slide.bounds);
    EXPECT_EQ(plan->slide.NewAt(0), QRect(430, 0, 400, 85));
}

TEST(StripSlide, AnOverlapForwardMovesOutWhatTheNewRangeLacks) {
    const auto plan = PlanStrip({0, 3}, {2, 5});
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->outgoing, (ItemRange{0, 1}));
    EXPECT_EQ(plan->slide.distance, 200);
    EXPECT_EQ(plan->slide.OldAt(0), QRect(30, 0, 200, 85));
    EXPECT_EQ(plan->slide.NewAt(0), QRect(230, 0, 400, 85));
    EXPECT_EQ(plan->slide.NewAt(200), QRect(30, 0, 400, 85));
}

TEST(StripSlide, AnOverlapBackStartsWhereTheOldCellsStood) {
    const auto plan = PlanStrip({4, 7}, {2, 5});
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->outgoing, (ItemRange{6, 7}));
    EXPECT_FALSE(plan->slide.forward);
    EXPECT_EQ(plan->slide.OldAt(0), QRect(230, 0, 200, 85));
    EXPECT_EQ(plan->slide.NewAt(0), QRect(-170, 0, 400, 85));
    EXPECT_EQ(plan->slide.OldAt(200), QRect(430, 0, 200, 85));
}

TEST(StripSlide, RangesThatDontTouchMoveOutWhole) {
    EXPECT_EQ(PlanStrip({20, 23}, {2, 5})->outgoing, (ItemRange{20, 23}));
    EXPECT_EQ(PlanStrip({2, 5}, {20, 23})->outgoing, (ItemRange{2, 5}));
}

TEST(StripSlide, NothingSlidesWithoutAChangeOrWithoutASavedRange) {
    EXPECT_FALSE(PlanStrip({2, 5}, {2, 5}));
    EXPECT_FALSE(PlanStrip({}, {2, 5}));
    EXPECT_FALSE(PlanStrip({2, 5}, {}));
}

TEST(StripSlide, NothingSlidesIfNoItemLeavesTheStrip) {
    EXPECT_FALSE(PlanStrip({1, 2}, {0, 3}));
}

TEST(StripSlide, AVerticalStripSlidesUpAndStandsCentred) {
    const auto shape = gallery::ShapeOf(QRect(0, 0, 120, 490));
    const auto plan = gallery::PlanStripSlide({shape, {0, 3}, {1, 4}});
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->slide.bounds, QRect(0, 45, 110, 400));
    EXPECT_EQ(plan->slide.OldAt(40), QRect(0, 5, 110, 100));
}

TEST(SlideOffsets, TenIsTheFirstDistanceOfSeveralFrames) {
    EXPECT_THAT(gallery::SlideOffsets(10), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
    EXPECT_THAT(gallery::SlideOffsets(11), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST(StripSlide, ARangeThatTouchesByOneCellMovesOutTheOthers) {
    EXPECT_EQ(PlanStrip({0, 3}, {3, 6})->outgoing, (ItemRange{0, 2}));
    EXPECT_EQ(PlanStrip({3, 6}, {0, 3})->outgoing, (ItemRange{4, 6}));
    EXPECT_EQ(PlanStrip({3, 6}, {0, 3})->slide.OldAt(0), QRect(130, 0, 300, 85));
}
