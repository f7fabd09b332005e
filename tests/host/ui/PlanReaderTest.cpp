#include "host/app/PlanReader.h"

#include "tests/support/ScriptedHost.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(PlanReader, ReadsFloorsAxesAndCounts) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"-1"_s, u"2"_s};
    scripted.pics.axesX = {u"1"_s, u"2"_s};
    scripted.pics.axesY = {{u"A"_s, u"keyA"_s}, {u"B"_s, u"keyB"_s}};
    scripted.pics.bimPics.resize(3);
    const FloorPlanModel model = ReadFloorPlan(7, u"一期"_s);
    EXPECT_EQ(model.projectName, u"一期"_s);
    ASSERT_EQ(model.floors.size(), 2U);
    EXPECT_EQ(model.floors[0].name, u"-1"_s);
    ASSERT_EQ(model.floors[1].intersections.size(), 4U);
    EXPECT_EQ(model.floors[1].intersections[3].positionKey, u"keyB"_s);
    EXPECT_EQ(model.floors[1].intersections[3].photoCount, 3);
    EXPECT_EQ(scripted.pics.lastBimFilter.projectIds, std::vector<qint32>{7});
    EXPECT_EQ(scripted.pics.lastBimFilter.presetKey, u"keyB"_s);
}

TEST(PlanReader, WithoutAProjectAsksNothing) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    EXPECT_TRUE(ReadFloorPlan(0, QString()).floors.empty());
}

TEST(PlanReader, AFailingServiceGivesAPlanWithoutFloors) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    scripted.script.FailNext("GetProjectFloors");
    const FloorPlanModel model = ReadFloorPlan(7, u"一期"_s);
    EXPECT_TRUE(model.floors.empty());
    EXPECT_EQ(model.projectName, u"一期"_s);
}

TEST(PlanReader, AsksForNoMoreCountsOnceOneFailed) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    scripted.pics.axesX = {u"1"_s};
    scripted.pics.axesY = {{u"A"_s, u"keyA"_s}, {u"B"_s, u"keyB"_s}};
    scripted.pics.bimPics.resize(3);
    scripted.script.FailNext("QueryBimPics");
    const FloorPlanModel model = ReadFloorPlan(7, u"一期"_s);
    ASSERT_EQ(model.floors.size(), 1U);
    EXPECT_EQ(PhotoCount(model.floors[0]), 0);
    EXPECT_EQ(model.floors[0].intersections.size(), 2U);
    EXPECT_EQ(scripted.pics.lastBimFilter.presetKey, u"keyA"_s);
}

} // namespace
} // namespace host
