#include "site/IStatistics.h"
#include "tests/site/SetupSite.h"

#include <gmock/gmock.h>

namespace site {
namespace {

using sitetest::kSetupTime;
using sitetest::SetupSite;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace Qt::StringLiterals;

TEST(Statistics, PhotosAreCountedByMarkStateFloorAndSpan) {
    SetupSite site;
    const SiteStatistics found = site.engine.Statistics().Of(
        ListKind::BimPhotos, {site.ppid, site.other, site.ppid},
        {kSetupTime, kSetupTime + 2, kSetupTime + 3, kSetupTime + 4, kSetupTime + 5});
    EXPECT_THAT(found.marks, ElementsAre(NumberCount{0, 1}, NumberCount{1, 1}, NumberCount{2, 1}));
    EXPECT_THAT(found.states, ElementsAre(NumberCount{0, 3}));
    EXPECT_THAT(found.places, ElementsAre(PlaceCount{{}, 0, 2}, PlaceCount{u"1"_s, 0, 1}));
    EXPECT_THAT(found.weeks, ElementsAre(1, 1, 1, 0));
}

TEST(Statistics, OneProjectsAreNotTheOthers) {
    SetupSite site;
    EXPECT_THAT(site.engine.Statistics().Of(ListKind::BimPhotos, {site.other}, {}).marks,
                ElementsAre(NumberCount{2, 1}));
    const SiteStatistics none = site.engine.Statistics().Of(ListKind::BimPhotos, {}, {1, 2, 3});
    EXPECT_THAT(none.marks, IsEmpty());
    EXPECT_THAT(none.weeks, ElementsAre(0, 0));
}

TEST(Statistics, IssuesStandOnTheirFloors) {
    SetupSite site;
    const SiteStatistics found =
        site.engine.Statistics().Of(ListKind::Issues, {site.ppid}, {kSetupTime, kSetupTime + 1});
    EXPECT_THAT(found.places, ElementsAre(PlaceCount{u"2"_s, 0, 1}));
    EXPECT_THAT(found.weeks, ElementsAre(1));
}

TEST(Statistics, FloorsAreInTheirOrder) {
    SetupSite site;
    SiteWriter writer(site.folder);
    (void)site.File(writer, site.ppid, site.keys[u"21A"_s], 1, {});
    site.Do([](SetupState& s) { std::swap(s.grids[0].floors[0], s.grids[0].floors[1]); });
    const auto places = site.engine.Statistics().Of(ListKind::BimPhotos, {site.ppid}, {}).places;
    ASSERT_EQ(places.size(), 3U);
    EXPECT_EQ(places[1].name, u"2"_s);
    EXPECT_EQ(places[2].name, u"1"_s);
}

TEST(Statistics, DrawingPhotosAreCountedByTheirDrawings) {
    SetupSite site;
    SiteWriter writer(site.folder);
    NewCheckpoint point;
    point.drawingId = writer.AddDrawing(site.ppid, u"图"_s);
    point.number = 1;
    NewPdfPhoto photo;
    photo.checkpointId = writer.AddCheckpoint(site.ppid, point);
    photo.fileName = u"a.jpg"_s;
    photo.uploader = u"li"_s;
    photo.uploadTime = kSetupTime;
    (void)writer.FilePdfPhoto(site.ppid, photo, {{}, "picture"});
    const SiteStatistics found = site.engine.Statistics().Of(ListKind::PdfPhotos, {site.ppid}, {});
    EXPECT_THAT(found.places, ElementsAre(PlaceCount{u"图"_s, point.drawingId, 1}));
    EXPECT_THAT(found.weeks, IsEmpty());
}

} // namespace
} // namespace site
