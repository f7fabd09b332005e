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
                     ? LayoutFloorPlan(model.floors[state.floor], kPane)
                     : FloorPlanLayout();
        QImage image(kPane, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        PaintFloorPlan(painter, {model, state, layout, kPane, focused});
        painter.end();
        return image;
    }

    /// Beside the number, within the circle.
    [[nodiscard]] QPoint InCircle(int place) const {
        return layout.places[place].toPoint() - QPoint(9, 0);
    }

    FloorPlanModel model = hosttest::SmallPlan();
    FloorPlanState state{1, kNoPlace, kNoPlace, false};
    FloorPlanLayout layout;
    bool focused = false;
};

TEST_F(FloorPlanPaint, CoversTheWholePane) {
    const QImage image = Paint();
    for (const QPoint corner : {QPoint(0, 0), QPoint(699, 0), QPoint(0, 499), QPoint(699, 499)})
        EXPECT_EQ(image.pixelColor(corner), toolkit::Colors::Pane());
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
        for (int y = 220; y < 280; ++y)
            written += image.pixelColor(x, y) != toolkit::Colors::Pane() ? 1 : 0;
    }
    EXPECT_GT(written, 200);
}

} // namespace
} // namespace host
