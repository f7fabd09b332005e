// IVeskPicMng and IPDFDrawingMng: drawing photos and the checkpoints that they lie on.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;

namespace {

/// Two drawings with a checkpoint each; the first point has the label "消防" and a photo.
template <class Base> class OnDrawings : public Base {
protected:
    OnDrawings() {
        label = this->site->AddLabel(u"消防"_s);
        otherLabel = this->site->AddLabel(u"渗漏"_s);
        drawing = this->site->AddDrawing(this->first, u"一层平面图"_s);
        otherDrawing = this->site->AddDrawing(this->first, u"二层平面图"_s);
        point = this->Point(drawing, 7, [&](site::NewCheckpoint& record) {
            record.labelIds = {label.toInt()};
            record.description = u"柱脚"_s;
            record.remark = u"备注"_s;
            record.x = 250;
            record.y = 125;
            record.updateTime = 1700000000;
        });
        otherPoint =
            this->Point(otherDrawing, 12, [](site::NewCheckpoint& record) { record.markId = 2; });
        picId = this->PdfPhoto(point, u"a.jpg"_s);
    }

    QString label;
    QString otherLabel;
    qint32 drawing = 0;
    qint32 otherDrawing = 0;
    qint32 point = 0;
    qint32 otherPoint = 0;
    qint32 picId = 0;
};

KX_DATA::CheckpointEdit EditOf(qint32 point) {
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = point;
    edit.position1 = 11;
    edit.position2 = 22;
    edit.description = u"新描述"_s;
    edit.remark = u"新备注"_s;
    edit.markId = 2;
    return edit;
}

} // namespace

class DrawingPhotos : public OnDrawings<Contract> {};
ON_EVERY_SITE(DrawingPhotos);

TEST_P(DrawingPhotos, ARowTellsThePhotoItsPointAndItsDrawing) {
    PdfPhoto(otherPoint, u"b.jpg"_s, [](site::NewPdfPhoto& photo) {
        photo.description = u"梁底"_s;
        photo.state = 2;
        photo.status = 1;
        photo.updater = u"wang"_s;
        photo.updateTime = 1700000600;
    });
    KX_DATA::PageResult result;
    std::vector<KX_DATA::PdfPicRecord> rows;
    ASSERT_NE(on.pics->QueryPdfPics(PdfFilter(), {1, 30, u"ppid"_s, u"asc"_s}, result, rows), 0);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].picId, picId);
    EXPECT_EQ(rows[0].drawingId, point);
    EXPECT_EQ(rows[0].checkpointId, drawing);
    EXPECT_EQ(rows[0].checkpointNo, 7);
    EXPECT_EQ(rows[0].drawingName, u"一层平面图"_s);
    EXPECT_EQ(rows[0].markId, 1);
    ASSERT_EQ(rows[0].labels.size(), 1U);
    EXPECT_EQ(rows[0].labels[0].labelId, label);
    EXPECT_EQ(rows[0].labels[0].labelName, u"消防"_s);
    EXPECT_EQ(rows[0].updaterName, QString());
    EXPECT_EQ(rows[0].updateTime, QString());
    EXPECT_FALSE(rows[0].text1.isEmpty());
    EXPECT_FALSE(rows[0].text2.isEmpty()) << "the checkpoint's voice note";
    EXPECT_EQ(rows[0].ppid, first);
    EXPECT_EQ(rows[1].description, u"梁底"_s);
    EXPECT_EQ(rows[1].rectifyText, u"已整改"_s);
    EXPECT_EQ(rows[1].status, 1);
    EXPECT_EQ(rows[1].uploaderName, u"zhang"_s);
    EXPECT_EQ(rows[1].uploadTime, u"2023-11-15 06:13"_s);
    EXPECT_EQ(rows[1].updaterName, u"wang"_s);
    EXPECT_EQ(rows[1].updateTime, u"2023-11-15 06:23"_s);
}

