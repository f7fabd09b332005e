#include "host/ui/pick/PickState.h"
#include "host/ui/pick/PlacedComponents.h"
#include "tests/host/ui/FloorPlanSamples.h"
#include "tests/host/ui/PickSamples.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using hosttest::Component;
using hosttest::ComponentsOf;

TEST(PickRules, AClickReplacesAndCtrlAddsAndRemoves) {
    const auto all = ComponentsOf(u"1"_s);
    PickState state = PickOnly(PickOnly({}, all[1]), all[2]);
    EXPECT_FALSE(IsPicked(state, all[1]));
    EXPECT_TRUE(IsPicked(state, all[2]));
    state = TogglePick(state, all[1]);
    ASSERT_EQ(state.picked.size(), 2U);
    EXPECT_EQ(state.picked[1].handle, u"c1"_s);
    state = TogglePick(state, all[2]);
    ASSERT_EQ(state.picked.size(), 1U);
    EXPECT_TRUE(IsPicked(state, all[1]));
}

TEST(PickRules, TheSameHandleInAnotherProjectIsAnotherComponent) {
    PlanComponent one = Component(u"c1"_s, u"1"_s, {}, u"KZ-1"_s);
    PlanComponent other = one;
    other.ppid = 8;
    const PickState state = TogglePick(PickOnly({}, one), other);
    EXPECT_EQ(state.picked.size(), 2U);
}

TEST(PickRules, AnotherFloorKeepsWhatIsPicked) {
    PickState state = PickOnly({}, ComponentsOf(u"1"_s)[1]);
    state.cursor = 3;
    const PickState up = PickOnFloor(state, 1, 2);
    EXPECT_EQ(up.floor, 1);
    EXPECT_EQ(up.cursor, -1);
    EXPECT_EQ(up.picked.size(), 1U);
    EXPECT_EQ(PickOnFloor(state, 2, 2).floor, 0);
    EXPECT_EQ(PickOnFloor(state, -1, 2).floor, 0);
}

TEST(PickRules, TheBarNamesWhatIsPicked) {
    const auto all = ComponentsOf(u"1"_s);
    EXPECT_EQ(PickedText({}), u"未选构件"_s);
    const PickState one = PickOnly({}, all[1]);
    EXPECT_EQ(PickedText(one), u"已选：KZ-1 框架柱（1层）"_s);
    EXPECT_EQ(PickedText(TogglePick(one, all[3])), u"已选 2 个构件：KZ-1、KZ-3"_s);
    EXPECT_EQ(PickedText(PickOnly({}, ComponentsOf({}).front())), u"已选：WQ-1 框架柱（无楼层）"_s);
}

TEST(PickRules, ComponentsStandAtTheirIntersectionsAndTheRestOnTheShelf) {
    const PlanFloor floor = hosttest::SmallPlan().floors[1];
    const auto placed = PlaceComponents(ComponentsOf(u"1"_s), floor);
    ASSERT_EQ(placed.size(), 4U);
    EXPECT_EQ(placed[0].component.handle, u"c1"_s);
    EXPECT_EQ(placed[0].place, placed[1].place);
    EXPECT_EQ(floor.intersections[size_t(placed[2].place)].positionKey, u"1:3/B"_s);
    EXPECT_EQ(placed[3].component.handle, u"stair"_s);
    EXPECT_EQ(placed[3].place, kShelf);
    EXPECT_EQ(ShelfCount(placed), 1);
}

TEST(PickRules, ComponentsOfOneIntersectionHaveBoxesOfTheirOwn) {
    const PlanFloor floor = hosttest::SmallPlan().floors[1];
    const auto placed = PlaceComponents(ComponentsOf(u"1"_s), floor);
    const FloorPlanLayout layout = LayoutFloorPlan(floor, QSizeF(800, 500), 1);
    const FlagLayout boxes = LayoutComponents(layout, placed);
    ASSERT_EQ(boxes.boxes.size(), 4U);
    for (size_t one = 0; one < boxes.boxes.size(); ++one) {
        EXPECT_EQ(BoxAt(boxes, boxes.boxes[one].rect.center()), int(one));
    }
}

TEST(PickRules, ArrowsGoToTheNearestBoxInTheirDirection) {
    const PlanFloor floor = hosttest::SmallPlan().floors[1];
    const auto placed = PlaceComponents(ComponentsOf(u"1"_s), floor);
    const FlagLayout boxes = LayoutComponents(LayoutFloorPlan(floor, QSizeF(800, 500), 1), placed);
    EXPECT_EQ(NextBox(boxes, -1, 1, 0), 0);
    EXPECT_EQ(NextBox(boxes, 0, 0, -1), 1); // below it at the same place
    EXPECT_EQ(NextBox(boxes, 1, 0, 1), 0);
    EXPECT_EQ(NextBox(boxes, 0, 1, 0), 2);
    EXPECT_EQ(NextBox(boxes, 2, -1, 0), 0);
    EXPECT_EQ(NextBox(boxes, 1, 0, -1), 3); // the shelf
    EXPECT_EQ(NextBox(boxes, 2, 1, 0), 2);
    EXPECT_EQ(NextBox({}, 0, 1, 0), -1);
}

TEST(PickRules, TheTipTellsKindNameAndPlace) {
    const PlanFloor floor = hosttest::SmallPlan().floors[1];
    const auto placed = PlaceComponents(ComponentsOf(u"1"_s), floor);
    EXPECT_EQ(ComponentTip(floor, placed, {{}, placed[0].place, 0, {}}),
              u"柱 KZ-1 框架柱\n1轴 / A轴"_s);
    EXPECT_EQ(ComponentTip(floor, placed, {{}, kShelf, 3, {}}), u"柱 LT-1 框架柱\n不在轴网上"_s);
    EXPECT_EQ(ComponentTip(floor, placed, {{}, 0, -1, {0, 1}}),
              u"柱 KZ-1 框架柱\n柱 KZ-2 框架柱"_s);
}

} // namespace
} // namespace host
