#include "host/ui/plan/FlagLayout.h"

#include "tests/host/ui/FloorPlanSamples.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

const QSizeF kPane(900, 600);

MarkFlag FlagOfMark(qint32 markId) {
    MarkFlag flag;
    flag.markId = markId;
    flag.count = 1;
    return flag;
}

/// As many flags at a place, marks from 1 on.
std::vector<PlacedFlag> Flags(int count, int place) {
    std::vector<PlacedFlag> flags;
    for (int mark = 1; mark <= count; ++mark) {
        flags.push_back({FlagOfMark(mark), place});
    }
    return flags;
}

FloorPlanLayout Plan(int onShelf = 0, QSizeF pane = kPane) {
    return LayoutFloorPlan(hosttest::SmallPlan().floors[1], pane, onShelf);
}

void ExpectNoOverlap(const FlagLayout& layout) {
    for (std::size_t one = 0; one < layout.boxes.size(); ++one) {
        for (std::size_t other = one + 1; other < layout.boxes.size(); ++other) {
            EXPECT_FALSE(layout.boxes[one].rect.intersects(layout.boxes[other].rect))
                << one << " and " << other;
        }
    }
}

TEST(FlagLayout, AFlagStandsBesideItsPlaceAtItsHeight) {
    const FloorPlanLayout plan = Plan();
    const FlagLayout layout = LayoutFlags(plan, Flags(1, 2));
    ASSERT_EQ(layout.boxes.size(), 1U);
    const QRectF rect = layout.boxes[0].rect;
    EXPECT_GT(rect.left(), PlaceRect(plan, 2).right());
    EXPECT_NEAR(rect.center().y(), plan.places[2].y(), 1);
    ASSERT_EQ(layout.poles.size(), 1U);
    EXPECT_LT(layout.poles[0].x1(), rect.left());
    EXPECT_EQ(BoxAt(layout, rect.center()), 0);
    EXPECT_EQ(BoxAt(layout, plan.places[2]), -1);
}

/// Axes so close that a bay has room for three, four, five and six.
class FlagsBelowTheTitle : public testing::TestWithParam<double> {};

TEST_P(FlagsBelowTheTitle, NoneLiesUnderTheTitleAndNoneOnAnother) {
    PlanFloor floor;
    floor.axesX = {u"1"_s};
    floor.axesY = {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s};
    std::vector<PlacedFlag> flags;
    for (int at = 0; at < 6; ++at) {
        floor.intersections.push_back({0, at, u"1/"_s + floor.axesY[at], {}});
        const auto here = Flags(8, at);
        flags.insert(flags.end(), here.begin(), here.end());
    }
    const FlagLayout layout = LayoutFlags(LayoutFloorPlan(floor, QSizeF(900, GetParam())), flags);
    constexpr double kTitleEnds = 36;
    for (const FlagBox& box : layout.boxes) {
        EXPECT_GE(box.rect.top(), kTitleEnds);
    }
    ExpectNoOverlap(layout);
}

INSTANTIATE_TEST_SUITE_P(Heights, FlagsBelowTheTitle, testing::Values(200, 440, 520, 620, 720));

TEST(FlagLayout, SeveralAtOnePlaceStandBelowEachOtherWithoutOverlap) {
    std::vector<PlacedFlag> flags;
    for (int place = 0; place < 6; ++place) {
        const auto here = Flags(3, place);
        flags.insert(flags.end(), here.begin(), here.end());
    }
    const FlagLayout layout = LayoutFlags(Plan(0, QSizeF(420, 182)), flags);
    EXPECT_EQ(layout.boxes.size(), 18U);
    ExpectNoOverlap(layout);
}

