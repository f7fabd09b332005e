#include "site/IBulkFiling.h"
#include "tests/site/SetupSite.h"

#include <gmock/gmock.h>

namespace site {
namespace {

using sitetest::kSetupTime;
using sitetest::SetupSite;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace Qt::StringLiterals;

const Signature kWang{u"wang"_s, kSetupTime + 500};

struct BulkSite : SetupSite {
    [[nodiscard]] BulkOutcome File(const std::vector<qint32>& ids, const BulkWish& wish) {
        return engine.BulkFiling().FileBimPhotos({ppid, other}, ids, wish, kWang);
    }
    [[nodiscard]] BulkOutcome Back(const BulkOutcome& outcome) {
        return engine.BulkFiling().TakeBack(outcome.changed, {u"li"_s, kSetupTime + 600});
    }
    [[nodiscard]] qint64 Hits(const QString& keyword) {
        ListFilter filter;
        filter.ppids = {ppid};
        filter.keyword = keyword;
        return engine.BimPhotos().PageOf(filter, {{}, 1, 9}).total;
    }
};

TEST(BulkFiling, PhotosGetPlaceMarkLabelsAndStatusWithTheSignature) {
    BulkSite site;
    BulkWish wish;
    wish.positionKey = site.keys[u"21A"_s];
    wish.markId = 2;
    wish.status = 1;
    wish.labelIds = {site.crack};
    const BulkOutcome outcome = site.File({site.photo, site.loose}, wish);
    EXPECT_EQ(outcome.changed.size(), 2U);
    EXPECT_THAT(outcome.skipped, IsEmpty());
    const auto row = site.Row(site.loose);
    EXPECT_EQ(row.floor, u"2"_s);
    EXPECT_EQ(row.posText, u"1/A"_s);
    EXPECT_EQ(row.positionKey, site.keys[u"21A"_s]);
    EXPECT_EQ(row.markId, 2);
    EXPECT_EQ(row.status, 1);
    EXPECT_EQ(row.updaterName, u"wang"_s);
    EXPECT_EQ(row.updateStamp, kWang.at);
    EXPECT_THAT(row.labelNames, ElementsAre(u"裂缝"_s));
    // Added to those that were there.
    EXPECT_THAT(site.Row(site.photo).labelNames, ElementsAre(u"墙面"_s, u"裂缝"_s));
    EXPECT_EQ(site.Hits(u"wang"_s), 2);
}

TEST(BulkFiling, WhatIsNotWishedStays) {
    BulkSite site;
    BulkWish wish;
    wish.markId = 2;
    (void)site.File({site.photo}, wish);
    const auto row = site.Row(site.photo);
    EXPECT_EQ(row.floor, u"1"_s);
    EXPECT_EQ(row.status, 0);
    EXPECT_THAT(row.labelNames, ElementsAre(u"墙面"_s));
}

TEST(BulkFiling, LabelsAreReplacedOrTakenAway) {
    BulkSite site;
    BulkWish wish;
    wish.replaceLabels = true;
    wish.labelIds = {site.crack};
    (void)site.File({site.photo}, wish);
    EXPECT_THAT(site.Row(site.photo).labelNames, ElementsAre(u"裂缝"_s));
    wish.labelIds = {};
    (void)site.File({site.photo}, wish);
    EXPECT_THAT(site.Row(site.photo).labelNames, IsEmpty());
}

TEST(BulkFiling, PlaceAndMarkCanBeTakenAway) {
    BulkSite site;
    BulkWish wish;
    wish.positionKey = u""_s;
    wish.markId = 0;
    (void)site.File({site.photo}, wish);
    EXPECT_EQ(site.Row(site.photo).floor, QString());
    EXPECT_EQ(site.Row(site.photo).markId, 0);
}

TEST(BulkFiling, WhoeverIsAsWishedIsNotSigned) {
    BulkSite site;
    BulkWish wish;
    wish.markId = 1;
    const BulkOutcome outcome = site.File({site.photo}, wish);
    EXPECT_EQ(outcome.unchanged, 1);
    EXPECT_THAT(outcome.changed, IsEmpty());
    EXPECT_EQ(site.Row(site.photo).updaterName, QString());
}

TEST(BulkFiling, PhotosOfAnotherProjectAndThoseThatAreGoneAreSkippedAndNamed) {
    BulkSite site;
    (void)site.engine.Bin().DeleteBimPhotos({site.ppid}, {site.loose}, kWang);
    BulkWish wish;
    wish.positionKey = site.keys[u"21A"_s];
    const BulkOutcome outcome = site.File({site.foreign, site.loose, site.photo}, wish);
    ASSERT_EQ(outcome.skipped.size(), 2U);
    EXPECT_EQ(outcome.skipped[0].name, u"照片3.jpg"_s);
    EXPECT_TRUE(outcome.skipped[0].why.contains(u"另一个工程"_s));
    EXPECT_EQ(outcome.skipped[1].why, u"已被删除"_s);
    EXPECT_EQ(outcome.changed.size(), 1U);
    // Nor what isn't open.
    wish.positionKey.reset();
    wish.markId = 1;
    EXPECT_EQ(site.engine.BulkFiling()
                  .FileBimPhotos({site.ppid}, {site.foreign}, wish, kWang)
                  .skipped.size(),
              1U);
    EXPECT_EQ(site.Row(site.foreign).markId, 2);
}

TEST(BulkFiling, UnknownPlacesMarksAndLabelsChangeNothing) {
    BulkSite site;
    BulkWish place;
    place.positionKey = u"gone"_s;
    place.status = 1;
    BulkWish mark;
    mark.markId = 99;
    mark.status = 1;
    BulkWish label;
    label.labelIds = {99};
    label.status = 1;
    for (const BulkWish& wish : {place, mark, label}) {
        EXPECT_THROW((void)site.File({site.photo}, wish), DataError);
        EXPECT_EQ(site.Row(site.photo).status, 0);
    }
}

TEST(BulkFiling, ItIsTakenBackWithUpdaterTimeAndLabels) {
    BulkSite site;
    const auto before = site.Row(site.photo);
    BulkWish wish;
    wish.positionKey = site.keys[u"21A"_s];
    wish.markId = 2;
    wish.status = 1;
    wish.replaceLabels = true;
    wish.labelIds = {site.crack};
    const BulkOutcome outcome = site.File({site.photo}, wish);
    const BulkOutcome back = site.Back(outcome);
    EXPECT_EQ(back.changed.size(), 1U);
    const auto row = site.Row(site.photo);
    EXPECT_EQ(row.floor, u"1"_s);
    EXPECT_EQ(row.posText, before.posText);
    EXPECT_EQ(row.positionKey, before.positionKey);
    EXPECT_EQ(row.markId, 1);
    EXPECT_EQ(row.status, 0);
    EXPECT_EQ(row.updaterName, before.updaterName);
    EXPECT_EQ(row.updateStamp, before.updateStamp);
    EXPECT_EQ(row.updateTime, before.updateTime);
    EXPECT_THAT(row.labelNames, ElementsAre(u"墙面"_s));
    EXPECT_EQ(site.Hits(u"wang"_s), 0);
    // And that is taken back again.
    EXPECT_EQ(site.Back(back).changed.size(), 1U);
    EXPECT_EQ(site.Row(site.photo).markId, 2);
}

TEST(BulkFiling, WhatSomebodyChangedSinceIsNotTakenBack) {
    BulkSite site;
    BulkWish wish;
    wish.markId = 2;
    const BulkOutcome outcome = site.File({site.photo, site.loose}, wish);
    (void)site.engine.BimPhotos().SetStatus(site.ppid, {site.photo}, 1);
    (void)site.engine.Bin().DeleteBimPhotos({site.ppid}, {site.loose}, kWang);
    const BulkOutcome back = site.Back(outcome);
    ASSERT_EQ(back.skipped.size(), 2U);
    EXPECT_EQ(back.skipped[0].why, u"之后又被修改过"_s);
    EXPECT_EQ(back.skipped[1].why, u"已被删除"_s);
    EXPECT_EQ(back.skipped[1].name, u"照片2.jpg"_s);
    EXPECT_EQ(site.Row(site.photo).markId, 2);
}

TEST(BulkFiling, ALabelThatWasRemovedSinceIsLeftOutWhenTakenBack) {
    BulkSite site;
    BulkWish wish;
    wish.replaceLabels = true;
    const BulkOutcome outcome = site.File({site.photo}, wish);
    site.Do([](SetupState& s) { s.labels.erase(s.labels.begin()); });
    EXPECT_EQ(site.Back(outcome).changed.size(), 1U);
    EXPECT_THAT(site.Row(site.photo).labelNames, IsEmpty());
}

TEST(BulkFiling, APlaceThatWasRenamedSinceIsTakenBackUnderItsNewName) {
    BulkSite site;
    BulkWish wish;
    wish.positionKey = u""_s;
    const BulkOutcome outcome = site.File({site.photo}, wish);
    site.Do([&](SetupState& s) {
        s.grids[0].floors[0].name = u"一层"_s;
        for (SetupCrossing& crossing : s.grids[0].crossings) {
            if (crossing.positionKey == site.keys[u"11A"_s]) {
                crossing = {crossing.positionKey, u"一层"_s, u"1a"_s, u"A"_s, true};
            } else if (crossing.floor == u"1"_s) {
                crossing.floor = u"一层"_s;
            }
        }
    });
    EXPECT_EQ(site.Back(outcome).changed.size(), 1U);
    const auto row = site.Row(site.photo);
    EXPECT_EQ(row.floor, u"一层"_s);
    EXPECT_EQ(row.posText, u"1a/A"_s);
    EXPECT_EQ(row.positionKey, site.keys[u"11A"_s]);
    ListFilter filter;
    filter.ppids = {site.ppid};
    filter.floor = u"一层"_s;
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.photo));
}

