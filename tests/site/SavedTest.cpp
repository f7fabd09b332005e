#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kFiled = 1'700'000'000;
constexpr qint64 kLater = kFiled + 60;

/// A photo, a checkpoint with a photo, and an issue in the first of two projects.
struct FiledSite : TempSite {
    FiledSite() {
        SiteWriter writer(folder);
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s);
        writer.AddUser(u"li"_s, {});
        NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"a.jpg"_s;
        photo.uploader = u"li"_s;
        photo.uploadTime = kFiled;
        picId = writer.FilePhoto(photo, {{}, "jpeg"});
        NewCheckpoint point;
        point.drawingId = writer.AddDrawing(ppid, u"首层"_s);
        point.number = 1;
        point.updateTime = kFiled;
        checkpointId = writer.AddCheckpoint(point);
        NewPdfPhoto onPoint;
        onPoint.checkpointId = checkpointId;
        onPoint.fileName = u"b.jpg"_s;
        onPoint.uploader = u"li"_s;
        onPoint.uploadTime = kFiled;
        pdfPicId = writer.FilePdfPhoto(onPoint, {{}, "jpeg"});
        NewIssue issue;
        issue.ppid = ppid;
        issue.theme = u"裂缝"_s;
        issue.creator = u"li"_s;
        issue.createTime = kFiled;
        questionId = writer.FileIssue(issue);
    }
    [[nodiscard]] KX_DATA::BimPicUpdate Named(const QString& name) const {
        KX_DATA::BimPicUpdate update;
        update.picId = picId;
        update.fileName = name;
        return update;
    }
    [[nodiscard]] QString NameOfPhoto() {
        KX_DATA::BimPicDetail detail;
        EXPECT_TRUE(engine.BimPhotos().Detail(ppid, picId, detail));
        return detail.fileName;
    }

    SqliteSite engine{folder};
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 picId = 0;
    qint32 checkpointId = 0;
    qint32 pdfPicId = 0;
    QString questionId;
};

TEST(Saved, APhotoIsSavedOverWhatWasSeenAndNotOverWhatSomebodySavedMeanwhile) {
    FiledSite site;
    IBimPhotos& photos = site.engine.BimPhotos();
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"1.jpg"_s), {u"li"_s, kLater}, kFiled),
              Saved::Yes);
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"2.jpg"_s), {u"li"_s, kLater + 1}, kFiled),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(site.NameOfPhoto(), u"1.jpg"_s);
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"2.jpg"_s), {u"li"_s, kLater + 1}), Saved::Yes)
        << "whoever doesn't say what they saw overwrites";
    EXPECT_EQ(photos.Update(site.other, site.Named(u"3.jpg"_s), {u"li"_s, kLater + 2}),
              Saved::Gone);
    EXPECT_EQ(site.NameOfPhoto(), u"2.jpg"_s);
}

TEST(Saved, ADrawingPhotoToo) {
    FiledSite site;
    IPdfPhotos& photos = site.engine.PdfPhotos();
    KX_DATA::PdfPicUpdate update;
    update.picId = site.pdfPicId;
    update.fileName = u"1.jpg"_s;
    EXPECT_EQ(photos.Update(site.ppid, update, {u"li"_s, kLater}, kFiled), Saved::Yes);
    update.fileName = u"2.jpg"_s;
    EXPECT_EQ(photos.Update(site.ppid, update, {u"li"_s, kLater + 1}, kFiled),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(photos.Update(site.other, update, {u"li"_s, kLater + 1}, kLater), Saved::Gone);
    KX_DATA::CheckpointPicDetail detail;
    ASSERT_TRUE(photos.PicDetail(site.ppid, site.pdfPicId, detail));
    EXPECT_EQ(detail.name, u"1.jpg"_s);
}

TEST(Saved, ACheckpointToo) {
    FiledSite site;
    IPdfPhotos& photos = site.engine.PdfPhotos();
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = site.checkpointId;
    edit.remark = u"一"_s;
    EXPECT_EQ(photos.UpdateCheckpoint({site.ppid}, edit, {u"li"_s, kLater}, kFiled), Saved::Yes);
    edit.remark = u"二"_s;
    EXPECT_EQ(photos.UpdateCheckpoint({site.ppid}, edit, {u"li"_s, kLater + 1}, kFiled),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(photos.UpdateCheckpoint({site.other}, edit, {u"li"_s, kLater + 1}, kLater),
              Saved::Gone);
    KX_DATA::DrawingRecord record;
    ASSERT_TRUE(photos.Checkpoint({site.other, site.ppid}, site.checkpointId, record));
    EXPECT_EQ(record.remark, u"一"_s);
}

TEST(Projects, WhatBelongsToNoneOfThemIsUnknown) {
    FiledSite site;
    const std::vector<qint32> pics = {site.picId, site.pdfPicId};
    EXPECT_EQ(site.engine.BimPhotos().Files({site.ppid}, pics).size(), 2U);
    EXPECT_TRUE(site.engine.BimPhotos().Files({site.other}, pics).empty());
    EXPECT_EQ(site.engine.BimPhotos().Rows({site.ppid}, {site.picId}).size(), 1U);
    EXPECT_TRUE(site.engine.BimPhotos().Rows({site.other}, {site.picId}).empty());
    KX_DATA::DrawingRecord point;
    EXPECT_FALSE(site.engine.PdfPhotos().Checkpoint({site.other}, site.checkpointId, point));
    KX_DATA::RectifyRecord remedy;
    EXPECT_TRUE(site.engine.Issues().Rectification({site.ppid}, site.questionId, remedy));
    EXPECT_FALSE(site.engine.Issues().Rectification({site.other}, site.questionId, remedy));
    const Signature by{u"li"_s, kLater};
    EXPECT_EQ(site.engine.Bin().DeleteBimPhotos({site.other}, {site.picId}, by), 0);
    EXPECT_EQ(site.engine.Bin().DeleteIssues({site.other}, {site.questionId}, by), 0);
    EXPECT_EQ(site.engine.Bin().DeleteIssues({}, {site.questionId}, by), 0);
    EXPECT_TRUE(site.engine.Bin().List().empty());
}

} // namespace

TEST(Filed, RowAndDetailOfAPhotoSayWhatAndWhereAndByWhom) {
    TempSite site;
    SiteWriter writer(site.folder);
    NewBimPhoto photo;
    photo.ppid = writer.AddProject(u"滨江花园"_s);
    writer.AddPosition({photo.ppid, u"2"_s, u"A"_s, u"1"_s, u"two"_s, true});
    photo.fileName = u"a.jpg"_s;
    photo.description = u"空鼓"_s;
    photo.positionKey = u"two"_s;
    photo.uploader = u"wang"_s;
    photo.uploadTime = kFiled;
    const qint32 picId = writer.FilePhoto(photo, {{}, "jpeg"});
    SqliteSite engine(site.folder);
    const auto rows = engine.BimPhotos().Rows({photo.ppid}, {picId});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].description, u"空鼓"_s);
    EXPECT_EQ(rows[0].axisX, u"A"_s);
    EXPECT_EQ(rows[0].axisY, u"1"_s);
    EXPECT_EQ(rows[0].floor, u"2"_s);
    EXPECT_EQ(rows[0].posValid, 1);
    KX_DATA::BimPicDetail detail;
    ASSERT_TRUE(engine.BimPhotos().Detail(photo.ppid, picId, detail));
    EXPECT_EQ(detail.uploaderName, u"wang"_s);
    EXPECT_EQ(detail.uploadTime, kFiled);
}

} // namespace site
