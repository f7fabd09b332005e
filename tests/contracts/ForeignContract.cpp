// What lies in a project that isn't open.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;

namespace {

/// A photo, a checkpoint with a photo, and an issue in the second project; the first one is open.
template <class Base> class InTheOther : public Base {
protected:
    InTheOther() {
        other = this->site->second;
        picId = this->Photo([this](site::NewBimPhoto& photo) { photo.ppid = other; });
        drawing = this->site->AddDrawing(other, u"一层平面图"_s);
        point = this->Point(drawing, 7);
        pdfPicId = this->PdfPhoto(point, u"p.jpg"_s);
        questionId = this->Issue([this](site::NewIssue& issue) {
            issue.ppid = other;
            issue.rectifyText = u"已修"_s;
            issue.rectifier = u"wang"_s;
        });
    }

    qint32 other = 0;
    qint32 picId = 0;
    qint32 drawing = 0;
    qint32 point = 0;
    qint32 pdfPicId = 0;
    QString questionId;
};

} // namespace

class OtherProjects : public InTheOther<Contract> {};
ON_EVERY_SITE(OtherProjects);

TEST_P(OtherProjects, APhotoThereIsNotDeleted) {
    EXPECT_FALSE(on.pics->DeleteBimPics({picId}));
    const qint32 own = Photo();
    EXPECT_TRUE(on.pics->DeleteBimPics({own, picId})) << "the one of the open project is";
    site->OpenWorkset();
    std::vector<KX_DATA::PicFileEntry> files;
    ASSERT_EQ(on.pics->GetPicFiles({own, picId}, files), kServiceOk);
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].picId, picId);
}

TEST_P(OtherProjects, APhotoThereHasNoFile) {
    std::vector<KX_DATA::PicFileEntry> files(1);
    ASSERT_EQ(on.pics->GetPicFiles({picId, pdfPicId}, files), kServiceOk);
    EXPECT_TRUE(files.empty());
}

TEST_P(OtherProjects, AnIssueThereIsNotDeleted) {
    EXPECT_FALSE(on.issues->DeleteIssues({questionId}));
    site->OpenWorkset();
    EXPECT_TRUE(on.issues->DeleteIssues({questionId}));
}

TEST_P(OtherProjects, AnIssueThereHasNoRectification) {
    KX_DATA::RectifyRecord record;
    record.state = kUntouched;
    EXPECT_FALSE(on.issues->GetRectification(questionId, record));
    EXPECT_EQ(record.state, kUntouched);
    site->OpenWorkset();
    ASSERT_TRUE(on.issues->GetRectification(questionId, record));
    EXPECT_EQ(record.rectifyText, u"已修"_s);
}

TEST_P(OtherProjects, ACheckpointThereIsNotRead) {
    KX_DATA::DrawingRecord record;
    record.checkpointNo = kUntouched;
    EXPECT_NE(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.checkpointNo, kUntouched);
    site->OpenWorkset();
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.checkpointNo, 7);
}

TEST_P(OtherProjects, ACheckpointThereIsNotSaved) {
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = point;
    edit.description = u"新描述"_s;
    qint32 value = 0;
    EXPECT_NE(on.drawings->UpdateCheckpoint(edit, value), kServiceOk);
    site->OpenWorkset();
    KX_DATA::DrawingRecord record;
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    EXPECT_EQ(record.description, QString());
    EXPECT_EQ(on.drawings->UpdateCheckpoint(edit, value), kServiceOk);
}

TEST_P(OtherProjects, APhotoOfACheckpointThereTellsItselfInAWorksetOnly) {
    KX_DATA::CheckpointPicDetail detail;
    EXPECT_NE(on.pics->GetCheckpointPics(first, pdfPicId, detail), kServiceOk);
    site->OpenWorkset();
    ASSERT_EQ(on.pics->GetCheckpointPics(first, pdfPicId, detail), kServiceOk)
        << "viewers pass the current project";
    EXPECT_EQ(detail.name, u"p.jpg"_s);
    EXPECT_NE(on.pics->GetCheckpointPics(kNobody, pdfPicId, detail), kServiceOk);
    EXPECT_NE(on.pics->GetCheckpointPics(first, kNobody, detail), kServiceOk);
}

TEST_P(OtherProjects, APhotoThereIsNotTakenFromItsCheckpoint) {
    EXPECT_EQ(on.pics->DeleteCheckpointPic(point, pdfPicId), 0);
    site->OpenWorkset();
    EXPECT_NE(on.pics->DeleteCheckpointPic(point, pdfPicId), 0);
}

TEST_P(OtherProjects, AWorksetOpensThem) {
    site->OpenWorkset();
    std::vector<KX_DATA::PicFileEntry> files;
    ASSERT_EQ(on.pics->GetPicFiles({picId, pdfPicId}, files), kServiceOk);
    EXPECT_EQ(files.size(), 2U);
    EXPECT_TRUE(on.pics->DeleteBimPics({picId}));
}

TEST_P(OtherProjects, AListHasTheRowsOfTheProjectsAskedForAlone) {
    Photo();
    Issue();
    EXPECT_EQ(BimRows().size(), 1U);
    EXPECT_EQ(IssueRows().size(), 1U);
    EXPECT_TRUE(PdfRows().empty());
}

TEST_P(OtherProjects, TheMarkPanelHasThoseOfTheProjectsAskedForAndElseOfTheOpenOnes) {
    KX_DATA::MarkFilterArg arg;
    std::vector<qint32> ids;
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 1, arg, ids), 0);
    std::vector<KX_DATA::IssueMarkGroup> groups;
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, groups);
    EXPECT_TRUE(groups.empty());
    arg.projectIds = {other};
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 1, arg, ids), 1);
    EXPECT_THAT(ids, testing::ElementsAre(picId));
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, groups);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].id, other);
}

} // namespace contracts
