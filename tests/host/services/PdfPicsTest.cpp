#include "services/Factories.h"
#include "services/IPDFDrawingMng.h"
#include "site/IBin.h"
#include "site/OpenSite.h"
#include "tests/host/services/ServiceSite.h"

#include <set>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

/// Two drawings with a checkpoint each.
class PdfSite : public ServiceSite {
public:
    PdfSite() {
        label = writer->AddLabel(u"消防"_s);
        drawings = {writer->AddDrawing(first, u"一层平面图"_s),
                    writer->AddDrawing(first, u"二层平面图"_s)};
        site::NewCheckpoint point;
        point.drawingId = drawings[0];
        point.number = 7;
        point.markId = 1;
        point.labelIds = {label};
        points.push_back(writer->AddCheckpoint(first, point));
        point.drawingId = drawings[1];
        point.number = 12;
        point.markId = 2;
        point.labelIds = {};
        points.push_back(writer->AddCheckpoint(first, point));
    }

    qint32 AddPdf(size_t place, const QString& name) {
        site::NewPdfPhoto photo;
        photo.checkpointId = points[place];
        photo.fileName = name;
        photo.uploader = u"zhang"_s;
        photo.uploadTime = 1700000000;
        return writer->FilePdfPhoto(first, photo, {{}, "jpeg"});
    }

    [[nodiscard]] KX_DATA::PdfQueryFilter PdfFilter() const {
        KX_DATA::PdfQueryFilter filter;
        filter.projectIds = {first};
        return filter;
    }
    [[nodiscard]] std::vector<KX_DATA::PdfPicRecord>
    Query(const KX_DATA::PdfQueryFilter& filter, const QString& sort = QStringLiteral("pic_name")) {
        KX_DATA::PageResult result;
        std::vector<KX_DATA::PdfPicRecord> rows;
        EXPECT_NE(GetVeskPicMng()->QueryPdfPics(filter, {1, 30, sort, u"asc"_s}, result, rows), 0);
        EXPECT_EQ(result.totalCount, static_cast<qint32>(rows.size()));
        return rows;
    }

    qint32 label = 0;
    std::vector<qint32> drawings;
    std::vector<qint32> points;
};

} // namespace

TEST(PdfPics, ARowTellsThePhotoItsPointAndItsDrawing) {
    PdfSite site;
    site.writer->SetCheckpointVoice(site.first, site.points[0], {{}, "amr"});
    const qint32 picId = site.AddPdf(0, u"a.jpg"_s);
    const auto rows = site.Query(site.PdfFilter());
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].picId, picId);
    EXPECT_EQ(rows[0].drawingId, site.points[0]);
    EXPECT_EQ(rows[0].checkpointId, site.drawings[0]);
    EXPECT_EQ(rows[0].checkpointNo, 7);
    EXPECT_EQ(rows[0].drawingName, u"一层平面图"_s);
    EXPECT_EQ(rows[0].markId, 1);
    ASSERT_EQ(rows[0].labels.size(), 1u);
    EXPECT_EQ(rows[0].labels[0].labelName, u"消防"_s);
    EXPECT_FALSE(rows[0].text2.isEmpty()); // the checkpoint's voice note
}

TEST(PdfPics, DrawingCheckpointMarkAndLabelLimitAndMinusOneDoesNot) {
    PdfSite site;
    const qint32 one = site.AddPdf(0, u"a.jpg"_s);
    const qint32 two = site.AddPdf(1, u"b.jpg"_s);
    KX_DATA::PdfQueryFilter filter = site.PdfFilter();
    EXPECT_EQ(site.Query(filter).size(), 2u);
    filter.drawingId = site.drawings[1];
    ASSERT_EQ(site.Query(filter).size(), 1u);
    EXPECT_EQ(site.Query(filter)[0].picId, two);
    filter = site.PdfFilter();
    filter.checkpointId = site.points[0];
    ASSERT_EQ(site.Query(filter).size(), 1u);
    EXPECT_EQ(site.Query(filter)[0].picId, one);
    filter = site.PdfFilter();
    filter.labelId = QString::number(site.label);
    ASSERT_EQ(site.Query(filter).size(), 1u);
    filter.markId = 2;
    EXPECT_TRUE(site.Query(filter).empty());
}

TEST(PdfPics, TheKeywordIsFoundInTheDrawingsNameToo) {
    PdfSite site;
    site.AddPdf(0, u"a.jpg"_s);
    const qint32 two = site.AddPdf(1, u"b.jpg"_s);
    KX_DATA::PdfQueryFilter filter = site.PdfFilter();
    filter.keyword = u"二层"_s;
    ASSERT_EQ(site.Query(filter).size(), 1u);
    EXPECT_EQ(site.Query(filter)[0].picId, two);
}

