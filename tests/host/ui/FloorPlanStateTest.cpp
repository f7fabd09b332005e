#include "host/ui/plan/FloorPlanState.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

FloorPlanModel TwoFloors() {
    FloorPlanModel model;
    for (const QString& name : {u"1"_s, u"2"_s}) {
        PlanFloorBuilder builder(name);
        builder.Add(u"1"_s, u"A"_s, name + u"-1A"_s, {1, 0});
        builder.Add(u"2"_s, u"A"_s, name + u"-2A"_s, {1, 0});
        model.floors.push_back(builder.Finish());
    }
    return model;
}

TEST(FloorPlanState, AnotherFloorForgetsTheChoice) {
    const FloorPlanState chosen = Click(FloorPlanState(), 1);
    const FloorPlanState next = ShowFloor(chosen, TwoFloors(), 1);
    EXPECT_EQ(next.floor, 1);
    EXPECT_EQ(next.chosen, kNoPlace);
    EXPECT_FALSE(next.cardOpen);
}

TEST(FloorPlanState, TheSameFloorOrNoFloorChangesNothing) {
    const FloorPlanState chosen = Click(FloorPlanState(), 1);
    for (const int floor : {0, -1, 2}) {
        EXPECT_EQ(ShowFloor(chosen, TwoFloors(), floor), chosen);
    }
}

TEST(FloorPlanState, AClickChoosesAndOpensTheCardAndOneBesideOnlyClosesIt) {
    const FloorPlanState chosen = Click(FloorPlanState(), 1);
    EXPECT_EQ(chosen.chosen, 1);
    EXPECT_TRUE(chosen.cardOpen);
    const FloorPlanState beside = Click(chosen, kNoPlace);
    EXPECT_EQ(beside.chosen, 1);
    EXPECT_FALSE(beside.cardOpen);
}

TEST(FloorPlanState, ArrowKeysMoveTheChoiceWithoutACard) {
    const FloorPlanState first = Step(Click(FloorPlanState(), 0), TwoFloors(), 1, 0);
    EXPECT_EQ(first.chosen, 1);
    EXPECT_FALSE(first.cardOpen);
    EXPECT_EQ(Step(FloorPlanState(), FloorPlanModel(), 1, 0), FloorPlanState());
}

TEST(FloorPlanState, EscapeClosesTheCardFirstAndThenGivesUpTheChoice) {
    const FloorPlanState once = Retreat(Click(FloorPlanState(), 1));
    EXPECT_EQ(once.chosen, 1);
    EXPECT_FALSE(once.cardOpen);
    EXPECT_EQ(Retreat(once).chosen, kNoPlace);
}

TEST(FloorPlanState, AFlagUnderTheMouseHidesThePlaceBelowIt) {
    FloorPlanState state = Hover(FloorPlanState(), 1, 4);
    EXPECT_EQ(state.hoveredFlag, 4);
    EXPECT_EQ(state.hovered, kNoPlace);
    state = ForgetFlags(state);
    EXPECT_EQ(state.hoveredFlag, -1);
    EXPECT_EQ(Hover(state, 1).hovered, 1);
    EXPECT_EQ(ShowFloor(Hover(FloorPlanState(), 0, 4), TwoFloors(), 1).hoveredFlag, -1);
}

TEST(FloorPlanState, ALookupBringsUpTheFloorAndChoosesThePlace) {
    const FloorPlanState found = Locate(PlanPlace{1, 1});
    EXPECT_EQ(found.floor, 1);
    EXPECT_EQ(found.chosen, 1);
    EXPECT_EQ(found.hovered, kNoPlace);
}

} // namespace
} // namespace host
