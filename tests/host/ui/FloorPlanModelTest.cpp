#include "host/ui/plan/FloorPlanModel.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

PlanFloor TwoByTwo() {
    PlanFloorBuilder builder(u"1"_s);
    builder.Add(u"10"_s, u"B"_s, u"k10B"_s, {3, 0});
    builder.Add(u"2"_s, u"A"_s, u"k2A"_s, {0, 0});
    builder.Add(u"2"_s, u"B"_s, u"k2B"_s, {4, 0});
    builder.Add(u"10"_s, u"A"_s, u"k10A"_s, {0, 0});
    return builder.Finish();
}

TEST(PlanFloorBuilder, SortsNumbersAsNumbersAndLettersBehindThem) {
    PlanFloorBuilder builder(u"1"_s);
    for (const QString& axis : {u"AA"_s, u"10"_s, u"B"_s, u"2"_s, u"1"_s, u"A"_s}) {
        builder.Add(axis, u"A"_s, axis, {0, 0});
    }
    const PlanFloor floor = builder.Finish();
    EXPECT_EQ(floor.axesX,
              (std::vector<QString>{u"1"_s, u"2"_s, u"10"_s, u"A"_s, u"B"_s, u"AA"_s}));
    EXPECT_EQ(floor.axesY, std::vector<QString>{u"A"_s});
}

TEST(PlanFloorBuilder, PutsEachKeyWhereItsAxesMeet) {
    const PlanFloor floor = TwoByTwo();
    ASSERT_EQ(floor.intersections.size(), 4U);
    EXPECT_EQ(floor.intersections[0].positionKey, u"k2A"_s);
    EXPECT_EQ(floor.intersections[3].positionKey, u"k10B"_s);
    EXPECT_EQ(floor.intersections[3].axisX, 1);
    EXPECT_EQ(floor.intersections[3].axisY, 1);
    EXPECT_EQ(CountPhotos(floor), (PhotoCount{7, 0}));
}

TEST(FloorPlanModel, FindsAKeyOnAnyFloorAndNothingForNoKey) {
    FloorPlanModel model;
    model.floors.push_back(PlanFloorBuilder(u"-1"_s).Finish());
    model.floors.push_back(TwoByTwo());
    const auto place = FindPlace(model, u"k10A"_s);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->floor, 1);
    EXPECT_EQ(model.floors[1].intersections[place->intersection].positionKey, u"k10A"_s);
    EXPECT_FALSE(FindPlace(model, u"other"_s));
    model.floors[1].intersections[0].positionKey.clear();
    EXPECT_FALSE(FindPlace(model, QString()));
    EXPECT_EQ(FindFloor(model, u"1"_s), 1);
    EXPECT_EQ(FindFloor(model, u"9"_s), -1);
}

TEST(FloorPlanModel, FloorsOfTheSameNameAreToldApartByTheirProject) {
    FloorPlanModel model;
    for (const qint32 ppid : {4, 9}) {
        model.floors.push_back(TwoByTwo());
        model.floors.back().ppid = ppid;
        model.floors.back().project = u"工程%1"_s.arg(ppid);
    }
    model.floors.push_back(PlanFloor());
    model.floors.back().unplaced = {3, 2};
    EXPECT_EQ(FindFloor(model, u"1"_s, 9), 1);
    EXPECT_EQ(FindFloor(model, u"1"_s, 5), -1);
    EXPECT_EQ(FindFloor(model, u"1"_s), 0);
    EXPECT_EQ(FindFloor(model, QString(), 9), 2);
    EXPECT_EQ(PlanFloorCaption(model.floors[1]), u"工程9 1层"_s);
    EXPECT_EQ(PlanFloorCaption(model.floors[2]), u"其他"_s);
    EXPECT_EQ(CountPhotos(model.floors[2]), (PhotoCount{3, 2}));
}

TEST(FindIntersection, ReadsAPlaceThatWasWrittenDown) {
    const PlanFloor floor = TwoByTwo(); // 0: 2/A, 1: 2/B, 2: 10/A, 3: 10/B
    EXPECT_EQ(FindIntersection(floor, u"2-B轴"_s), 1);
    EXPECT_EQ(FindIntersection(floor, u"10/A"_s), 2);
    EXPECT_EQ(FindIntersection(floor, u"10轴 / B轴"_s), 3);
    for (const QString& text : {u""_s, u"2"_s, u"-B"_s, u"2-"_s, u"3/A"_s, u"1/9/A"_s}) {
        EXPECT_EQ(FindIntersection(floor, text), -1) << qPrintable(text);
    }
}

TEST(NeighbourOf, StepsAlongTheAxesAndStopsAtTheEdge) {
    const PlanFloor floor = TwoByTwo(); // 0: 2/A, 1: 2/B, 2: 10/A, 3: 10/B
    EXPECT_EQ(NeighbourOf(floor, 0, 1, 0), 2);
    EXPECT_EQ(NeighbourOf(floor, 0, 0, 1), 1);
    EXPECT_EQ(NeighbourOf(floor, 0, -1, 0), 0);
    EXPECT_EQ(NeighbourOf(floor, 3, 0, -1), 2);
}

TEST(NeighbourOf, BeginsWithTheFirstPlaceAndKnowsAFloorWithoutAny) {
    EXPECT_EQ(NeighbourOf(TwoByTwo(), -1, 1, 0), 0);
    EXPECT_EQ(NeighbourOf(PlanFloor(), -1, 1, 0), -1);
}

TEST(PlaceCaption, NamesBothAxes) {
    const PlanFloor floor = TwoByTwo();
    EXPECT_EQ(PlaceCaption(floor, floor.intersections[3]), u"10轴 / B轴"_s);
    PlanFloorBuilder named(u"1"_s);
    named.Add(u"3轴"_s, u"C"_s, u"k"_s, {0, 0});
    const PlanFloor suffixed = named.Finish();
    EXPECT_EQ(PlaceCaption(suffixed, suffixed.intersections[0]), u"3轴 / C轴"_s);
}

} // namespace
} // namespace host