TEST(BulkFiling, IssuesGetMarkAndStatusAsLinesOfTheirHistory) {
    BulkSite site;
    BulkWish wish;
    wish.markId = 1;
    wish.status = 1;
    const BulkOutcome outcome =
        site.engine.BulkFiling().FileIssues({site.ppid}, {site.questionId, u"none"_s}, wish, kWang);
    ASSERT_EQ(outcome.changed.size(), 1U);
    EXPECT_EQ(outcome.changed[0].name, u"渗水"_s);
    ASSERT_EQ(outcome.skipped.size(), 1U);
    EXPECT_EQ(outcome.skipped[0].name, u"none"_s);
    KX_DATA::QuestionDetail detail;
    ASSERT_TRUE(site.engine.Issues().Detail(site.ppid, site.questionId, detail));
    EXPECT_EQ(detail.markId, 1);
    EXPECT_EQ(detail.status, 1);
    EXPECT_EQ(detail.updaterName, u"wang"_s);
    EXPECT_EQ(site.engine.Issues().History(site.ppid, site.questionId).size(), 3U);
    (void)site.Back(outcome);
    ASSERT_TRUE(site.engine.Issues().Detail(site.ppid, site.questionId, detail));
    EXPECT_EQ(detail.markId, 2);
    EXPECT_EQ(detail.status, 0);
    EXPECT_EQ(site.engine.Issues().History(site.ppid, site.questionId).size(), 5U);
    // An issue always has a mark.
    wish = {};
    wish.markId = 0;
    EXPECT_EQ(
        site.engine.BulkFiling().FileIssues({site.ppid}, {site.questionId}, wish, kWang).unchanged,
        1);
}

