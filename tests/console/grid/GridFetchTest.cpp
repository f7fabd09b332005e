// Fetching a page: the events around it, what it asks for, what it leaves behind.
#include "base/Status.h"
#include "tests/console/grid/GridFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

class GridFetchTest : public GridFixture {
protected:
    /// The events and queries since the log was cleared.
    [[nodiscard]] Calls Protocol() {
        return Log().LinesOf({"Dialog", "QueryBimPics", "QueryPdfPics", "QueryIssues"});
    }
    static Calls Around(const std::string& query) {
        return {"Dialog(1026)", query, "Dialog(1025)"};
    }
};

constexpr const char* kFirstBimPage = "QueryBimPics(page=1,size=30,sort=last_modifytime desc)";

TEST_F(GridFetchTest, TheDialogIsToldBeforeAndAfter) {
    Open(kModeBim, 3);
    paging->DoFirstPage();
    EXPECT_THAT(Protocol(), Around(kFirstBimPage));
}

TEST_F(GridFetchTest, EachKindAsksForThirtyRowsInItsDefaultOrder) {
    Open(kModePdf, 3);
    paging->DoFirstPage();
    EXPECT_THAT(Protocol(), Around("QueryPdfPics(page=1,size=30,sort=last_modifytime desc)"));
    Open(kModeIssue, 3);
    paging->DoFirstPage();
    EXPECT_THAT(Protocol(), Around("QueryIssues(page=1,size=30,sort=modifytime desc)"));
}

TEST_F(GridFetchTest, RowsTotalAndPageCountAreTheServices) {
    Show(kModeBim, 65);
    EXPECT_EQ(grid->GetRowCount(), 30);
    EXPECT_EQ(grid->totalCount, 65);
    EXPECT_EQ(paging->GetPageCount(), 3);
}

TEST_F(GridFetchTest, AnotherPageIsAskedForByItsNumber) {
    Show(kModeBim, 65);
    paging->DoPage(3);
    EXPECT_THAT(Protocol(), Around("QueryBimPics(page=3,size=30,sort=last_modifytime desc)"));
    EXPECT_EQ(grid->Manager()->currentPage, 3);
    EXPECT_EQ(Cell(0, 1), "61");
}

TEST_F(GridFetchTest, AFetchedPageSelectsWhatWasSelectedBeTheFirstRowOrAnother) {
    Show(kModeBim, 3);
    for (const int row : {0, 1, 2}) {
        grid->SetCurSel(row);
        grid->FetchCurrentPage();
        ASSERT_NE(grid->GetCurSel(), nullptr) << row;
        EXPECT_EQ(grid->GetCurSel()->GetRowId(), row);
    }
}

TEST_F(GridFetchTest, AManagerGoesWithItsRows) {
    Show(kModeBim, 3);
    const int filling = grid->Filling();
    grid->CreateManager(kModeBim);
    EXPECT_EQ(grid->GetRowCount(), 0) << "they point into the records of the manager that went";
    EXPECT_GT(grid->Filling(), filling);
}

TEST_F(GridFetchTest, WhoRemembersTheGridRefreshesItAsLongAsItIsThere) {
    Show(kModeBim, 1);
    const boost::weak_ptr<ZelvorNRQ_KXVeskPicture::IQuestionRefresh> handle = grid->RefreshHandle();
    ASSERT_TRUE(handle.lock());
    handle.lock()->Refresh();
    EXPECT_EQ(Log().CountOf("QueryBimPics"), 1);
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 1);
    paging.reset();
    grid.reset();
    EXPECT_FALSE(handle.lock());
}

TEST_F(GridFetchTest, ARowIsFourPixelsHigherThanItsText) {
    Show(kModeBim, 1);
    const int height = View().rowHeight(0);
    grid->SetRowHeightAdd(0);
    EXPECT_EQ(View().rowHeight(0), height - 4);
}

TEST_F(GridFetchTest, ARefusedQueryLeavesNoRowsNoHitsAndSaysNothing) {
    Show(kModeBim, 65);
    host.script.FailNext("QueryBimPics");
    paging->DoFirstPage();
    EXPECT_THAT(Protocol(), Around(kFirstBimPage));
    EXPECT_EQ(grid->GetRowCount(), 0);
    EXPECT_EQ(grid->totalCount, 0);
    EXPECT_EQ(paging->GetPageCount(), 0);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(GridFetchTest, EveryKindTellsTheEndOfARefusedQuery) {
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Show(mode, 3);
        for (const char* query : {"QueryBimPics", "QueryPdfPics", "QueryIssues"}) {
            host.script.FailAlways(query);
        }
        grid->DoCurrentPage();
        EXPECT_THAT(Log().LinesOf({"Dialog"}), ElementsAre("Dialog(1026)", "Dialog(1025)")) << mode;
        EXPECT_EQ(grid->GetRowCount(), 0) << mode;
        for (const char* query : {"QueryBimPics", "QueryPdfPics", "QueryIssues"}) {
            host.script.Succeed(query);
        }
    }
}

