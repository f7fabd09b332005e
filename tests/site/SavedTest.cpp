#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kFiledAt = 1'700'000'000;
constexpr qint64 kLater = kFiledAt + 60;

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
        photo.uploadTime = kFiledAt;
        picId = writer.FilePhoto(photo, {{}, "jpeg"});
        NewCheckpoint point;
        drawingId = writer.AddDrawing(ppid, u"首层"_s);
        point.drawingId = drawingId;
        point.number = 1;
        point.updateTime = kFiledAt;
        checkpointId = writer.AddCheckpoint(ppid, point);
        NewPdfPhoto onPoint;
        onPoint.checkpointId = checkpointId;
        onPoint.fileName = u"b.jpg"_s;
        onPoint.uploader = u"li"_s;
        onPoint.uploadTime = kFiledAt;
        pdfPicId = writer.FilePdfPhoto(ppid, onPoint, {{}, "jpeg"});
        NewIssue issue;
        issue.ppid = ppid;
        issue.theme = u"裂缝"_s;
        issue.creator = u"li"_s;
        issue.createTime = kFiledAt;
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
    [[nodiscard]] std::optional<Revision> PhotoSeen() {
        KX_DATA::BimPicDetail detail;
        return engine.BimPhotos().Detail(ppid, picId, detail);
    }
    [[nodiscard]] std::optional<Revision> PdfPhotoSeen() {
        KX_DATA::CheckpointPicDetail detail;
        return engine.PdfPhotos().PicDetail(ppid, pdfPicId, detail);
    }
    [[nodiscard]] std::optional<Revision> CheckpointSeen() {
        KX_DATA::DrawingRecord record;
        return engine.PdfPhotos().Checkpoint({ppid}, checkpointId, record);
    }
    [[nodiscard]] KX_DATA::PdfPicUpdate PdfNamed(const QString& name) const {
        KX_DATA::PdfPicUpdate update;
        update.picId = pdfPicId;
        update.fileName = name;
        return update;
    }
    [[nodiscard]] KX_DATA::CheckpointEdit Remarked(const QString& remark) const {
        KX_DATA::CheckpointEdit edit;
        edit.checkpointId = checkpointId;
        edit.remark = remark;
        return edit;
    }

    SqliteSite engine{folder};
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 picId = 0;
    qint32 drawingId = 0;
    qint32 checkpointId = 0;
    qint32 pdfPicId = 0;
    QString questionId;
};

TEST(Saved, APhotoIsSavedOverWhatWasSeenAndNotOverWhatSomebodySavedInTheSameSecond) {
    FiledSite site;
    IBimPhotos& photos = site.engine.BimPhotos();
    const Signature by{u"li"_s, kFiledAt};
    const auto seen = site.PhotoSeen();
    ASSERT_TRUE(seen);
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"1.jpg"_s), by, seen), Saved::Yes);
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"2.jpg"_s), by, seen), Saved::ChangedMeanwhile);
    EXPECT_EQ(site.NameOfPhoto(), u"1.jpg"_s);
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"2.jpg"_s), by), Saved::Yes)
        << "whoever doesn't say what they saw overwrites";
    EXPECT_EQ(photos.Update(site.other, site.Named(u"3.jpg"_s), by, site.PhotoSeen()), Saved::Gone);
    EXPECT_EQ(site.NameOfPhoto(), u"2.jpg"_s);
    EXPECT_EQ(photos.Update(site.ppid, site.Named(u"3.jpg"_s), by, site.PhotoSeen()), Saved::Yes);
}