TEST(BulkFiling, DrawingPhotosGetTheirStatusAlone) {
    BulkSite site;
    SiteWriter writer(site.folder);
    NewCheckpoint point;
    point.drawingId = writer.AddDrawing(site.ppid, u"图"_s);
    point.number = 1;
    point.markId = 1;
    NewPdfPhoto photo;
    photo.checkpointId = writer.AddCheckpoint(site.ppid, point);
    photo.fileName = u"a.jpg"_s;
    photo.uploader = u"li"_s;
    photo.uploadTime = kSetupTime;
    const qint32 id = writer.FilePdfPhoto(site.ppid, photo, {{}, "picture"});
    BulkWish wish;
    wish.status = 1;
    wish.markId = 2;
    const BulkOutcome outcome =
        site.engine.BulkFiling().FilePdfPhotos({site.ppid}, {id}, wish, kWang);
    EXPECT_EQ(outcome.changed.size(), 1U);
    ListFilter filter;
    filter.ppids = {site.ppid};
    const auto rows = site.engine.PdfPhotos().PageOf(filter, {{}, 1, 9}).rows;
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].status, 1);
    EXPECT_EQ(rows[0].markId, 1);
    EXPECT_EQ(site.Back(outcome).changed.size(), 1U);
}

TEST(BulkFiling, AFailureOnTheWayChangesNothing) {
    BulkSite site;
    site.folder.Db().Exec(u"CREATE TRIGGER stop BEFORE UPDATE ON bim_photo WHEN old.id = %1 BEGIN"
                          " SELECT RAISE(ABORT, 'full'); END"_s.arg(site.loose));
    BulkWish wish;
    wish.markId = 2;
    EXPECT_THROW((void)site.File({site.photo, site.loose}, wish), DataError);
    EXPECT_EQ(site.Row(site.photo).markId, 1);
}

TEST(InboxList, HasWhatHasNoFloorOrNoMarkAndFollowsTheMarks) {
    BulkSite site;
    SiteWriter writer(site.folder);
    const qint32 unmarked = site.SetupSite::File(writer, site.ppid, site.keys[u"21A"_s], 0, {});
    const qint32 unknown = site.SetupSite::File(writer, site.ppid, site.keys[u"21A"_s], 7, {});
    ListFilter filter;
    filter.ppids = {site.ppid};
    filter.unfiled = true;
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.loose, unmarked, unknown));
    writer.AddMark(7, u"新"_s, 0);
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.loose, unmarked));
    BulkWish wish;
    wish.markId = 1;
    (void)site.File({unmarked}, wish);
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.loose));
    filter.keyword = u"照片2"_s;
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.loose));
    filter.keyword = u"照片1"_s;
    EXPECT_THAT(site.Listed(filter), IsEmpty());
}

TEST(FloorList, HasThePhotosOfAFloorAndTheOthersOfNone) {
    BulkSite site;
    ListFilter filter;
    filter.ppids = {site.ppid, site.other};
    filter.floor = u"1"_s;
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.photo));
    filter.markId = 2;
    EXPECT_THAT(site.Listed(filter), IsEmpty());
    filter.markId.reset();
    filter.floor = u""_s;
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.loose, site.foreign));
}

TEST(FiledList, HasWhatOnePersonFiledInOneGo) {
    BulkSite site;
    ListFilter filter;
    filter.ppids = {site.ppid, site.other};
    filter.filed = FiledRun{site.photo, site.loose, u"li"_s};
    EXPECT_THAT(site.Listed(filter), ElementsAre(site.photo, site.loose));
    filter.filed->person = u"wang"_s;
    EXPECT_THAT(site.Listed(filter), IsEmpty());
}

} // namespace
} // namespace site
