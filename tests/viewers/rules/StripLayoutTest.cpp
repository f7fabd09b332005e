#include "viewers/StripLayout.h"

#include <gtest/gtest.h>

using gallery::ItemRange;
using gallery::RangeRequest;
using gallery::StripRange;

namespace {

/// Four cells before a list of 40.
RangeRequest FourCells(gallery::StripMode mode, int current, int shown) {
    return {mode, 40, 4, current, shown, {}};
}

gallery::StripShape HorizontalStrip(int cells, int extra = 0) {
    return gallery::ShapeOf(QRect(0, 0, 60 + 100 * cells + extra, 95));
}

} // namespace

TEST(StripRange, AroundTheMiddleDependsOnTheDirectionOfTravelInAnEvenStrip) {
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 10, 9)), (ItemRange{8, 11}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 10, 11)), (ItemRange{9, 12}));
}

TEST(StripRange, AroundTheMiddleStandsStillPictureCountsAsMovingBack) {
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 10, 10)), (ItemRange{9, 12}));
}

TEST(StripRange, AroundTheMiddleStopsAtBothEnds) {
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 0, -1)), (ItemRange{0, 3}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 1, 2)), (ItemRange{0, 3}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 39, 38)), (ItemRange{36, 39}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentMiddle, 38, 39)), (ItemRange{36, 39}));
}

TEST(StripRange, AnOddStripHasOneMiddleInBothDirections) {
    for (const int shown : {9, 11}) {
        EXPECT_EQ(StripRange({gallery::kCurrentMiddle, 40, 5, 10, shown, {}}), (ItemRange{8, 12}));
    }
}

TEST(StripRange, CurrentFirstIsPushedBackByTheEndOfTheList) {
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentFirst, 10, -1)), (ItemRange{10, 13}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentFirst, 38, -1)), (ItemRange{36, 39}));
}

TEST(StripRange, CurrentLastIsPushedOnByTheStartOfTheList) {
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentLast, 10, -1)), (ItemRange{7, 10}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentLast, 1, -1)), (ItemRange{0, 3}));
}

TEST(StripRange, PagesMoveByWhatIsVisibleAndStopAtTheEnds) {
    EXPECT_EQ(StripRange({gallery::kPageForward, 40, 4, 0, 0, {0, 3}}), (ItemRange{4, 7}));
    EXPECT_EQ(StripRange({gallery::kPageForward, 10, 4, 0, 0, {4, 7}}), (ItemRange{6, 9}));
    EXPECT_EQ(StripRange({gallery::kPageBack, 40, 4, 0, 0, {8, 11}}), (ItemRange{4, 7}));
    EXPECT_EQ(StripRange({gallery::kPageBack, 40, 4, 0, 0, {2, 5}}), (ItemRange{0, 3}));
}

TEST(StripRange, PagesWithoutARangeStayWithoutOne) {
    EXPECT_TRUE(StripRange({gallery::kPageForward, 40, 4, 0, 0, {}}).IsNone());
    EXPECT_TRUE(StripRange({gallery::kPageBack, 40, 4, 0, 0, {}}).IsNone());
}

TEST(StripRange, AListShorterThanTheStripIsWhollyVisible) {
    for (const auto mode :
         {gallery::kCurrentFirst, gallery::kCurrentMiddle, gallery::kCurrentLast}) {
        for (int current = 0; current < 3; ++current) {
            EXPECT_EQ(StripRange({mode, 3, 8, current, -1, {}}), (ItemRange{0, 2}));
        }
    }
}

TEST(StripRange, RoomForNoCellOrNoItemsGivesNone) {
    EXPECT_TRUE(StripRange({gallery::kCurrentMiddle, 40, 0, 3, -1, {}}).IsNone());
    EXPECT_TRUE(StripRange({gallery::kCurrentMiddle, 0, 4, 0, -1, {}}).IsNone());
}

TEST(MovesStrip, OnlyAnItemOutsideTheRangeMovesItUnlessItGoesToTheMiddle) {
    EXPECT_TRUE(gallery::MovesStrip({gallery::kCurrentLast, 40, 4, 12, 11, {8, 11}}));
    EXPECT_FALSE(gallery::MovesStrip({gallery::kCurrentLast, 40, 4, 11, 10, {8, 11}}));
    EXPECT_TRUE(gallery::MovesStrip({gallery::kCurrentMiddle, 40, 4, 11, 10, {8, 11}}));
}