TEST_P(DrawingPhotos, PagesCountFromOneAndTellTheTotals) {
    PdfPhoto(point, u"b.jpg"_s);
    const qint32 last = PdfPhoto(otherPoint, u"c.jpg"_s);
    KX_DATA::PageResult result;
    std::vector<KX_DATA::PdfPicRecord> rows;
    ASSERT_NE(on.pics->QueryPdfPics(PdfFilter(), {2, 2, u"ppid"_s, u"asc"_s}, result, rows), 0);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].picId, last);
    EXPECT_EQ(result.totalCount, 3);
    EXPECT_EQ(result.pageCount, 2);
    ASSERT_NE(on.pics->QueryPdfPics(PdfFilter(), {3, 2, u"ppid"_s, u"asc"_s}, result, rows), 0);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(result.totalCount, 3);
}

TEST_P(DrawingPhotos, TheDetailNamesTheDrawingAndAForeignOrUnknownPhotoHasNone) {
    KX_DATA::PdfPicDetail detail;
    ASSERT_EQ(on.pics->GetPdfPicDetail(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.drawingId, drawing);
    detail.drawingId = kUntouched;
    EXPECT_NE(on.pics->GetPdfPicDetail(site->second, picId, detail), kServiceOk);
    EXPECT_NE(on.pics->GetPdfPicDetail(first, kNobody, detail), kServiceOk);
    EXPECT_NE(on.pics->GetPdfPicDetail(first, 0, detail), kServiceOk);
    EXPECT_EQ(detail.drawingId, kUntouched);
}

TEST_P(DrawingPhotos, APhotoOfACheckpointTellsItsNameItsPeopleAndTheirTimes) {
    KX_DATA::CheckpointPicDetail detail;
    ASSERT_EQ(on.pics->GetCheckpointPics(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.name, u"a.jpg"_s);
    EXPECT_EQ(detail.uploader, u"zhang"_s);
    EXPECT_EQ(detail.uploadTime, u"2023-11-15 06:13"_s);
    EXPECT_EQ(detail.updateTime, detail.uploadTime) << "nobody changed it";
    EXPECT_EQ(detail.updater, u"zhang"_s);
    const qint32 changed = PdfPhoto(point, u"b.jpg"_s, [](site::NewPdfPhoto& photo) {
        photo.description = u"梁底"_s;
        photo.updater = u"wang"_s;
        photo.updateTime = 1700000600;
    });
    ASSERT_EQ(on.pics->GetCheckpointPics(first, changed, detail), kServiceOk);
    EXPECT_EQ(detail.description, u"梁底"_s);
    EXPECT_EQ(detail.updater, u"wang"_s);
    EXPECT_EQ(detail.updateTime, u"2023-11-15 06:23"_s);
    detail.name = u"old"_s;
    EXPECT_NE(on.pics->GetCheckpointPics(site->second, picId, detail), kServiceOk);
    EXPECT_NE(on.pics->GetCheckpointPics(first, kNobody, detail), kServiceOk);
    EXPECT_EQ(detail.name, u"old"_s);
}

TEST_P(DrawingPhotos, ASavedPhotoIsWhatIsReadThenAndMovesToAnotherPoint) {
    PdfPhoto(otherPoint, u"b.jpg"_s);
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.pointId = otherPoint;
    update.fileName = u"c.jpg"_s;
    update.description = u"新描述"_s;
    update.status = 1;
    ASSERT_TRUE(on.pics->UpdatePdfPic(first, update));
    const KX_DATA::PdfPicRecord row = PdfRows()[0];
    EXPECT_EQ(row.fileName, u"c.jpg"_s);
    EXPECT_EQ(row.description, u"新描述"_s);
    EXPECT_EQ(row.status, 1);
    EXPECT_EQ(row.updaterName, u"li"_s);
    EXPECT_EQ(row.drawingId, otherPoint);
    EXPECT_EQ(row.checkpointNo, 12);
    EXPECT_EQ(row.drawingName, u"二层平面图"_s);
    EXPECT_EQ(row.markId, 2);
    EXPECT_TRUE(row.labels.empty());
}

TEST_P(DrawingPhotos, AStatusThatIsNoneLeavesThePhotosAsItIs) {
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.fileName = u"c.jpg"_s;
    update.status = KX_DATA::kStatusHidden;
    ASSERT_TRUE(on.pics->UpdatePdfPic(first, update));
    for (const qint32 none : {-1, 2, 12}) {
        update.status = none;
        ASSERT_TRUE(on.pics->UpdatePdfPic(first, update));
        EXPECT_EQ(PdfRows()[0].status, KX_DATA::kStatusHidden) << none;
    }
}

TEST_P(DrawingPhotos, WhatIsUnknownOrForeignIsNotSavedAndNothingChanges) {
    KX_DATA::PdfPicUpdate update;
    update.fileName = u"c.jpg"_s;
    update.picId = kNobody;
    EXPECT_FALSE(on.pics->UpdatePdfPic(first, update));
    update.picId = picId;
    EXPECT_FALSE(on.pics->UpdatePdfPic(site->second, update));
    update.pointId = kNobody;
    EXPECT_FALSE(on.pics->UpdatePdfPic(first, update));
    EXPECT_EQ(PdfRows()[0].fileName, u"a.jpg"_s);
    EXPECT_EQ(PdfRows()[0].drawingId, point);
}

TEST_P(DrawingPhotos, HidingShowingAndDeletingKeepToTheProject) {
    EXPECT_FALSE(on.pics->SetPdfPicsShown(site->second, {picId}, true));
    EXPECT_FALSE(on.pics->SetPdfPicsShown(first, {kNobody}, true));
    EXPECT_EQ(PdfRows()[0].status, 0);
    EXPECT_TRUE(on.pics->SetPdfPicsShown(first, {}, true));
    ASSERT_TRUE(on.pics->SetPdfPicsShown(first, {picId, kNobody}, true));
    EXPECT_EQ(PdfRows()[0].status, 1);
    ASSERT_TRUE(on.pics->SetPdfPicsShown(first, {picId}, false));
    EXPECT_EQ(PdfRows()[0].status, 0);
    EXPECT_FALSE(on.pics->DeletePdfPics(site->second, {picId}));
    EXPECT_FALSE(on.pics->DeletePdfPics(first, {kNobody}));
    EXPECT_TRUE(on.pics->DeletePdfPics(first, {}));
    EXPECT_EQ(PdfRows().size(), 1U);
    ASSERT_TRUE(on.pics->DeletePdfPics(first, {picId}));
    EXPECT_TRUE(PdfRows().empty());
    EXPECT_FALSE(on.pics->DeletePdfPics(first, {picId}));
}

TEST_P(DrawingPhotos, APhotoIsTakenFromTheCheckpointThatItLiesOnOnly) {
    EXPECT_EQ(on.pics->DeleteCheckpointPic(otherPoint, picId), 0);
    EXPECT_EQ(on.pics->DeleteCheckpointPic(point, kNobody), 0);
    EXPECT_EQ(on.pics->DeleteCheckpointPic(drawing + 5000, picId), 0);
    ASSERT_EQ(PdfRows().size(), 1U);
    EXPECT_NE(on.pics->DeleteCheckpointPic(point, picId), 0);
    EXPECT_TRUE(PdfRows().empty());
    EXPECT_EQ(on.pics->DeleteCheckpointPic(point, picId), 0);
}

TEST_P(DrawingPhotos, LabelsAndMarksInUseAreThoseOfCheckpointsWithPhotos) {
    std::vector<KX_DATA::LabelEntry> labels;
    std::vector<qint32> marks;
    ASSERT_TRUE(on.pics->GetPdfLabels(labels));
    ASSERT_EQ(labels.size(), 1U);
    EXPECT_EQ(labels[0].labelId, label);
    ASSERT_TRUE(on.pics->GetUsedPdfMarks(marks));
    EXPECT_THAT(marks, ElementsAre(1));
    PdfPhoto(otherPoint, u"b.jpg"_s);
    ASSERT_TRUE(on.pics->GetUsedPdfMarks(marks));
    EXPECT_THAT(marks, ElementsAre(1, 2));
}

class Checkpoints : public OnDrawings<Contract> {};
ON_EVERY_SITE(Checkpoints);

TEST_P(Checkpoints, ACheckpointTellsItselfItsLabelsAndItsShownPhotos) {
    PdfPhoto(point, u"b.jpg"_s, [](site::NewPdfPhoto& photo) { photo.status = 1; });
    const qint32 third = PdfPhoto(point, u"c.jpg"_s);
    KX_DATA::DrawingRecord record;
    record.pics.resize(9);
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.remark, u"备注"_s);
    EXPECT_EQ(record.checkpointNo, 7);
    EXPECT_EQ(record.description, u"柱脚"_s);
    EXPECT_EQ(record.markName, u"质量"_s);
    EXPECT_EQ(record.markColor, 0x0000ff);
    EXPECT_EQ(record.position, (std::pair<qint64, qint64>(250, 125)));
    EXPECT_EQ(record.updateTime, u"2023-11-15 06:13"_s);
    EXPECT_FALSE(record.audioUuid.isEmpty());
    EXPECT_THAT(record.labels, ElementsAre(std::pair(label, u"消防"_s)));
    ASSERT_EQ(record.pics.size(), 2U);
    EXPECT_EQ(record.pics[0].picId, picId);
    EXPECT_EQ(record.pics[0].uuid, PdfRows()[0].text1);
    EXPECT_EQ(record.pics[1].picId, third);
}

TEST_P(Checkpoints, AnUnknownCheckpointIsAFailureAndLeavesTheRecordAlone) {
    KX_DATA::DrawingRecord record;
    record.checkpointNo = kUntouched;
    EXPECT_NE(on.drawings->GetDrawing(kNobody, record), kServiceOk);
    EXPECT_NE(on.drawings->GetDrawing(0, record), kServiceOk);
    EXPECT_EQ(record.checkpointNo, kUntouched);
}

TEST_P(Checkpoints, ASavedCheckpointIsWhatIsReadThenOnItselfAndOnItsPhotos) {
    KX_DATA::CheckpointEdit edit = EditOf(point);
    edit.labelNames = {otherLabel};
    qint32 value = 0;
    ASSERT_EQ(on.drawings->UpdateCheckpoint(edit, value), kServiceOk);
    KX_DATA::DrawingRecord record;
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.description, u"新描述"_s);
    EXPECT_EQ(record.remark, u"新备注"_s);
    EXPECT_EQ(record.markName, u"安全"_s);
    EXPECT_EQ(record.markColor, 0x00ff00);
    EXPECT_EQ(record.position, (std::pair<qint64, qint64>(11, 22)));
    EXPECT_THAT(record.labels, ElementsAre(std::pair(otherLabel, u"渗漏"_s)));
    EXPECT_EQ(PdfRows()[0].markId, 2);
    ASSERT_EQ(PdfRows()[0].labels.size(), 1U);
    EXPECT_EQ(PdfRows()[0].labels[0].labelId, otherLabel);
    EXPECT_EQ(PdfRows()[0].labels[0].labelName, u"渗漏"_s);
}