TEST(FlagLayout, TooManyAtOnePlaceAreFoldedIntoOneBox) {
    const FloorPlanLayout plan = Plan(0, QSizeF(420, 182));
    const FlagLayout layout = LayoutFlags(plan, Flags(9, 0));
    ASSERT_EQ(layout.boxes.size(), 3U);
    EXPECT_EQ(layout.boxes[0].flag, 0);
    EXPECT_EQ(layout.boxes[1].flag, 1);
    EXPECT_EQ(layout.boxes[2].flag, -1);
    EXPECT_EQ(layout.boxes[2].rest, (std::vector<int>{2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(BoxOf(layout, 1), 1);
    EXPECT_EQ(BoxOf(layout, 6), 2);
    EXPECT_EQ(BoxOf(layout, 9), -1);
    ExpectNoOverlap(layout);
}

TEST(FlagLayout, AsManyAsThereIsRoomForAreNotFolded) {
    const FlagLayout layout = LayoutFlags(Plan(0, QSizeF(420, 182)), Flags(3, 0));
    EXPECT_EQ(layout.boxes.size(), 3U);
    EXPECT_TRUE(layout.boxes[2].rest.empty());
}

TEST(FlagLayout, TheFlagThatIsLookedUpIsNotFolded) {
    const FlagLayout layout = LayoutFlags(Plan(0, QSizeF(420, 182)), Flags(9, 0), 6);
    ASSERT_EQ(layout.boxes.size(), 3U);
    EXPECT_EQ(layout.boxes[1].flag, 6);
    EXPECT_EQ(layout.boxes[2].rest.size(), 7U);
}

TEST(FlagLayout, OnADenseGridNothingOverlapsEither) {
    PlanFloorBuilder builder(u"1"_s);
    for (int x = 1; x <= 12; ++x) {
        for (int y = 1; y <= 8; ++y) {
            builder.Add(QString::number(x), QString::number(y), u"%1/%2"_s.arg(x).arg(y), {1, 0});
        }
    }
    const PlanFloor floor = builder.Finish();
    std::vector<PlacedFlag> flags;
    for (int place = 0; place < 96; ++place) {
        const auto here = Flags(5, place);
        flags.insert(flags.end(), here.begin(), here.end());
    }
    const FloorPlanLayout plan = LayoutFloorPlan(floor, kPane);
    const FlagLayout layout = LayoutFlags(plan, flags);
    EXPECT_EQ(layout.boxes.size(), 96U * 3);
    ExpectNoOverlap(layout);
    for (const FlagBox& box : layout.boxes) {
        for (int place = 0; place < 96; ++place) {
            EXPECT_FALSE(box.rect.intersects(PlaceRect(plan, place)));
        }
        EXPECT_LE(box.rect.right(), plan.size.width());
    }
}

TEST(FlagLayout, TheShelfHoldsItsFlagsInLinesAndFoldsWhatIsTooMuch) {
    const auto flags = Flags(40, kShelf);
    const FloorPlanLayout plan = Plan(40);
    const FlagLayout layout = LayoutFlags(plan, flags);
    EXPECT_EQ(int(layout.boxes.size()), plan.shelfColumns * plan.shelfRows);
    EXPECT_FALSE(layout.boxes.back().rest.empty());
    EXPECT_TRUE(layout.poles.empty());
    ExpectNoOverlap(layout);
    for (const FlagBox& box : layout.boxes) {
        EXPECT_TRUE(plan.shelf.adjusted(0, 0, 1, 1).contains(box.rect));
    }
}

TEST(FlagLayout, WithoutFlagsThereIsNothing) {
    const FlagLayout layout = LayoutFlags(FloorPlanLayout(), {});
    EXPECT_TRUE(layout.boxes.empty());
    EXPECT_EQ(BoxAt(layout, QPointF(1, 1)), -1);
    EXPECT_EQ(BoxOf(layout, 0), -1);
}

TEST(FlagTip, NamesMarkPlaceAndCountAndTheThemesOfIssues) {
    const PlanFloor floor = hosttest::SmallPlan().floors[1];
    std::vector<PlacedFlag> flags = Flags(2, 3);
    flags[0].flag.name = u"质量"_s;
    flags[0].flag.count = 12;
    flags[1].flag.kind = MarkKind::Issues;
    flags[1].flag.issues = {{u"q1"_s, u"裂缝"_s}};
    EXPECT_EQ(FlagTip(floor, flags, {{}, 3, 0, {}}), u"照片标识 质量，2轴 / B轴，照片 12 张"_s);
    EXPECT_EQ(
        FlagTip(floor, flags, {{}, 3, -1, {0, 1}}),
        u"照片标识 质量，2轴 / B轴，照片 12 张\n问题标识 未知，2轴 / B轴，1 个问题\n· 裂缝"_s);
    flags[0].place = kShelf;
    EXPECT_EQ(FlagTip(floor, flags, {{}, kShelf, 0, {}}), u"照片标识 质量，照片 12 张"_s);
}

TEST(FlagTip, NamesAreNeverTakenForPlaceholders) {
    std::vector<PlacedFlag> flags = Flags(1, kShelf);
    flags[0].flag.name = u"%3"_s;
    flags[0].flag.placeText = u"%3轴"_s;
    flags[0].flag.count = 7;
    EXPECT_EQ(FlagTip(PlanFloor(), flags, {{}, kShelf, 0, {}}), u"照片标识 %3，%3轴，照片 7 张"_s);
}

TEST(FlagTip, OfVeryManyIssuesSaysTheFirstOnes) {
    std::vector<PlacedFlag> flags = Flags(1, kShelf);
    flags[0].flag.kind = MarkKind::Issues;
    for (int at = 0; at < 50; ++at) {
        flags[0].flag.issues.push_back({QString::number(at), u"裂缝"_s});
    }
    const QString tip = FlagTip(PlanFloor(), flags, {{}, kShelf, 0, {}});
    EXPECT_EQ(tip.count(u'\n'), 11);
    EXPECT_TRUE(tip.endsWith(u"……"_s));
}

} // namespace
} // namespace host
