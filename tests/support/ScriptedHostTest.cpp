#include "tests/support/ScriptedHost.h"

#include "services/Factories.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

using namespace Qt::StringLiterals;
using support::ScriptedHost;
using testing::ElementsAre;

namespace {

std::vector<KX_DATA::BimPicRow> BimPics(int count) {
    std::vector<KX_DATA::BimPicRow> pics;
    for (int i = 0; i < count; ++i) {
        pics.emplace_back();
        pics.back().picId = i + 1;
    }
    return pics;
}

} // namespace

TEST(ScriptedHost, FactoriesGiveTheObjectsOfTheHostMadeLast) {
    ScriptedHost outer;
    {
        ScriptedHost inner;
        EXPECT_EQ(GetVeskPicMng(), &inner.pics);
    }
    EXPECT_EQ(GetVeskPicMng(), &outer.pics);
    EXPECT_EQ(GetKXHoopsModuleMng()->GetView(), &outer.view);
}

TEST(ScriptedHost, AQueryGivesItsPageCountsAndKeepsFilterAndRequest) {
    ScriptedHost host;
    host.pics.bimPics = BimPics(61);
    KX_DATA::PicQueryFilter filter;
    filter.keyword = u"墙"_s;
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    const KX_DATA::PageRequest request{3, 30, u"last_modifytime"_s, u"desc"_s};
    EXPECT_EQ(GetVeskPicMng()->QueryBimPics(filter, request, result, rows), KX_DATA::kServiceOk);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front().picId, 61);
    EXPECT_EQ(result.totalCount, 61);
    EXPECT_EQ(result.pageCount, 3);
    EXPECT_EQ(host.pics.lastBimFilter.keyword, u"墙"_s);
    EXPECT_THAT(host.Log().Lines(),
                ElementsAre("QueryBimPics(page=3,size=30,sort=last_modifytime desc)"));
}

TEST(ScriptedHost, TheThreeQueriesKeepTheirOwnConventionsOfSuccess) {
    ScriptedHost host;
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> pics;
    std::vector<KX_DATA::PdfPicRecord> pdfs;
    std::vector<KX_DATA::IssueRow> issues;
    EXPECT_EQ(GetVeskPicMng()->QueryBimPics({}, {}, result, pics), KX_DATA::kServiceOk);
    EXPECT_NE(GetVeskPicMng()->QueryPdfPics({}, {}, result, pdfs), 0);
    EXPECT_NE(GetVeskPicMng()->QueryPdfPics({}, {}, result, pdfs), KX_DATA::kServiceOk);
    EXPECT_EQ(GetTNQuestionMng()->QueryIssues({}, {}, result, issues), KX_DATA::kServiceOk);
    host.script.FailNext("QueryPdfPics");
    EXPECT_EQ(GetVeskPicMng()->QueryPdfPics({}, {}, result, pdfs), 0);
}

TEST(ScriptedHost, ScriptedTotalsAndStatusReplaceThoseOfTheRecords) {
    ScriptedHost host;
    host.pics.bimQuery.status = 1;
    host.pics.bimQuery.totals = KX_DATA::PageResult{0, 1000000, 33334};
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    EXPECT_EQ(GetVeskPicMng()->QueryBimPics({}, {}, result, rows), 1);
    EXPECT_EQ(result.totalCount, 1000000);
    EXPECT_EQ(result.pageCount, 33334);
}

TEST(ScriptedHost, HidingAndDeletingChangeTheRecordsUnlessTheyFail) {
    ScriptedHost host;
    host.pics.bimPics = BimPics(3);
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(1, {2}, true));
    EXPECT_EQ(host.pics.bimPics[1].status, KX_DATA::kStatusHidden);
    KX_DATA::BimPicDetail detail;
    EXPECT_NE(GetVeskPicMng()->GetBimPicDetail(1, 2, detail), KX_DATA::kServiceOk);
    EXPECT_EQ(GetVeskPicMng()->GetBimPicDetail(1, 3, detail), KX_DATA::kServiceOk);
    host.script.FailNext("DeleteBimPics");
    EXPECT_FALSE(GetVeskPicMng()->DeleteBimPics({1, 3}));
    EXPECT_EQ(host.pics.bimPics.size(), 3U);
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({1, 3}));
    EXPECT_EQ(host.pics.bimPics.size(), 1U);
    EXPECT_THAT(host.Log().LinesOf({"SetBimPicsShown", "DeleteBimPics"}),
                ElementsAre("SetBimPicsShown(ppid=1,ids=[2],hidden=true)",
                            "DeleteBimPics(ids=[1 3])", "DeleteBimPics(ids=[1 3])"));
}