TEST_P(Checkpoints, WhatIsSentAsLabelNamesAreIdsAndOthersAreRefusedWithNothingChanged) {
    qint32 value = 0;
    EXPECT_NE(on.drawings->UpdateCheckpoint(EditOf(kNobody), value), kServiceOk);
    for (const QString& unknown : {u"4711"_s, u"消防"_s}) {
        KX_DATA::CheckpointEdit edit = EditOf(point);
        edit.labelNames = {otherLabel, unknown};
        EXPECT_NE(on.drawings->UpdateCheckpoint(edit, value), kServiceOk) << unknown.toStdString();
    }
    KX_DATA::DrawingRecord record;
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.description, u"柱脚"_s);
    EXPECT_THAT(record.labels, ElementsAre(std::pair(label, u"消防"_s)));
    EXPECT_EQ(PdfRows()[0].markId, 1);
}

TEST_P(Checkpoints, AMarkOfZeroLeavesTheMarkAsItIs) {
    KX_DATA::CheckpointEdit edit = EditOf(point);
    edit.markId = 0;
    qint32 value = 0;
    ASSERT_EQ(on.drawings->UpdateCheckpoint(edit, value), kServiceOk);
    KX_DATA::DrawingRecord record;
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.description, u"新描述"_s);
    EXPECT_EQ(record.markName, u"质量"_s);
    EXPECT_EQ(PdfRows()[0].markId, 1);
}

