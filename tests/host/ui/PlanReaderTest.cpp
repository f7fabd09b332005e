#include "host/app/PlanReader.h"

#include "tests/support/ScriptedHost.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(PlanReader, ReadsFloorsAndAxesAndPutsTheCountsWhereTheyBelong) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"-1"_s, u"2"_s};
    scripted.pics.axesX = {u"1"_s, u"2"_s};
    scripted.pics.axesY = {{u"A"_s, u"keyA"_s}, {u"B"_s, u"keyB"_s}};
    const FloorPlanModel model =
        ReadFloorPlan({{7, u"一期"_s, {{u"keyB"_s, 3}, {u"other"_s, 9}}, 4}});
    EXPECT_EQ(model.projectName, u"一期"_s);
    ASSERT_EQ(model.floors.size(), 3U);
    EXPECT_EQ(model.floors[0].ppid, 7);
    EXPECT_TRUE(model.floors[0].project.isEmpty());
    EXPECT_TRUE(model.floors[2].name.isEmpty());
    EXPECT_EQ(PhotoCount(model.floors[2]), 4);
    EXPECT_EQ(model.floors[0].name, u"-1"_s);
    ASSERT_EQ(model.floors[1].intersections.size(), 4U);
    EXPECT_EQ(model.floors[1].intersections[2].photoCount, 0);
    EXPECT_EQ(model.floors[1].intersections[3].positionKey, u"keyB"_s);
    EXPECT_EQ(model.floors[1].intersections[3].photoCount, 3);
}

TEST(PlanReader, WithoutAProjectAsksNothing) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    EXPECT_TRUE(ReadFloorPlan({}).floors.empty());
    EXPECT_EQ(scripted.Log().CountOf("GetProjectFloors"), 0);
}

TEST(PlanReader, AFailingServiceGivesAPlanWithoutFloors) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    scripted.script.FailNext("GetProjectFloors");
    const FloorPlanModel model = ReadFloorPlan({{7, u"一期"_s, {}, 0}});
    EXPECT_TRUE(model.floors.empty());
    EXPECT_EQ(model.projectName, u"一期"_s);
}

TEST(PlanReader, SeveralProjectsHaveTheirFloorsBehindEachOtherUnderTheirNames) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    const FloorPlanModel model = ReadFloorPlan({{7, u"一期"_s, {}, 1}, {8, u"二期"_s, {}, 2}});
    ASSERT_EQ(model.floors.size(), 3U);
    EXPECT_EQ(model.floors[0].project, u"一期"_s);
    EXPECT_EQ(model.floors[1].project, u"二期"_s);
    EXPECT_EQ(model.floors[1].ppid, 8);
    EXPECT_EQ(model.floors[2].ppid, 0);
    EXPECT_EQ(PhotoCount(model.floors[2]), 3);
}

TEST(PlanReader, PhotosOnNoFloorAreShownWhereThereIsNoFloorAtAll) {
    support::ScriptedHost scripted;
    const FloorPlanModel model = ReadFloorPlan({{7, u"一期"_s, {}, 2}});
    ASSERT_EQ(model.floors.size(), 1U);
    EXPECT_TRUE(model.floors[0].name.isEmpty());
}

} // namespace
} // namespace host
