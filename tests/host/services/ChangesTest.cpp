#include "services/Factories.h"
#include "site/sqlite/Bin.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

TEST(BimChanges, HidingKeepsToTheProjectAndChangesNeitherPeopleNorTimes) {
    ServiceSite site;
    const qint32 id = site.AddPhoto([](site::NewBimPhoto&) {});
    EXPECT_FALSE(GetVeskPicMng()->SetBimPicsShown(site.second, {id}, true));
    EXPECT_EQ(site.Photos(site.Filter())[0].status, 0);
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.first, {id}, true));
    const auto row = site.Photos(site.Filter())[0];
    EXPECT_EQ(row.status, 1);
    EXPECT_EQ(row.updaterName, QString());
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.first, {id}, false));
    EXPECT_EQ(site.Photos(site.Filter())[0].status, 0);
}

TEST(BimChanges, DeletedPhotosAreInTheBinWithWhoDeletedThem) {
    ServiceSite site;
    const qint32 id = site.AddPhoto([&](site::NewBimPhoto& photo) { photo.ppid = site.second; });
    EXPECT_FALSE(GetVeskPicMng()->DeleteBimPics({id})) << "of a project that isn't open";
    ASSERT_TRUE(site.session.OpenProject(site.second));
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({id}));
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.projectIds = {site.second};
    EXPECT_TRUE(site.PhotoIds(filter).empty());
    site::Bin bin(support::FolderOf(site.session).Db(), support::FolderOf(site.session).Store());
    ASSERT_EQ(bin.List().size(), 1u);
    EXPECT_EQ(bin.List()[0].deletedBy, u"li"_s);
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({}));
}

TEST(BimChanges, AnEditedPhotoHasItsNewPlaceMarkLabelsAndUpdater) {
    ServiceSite site;
    site.writer->AddPosition({site.first, u"5"_s, u"B"_s, u"2"_s, u"key-5"_s, true});
    const qint32 label = site.writer->AddLabel(u"进度"_s);
    const qint32 id = site.AddPhoto([](site::NewBimPhoto&) {});
    KX_DATA::BimPicUpdate update;
    update.picId = id;
    update.fileName = u"b.jpg"_s;
    update.positionKey = u"key-5"_s;
    update.markId = 2;
    update.labelIds = {QString::number(label)};
    EXPECT_TRUE(GetVeskPicMng()->UpdateBimPic(site.first, update));
    const auto row = site.Photos(site.Filter())[0];
    EXPECT_EQ(row.floor, u"5"_s);
    EXPECT_EQ(row.posText, u"B/2"_s);
    EXPECT_EQ(row.posValid, 1);
    EXPECT_EQ(row.markId, 2);
    EXPECT_EQ(row.labelNames, (std::vector<QString>{u"进度"_s}));
    EXPECT_EQ(row.updaterName, u"li"_s);
    EXPECT_GT(row.updateStamp, row.uploadStamp);
    update.picId = 4711;
    EXPECT_FALSE(GetVeskPicMng()->UpdateBimPic(site.first, update));
    update.picId = id;
    EXPECT_FALSE(GetVeskPicMng()->UpdateBimPic(site.second, update));
}

TEST(BimChanges, AnEditThatKeepsThePlaceKeepsOneThatTheModelLost) {
    ServiceSite site;
    site.writer->AddPosition({site.first, u"5"_s, u"B"_s, u"2"_s, u"key-5"_s, false});
    const qint32 id =
        site.AddPhoto([](site::NewBimPhoto& photo) { photo.positionKey = u"key-5"_s; });
    KX_DATA::BimPicUpdate update;
    update.picId = id;
    update.fileName = u"a.jpg"_s;
    update.positionKey = u"key-5"_s;
    EXPECT_TRUE(GetVeskPicMng()->UpdateBimPic(site.first, update));
    EXPECT_EQ(site.Photos(site.Filter())[0].floor, u"5"_s);
    update.positionKey.clear();
    EXPECT_TRUE(GetVeskPicMng()->UpdateBimPic(site.first, update));
    EXPECT_EQ(site.Photos(site.Filter())[0].floor, QString());
}

TEST(BimDetail, FailsForAHiddenPhotoAsForAnUnknownOne) {
    ServiceSite site;
    const qint32 label = site.writer->AddLabel(u"质量"_s);
    const qint32 id = site.AddPhoto([&](site::NewBimPhoto& photo) { photo.labelIds = {label}; });
    KX_DATA::BimPicDetail detail;
    EXPECT_EQ(GetVeskPicMng()->GetBimPicDetail(site.first, id, detail), KX_DATA::kServiceOk);
    EXPECT_EQ(detail.markName, u"质量"_s);
    EXPECT_EQ(detail.markColor, 0x0000ff);
    EXPECT_EQ(detail.updateTime, detail.uploadTime);
    EXPECT_EQ(detail.labels.size(), 1u);
    EXPECT_NE(GetVeskPicMng()->GetBimPicDetail(site.second, id, detail), KX_DATA::kServiceOk);
    GetVeskPicMng()->SetBimPicsShown(site.first, {id}, true);
    EXPECT_NE(GetVeskPicMng()->GetBimPicDetail(site.first, id, detail), KX_DATA::kServiceOk);
    EXPECT_NE(GetVeskPicMng()->GetBimPicDetail(site.first, 4711, detail), KX_DATA::kServiceOk);
}

