#include "host/app/PlanReader.h"

#include "tests/support/ScriptedHost.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

constexpr qint32 kMark = 1;

site::PanelPlace Place(qint32 ppid, const QString& key, PhotoCount count) {
    return {ppid, key, {}, {{kMark, count.shown, {}, count.hidden}}};
}

FloorPlanModel Read(const std::vector<site::ProjectEntry>& projects,
                    const std::vector<site::PanelFloor>& photos) {
    PlanAxes axes;
    return ReadFloorPlan(projects, photos, axes);
}

TEST(PlanReader, ReadsFloorsAndAxesAndPutsTheCountsWhereTheyBelong) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"-1"_s, u"2"_s};
    scripted.pics.axesX = {u"1"_s};
    scripted.pics.axesY = {{u"A"_s, u"keyA"_s}, {u"B"_s, u"keyB"_s}};
    const FloorPlanModel model =
        Read({{7, u"一期"_s, 1}}, {{{}, {Place(7, {}, {4, 2})}},
                                   {u"-1"_s, {Place(7, u"keyB"_s, {1, 0})}},
                                   {u"2"_s,
                                    {Place(7, u"keyB"_s, {3, 1}), Place(7, u"lost"_s, {2, 5}),
                                     Place(8, u"keyA"_s, {9, 9})}}});
    EXPECT_EQ(model.projectName, u"一期"_s);
    ASSERT_EQ(model.floors.size(), 3U);
    EXPECT_EQ(model.floors[0].ppid, 7);
    EXPECT_TRUE(model.floors[0].project.isEmpty());
    EXPECT_TRUE(model.floors[2].name.isEmpty());
    EXPECT_EQ(CountPhotos(model.floors[2]), (PhotoCount{4, 2}));
    EXPECT_EQ(model.floors[0].name, u"-1"_s);
    ASSERT_EQ(model.floors[1].intersections.size(), 2U);
    EXPECT_EQ(model.floors[1].intersections[0].photos, PhotoCount());
    EXPECT_EQ(model.floors[1].intersections[1].positionKey, u"keyB"_s);
    EXPECT_EQ(model.floors[1].intersections[1].photos, (PhotoCount{3, 1}));
    EXPECT_EQ(model.floors[1].unplaced, (PhotoCount{2, 5}));
    EXPECT_EQ(CountPhotos(model.floors[1]), (PhotoCount{5, 6}));
    EXPECT_EQ(CountPhotos(model.floors[0]), (PhotoCount{1, 0}));
}

TEST(PlanReader, WithoutAProjectAsksNothing) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    EXPECT_TRUE(Read({}, {}).floors.empty());
    EXPECT_EQ(scripted.Log().CountOf("GetProjectFloors"), 0);
}

TEST(PlanReader, AFailingServiceGivesAPlanWithoutFloors) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    scripted.script.FailNext("GetProjectFloors");
    const FloorPlanModel model = Read({{7, u"一期"_s, 1}}, {});
    EXPECT_TRUE(model.floors.empty());
    EXPECT_EQ(model.projectName, u"一期"_s);
}

TEST(PlanReader, SeveralProjectsHaveTheirFloorsBehindEachOtherUnderTheirNames) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    const FloorPlanModel model = Read({{7, u"一期"_s, 1}, {8, u"二期"_s, 1}},
                                      {{{}, {Place(7, {}, {1, 0}), Place(8, {}, {2, 1})}}});
    ASSERT_EQ(model.floors.size(), 3U);
    EXPECT_EQ(model.floors[0].project, u"一期"_s);
    EXPECT_EQ(model.floors[1].project, u"二期"_s);
    EXPECT_EQ(model.floors[1].ppid, 8);
    EXPECT_EQ(model.floors[2].ppid, 0);
    EXPECT_EQ(CountPhotos(model.floors[2]), (PhotoCount{3, 1}));
}

TEST(PlanReader, PhotosOnNoFloorAreShownWhereThereIsNoFloorAtAll) {
    support::ScriptedHost scripted;
    const FloorPlanModel model = Read({{7, u"一期"_s, 1}}, {{{}, {Place(7, {}, {0, 2})}}});
    ASSERT_EQ(model.floors.size(), 1U);
    EXPECT_TRUE(model.floors[0].name.isEmpty());
}

TEST(PlanReader, AFloorThatTheModelHasLostIsListedWithItsPhotosBehindTheOthers) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"3"_s};
    const FloorPlanModel model =
        Read({{7, u"一期"_s, 1}}, {{u"2"_s, {Place(7, u"gone"_s, {2, 0})}}});
    ASSERT_EQ(model.floors.size(), 3U);
    EXPECT_EQ(model.floors[1].name, u"2"_s);
    EXPECT_EQ(model.floors[1].ppid, 7);
    EXPECT_EQ(model.floors[1].unplaced, (PhotoCount{2, 0}));
}

TEST(PlanAxes, AreAskedForOnceAndAgainWhereAServiceFailed) {
    support::ScriptedHost scripted;
    scripted.pics.floors = {u"1"_s};
    scripted.pics.axesX = {u"1"_s, u"2"_s};
    scripted.pics.axesY = {{u"A"_s, u"keyA"_s}};
    PlanAxes axes;
    std::vector<QString> floors{u"old"_s};
    scripted.script.FailNext("GetProjectFloors");
    EXPECT_FALSE(axes.Floors(7, floors));
    EXPECT_TRUE(axes.Floors(7, floors));
    EXPECT_TRUE(axes.Floors(7, floors));
    EXPECT_EQ(floors, std::vector<QString>{u"1"_s});
    EXPECT_EQ(scripted.Log().CountOf("GetProjectFloors"), 2);
    scripted.script.FailNext("GetFloorAxesY");
    EXPECT_EQ(axes.Of(7, u"1"_s).size(), 2U) << "what could be read";
    EXPECT_EQ(axes.Of(7, u"1"_s).size(), 2U);
    EXPECT_EQ(axes.Of(7, u"1"_s).at(1).second.at(0).second, u"keyA"_s);
    EXPECT_EQ(scripted.Log().CountOf("GetFloorAxesX"), 2);
    EXPECT_EQ(scripted.Log().CountOf("GetFloorAxesY"), 4);
    (void)axes.Of(8, u"1"_s);
    EXPECT_EQ(scripted.Log().CountOf("GetFloorAxesX"), 3) << "of another project";
}

} // namespace
} // namespace host