TEST_P(Checkpoints, WithoutDescriptionRemarkAndLabelsItIsSavedAsSuch) {
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = point;
    qint32 value = 0;
    ASSERT_EQ(on.drawings->UpdateCheckpoint(edit, value), kServiceOk);
    KX_DATA::DrawingRecord record;
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.description, QString());
    EXPECT_EQ(record.remark, QString());
    EXPECT_TRUE(record.labels.empty());
}

class DrawingFailures : public OnDrawings<FailureContract> {};
WHERE_READING_FAILS(DrawingFailures);

TEST_P(DrawingFailures, AQueryTellsItWithZeroAndLeavesRowsAndTotalsAlone) {
    Fail({"QueryPdfPics"});
    KX_DATA::PageResult result{1, 2, kUntouched};
    std::vector<KX_DATA::PdfPicRecord> rows(3);
    EXPECT_EQ(on.pics->QueryPdfPics(PdfFilter(), {}, result, rows), 0);
    EXPECT_EQ(rows.size(), 3U);
    EXPECT_EQ(result.pageCount, kUntouched);
}

TEST_P(DrawingFailures, DetailsTellItAndLeaveTheRecordsAlone) {
    Fail({"GetPdfPicDetail", "GetCheckpointPics", "GetDrawing"});
    KX_DATA::PdfPicDetail detail;
    detail.drawingId = kUntouched;
    EXPECT_NE(on.pics->GetPdfPicDetail(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.drawingId, kUntouched);
    KX_DATA::CheckpointPicDetail pic;
    pic.value1 = kUntouched;
    EXPECT_NE(on.pics->GetCheckpointPics(first, picId, pic), kServiceOk);
    EXPECT_EQ(pic.value1, kUntouched);
    KX_DATA::DrawingRecord record;
    record.checkpointNo = kUntouched;
    EXPECT_NE(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.checkpointNo, kUntouched);
}

TEST_P(DrawingFailures, LabelsAndMarksInUseTellItAndLeaveTheListsAlone) {
    Fail({"GetPdfLabels", "GetUsedPdfMarks"});
    std::vector<KX_DATA::LabelEntry> labels(2);
    std::vector<qint32> marks{kUntouched};
    EXPECT_FALSE(on.pics->GetPdfLabels(labels));
    EXPECT_FALSE(on.pics->GetUsedPdfMarks(marks));
    EXPECT_EQ(labels.size(), 2U);
    EXPECT_THAT(marks, ElementsAre(kUntouched));
}

class DrawingChangeFailures : public OnDrawings<FailureContract> {};
WHERE_WRITING_FAILS(DrawingChangeFailures);

TEST_P(DrawingChangeFailures, SavingAPhotoTellsItAndChangesNothing) {
    Fail({"UpdatePdfPic"});
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.fileName = u"c.jpg"_s;
    EXPECT_FALSE(on.pics->UpdatePdfPic(first, update));
    if (StillReads()) {
        EXPECT_EQ(PdfRows()[0].fileName, u"a.jpg"_s);
    }
}

TEST_P(DrawingChangeFailures, HidingAndDeletingTellItAndChangeNothing) {
    Fail({"SetPdfPicsShown", "DeletePdfPics", "DeleteCheckpointPic"});
    EXPECT_FALSE(on.pics->SetPdfPicsShown(first, {picId}, true));
    EXPECT_FALSE(on.pics->DeletePdfPics(first, {picId}));
    EXPECT_EQ(on.pics->DeleteCheckpointPic(point, picId), 0);
    if (StillReads()) {
        ASSERT_EQ(PdfRows().size(), 1U);
        EXPECT_EQ(PdfRows()[0].status, 0);
    }
}

TEST_P(DrawingChangeFailures, SavingACheckpointTellsItAndChangesNothing) {
    Fail({"UpdateCheckpoint"});
    qint32 value = kUntouched;
    EXPECT_NE(on.drawings->UpdateCheckpoint(EditOf(point), value), kServiceOk);
    EXPECT_EQ(value, 0);
    if (StillReads()) {
        EXPECT_EQ(PdfRows()[0].markId, 1);
    }
}

} // namespace contracts
