#include "host/ui/plan/FloorPlanLayout.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

PlanFloor Grid(int countX, int countY) {
    PlanFloorBuilder builder(u"1"_s);
    for (int x = 1; x <= countX; ++x) {
        for (int y = 1; y <= countY; ++y) {
            builder.Add(QString::number(x), QString::number(y), u"%1/%2"_s.arg(x).arg(y), {0, 0});
        }
    }
    return builder.Finish();
}

TEST(FloorPlanLayout, AFloorWithoutAxesTakesNoRoom) {
    const FloorPlanLayout layout = LayoutFloorPlan(PlanFloor(), QSizeF(800, 600));
    EXPECT_TRUE(layout.linesX.empty());
    EXPECT_TRUE(layout.places.empty());
    EXPECT_EQ(PlaceAt(layout, QPointF(400, 300)), -1);
}

TEST(FloorPlanLayout, HasOneLineAndOneBubbleForEachAxis) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(6, 4), QSizeF(800, 600));
    EXPECT_EQ(layout.linesX.size(), 6U);
    EXPECT_EQ(layout.bubblesX.size(), 6U);
    EXPECT_EQ(layout.linesY.size(), 4U);
    EXPECT_EQ(layout.bubblesY.size(), 4U);
    EXPECT_EQ(layout.places.size(), 24U);
}

TEST(FloorPlanLayout, EverythingLiesInThePane) {
    for (const QSizeF pane : {QSizeF(900, 620), QSizeF(1600, 900), QSizeF(870, 900)}) {
        const FloorPlanLayout layout = LayoutFloorPlan(Grid(8, 6), pane);
        EXPECT_EQ(layout.size, pane);
        const QRectF all(QPointF(), pane);
        EXPECT_TRUE(all.contains(layout.building));
        for (const QRectF& bubble : layout.bubblesX) {
            EXPECT_TRUE(all.contains(bubble));
        }
        for (const QRectF& bubble : layout.bubblesY) {
            EXPECT_TRUE(all.contains(bubble));
        }
        EXPECT_GE(layout.lineTop, 0);
        EXPECT_LE(layout.lineRight, pane.width());
    }
}

TEST(FloorPlanLayout, AxesGoToTheRightAndUpwards) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(3, 3), QSizeF(800, 600));
    EXPECT_LT(layout.linesX[0], layout.linesX[1]);
    EXPECT_GT(layout.linesY[0], layout.linesY[1]);
    EXPECT_DOUBLE_EQ(layout.bubblesX[1].center().x(), layout.linesX[1]);
    EXPECT_DOUBLE_EQ(layout.bubblesY[1].center().y(), layout.linesY[1]);
}

TEST(FloorPlanLayout, BubblesStandClearOfTheSlab) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(4, 4), QSizeF(800, 600));
    EXPECT_GT(layout.bubblesX[0].top(), layout.building.bottom());
    EXPECT_LT(layout.bubblesY[0].right(), layout.building.left());
}

TEST(FloorPlanLayout, BaysStayRoughlySquareInAWidePane) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(4, 4), QSizeF(3000, 500));
    const double x = layout.linesX[1] - layout.linesX[0];
    const double y = layout.linesY[0] - layout.linesY[1];
    EXPECT_LE(x, y * 1.71);
}

TEST(FloorPlanLayout, OneAxisStandsInTheMiddle) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(1, 1), QSizeF(800, 600));
    ASSERT_EQ(layout.places.size(), 1U);
    EXPECT_TRUE(layout.building.contains(layout.places[0]));
    EXPECT_EQ(PlaceAt(layout, layout.places[0]), 0);
}

TEST(FloorPlanLayout, APaneOfNoSizeGivesNothingNegative) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(8, 6), QSizeF(0, 0));
    EXPECT_GE(layout.building.width(), 0);
    EXPECT_GE(layout.building.height(), 0);
    EXPECT_GE(layout.spacing, 0);
}

