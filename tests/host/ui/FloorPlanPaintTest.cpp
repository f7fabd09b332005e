#include "host/ui/plan/FloorPlanPaint.h"

#include "tests/host/ui/FloorPlanSamples.h"
#include "toolkit/Look.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace host {
namespace {

const QSize kPane(700, 500);

class FloorPlanPaint : public testing::Test {
protected:
    QImage Paint() {
        layout = state.floor < int(model.floors.size())
                     ? LayoutFloorPlan(model.floors[state.floor], kPane, ShelfCount(flags))
                     : FloorPlanLayout();
        flagLayout = LayoutFlags(layout, flags);
        QImage image(kPane, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        const FlagScene scene{flags, flagLayout, hoveredBox, litBox,
                              QRectF(QPointF(), QSizeF(kPane))};
        PaintFloorPlan(painter, {model, state, layout, scene, focused});
        painter.end();
        return image;
    }

    /// Beside the number, within the circle.
    [[nodiscard]] QPoint InCircle(int place) const {
        return layout.places[place].toPoint() - QPoint(9, 0);
    }

    FloorPlanModel model = hosttest::SmallPlan();
    FloorPlanState state{1};
    FloorPlanLayout layout;
    std::vector<PlacedFlag> flags;
    FlagLayout flagLayout;
    int hoveredBox = -1;
    int litBox = -1;
    bool focused = false;
};

TEST_F(FloorPlanPaint, CoversTheWholePane) {
    const QImage image = Paint();
    for (const QPoint corner : {QPoint(0, 0), QPoint(699, 0), QPoint(0, 499), QPoint(699, 499)}) {
        EXPECT_EQ(image.pixelColor(corner), toolkit::Colors::Pane());
    }
}

TEST_F(FloorPlanPaint, ThePlaceWithPhotosIsAFullCircleAndTheOthersAreColumns) {
    const QImage image = Paint();
    const int full = FindPlace(model, QStringLiteral("1:2/B"))->intersection;
    const int empty = FindPlace(model, QStringLiteral("1:1/A"))->intersection;
    EXPECT_EQ(image.pixelColor(InCircle(full)), toolkit::Colors::TextAccent());
    EXPECT_NE(image.pixelColor(InCircle(empty)), toolkit::Colors::TextAccent());
    EXPECT_EQ(image.pixelColor(layout.places[empty].toPoint()), toolkit::Colors::Frame());
}

TEST_F(FloorPlanPaint, TheSlabIsWhiteAndItsSurroundingsAreNot) {
    const QImage image = Paint();
    const QPointF inside = (layout.places[0] + layout.places[3]) / 2;
    EXPECT_EQ(image.pixelColor(inside.toPoint()), QColor(Qt::white));
    const QPointF outside = layout.building.topRight() + QPointF(20, -20);
    EXPECT_EQ(image.pixelColor(outside.toPoint()), toolkit::Colors::Pane());
}

TEST_F(FloorPlanPaint, TheChosenPlaceHasARingAndItsBubblesAreTinted) {
    const QImage before = Paint();
    state.chosen = 0;
    const QImage image = Paint();
    const QRectF ring = PlaceRect(layout, 0).adjusted(-4, -4, 4, 4);
    const QPoint onRing(int(ring.left()), int(ring.center().y()));
    EXPECT_EQ(image.pixelColor(onRing), toolkit::Colors::Accent());
    const QPoint inBubble = layout.bubblesX[0].center().toPoint() + QPoint(0, 10);
    EXPECT_EQ(image.pixelColor(inBubble), toolkit::Colors::Selection());
    EXPECT_EQ(before.pixelColor(inBubble), QColor(Qt::white));
}

TEST_F(FloorPlanPaint, FocusIsAFrameAroundThePane) {
    focused = true;
    EXPECT_EQ(Paint().pixelColor(0, 250), toolkit::Colors::Accent());
}

TEST_F(FloorPlanPaint, AProjectWithoutFloorsSaysSoInTheMiddle) {
    model.floors.clear();
    const QImage image = Paint();
    int written = 0;
    for (int x = 200; x < 500; ++x) {
        for (int y = 220; y < 280; ++y) {
            written += image.pixelColor(x, y) != toolkit::Colors::Pane() ? 1 : 0;
        }
    }
    EXPECT_GT(written, 200);
}

MarkFlag RedFlag() {
    MarkFlag flag;
    flag.markId = 1;
    flag.name = QStringLiteral("质量");
    flag.color = 0x0000C0;
    flag.count = 12;
    return flag;
}

/// How many pixels of a box have this colour.
int PixelsOf(const QImage& image, const QRectF& rect, const QColor& color) {
    int count = 0;
    for (int x = int(rect.left()); x < int(rect.right()); ++x) {
        for (int y = int(rect.top()); y < int(rect.bottom()); ++y) {
            count += image.pixelColor(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

TEST_F(FloorPlanPaint, AFlagHasItsMarksColourAndItsTextBlackOrWhiteByLuminance) {
    flags = {{RedFlag(), 0}, {RedFlag(), 1}};
    flags[1].flag.color = 0x40F0F0;
    const QImage image = Paint();
    ASSERT_EQ(flagLayout.boxes.size(), 2U);
    const QRectF dark = flagLayout.boxes[0].rect.adjusted(3, 2, -3, -2);
    EXPECT_GT(PixelsOf(image, dark, QColor(0xC0, 0, 0)), int(dark.width() * dark.height() / 2));
    EXPECT_GT(PixelsOf(image, dark, Qt::white), 3);
    EXPECT_EQ(PixelsOf(image, dark, Qt::black), 0);
    const QRectF bright = flagLayout.boxes[1].rect.adjusted(3, 2, -3, -2);
    EXPECT_GT(PixelsOf(image, bright, QColor(0xF0, 0xF0, 0x40)), 200);
    EXPECT_GT(PixelsOf(image, bright, Qt::black), 3);
    EXPECT_EQ(PixelsOf(image, bright, Qt::white), 0);
}

TEST_F(FloorPlanPaint, AnIssuesFlagBearsABadgeAndAPhotosDoesNot) {
    flags = {{RedFlag(), 0}, {RedFlag(), 1}};
    flags[1].flag.kind = MarkKind::Issues;
    const QImage image = Paint();
    const auto whiteAtLeft = [&](int box) {
        const QRectF rect = flagLayout.boxes[box].rect;
        return PixelsOf(image, QRectF(rect.left() + 3, rect.center().y() - 4, 2, 8), Qt::white);
    };
    EXPECT_EQ(whiteAtLeft(0), 0);
    EXPECT_GT(whiteAtLeft(1), 2);
}

TEST_F(FloorPlanPaint, TheFlagThatBlinksIsFramedWhileItIsLit) {
    flags = {{RedFlag(), 0}};
    const QImage dark = Paint();
    litBox = 0;
    const QImage lit = Paint();
    const QRectF rect = flagLayout.boxes[0].rect;
    const QPoint above(int(rect.center().x()), int(rect.top()) - 2);
    EXPECT_EQ(lit.pixelColor(above), toolkit::Colors::Accent());
    EXPECT_NE(dark.pixelColor(above), toolkit::Colors::Accent());
}

TEST_F(FloorPlanPaint, WhatHangsOnNoFloorSaysSoAndHasItsFlagsOnTheShelf) {
    model.floors.push_back(PlanFloor());
    state.floor = 2;
    const QImage empty = Paint();
    EXPECT_LT(PixelsOf(empty, QRectF(200, 220, 300, 60), toolkit::Colors::Pane()), 300 * 60 - 200);
    flags = {{RedFlag(), kShelf}};
    const QImage image = Paint();
    EXPECT_GT(PixelsOf(image, flagLayout.boxes[0].rect, QColor(0xC0, 0, 0)), 1000);
}

} // namespace
} // namespace host