TEST(MovesStrip, BothCellsOfTheMiddlePairCountAsMiddle) {
    EXPECT_FALSE(gallery::MovesStrip({gallery::kCurrentMiddle, 40, 4, 9, 8, {8, 11}}));
    EXPECT_FALSE(gallery::MovesStrip({gallery::kCurrentMiddle, 40, 4, 10, 8, {8, 11}}));
    EXPECT_TRUE(gallery::MovesStrip({gallery::kCurrentMiddle, 40, 5, 9, 8, {8, 12}}));
    EXPECT_FALSE(gallery::MovesStrip({gallery::kCurrentMiddle, 40, 5, 10, 8, {8, 12}}));
}

TEST(MovesStrip, AListThatFitsNeverMoves) {
    EXPECT_FALSE(gallery::MovesStrip({gallery::kCurrentMiddle, 4, 4, 0, 3, {0, 3}}));
}

TEST(StripShape, AWideAreaIsHorizontalAndKeepsRoomForButtonsAndBar) {
    const auto shape = gallery::ShapeOf(QRect(5, 490, 545, 95));
    EXPECT_TRUE(shape.horizontal);
    EXPECT_EQ(shape.inner, QRect(35, 490, 485, 85));
    EXPECT_EQ(shape.cellWidth, 100);
    EXPECT_EQ(shape.cellHeight, 85);
    EXPECT_EQ(shape.Capacity(), 4);
}

TEST(StripShape, AHighAreaIsVertical) {
    const auto shape = gallery::ShapeOf(QRect(700, 35, 120, 480));
    EXPECT_FALSE(shape.horizontal);
    EXPECT_EQ(shape.inner, QRect(700, 65, 110, 420));
    EXPECT_EQ(shape.cellWidth, 110);
    EXPECT_EQ(shape.cellHeight, 100);
    EXPECT_EQ(shape.Capacity(), 4);
}

TEST(StripShape, ASquareIsHorizontalAndATinyAreaHasNoCell) {
    EXPECT_TRUE(gallery::ShapeOf(QRect(0, 0, 200, 200)).horizontal);
    EXPECT_EQ(gallery::ShapeOf(QRect(0, 0, 50, 20)).Capacity(), 0);
    EXPECT_EQ(gallery::ShapeOf(QRect()).Capacity(), 0);
}

TEST(StripCell, AFullStripStandsCentred) {
    const auto shape = HorizontalStrip(4, 30);
    EXPECT_EQ(gallery::StripCell(shape, 40, 0), QRect(45, 0, 100, 85));
    EXPECT_EQ(gallery::StripCell(shape, 40, 3), QRect(345, 0, 100, 85));
    EXPECT_EQ(gallery::StripCell(shape, 4, 0).x(), 45);
}

TEST(StripCell, AListShorterThanTheStripStartsAtTheStripsStart) {
    EXPECT_EQ(gallery::StripCell(HorizontalStrip(4, 30), 3, 0).x(), 30);
    const auto vertical = gallery::ShapeOf(QRect(0, 0, 120, 490));
    EXPECT_EQ(gallery::StripCell(vertical, 2, 0), QRect(0, 30, 110, 100));
    EXPECT_EQ(gallery::StripCell(vertical, 2, 1), QRect(0, 130, 110, 100));
}

TEST(StripCell, TheThumbnailIsThreeSmallerOnEachSide) {
    EXPECT_EQ(gallery::ThumbRectOf(QRect(45, 0, 100, 85)), QRect(48, 3, 94, 79));
}

TEST(StripRange, TheEndsOfTheListAreReachedAtTheCellNextToThem) {
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentFirst, 36, -1)), (ItemRange{36, 39}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentFirst, 37, -1)), (ItemRange{36, 39}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentLast, 3, -1)), (ItemRange{0, 3}));
    EXPECT_EQ(StripRange(FourCells(gallery::kCurrentLast, 4, -1)), (ItemRange{1, 4}));
    EXPECT_EQ(StripRange({gallery::kCurrentMiddle, 40, 5, 2, 1, {}}), (ItemRange{0, 4}));
    EXPECT_EQ(StripRange({gallery::kCurrentMiddle, 40, 5, 3, 2, {}}), (ItemRange{1, 5}));
    EXPECT_EQ(StripRange({gallery::kCurrentMiddle, 40, 5, 38, 37, {}}), (ItemRange{35, 39}));
}

TEST(MovesStrip, AListOfOneMoreThanTheStripMoves) {
    EXPECT_TRUE(gallery::MovesStrip({gallery::kCurrentMiddle, 5, 4, 0, 3, {0, 3}}));
}
