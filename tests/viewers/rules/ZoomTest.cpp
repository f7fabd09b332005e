#include "viewers/Zoom.h"

#include <gtest/gtest.h>

using gallery::Zoom;
using gallery::ZoomView;

namespace {

/// A picture of 4000 by 2000 fitted into an area of 1000 by 800.
ZoomView LargePicture(qreal ratio = 1) {
    return {QRect(0, 0, 1000, 800), QRect(0, 150, 1000, 500), QSize(4000, 2000), ratio};
}

/// A picture of 10 by 10 enlarged.
ZoomView SmallPicture() {
    return {QRect(0, 0, 1000, 800), QRect(105, 5, 790, 790), QSize(10, 10), 1};
}

QPointF PixelUnder(const Zoom& zoom, const ZoomView& view, const QPointF& point) {
    const QRectF place = gallery::ZoomedRect(zoom, view);
    return {(point.x() - place.x()) * view.picSize.width() / place.width(),
            (point.y() - place.y()) * view.picSize.height() / place.height()};
}

} // namespace

TEST(Zoom, FittedIsThePicturesPlace) {
    EXPECT_EQ(gallery::ZoomedRect({}, LargePicture()), QRectF(0, 150, 1000, 500));
    EXPECT_EQ(gallery::VisiblePart({}, LargePicture()), QRect(0, 0, 4000, 2000));
}

TEST(Zoom, ADoubleClickGoesToOneImagePixelOnOneScreenPixelAndBack) {
    const QPointF pointer(250, 400);
    for (const qreal ratio : {1.0, 2.0}) {
        const ZoomView view = LargePicture(ratio);
        const Zoom zoom = gallery::ToggleZoom({}, view, pointer);
        EXPECT_FALSE(zoom.fit);
        EXPECT_EQ(zoom.scale, 1);
        EXPECT_EQ(gallery::ZoomedRect(zoom, view).size(), QSizeF(4000, 2000) / ratio);
        const QPointF corner = gallery::ZoomedRect(zoom, view).topLeft() * ratio;
        EXPECT_EQ(corner, QPointF(corner.toPoint())) << "on whole device pixels";
        EXPECT_NEAR(PixelUnder(zoom, view, pointer).x(), 1000, 1);
        EXPECT_NEAR(PixelUnder(zoom, view, pointer).y(), 1000, 1);
        EXPECT_TRUE(gallery::ToggleZoom(zoom, view, pointer).fit);
    }
}

TEST(Zoom, TheWheelKeepsThePixelUnderThePointer) {
    const ZoomView view = LargePicture();
    const QPointF pointer(700, 390);
    Zoom zoom = gallery::ZoomBy({}, view, 6, pointer);
    const QPointF before = PixelUnder(zoom, view, pointer);
    zoom = gallery::ZoomBy(zoom, view, 1, pointer);
    EXPECT_NEAR(PixelUnder(zoom, view, pointer).x(), before.x(), 2);
    EXPECT_NEAR(PixelUnder(zoom, view, pointer).y(), before.y(), 2);
}

TEST(Zoom, AStepThatWouldPassOneHundredPercentStopsThere) {
    const ZoomView view = LargePicture();
    const Zoom zoom = gallery::ZoomBy({}, view, 50, {500, 400});
    EXPECT_EQ(zoom.scale, 1);
    EXPECT_GT(gallery::ZoomBy(zoom, view, 1, {500, 400}).scale, 1);
    EXPECT_LT(gallery::ZoomBy(zoom, view, -1, {500, 400}).scale, 1);
}

TEST(Zoom, TheWheelStopsAtEightTimesAndAtFitted) {
    const ZoomView view = LargePicture();
    const Zoom hundred = gallery::ToggleZoom({}, view, {500, 400});
    EXPECT_EQ(gallery::ZoomBy(hundred, view, 100, {500, 400}).scale, 8);
    EXPECT_TRUE(gallery::ZoomBy(hundred, view, -100, {500, 400}).fit);
    EXPECT_TRUE(gallery::ZoomBy({}, view, -1, {500, 400}).fit);
}

TEST(Zoom, ASmallPictureGoesDownToOneHundredPercentAndStandsInTheMiddle) {
    const Zoom zoom = gallery::ToggleZoom({}, SmallPicture(), {500, 400});
    EXPECT_EQ(gallery::ZoomedRect(zoom, SmallPicture()), QRectF(495, 395, 10, 10));
    EXPECT_EQ(gallery::ZoomBy(zoom, SmallPicture(), -5, {500, 400}).scale, 1);
}