TEST(PdfPics, EveryKeyOfTheirTableSortsAndCheckpointsSortAsNumbers) {
    PdfSite site;
    const qint32 twelve = site.AddPdf(1, u"a.jpg"_s);
    const qint32 seven = site.AddPdf(0, u"b.jpg"_s);
    for (const QString& key : {u"marker_id"_s, u"pic_name"_s, u"ppid"_s, u"pdfdrawings_name"_s,
                               u"last_modifyuser"_s, u"last_modifytime"_s, u"checkpt_num"_s,
                               u"rectifyStatus"_s, u"pic_describe"_s, u"pic_status"_s}) {
        EXPECT_EQ(site.Query(site.PdfFilter(), key).size(), 2u) << key.toStdString();
    }
    const auto rows = site.Query(site.PdfFilter(), u"checkpt_num"_s);
    EXPECT_EQ(rows[0].picId, seven);
    EXPECT_EQ(rows[1].picId, twelve);
}

TEST(PdfPics, IdsOfPhotosOfBothKindsNeverMeet) {
    PdfSite site;
    const qint32 bim = site.AddPhoto([](site::NewBimPhoto&) {});
    const qint32 pdf = site.AddPdf(0, u"p.jpg"_s);
    EXPECT_NE(bim, pdf);
    std::vector<KX_DATA::PicFileEntry> files;
    EXPECT_EQ(GetVeskPicMng()->GetPicFiles({pdf, 4711, bim}, files), KX_DATA::kServiceOk);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].picId, pdf);
    EXPECT_EQ(files[1].picId, bim);
}

TEST(PdfPics, DetailsTellTheDrawingAndThePhoto) {
    PdfSite site;
    const qint32 picId = site.AddPdf(1, u"b.jpg"_s);
    KX_DATA::PdfPicDetail detail;
    EXPECT_EQ(GetVeskPicMng()->GetPdfPicDetail(site.first, picId, detail), KX_DATA::kServiceOk);
    EXPECT_EQ(detail.drawingId, site.drawings[1]);
    EXPECT_NE(GetVeskPicMng()->GetPdfPicDetail(site.second, picId, detail), KX_DATA::kServiceOk);
    KX_DATA::CheckpointPicDetail pic;
    EXPECT_EQ(GetVeskPicMng()->GetCheckpointPics(site.first, picId, pic), KX_DATA::kServiceOk);
    EXPECT_EQ(pic.name, u"b.jpg"_s);
    EXPECT_EQ(pic.uploadTime, pic.updateTime);
}

TEST(PdfPics, AChangedPhotoMovesToAnotherPointWithItsMark) {
    PdfSite site;
    const qint32 picId = site.AddPdf(0, u"a.jpg"_s);
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.pointId = site.points[1];
    update.fileName = u"c.jpg"_s;
    update.status = 1;
    EXPECT_TRUE(GetVeskPicMng()->UpdatePdfPic(site.first, update));
    const auto rows = site.Query(site.PdfFilter());
    EXPECT_EQ(rows[0].checkpointNo, 12);
    EXPECT_EQ(rows[0].markId, 2);
    EXPECT_EQ(rows[0].fileName, u"c.jpg"_s);
    EXPECT_EQ(rows[0].status, 1);
    EXPECT_EQ(rows[0].updaterName, u"li"_s);
}

TEST(PdfPics, APointThatWasRemovedMeanwhileOrIsOfAnotherProjectIsRefusedWithASentence) {
    PdfSite site;
    const qint32 picId = site.AddPdf(0, u"a.jpg"_s);
    site::NewCheckpoint foreign;
    foreign.drawingId = site.writer->AddDrawing(site.second, u"三层"_s);
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.fileName = u"c.jpg"_s;
    for (const qint32 point : {4711, site.writer->AddCheckpoint(site.second, foreign)}) {
        update.pointId = point;
        EXPECT_FALSE(GetVeskPicMng()->UpdatePdfPic(site.first, update));
    }
    ASSERT_EQ(site.messages.size(), 2u);
    EXPECT_EQ(site.messages[0], u"修改照片失败：所选的检查点已不存在，请重新选择插入点。"_s);
    EXPECT_EQ(site.messages[1], site.messages[0]);
    EXPECT_EQ(site.Query(site.PdfFilter())[0].fileName, u"a.jpg"_s);
    KX_DATA::PdfQueryFilter filter = site.PdfFilter();
    filter.keyword = u"a.jpg"_s;
    EXPECT_EQ(site.Query(filter).size(), 1u) << "it is found as before";
}