TEST(BimDetail, AMarkThatTheTableLacksHasNoNameAndTheColourOfTheGround) {
    ServiceSite site;
    const qint32 id = site.AddPhoto([](site::NewBimPhoto& photo) { photo.markId = 99; });
    KX_DATA::BimPicDetail detail;
    ASSERT_EQ(GetVeskPicMng()->GetBimPicDetail(site.first, id, detail), KX_DATA::kServiceOk);
    EXPECT_EQ(detail.markId, 99);
    EXPECT_EQ(detail.markName, QString());
    EXPECT_EQ(detail.markColor, 0xFAFAFA);
}

TEST(BimFiles, OfAnIntersectionAreThoseOfItsShownPhotosWithTheMark) {
    ServiceSite site;
    site.writer->AddPosition({site.first, u"5"_s, u"B"_s, u"2"_s, u"key-5"_s, true});
    const auto at = [](site::NewBimPhoto& photo) { photo.positionKey = u"key-5"_s; };
    const qint32 shown = site.AddPhoto(at);
    site.AddPhoto([&](site::NewBimPhoto& photo) {
        at(photo);
        photo.status = 1;
    });
    site.AddPhoto([&](site::NewBimPhoto& photo) {
        at(photo);
        photo.markId = 2;
    });
    std::vector<KX_DATA::PicFileEntry> files;
    EXPECT_EQ(GetVeskPicMng()->GetPicFilesByPosition(site.first, u"key-5"_s, 1, files),
              KX_DATA::kServiceOk);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].picId, shown);
    EXPECT_EQ(GetVeskPicMng()->GetPicFiles({}, files), KX_DATA::kServiceOk);
    EXPECT_TRUE(files.empty());
}

TEST(BimAxes, FloorsSortAsNumbersAndAxesAreThoseOfValidPositions) {
    ServiceSite site;
    for (const QString& floor : {u"10"_s, u"2"_s, u"-1"_s, u"屋面"_s}) {
        site.writer->AddFloor(site.first, floor);
    }
    site.writer->AddPosition({site.first, u"2"_s, u"10"_s, u"A"_s, u"p1"_s, true});
    site.writer->AddPosition({site.first, u"2"_s, u"9"_s, u"A"_s, u"p2"_s, true});
    site.writer->AddPosition({site.first, u"2"_s, u"9"_s, u"B"_s, u"p3"_s, true});
    site.writer->AddPosition({site.first, u"2"_s, u"11"_s, u"A"_s, u"p4"_s, false});
    std::vector<QString> floors;
    EXPECT_EQ(GetVeskPicMng()->GetProjectFloors(site.first, floors), KX_DATA::kServiceOk);
    EXPECT_EQ(floors, (std::vector<QString>{u"-1"_s, u"2"_s, u"10"_s, u"屋面"_s}));
    std::vector<QString> axes;
    EXPECT_EQ(GetVeskPicMng()->GetFloorAxesX(site.first, u"2"_s, axes), KX_DATA::kServiceOk);
    EXPECT_EQ(axes, (std::vector<QString>{u"9"_s, u"10"_s}));
    std::vector<KX_DATA::AxisYEntry> ys;
    EXPECT_EQ(GetVeskPicMng()->GetFloorAxesY(site.first, u"2"_s, u"9"_s, ys), KX_DATA::kServiceOk);
    EXPECT_EQ(ys, (std::vector<KX_DATA::AxisYEntry>{{u"A"_s, u"p2"_s}, {u"B"_s, u"p3"_s}}));
}

TEST(BimLabelsAndMarks, InUseAreThoseOnPhotosAndKnownToTheMarkTable) {
    ServiceSite site;
    const qint32 used = site.writer->AddLabel(u"质量"_s);
    site.writer->AddLabel(u"空闲"_s);
    site.AddPhoto([&](site::NewBimPhoto& photo) {
        photo.labelIds = {used};
        photo.markId = 99; // the console would show nothing at all if it came along
    });
    const qint32 marked = site.AddPhoto([](site::NewBimPhoto& photo) { photo.markId = 2; });
    std::vector<KX_DATA::LabelEntry> labels;
    EXPECT_TRUE(GetVeskPicMng()->GetBimLabels(labels));
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_EQ(labels[0].labelName, u"质量"_s);
    std::vector<qint32> marks;
    EXPECT_TRUE(GetVeskPicMng()->GetUsedBimMarks(marks));
    EXPECT_EQ(marks, (std::vector<qint32>{2}));
    GetVeskPicMng()->DeleteBimPics({marked});
    EXPECT_TRUE(GetVeskPicMng()->GetUsedBimMarks(marks));
    EXPECT_TRUE(marks.empty());
}

} // namespace host