TEST_F(GridFetchTest, ARaisedStatusIsShownAtTheDialogAndTheEndIsToldAllTheSame) {
    Show(kModeBim, 65);
    host.script.During("QueryBimPics", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    paging->DoFirstPage();
    EXPECT_THAT(Log().LinesOf({"Dialog", "QueryBimPics", "ShowMessage"}),
                ElementsAre("Dialog(1026)", kFirstBimPage, "ShowMessage(获取Vesk照片信息失败！)",
                            "Dialog(1025)"));
    EXPECT_THAT(prompts.Parents(), ElementsAre(windowId));
    EXPECT_EQ(grid->totalCount, 0);
    EXPECT_EQ(grid->GetRowCount(), 0);
}

TEST_F(GridFetchTest, TheGridWorksAgainAfterARaisedStatus) {
    Show(kModeBim, 3);
    host.script.During("QueryBimPics", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    paging->DoFirstPage();
    host.script.During("QueryBimPics", nullptr);
    paging->DoFirstPage();
    EXPECT_EQ(grid->GetRowCount(), 3);
    EXPECT_EQ(grid->totalCount, 3);
}

TEST_F(GridFetchTest, AnEmptyResultBuildsNoRow) {
    Show(kModeBim, 0);
    EXPECT_EQ(grid->GetRowCount(), 0);
    EXPECT_EQ(grid->totalCount, 0);
    EXPECT_EQ(paging->GetPageCount(), 0);
}

TEST_F(GridFetchTest, OldRowsAreGoneBeforeTheServiceIsAsked) {
    Show(kModeBim, 3);
    int rowsDuring = -1;
    host.script.During("QueryBimPics", [&] { rowsDuring = grid->GetRowCount(); });
    paging->DoFirstPage();
    EXPECT_EQ(rowsDuring, 0);
}

TEST_F(GridFetchTest, APageForgetsTheSelectedRow) {
    Show(kModeBim, 65);
    grid->SetCurSel(2);
    paging->DoPage(2);
    EXPECT_EQ(grid->GetCurSel(), nullptr);
}

TEST_F(GridFetchTest, RefreshFetchesThePresentPageAndThenTellsTheHost) {
    Show(kModeBim, 65);
    paging->DoPage(2);
    Log().Clear();
    grid->Refresh();
    EXPECT_THAT(Log().LinesOf({"Dialog", "QueryBimPics", "RefreshBimMarks"}),
                ElementsAre("Dialog(1026)",
                            "QueryBimPics(page=2,size=30,sort=last_modifytime desc)",
                            "Dialog(1025)", "RefreshBimMarks()"));
}

TEST_F(GridFetchTest, WithoutAProjectTheGridOpensAllTheSame) {
    host.project.project.reset();
    Show(kModeBim, 3);
    EXPECT_EQ(grid->GetRowCount(), 3);
    host.script.FailAlways("GetCurrentProject");
    Show(kModeBim, 3);
    EXPECT_EQ(grid->GetRowCount(), 3);
}

TEST_F(GridFetchTest, RowsOrderByTheirRunningNumber) {
    Show(kModeBim, 3);
    grid->SortRows();
    EXPECT_EQ(Cell(0, 1), "1");
    EXPECT_EQ(Cell(2, 1), "3");
    // Numbers, not texts.
    Item(0, 1).SetValue(10);
    grid->SortRows();
    EXPECT_EQ(Cell(2, 1), "10");
}

TEST_F(GridFetchTest, AFailedQuerySaysThatReadingFailedAndNeverThatNothingMatches) {
    for (const auto& [mode, query] :
         {std::pair(kModeBim, "QueryBimPics"), std::pair(kModePdf, "QueryPdfPics"),
          std::pair(kModeIssue, "QueryIssues")}) {
        Show(mode, 3);
        host.script.FailNext(query);
        paging->DoFirstPage();
        EXPECT_THAT(grid->GetEmptyText().toStdString(), HasSubstr("失败")) << mode;
        EXPECT_THAT(grid->GetEmptyText().toStdString(), HasSubstr("F5")) << mode;
        EXPECT_THAT(grid->GetEmptyText().toStdString(), Not(HasSubstr("没有符合条件"))) << mode;
        FillService(host, mode, 0);
        paging->DoFirstPage();
        EXPECT_THAT(grid->GetEmptyText().toStdString(), HasSubstr("没有符合条件")) << mode;
    }
}

TEST_F(GridFetchTest, ARaisedStatusLeavesAPageThatSaysThatReadingFailed) {
    Show(kModeBim, 3);
    host.script.During("QueryBimPics", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    paging->DoFirstPage();
    EXPECT_THAT(grid->GetEmptyText().toStdString(), HasSubstr("F5"));
}

TEST_F(GridFetchTest, ARefusedQueryHasNoHitsWhateverItCounted) {
    Show(kModeBim, 65);
    host.pics.bimQuery.status = 100;
    paging->DoFirstPage();
    EXPECT_EQ(grid->totalCount, 0);
    EXPECT_EQ(paging->GetPageCount(), 0);
}

} // namespace