TEST(Saved, ADrawingPhotoToo) {
    FiledSite site;
    IPdfPhotos& photos = site.engine.PdfPhotos();
    const Signature by{u"li"_s, kFiledAt};
    const auto seen = site.PdfPhotoSeen();
    ASSERT_TRUE(seen);
    KX_DATA::PdfPicDetail place;
    EXPECT_EQ(photos.Detail(site.ppid, site.pdfPicId, place), seen)
        << "both reads are of one photo";
    EXPECT_EQ(photos.Update(site.ppid, site.PdfNamed(u"1.jpg"_s), by, seen), Saved::Yes);
    EXPECT_EQ(photos.Update(site.ppid, site.PdfNamed(u"2.jpg"_s), by, seen),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(photos.Update(site.other, site.PdfNamed(u"2.jpg"_s), by, site.PdfPhotoSeen()),
              Saved::Gone);
    KX_DATA::CheckpointPicDetail detail;
    ASSERT_TRUE(photos.PicDetail(site.ppid, site.pdfPicId, detail));
    EXPECT_EQ(detail.name, u"1.jpg"_s);
}

TEST(Saved, ACheckpointToo) {
    FiledSite site;
    IPdfPhotos& photos = site.engine.PdfPhotos();
    const Signature by{u"li"_s, kFiledAt};
    const auto seen = site.CheckpointSeen();
    ASSERT_TRUE(seen);
    EXPECT_EQ(photos.UpdateCheckpoint({site.ppid}, site.Remarked(u"一"_s), by, seen), Saved::Yes);
    EXPECT_EQ(photos.UpdateCheckpoint({site.ppid}, site.Remarked(u"二"_s), by, seen),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(
        photos.UpdateCheckpoint({site.other}, site.Remarked(u"二"_s), by, site.CheckpointSeen()),
        Saved::Gone);
    KX_DATA::DrawingRecord record;
    ASSERT_TRUE(photos.Checkpoint({site.other, site.ppid}, site.checkpointId, record));
    EXPECT_EQ(record.remark, u"一"_s);
}

TEST(Saved, HidingBetweenReadingAndSavingIsAChange) {
    FiledSite site;
    const Signature by{u"li"_s, kLater};
    const auto seen = site.PhotoSeen();
    const auto pdfSeen = site.PdfPhotoSeen();
    site.engine.BimPhotos().SetStatus(site.ppid, {site.picId}, KX_DATA::kStatusHidden);
    site.engine.PdfPhotos().SetStatus(site.ppid, {site.pdfPicId}, KX_DATA::kStatusHidden);
    EXPECT_EQ(site.engine.BimPhotos().Update(site.ppid, site.Named(u"1.jpg"_s), by, seen),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(site.engine.PdfPhotos().Update(site.ppid, site.PdfNamed(u"1.jpg"_s), by, pdfSeen),
              Saved::ChangedMeanwhile);
    KX_DATA::BimPicDetail detail;
    ASSERT_TRUE(site.engine.BimPhotos().Detail(site.ppid, site.picId, detail));
    EXPECT_EQ(detail.status, KX_DATA::kStatusHidden) << "nobody's hiding was undone";
}

TEST(Saved, AMarkOfTheCheckpointChangesItsPhotosAndItsRemarkDoesNot) {
    FiledSite site;
    IPdfPhotos& photos = site.engine.PdfPhotos();
    const Signature by{u"li"_s, kLater};
    const auto seen = site.PdfPhotoSeen();
    KX_DATA::CheckpointEdit edit = site.Remarked(u"一"_s);
    EXPECT_EQ(photos.UpdateCheckpoint({site.ppid}, edit, by), Saved::Yes);
    EXPECT_EQ(site.PdfPhotoSeen(), seen);
    edit.markId = 3;
    EXPECT_EQ(photos.UpdateCheckpoint({site.ppid}, edit, by), Saved::Yes);
    EXPECT_NE(site.PdfPhotoSeen(), seen);
}

TEST(Saved, WhatAnotherProgramWroteIsAChange) {
    FiledSite site;
    const auto seen = site.PhotoSeen();
    {
        Database other(site.folder.DatabasePath(), 500);
        other.Exec(u"UPDATE bim_photo SET description = '空鼓'"_s);
    }
    EXPECT_EQ(
        site.engine.BimPhotos().Update(site.ppid, site.Named(u"1.jpg"_s), {u"li"_s, kLater}, seen),
        Saved::ChangedMeanwhile);
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

TEST(Projects, NothingIsFiledOnWhatLiesInAnother) {
    FiledSite site;
    const auto writer = site.engine.NewIntake();
    const auto faultOf = [](const auto& filing) {
        try {
            filing();
        } catch (const DataError& error) {
            return error.GetFault();
        }
        return Fault::Other;
    };
    NewCheckpoint point;
    point.drawingId = site.drawingId;
    NewPdfPhoto photo;
    photo.checkpointId = site.checkpointId;
    photo.fileName = u"c.jpg"_s;
    NewIssuePic pic;
    pic.questionId = site.questionId;
    const FileSource file{{}, "bytes"};
    const auto files = [&] {
        return site.folder.Db().Value(u"SELECT count(*) FROM file"_s).toInt();
    };
    const int before = files();
    EXPECT_EQ(faultOf([&] { writer->AddCheckpoint(site.other, point); }), Fault::Missing);
    EXPECT_EQ(faultOf([&] { writer->FilePdfPhoto(site.other, photo, file); }), Fault::Missing);
    EXPECT_EQ(faultOf([&] { writer->SetCheckpointVoice(site.other, site.checkpointId, file); }),
              Fault::Missing);
    EXPECT_EQ(faultOf([&] { writer->FileIssuePic(site.other, pic, file); }), Fault::Missing);
    EXPECT_EQ(files(), before);
    EXPECT_NE(writer->AddCheckpoint(site.ppid, point), 0);
    EXPECT_NE(writer->FilePdfPhoto(site.ppid, photo, file), 0);
    writer->SetCheckpointVoice(site.ppid, site.checkpointId, file);
    EXPECT_FALSE(writer->FileIssuePic(site.ppid, pic, file).isEmpty());
    EXPECT_EQ(files(), before + 3);
}

TEST(Projects, ACheckpointHasAPlaceInItsOwnAlone) {
    FiledSite site;
    ICatalogue& catalogue = site.engine.Catalogue();
    EXPECT_EQ(catalogue.PlaceOfCheckpoint({site.ppid}, site.checkpointId).drawing, u"首层"_s);
    EXPECT_EQ(catalogue.PlaceOfCheckpoint({site.ppid}, site.checkpointId).number, 1);
    EXPECT_EQ(catalogue.PlaceOfCheckpoint({site.other}, site.checkpointId).drawing, QString());
    EXPECT_EQ(catalogue.PlaceOfCheckpoint({}, site.checkpointId).number, 0);
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
    photo.uploadTime = kFiledAt;
    photo.updater = u"zhao"_s;
    photo.updateTime = kLater;
    photo.status = KX_DATA::kStatusHidden;
    const qint32 picId = writer.FilePhoto(photo, {{}, "jpeg"});
    SqliteSite engine(site.folder);
    const auto rows = engine.BimPhotos().Rows({photo.ppid}, {picId});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].description, u"空鼓"_s);
    EXPECT_EQ(rows[0].axisX, u"A"_s);
    EXPECT_EQ(rows[0].axisY, u"1"_s);
    EXPECT_EQ(rows[0].floor, u"2"_s);
    EXPECT_EQ(rows[0].posValid, 1);
    EXPECT_EQ(rows[0].fileName, u"a.jpg"_s);
    EXPECT_EQ(rows[0].status, KX_DATA::kStatusHidden);
    EXPECT_EQ(rows[0].updaterName, u"zhao"_s);
    EXPECT_EQ(rows[0].updateStamp, kLater);
    EXPECT_EQ(rows[0].uploaderName, u"wang"_s);
    EXPECT_EQ(rows[0].uploadStamp, kFiledAt);
    EXPECT_FALSE(rows[0].text8.isEmpty());
    EXPECT_EQ(rows[0].text9, QString());
    KX_DATA::BimPicDetail detail;
    ASSERT_TRUE(engine.BimPhotos().Detail(photo.ppid, picId, detail));
    EXPECT_EQ(detail.uploaderName, u"wang"_s);
    EXPECT_EQ(detail.uploadTime, kFiledAt);
}

TEST(Saved, TheLabelsOfAPhotoAreThoseOfItsLastSave) {
    FiledSite site;
    SiteWriter writer(site.folder);
    const qint32 first = writer.AddLabel(u"渗漏"_s);
    const qint32 second = writer.AddLabel(u"裂缝"_s);
    IBimPhotos& photos = site.engine.BimPhotos();
    KX_DATA::BimPicUpdate update = site.Named(u"1.jpg"_s);
    EXPECT_TRUE(photos.UsedLabels().empty());
    for (const qint32 label : {first, second}) {
        update.labelIds = {QString::number(label)};
        EXPECT_EQ(photos.Update(site.ppid, update, {u"zhao"_s, kLater}), Saved::Yes);
        const auto rows = photos.Rows({site.ppid}, {site.picId});
        ASSERT_EQ(rows.size(), 1U);
        const QString name = label == first ? u"渗漏"_s : u"裂缝"_s;
        EXPECT_EQ(rows[0].labelNames, std::vector<QString>{name});
        EXPECT_EQ(rows[0].updaterName, u"zhao"_s);
        EXPECT_EQ(rows[0].updateStamp, kLater);
        ASSERT_EQ(photos.UsedLabels().size(), 1U);
        EXPECT_EQ(photos.UsedLabels()[0].labelId, QString::number(label));
        EXPECT_EQ(photos.UsedLabels()[0].labelName, name);
    }
}

} // namespace site