TEST(ScriptedHost, ASavedPhotoIsWhatIsReadThen) {
    ScriptedHost host;
    host.pics.bimPics = BimPics(2);
    host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}, {u"l2"_s, u"渗漏"_s}};
    KX_DATA::BimPicUpdate update;
    update.picId = 2;
    update.fileName = u"新名.jpg"_s;
    update.description = u"新描述"_s;
    update.positionKey = u"K9"_s;
    update.markId = 3;
    update.labelIds = {u"l2"_s};
    host.script.FailNext("UpdateBimPic");
    EXPECT_FALSE(GetVeskPicMng()->UpdateBimPic(1, update));
    EXPECT_NE(host.pics.bimPics[1].fileName, u"新名.jpg"_s);
    EXPECT_TRUE(GetVeskPicMng()->UpdateBimPic(1, update));
    KX_DATA::BimPicDetail detail;
    ASSERT_EQ(GetVeskPicMng()->GetBimPicDetail(1, 2, detail), KX_DATA::kServiceOk);
    EXPECT_EQ(detail.fileName, u"新名.jpg"_s);
    EXPECT_EQ(detail.description, u"新描述"_s);
    EXPECT_EQ(detail.positionKey, u"K9"_s);
    EXPECT_EQ(detail.markId, 3);
    ASSERT_EQ(detail.labels.size(), 1U);
    EXPECT_EQ(detail.labels.front().labelId, u"l2"_s);
    EXPECT_EQ(detail.labels.front().labelName, u"渗漏"_s);
    EXPECT_NE(host.pics.bimPics[0].fileName, u"新名.jpg"_s);
}

TEST(ScriptedHost, ALabelsIdIsNeverItsName) {
    ScriptedHost host;
    host.pics.bimPics = BimPics(1);
    host.pics.bimPics[0].labelNames = {u"返工"_s};
    KX_DATA::BimPicDetail detail;
    ASSERT_EQ(GetVeskPicMng()->GetBimPicDetail(1, host.pics.bimPics[0].picId, detail),
              KX_DATA::kServiceOk);
    ASSERT_EQ(detail.labels.size(), 1U);
    EXPECT_EQ(detail.labels.front().labelName, u"返工"_s);
    EXPECT_NE(detail.labels.front().labelId, u"返工"_s);
}

TEST(ScriptedHost, TheDetailOfADrawingPhotoNamesItsDrawingAndNotItsPoint) {
    ScriptedHost host;
    KX_DATA::PdfPicRecord photo;
    photo.picId = 7;
    photo.drawingId = 101;
    photo.checkpointId = 500;
    host.pics.pdfPics = {photo};
    KX_DATA::PdfPicDetail detail;
    ASSERT_EQ(GetVeskPicMng()->GetPdfPicDetail(1, 7, detail), KX_DATA::kServiceOk);
    EXPECT_EQ(detail.drawingId, 500);
}

TEST(ScriptedHost, AWorksetReplacesTheOpenProjectInTheList) {
    ScriptedHost host;
    EXPECT_FALSE(GetKXGlobalData()->IsWorksetMode());
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}});
    std::vector<KX_DATA::WorksetProject> projects;
    GetKXGlobalData()->GetWorksetProjects(projects);
    EXPECT_TRUE(GetKXGlobalData()->IsWorksetMode());
    EXPECT_EQ(projects.size(), 2U);
    QString name;
    EXPECT_EQ(GetKXGlobalData()->GetProjectName(name, 2), u"乙"_s);
    EXPECT_EQ(GetKXGlobalData()->GetProjectName(name, 3), QString());
}

TEST(ScriptedHost, AFailingViewIsNoView) {
    ScriptedHost host;
    host.script.FailNext("GetView");
    EXPECT_EQ(GetKXHoopsModuleMng()->GetView(), nullptr);
    host.script.FailNext("LocatePicture");
    EXPECT_FALSE(GetKXHoopsModuleMng()->GetView()->LocatePicture(u"k"_s, 1));
}

TEST(ScriptedHost, ReservedOperationsFailTheTest) {
    ScriptedHost host;
    EXPECT_NONFATAL_FAILURE(host.pics.Reserved5(), "reserved");
    EXPECT_NONFATAL_FAILURE(host.drawings.Reserved6(), "reserved");
}