TEST(FloorPlanLayout, AGridThatNeedsMoreThanThePaneMakesThePlanLarger) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(20, 15), QSizeF(700, 500));
    EXPECT_GT(layout.size.width(), 700);
    EXPECT_GT(layout.size.height(), 500);
    EXPECT_GE(layout.linesX[1] - layout.linesX[0], 82);
    EXPECT_GE(layout.spacingY, 56);
    EXPECT_TRUE(QRectF(QPointF(), layout.size).contains(layout.bubblesX.back()));
    EXPECT_TRUE(QRectF(QPointF(), layout.size).contains(layout.building));
}

TEST(FloorPlanLayout, TheLastAxisHasRoomForItsFlagsToo) {
    for (const QSizeF pane : {QSizeF(700, 500), QSizeF(1100, 700), QSizeF(1900, 1000)}) {
        const FloorPlanLayout layout = LayoutFloorPlan(Grid(9, 6), pane);
        const double right = layout.linesX.back() + PlaceRect(layout, 0).width() / 2;
        EXPECT_GE(layout.size.width() - right, layout.flagWidth + 5);
        EXPECT_GE(layout.flagWidth, 48);
    }
}

TEST(FloorPlanLayout, TheShelfLiesBelowTheGridAndAloneWhereThereIsNone) {
    const FloorPlanLayout below = LayoutFloorPlan(Grid(4, 4), QSizeF(900, 600), 7);
    EXPECT_GT(below.shelf.top(), below.bubblesX[0].bottom());
    EXPECT_EQ(below.shelfRows, 2);
    EXPECT_TRUE(below.shelf.contains(ShelfCell(below, 6)));
    EXPECT_TRUE(LayoutFloorPlan(Grid(4, 4), QSizeF(900, 600)).shelf.isEmpty());
    const FloorPlanLayout alone = LayoutFloorPlan(PlanFloor(), QSizeF(400, 300), 30);
    EXPECT_TRUE(alone.places.empty());
    EXPECT_EQ(alone.shelfColumns, 2);
    EXPECT_EQ(alone.shelfRows, 15);
    EXPECT_GT(alone.size.height(), 300);
    for (int cell = 1; cell < 30; ++cell) {
        EXPECT_FALSE(ShelfCell(alone, cell).intersects(ShelfCell(alone, cell - 1)));
    }
}

TEST(PinBubbles, KeepsThemInSightOnALargePlanAndMovesNoneOfASmallOne) {
    FloorPlanLayout layout = LayoutFloorPlan(Grid(20, 15), QSizeF(700, 500));
    const QRectF visible(300, 100, 700, 400);
    PinBubbles(layout, visible);
    EXPECT_TRUE(visible.contains(layout.bubblesX[5]));
    EXPECT_GE(layout.bubblesY[5].left(), visible.left());
    EXPECT_DOUBLE_EQ(layout.bubblesX[5].center().x(), layout.linesX[5]);
    FloorPlanLayout small = LayoutFloorPlan(Grid(3, 3), QSizeF(700, 500));
    const QRectF before = small.bubblesX[0];
    PinBubbles(small, QRectF(0, 0, 700, 500));
    EXPECT_EQ(small.bubblesX[0], before);
}

TEST(PlaceAt, TellsNeighboursApartOnADenseGrid) {
    const FloorPlanLayout layout = LayoutFloorPlan(Grid(20, 15), QSizeF(700, 500));
    for (int place = 0; place < int(layout.places.size()); ++place) {
        EXPECT_EQ(PlaceAt(layout, layout.places[place]), place);
    }
    EXPECT_EQ(PlaceAt(layout, QPointF(1, 1)), -1);
}

TEST(PlaceCardBeside, TurnsAwayFromTheEdgesOfThePane) {
    const QRectF pane(100, 50, 600, 400);
    const QSizeF card(150, 80);
    for (const QPointF corner : {QPointF(120, 70), QPointF(680, 70), QPointF(120, 430),
                                 QPointF(680, 430), QPointF(400, 250)}) {
        const QRectF place(corner - QPointF(10, 10), QSizeF(20, 20));
        const QRectF at = PlaceCardBeside(place, card, pane);
        EXPECT_TRUE(pane.contains(at));
        EXPECT_FALSE(at.intersects(place));
        EXPECT_EQ(at.size(), card);
    }
}

} // namespace
} // namespace host