TEST(PdfPics, APictureThatSomebodyElseDeletedFirstIsToldAndStaysInTheBinOnce) {
    PdfSite site;
    const qint32 picId = site.AddPdf(0, u"a.jpg"_s);
    const site::OpenedSite other = site::OpenSite(site.session.Site().Place(), {500, false});
    ASSERT_EQ(other.site->Bin().DeletePdfPhotos(site.first, {picId}, {u"wang"_s, 1700000000}), 1);
    EXPECT_EQ(GetVeskPicMng()->DeleteCheckpointPic(site.points[0], picId), 0);
    ASSERT_EQ(site.messages.size(), 1u);
    EXPECT_TRUE(site.messages[0].startsWith(u"删除检查点照片失败："_s));
    ASSERT_EQ(site.session.Site().Bin().List().size(), 1u);
    EXPECT_EQ(site.session.Site().Bin().List()[0].deletedBy, u"wang"_s);
}

TEST(PdfPics, HidingShowingAndDeletingKeepToTheProject) {
    PdfSite site;
    const qint32 picId = site.AddPdf(0, u"a.jpg"_s);
    EXPECT_FALSE(GetVeskPicMng()->SetPdfPicsShown(site.second, {picId}, true));
    EXPECT_EQ(site.Query(site.PdfFilter())[0].status, 0);
    EXPECT_TRUE(GetVeskPicMng()->SetPdfPicsShown(site.first, {picId}, true));
    EXPECT_EQ(site.Query(site.PdfFilter())[0].status, 1);
    EXPECT_FALSE(GetVeskPicMng()->DeletePdfPics(site.second, {picId}));
    EXPECT_EQ(site.Query(site.PdfFilter()).size(), 1u);
    EXPECT_EQ(GetVeskPicMng()->DeleteCheckpointPic(site.points[1], picId), 0);
    EXPECT_NE(GetVeskPicMng()->DeleteCheckpointPic(site.points[0], picId), 0);
    EXPECT_TRUE(site.Query(site.PdfFilter()).empty());
}

TEST(PdfPics, LabelsAndMarksInUseAreThoseOfTheCheckpointsWithPhotos) {
    PdfSite site;
    std::vector<KX_DATA::LabelEntry> labels;
    std::vector<qint32> marks;
    EXPECT_TRUE(GetVeskPicMng()->GetPdfLabels(labels));
    EXPECT_TRUE(labels.empty());
    site.AddPdf(0, u"a.jpg"_s);
    EXPECT_TRUE(GetVeskPicMng()->GetPdfLabels(labels));
    EXPECT_TRUE(GetVeskPicMng()->GetUsedPdfMarks(marks));
    EXPECT_EQ(labels.size(), 1u);
    EXPECT_EQ(marks, (std::vector<qint32>{1}));
}

TEST(Checkpoints, AreReadWithLabelsAndShownPicturesAndChangedWithTheirPhotos) {
    PdfSite site;
    const qint32 picId = site.AddPdf(0, u"a.jpg"_s);
    KX_DATA::DrawingRecord record;
    EXPECT_EQ(GetPDFDrawingMng()->GetDrawing(site.points[0], record), KX_DATA::kServiceOk);
    EXPECT_EQ(record.checkpointNo, 7);
    EXPECT_EQ(record.markName, u"质量"_s);
    ASSERT_EQ(record.pics.size(), 1u);
    EXPECT_EQ(record.pics[0].picId, picId);

    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = site.points[0];
    edit.markId = 2;
    const qint32 added = site.writer->AddLabel(u"新标签"_s);
    edit.labelNames = {QString::number(added)};
    qint32 value = 7;
    EXPECT_EQ(GetPDFDrawingMng()->UpdateCheckpoint(edit, value), KX_DATA::kServiceOk);
    const auto rows = site.Query(site.PdfFilter());
    EXPECT_EQ(rows[0].markId, 2);
    ASSERT_EQ(rows[0].labels.size(), 1u);
    EXPECT_EQ(rows[0].labels[0].labelName, u"新标签"_s);
    EXPECT_NE(GetPDFDrawingMng()->GetDrawing(4711, record), KX_DATA::kServiceOk);
}

TEST(Checkpoints, AnUnknownLabelOrCheckpointIsRefusedWithNothingChanged) {
    PdfSite site;
    site.AddPdf(0, u"a.jpg"_s);
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = site.points[0];
    edit.markId = 2;
    qint32 value = 0;
    // A name is no id, also where a label bears it.
    for (const QString& label : {u"4711"_s, u"消防"_s}) {
        edit.labelNames = {QString::number(site.label), label};
        EXPECT_NE(GetPDFDrawingMng()->UpdateCheckpoint(edit, value), KX_DATA::kServiceOk);
    }
    const auto rows = site.Query(site.PdfFilter());
    EXPECT_EQ(rows[0].markId, 1);
    ASSERT_EQ(rows[0].labels.size(), 1u);
    EXPECT_EQ(rows[0].labels[0].labelName, u"消防"_s);
    EXPECT_EQ(site.messages.size(), 2u);
    edit.labelNames.clear();
    edit.checkpointId = 4711;
    EXPECT_NE(GetPDFDrawingMng()->UpdateCheckpoint(edit, value), KX_DATA::kServiceOk);
}

} // namespace host