TEST(Zoom, DraggingMovesThePictureButOpensNoGap) {
    const ZoomView view = LargePicture();
    const Zoom zoom = gallery::ToggleZoom({}, view, {500, 400});
    const QRectF before = gallery::ZoomedRect(zoom, view);
    const QRectF after = gallery::ZoomedRect(gallery::PanBy(zoom, view, {-30, 20}), view);
    EXPECT_EQ(after, before.translated(-30, 20));
    const QRectF edge = gallery::ZoomedRect(gallery::PanBy(zoom, view, {1e6, 1e6}), view);
    EXPECT_EQ(edge.topLeft(), QPointF(0, 0));
    const QRectF farEdge = gallery::ZoomedRect(gallery::PanBy(zoom, view, {-1e6, -1e6}), view);
    EXPECT_EQ(farEdge.right(), 1000);
    EXPECT_EQ(farEdge.bottom(), 800);
    EXPECT_TRUE(gallery::PanBy({}, view, {5, 5}).fit);
}

TEST(Zoom, TheVisiblePartIsWhatTheAreaShows) {
    const ZoomView view = LargePicture();
    const Zoom zoom = gallery::ToggleZoom({}, view, {500, 400});
    EXPECT_EQ(gallery::VisiblePart(zoom, view).size(), QSize(1000, 800));
    const Zoom corner = gallery::PanBy(zoom, view, {1e6, 1e6});
    EXPECT_EQ(gallery::VisiblePart(corner, view), QRect(0, 0, 1000, 800));
}

TEST(Zoom, WithoutAPictureNothingIsZoomed) {
    const ZoomView none{QRect(0, 0, 100, 100), {}, {}, 1};
    EXPECT_TRUE(gallery::ToggleZoom({}, none, {5, 5}).fit);
    EXPECT_TRUE(gallery::ZoomBy({}, none, 3, {5, 5}).fit);
    EXPECT_TRUE(gallery::VisiblePart({}, none).isEmpty());
    EXPECT_TRUE(gallery::ClampZoom({false, 2, {5, 5}}, none).fit);
}

TEST(Zoom, DraggingMovesThePictureByWhatThePointerMovedAtEveryScaleAndDensity) {
    for (const qreal ratio : {1.0, 2.0}) {
        const ZoomView view = LargePicture(ratio);
        for (const double scale : {0.9, 2.0, 4.0}) {
            const Zoom zoom{false, scale, {2000, 1000}};
            const QRectF before = gallery::ZoomedRect(zoom, view);
            const QRectF after = gallery::ZoomedRect(gallery::PanBy(zoom, view, {-30, 20}), view);
            EXPECT_EQ(after, before.translated(-30, 20)) << scale << " at " << ratio;
        }
    }
}

TEST(Zoom, ClampingHoldsTheEdgesAndTakesWhatIsNearlyFittedForFitted) {
    const ZoomView view = LargePicture();
    const Zoom zoom = gallery::ClampZoom({false, 0.26, {0, 0}}, view);
    EXPECT_FALSE(zoom.fit);
    EXPECT_DOUBLE_EQ(zoom.centre.x(), 1000 / 0.26 / 2);
    EXPECT_EQ(zoom.centre.y(), 1000) << "lower than the area: in its middle";
    EXPECT_TRUE(gallery::ClampZoom({false, 0.2524, {0, 0}}, view).fit) << "one in a hundred";
    EXPECT_FALSE(gallery::ClampZoom({false, 0.2526, {0, 0}}, view).fit);
}

TEST(Zoom, TheFittedScaleIsThatOfTheDeviceAndNoneWithoutAPlaceOrAPicture) {
    EXPECT_EQ(gallery::FitScale(LargePicture()), 0.25);
    EXPECT_EQ(gallery::FitScale(LargePicture(2)), 0.5);
    EXPECT_EQ(gallery::FitScale({QRect(0, 0, 9, 9), QRect(), QSize(10, 10), 1}), 0);
    EXPECT_EQ(gallery::FitScale({QRect(0, 0, 9, 9), QRect(0, 0, 9, 9), QSize(), 1}), 0);
}
