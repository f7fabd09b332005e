#include "host/ui/drawing/SheetView.h"
#include "host/ui/drawing/SheetFlags.h"

#include <cmath>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

constexpr QSizeF kSheet(2000, 1000);
constexpr QSizeF kArea(824, 624);

QPointF Rounded(const QPointF& point) {
    return {std::round(point.x() * 1e6) / 1e6, std::round(point.y() * 1e6) / 1e6};
}

TEST(SheetView, TheWholeSheetFitsWithALittleRoom) {
    const SheetView fit = FitSheet(kSheet, kArea);
    EXPECT_DOUBLE_EQ(fit.scale, 0.4);
    EXPECT_EQ(ToPane(fit, kArea, {0, 0}), QPointF(12, 112));
    EXPECT_EQ(ToPane(fit, kArea, {2000, 1000}), QPointF(812, 512));
}

TEST(SheetView, ATallSheetHasItsRoomAboveAndBelow) {
    const QSizeF tall(1000, 2000);
    const SheetView fit = FitSheet(tall, kArea);
    EXPECT_EQ(Rounded(ToPane(fit, kArea, {500, 0})), QPointF(412, 12));
    EXPECT_EQ(Rounded(ToPane(fit, kArea, {500, 2000})), QPointF(412, 612));
}

TEST(SheetView, PlacesGoToThePaneAndBack) {
    const SheetView view{1.7, {300, 400}};
    EXPECT_EQ(Rounded(ToSheet(view, kArea, ToPane(view, kArea, {12, 34}))), QPointF(12, 34));
    EXPECT_TRUE(SeenOfSheet(view, kArea).contains(QPointF(300, 400)));
    EXPECT_DOUBLE_EQ(SeenOfSheet(view, kArea).width(), kArea.width() / 1.7);
}

TEST(SheetView, ZoomKeepsWhatIsUnderThePointer) {
    SheetView view = ClampSheet({2, {1000, 500}}, kSheet, kArea);
    const QPointF pointer(200, 500);
    const QPointF before = ToSheet(view, kArea, pointer);
    for (const double factor : {1.25, 1.25, 0.8, 1.6}) {
        view = ZoomSheet(view, kSheet, kArea, pointer, factor);
        EXPECT_EQ(Rounded(ToSheet(view, kArea, pointer)), Rounded(before));
    }
}

TEST(SheetView, ZoomEndsAtTheWholeSheetAndAtTheSharpest) {
    SheetView view = FitSheet(kSheet, kArea);
    EXPECT_EQ(ZoomSheet(view, kSheet, kArea, {0, 0}, 0.1), view);
    for (int times = 0; times < 40; ++times) {
        view = ZoomSheet(view, kSheet, kArea, {400, 300}, 1.5);
    }
    EXPECT_DOUBLE_EQ(view.scale, kMostScale);
}

TEST(SheetView, AHandThatMovesTakesTheSheetAlongButNotOutOfThePane) {
    const SheetView view = ClampSheet({2, {1000, 500}}, kSheet, kArea);
    const SheetView moved = PanSheet(view, kSheet, kArea, {30, -20});
    EXPECT_EQ(ToPane(moved, kArea, {1000, 500}),
              ToPane(view, kArea, {1000, 500}) + QPointF(30, -20));
    const SheetView far = PanSheet(view, kSheet, kArea, {99'999, 99'999});
    EXPECT_EQ(ToPane(far, kArea, {0, 0}), QPointF(64, 64));
    const SheetView fit = FitSheet(kSheet, kArea);
    EXPECT_EQ(PanSheet(fit, kSheet, kArea, {50, 50}), fit) << "a small sheet stays in the middle";
}

TEST(SheetView, ASheetExactlyAsLargeAsThePaneStaysInItsMiddle) {
    const QSizeF size(640, 480);
    const SheetView dragged = PanSheet({1, {320, 240}}, size, size, {30, -20});
    EXPECT_EQ(dragged.middle, QPointF(320, 240));
}

TEST(SheetView, ATinySheetIsNotBlownUpBeyondTheSharpest) {
    EXPECT_DOUBLE_EQ(FitSheet({2, 1}, kArea).scale, kMostScale);
}

std::vector<SheetFlag> Three() {
    return {{11, 3, 0, {0.5, 0.5}, u"质量"_s, Qt::red, 2},
            {12, 1, 0, {0.5, 0.5}, u"安全"_s, Qt::green, 0},
            {13, 2, 1, {0.1, 0.1}, {}, Qt::blue, 1}};
}

TEST(SheetFlags, TheTipStandsOnThePlace) {
    const SheetView view = FitSheet(kSheet, kArea);
    const QRectF rect = FlagRect(Three()[0], kSheet, view, kArea);
    EXPECT_EQ(QPointF(rect.center().x(), rect.bottom()), ToPane(view, kArea, {1000, 500}));
    EXPECT_GT(rect.height(), rect.width() / 2) << "a head with a tip below";
    SheetFlag large = Three()[0];
    large.number = 123'456;
    EXPECT_GT(FlagRect(large, kSheet, view, kArea).width(), rect.width());
}

TEST(SheetFlags, UnderAPointLiesTheFlagThatIsDrawnLastOfThePage) {
    const SheetView view = FitSheet(kSheet, kArea);
    const auto flags = Three();
    const QPointF on = FlagRect(flags[0], kSheet, view, kArea).center();
    EXPECT_EQ(FlagUnder(flags, 0, on, kSheet, view, kArea), 1);
    EXPECT_EQ(FlagUnder(flags, 1, on, kSheet, view, kArea), -1);
    EXPECT_EQ(FlagUnder(flags, 0, on + QPointF(60, 0), kSheet, view, kArea), -1);
}

TEST(SheetFlags, NextGoesByNumberRoundThePage) {
    const auto flags = Three();
    EXPECT_EQ(NextFlag(flags, 0, -1, 1), 1);
    EXPECT_EQ(NextFlag(flags, 0, 1, 1), 0);
    EXPECT_EQ(NextFlag(flags, 0, 0, 1), 1);
    EXPECT_EQ(NextFlag(flags, 0, -1, -1), 0);
    EXPECT_EQ(NextFlag(flags, 0, 1, -1), 0);
    EXPECT_EQ(NextFlag(flags, 1, 0, 1), 2) << "one of another page counts as none";
    EXPECT_EQ(NextFlag(flags, 2, -1, 1), -1);
}

TEST(SheetFlags, ATipSaysNumberMarkAndPhotos) {
    EXPECT_EQ(SheetFlagTip(Three()[0]), u"检查点3\n质量\n照片 2 张"_s);
    EXPECT_EQ(SheetFlagTip(Three()[1]), u"检查点1\n安全\n没有照片"_s);
    EXPECT_EQ(SheetFlagTip(Three()[2]), u"检查点2\n无标识\n照片 1 张"_s);
    EXPECT_EQ(FlagOfPoint(Three(), 12), 1);
    EXPECT_EQ(FlagOfPoint(Three(), 99), -1);
}

} // namespace
} // namespace host
