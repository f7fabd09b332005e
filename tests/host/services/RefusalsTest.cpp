// What isn't there any more is refused by every operation with a reason in the host's bar.
#include "services/Factories.h"
#include "services/IPDFDrawingMng.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "tests/host/services/ServiceSite.h"

#include <functional>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

constexpr qint32 kGone = 4711;

struct Operation {
    QString what; ///< as the bar names it
    std::function<bool(ServiceSite&)> isDone;
};

std::vector<Operation> PhotoChanges() {
    return {
        {u"修改照片"_s,
         [](ServiceSite& site) {
             KX_DATA::BimPicUpdate update;
             update.picId = kGone;
             update.fileName = u"外墙.jpg"_s;
             return GetVeskPicMng()->UpdateBimPic(site.first, update);
         }},
        {u"修改照片"_s,
         [](ServiceSite& site) {
             KX_DATA::PdfPicUpdate update;
             update.picId = kGone;
             update.fileName = u"外墙.jpg"_s;
             return GetVeskPicMng()->UpdatePdfPic(site.first, update);
         }},
        {u"删除BIM模型照片"_s,
         [](ServiceSite&) { return GetVeskPicMng()->DeleteBimPics({kGone}); }},
        {u"删除平面图纸照片"_s,
         [](ServiceSite& site) { return GetVeskPicMng()->DeletePdfPics(site.first, {kGone}); }},
        {u"删除检查点照片"_s,
         [](ServiceSite&) { return GetVeskPicMng()->DeleteCheckpointPic(1, kGone) != 0; }},
        {u"修改照片状态"_s,
         [](ServiceSite& site) {
             return GetVeskPicMng()->SetBimPicsShown(site.first, {kGone}, true);
         }},
        {u"修改照片状态"_s,
         [](ServiceSite& site) {
             return GetVeskPicMng()->SetPdfPicsShown(site.first, {kGone}, false);
         }},
        {u"修改检查点"_s,
         [](ServiceSite&) {
             KX_DATA::CheckpointEdit edit;
             edit.checkpointId = kGone;
             qint32 value = 0;
             return GetPDFDrawingMng()->UpdateCheckpoint(edit, value) == KX_DATA::kServiceOk;
         }},
    };
}

std::vector<Operation> OtherOperations() {
    return {
        {u"删除TN问题"_s,
         [](ServiceSite&) { return GetTNQuestionMng()->DeleteIssues({u"gone"_s}); }},
        {u"修改问题状态"_s,
         [](ServiceSite& site) {
             return GetTNQuestionMng()->SetIssuesShown(site.first, {u"gone"_s}, true);
         }},
        {u"读取TN问题"_s,
         [](ServiceSite& site) {
             KX_DATA::QuestionDetail detail;
             return GetTNQuestionMng()->GetIssueDetail(site.first, u"gone"_s, detail) != 0;
         }},
        {u"读取整改情况"_s,
         [](ServiceSite&) {
             KX_DATA::RectifyRecord record;
             return GetTNQuestionMng()->GetRectification(u"gone"_s, record);
         }},
        {u"读取照片"_s,
         [](ServiceSite& site) {
             KX_DATA::BimPicDetail detail;
             return GetVeskPicMng()->GetBimPicDetail(site.first, kGone, detail) ==
                    KX_DATA::kServiceOk;
         }},
        {u"读取照片"_s,
         [](ServiceSite& site) {
             KX_DATA::PdfPicDetail detail;
             return GetVeskPicMng()->GetPdfPicDetail(site.first, kGone, detail) ==
                    KX_DATA::kServiceOk;
         }},
        {u"读取照片"_s,
         [](ServiceSite& site) {
             KX_DATA::CheckpointPicDetail detail;
             return GetVeskPicMng()->GetCheckpointPics(site.first, kGone, detail) ==
                    KX_DATA::kServiceOk;
         }},
        {u"读取检查点"_s,
         [](ServiceSite&) {
             KX_DATA::DrawingRecord record;
             return GetPDFDrawingMng()->GetDrawing(kGone, record) == KX_DATA::kServiceOk;
         }},
    };
}

void ExpectRefusals(const std::vector<Operation>& operations) {
    ServiceSite site;
    for (const Operation& operation : operations) {
        site.messages.clear();
        EXPECT_FALSE(operation.isDone(site)) << operation.what.toStdString();
        ASSERT_EQ(site.messages.size(), 1U) << operation.what.toStdString();
        EXPECT_TRUE(site.messages[0].startsWith(operation.what + u"失败："_s))
            << site.messages[0].toStdString();
        EXPECT_TRUE(site.messages[0].contains(u"可能已被删除，请刷新后重试"_s))
            << site.messages[0].toStdString();
    }
}

} // namespace

TEST(Refusals, ChangesOfPhotosThatAreGoneGiveAReason) {
    ExpectRefusals(PhotoChanges());
}

TEST(Refusals, WhatIsAskedOfThingsThatAreGoneGivesAReason) {
    ExpectRefusals(OtherOperations());
}

TEST(Refusals, WhenSomeAreGoneTheOthersAreDoneAndTheDifferenceIsTold) {
    ServiceSite site;
    const qint32 there = site.AddPhoto([](site::NewBimPhoto&) {});
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.first, {kGone, there}, true));
    EXPECT_EQ(site.Photos(site.Filter())[0].status, 1);
    ASSERT_EQ(site.messages.size(), 1U);
    EXPECT_TRUE(site.messages[0].contains(u"1 项已完成，另外 1 项已不存在"_s))
        << site.messages[0].toStdString();
}

TEST(Refusals, NothingChosenIsNoFault) {
    ServiceSite site;
    EXPECT_TRUE(GetVeskPicMng()->DeletePdfPics(site.first, {}));
    EXPECT_TRUE(GetVeskPicMng()->SetPdfPicsShown(site.first, {}, true));
    EXPECT_TRUE(site.messages.empty());
}

TEST(Refusals, AHiddenPhotoIsRefusedWithoutAMessageForTheModuleTellsIt) {
    ServiceSite site;
    const qint32 hidden = site.AddPhoto([](site::NewBimPhoto& photo) { photo.status = 1; });
    KX_DATA::BimPicDetail detail;
    EXPECT_NE(GetVeskPicMng()->GetBimPicDetail(site.first, hidden, detail), KX_DATA::kServiceOk);
    EXPECT_TRUE(site.messages.empty());
}

} // namespace host
