// The window of the issue viewer: opening, tabs, refresh, report, closing.
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/AmrFiles.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"

#include <QTabBar>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class IssueViewerTest : public IssueFixture {};

} // namespace

TEST_F(IssueViewerTest, OpensOnItsFirstTabWithTheNameOfTheIssue) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"梁底裂缝");
    EXPECT_EQ(Wrap().TabWnd()->GetActiveTab(), 0);
    EXPECT_EQ(Wrap().TabWnd()->Strip().tabText(0), u"问题描述");
    EXPECT_EQ(Wrap().TabWnd()->Strip().tabText(1), u"整改情况");
    EXPECT_EQ(Wrap().TabWnd()->Strip().height(), 30);
    EXPECT_TRUE(Page().Widget()->isVisible());
    EXPECT_FALSE(Rectify().Widget()->isVisible());
    EXPECT_EQ(Wrap().Widget()->minimumSize(), QSize(800, 630));
}

TEST_F(IssueViewerTest, AsksTheServicesInTheirOrder) {
    ASSERT_TRUE(Open());
    EXPECT_THAT(Log().LinesOf({"GetIssueDetail", "GetIssuePics", "GetMarkTable", "GetRectification",
                               "StateToText"}),
                ElementsAre("GetIssueDetail(ppid=1,id=q1)", "GetIssuePics(ppid=1,id=q1,kind=0)",
                            "GetMarkTable()", "GetRectification(id=q1)", testing::_));
}

TEST_F(IssueViewerTest, TheSecondTabShowsTheRectificationAndTheFirstTheIssueAgain) {
    ASSERT_TRUE(Open());
    Wrap().TabWnd()->SetActiveTab(1);
    EXPECT_FALSE(Page().Widget()->isVisible());
    EXPECT_TRUE(Rectify().Widget()->isVisible());
    Wrap().TabWnd()->SetActiveTab(0);
    EXPECT_TRUE(Page().Widget()->isVisible());
    EXPECT_FALSE(Rectify().Widget()->isVisible());
}

TEST_F(IssueViewerTest, AnotherIssueComesUpOnTheFirstTabOfTheSameWindow) {
    ASSERT_TRUE(OpenRectify());
    const toolkit::WindowId window = Wrap().Id();
    Row(u"q2"_s).theme = u"漏水"_s;
    ASSERT_TRUE(Open(u"q2"_s));
    EXPECT_EQ(Wrap().Id(), window);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"漏水");
    EXPECT_EQ(Wrap().TabWnd()->GetActiveTab(), 0);
    EXPECT_THAT(Uuids(Page()), testing::IsEmpty());
    EXPECT_THAT(Uuids(Rectify()), testing::IsEmpty());
}

TEST_F(IssueViewerTest, AnIssueThatCannotBeReadIsToldAndLeavesTheWindowAsItWas) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_FALSE(Open(u"q2"_s));
    EXPECT_EQ(Wrap().Question().questionId, u"q1");
    EXPECT_EQ(Uuids(Page()).size(), 3U);
}

TEST_F(IssueViewerTest, WithoutAWindowAnIssueThatCannotBeReadMakesNone) {
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_FALSE(Open());
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(IssueViewerTest, AClosedWindowIsHiddenAndComesBackForTheNextIssue) {
    ASSERT_TRUE(Open());
    const toolkit::WindowId window = Wrap().Id();
    Wrap().Widget()->close();
    EXPECT_TRUE(Wrap().HasWindow());
    EXPECT_FALSE(Wrap().Widget()->isVisible());
    ASSERT_TRUE(Open(u"q2"_s));
    EXPECT_EQ(Wrap().Id(), window);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}

TEST_F(IssueViewerTest, AClosedWindowBringsTheConsoleBackThatWasMinimisedForIt) {
    ASSERT_TRUE(Open());
    Facade().reopenConsole = true;
    Wrap().Widget()->close();
    EXPECT_TRUE(Console().HasWindow());
    EXPECT_EQ(Log().CountOf("QueryIssues"), 1);
}

TEST_F(IssueViewerTest, ARefreshReadsTheTextsAnewAndNotThePictures) {
    ASSERT_TRUE(Open());
    Row().theme = u"改过的名称"_s;
    Log().Clear();
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：改过的名称");
    EXPECT_EQ(Log().CountOf("GetIssuePics") + Log().CountOf("GetRectification"), 0);
    EXPECT_THAT(Log().LinesOf({"GetIssueDetail", "RefreshTNMarks"}),
                ElementsAre("GetIssueDetail(ppid=1,id=q1)", "RefreshTNMarks()"));
}

TEST_F(IssueViewerTest, AFailedRefreshLeavesTheOldTextsAndTellsOnAllTheSame) {
    ASSERT_TRUE(Open());
    Row().theme = u"改过的名称"_s;
    host.script.FailNext("GetIssueDetail");
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：梁底裂缝");
    EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 1);
}

TEST_F(IssueViewerTest, TheReportIsThereUnlessTheViewerIsReadOnlyOrAWorksetIsOpen) {
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Wrap().ReportButton()->isEnabled());
    ASSERT_TRUE(Open(u"q1"_s, 1));
    EXPECT_FALSE(Wrap().ReportButton()->isEnabled());
    host.global.worksetMode = true;
    ASSERT_TRUE(Open());
    EXPECT_FALSE(Wrap().ReportButton()->isEnabled());
}

TEST_F(IssueViewerTest, TheReportRefusesAHiddenIssueThoughTheListShowedIt) {
    ASSERT_TRUE(Open());
    Row().status = 1;
    prompts.ExpectMessage(u"该问题状态为隐藏，不能输出报告！"_s);
    support::Click(Wrap().ReportButton());
}

TEST_F(IssueViewerTest, AStatusThatCannotBeFetchedStopsTheReport) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题状态服务调用失败！"_s);
    support::Click(Wrap().ReportButton());
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
}

TEST_F(IssueViewerTest, TheReportKeepsTheClientFromTheUserUntilItsFirstLook) {
    ASSERT_TRUE(Open());
    support::Click(Wrap().ReportButton());
    EXPECT_FALSE(mainWindow.Widget()->isEnabled());
    EXPECT_TRUE(support::WaitFor([this] { return mainWindow.Widget()->isEnabled(); }));
}

TEST_F(IssueViewerTest, TheReportIsOfTheIssueOnShowWithoutTextsOfARecord) {
    host.richAuth.enabled = true;
    ASSERT_TRUE(Open());
    support::Click(Wrap().ReportButton());
    EXPECT_EQ(Log().CountOf("OutputIssueReport"), 1);
    const PIC_REPORT::IssueReportRequest& request = host.reports.lastIssue;
    EXPECT_EQ(request.questionId, u"q1");
    EXPECT_TRUE(request.richTextEnabled);
    EXPECT_TRUE(request.htmlText.isEmpty());
    EXPECT_TRUE(request.versionText.isEmpty());
    EXPECT_TRUE(request.recordText.isEmpty());
}

TEST_F(IssueViewerTest, AHiddenOrUnreadableIssueIsNoReportsAffair) {
    ASSERT_TRUE(Open());
    Row().status = 1;
    prompts.ExpectMessage(u"该问题状态为隐藏，不能输出报告！"_s);
    support::Click(Wrap().ReportButton());
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题状态服务调用失败！"_s);
    support::Click(Wrap().ReportButton());
    EXPECT_EQ(Log().CountOf("OutputIssueReport"), 0);
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
}

TEST_F(IssueViewerTest, ThePropertiesOfTheComponentAreTheViewsAffair) {
    ASSERT_TRUE(Open());
    support::Click(Wrap().PropertiesButton());
    EXPECT_THAT(Log().LinesOf({"ShowComponentProperties"}),
                ElementsAre("ShowComponentProperties(ppid=1,floor=3,handle=H77)"));
    host.script.FailAlways("GetView");
    support::Click(Wrap().PropertiesButton());
    EXPECT_EQ(Log().CountOf("ShowComponentProperties"), 1);
}

TEST_F(IssueViewerTest, ItsWindowCanComeUpWithoutAnIssue) {
    Facade().ShowIssueView();
    ASSERT_TRUE(Wrap().HasWindow());
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"TN照片查看");
    support::Click(Wrap().PropertiesButton());
    Wrap().Widget()->close();
    EXPECT_EQ(Log().CountOf("GetIssueDetail"), 0);
}

TEST_F(IssueViewerTest, LocatedByTheFacadeItMayBeChangedAndTheEditorEnds) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    ASSERT_TRUE(Editor().Widget()->isVisible());
    Facade().LocateIssue(1, u"q2"_s);
    EXPECT_FALSE(Editor().Widget()->isVisible());
    EXPECT_EQ(Wrap().Question().questionId, u"q2");
    EXPECT_EQ(Wrap().IsReadOnly(), 0);
}

TEST_F(IssueViewerTest, AChangeOfProjectLeavesViewerAndEditorOpen) {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Edit());
    Console().CloseConsole();
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_TRUE(Editor().Widget()->isVisible());
}

TEST_F(IssueViewerTest, OpenedFromTheConsoleItOutlivesIt) {
    Facade().ShowPicMng(3);
    ASSERT_TRUE(Wrap().ShowQuestion(1, u"q1"_s, Console().Id()));
    Console().CloseConsole();
    support::RunPendingEvents();
    ASSERT_TRUE(Wrap().HasWindow());
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}

TEST_F(IssueViewerTest, TheVoicesOfBothPagesStopWhenItCloses) {
    Detail().voiceUuid = u"v"_s;
    Detail().voiceMd5 =
        gallery::FileMd5(folder.Write(u"1/attachments/v.amr"_s, support::SilentAmr(500)));
    ASSERT_TRUE(Open());
    support::Click(Page().Note().Button());
    ASSERT_TRUE(Page().Note().IsPlaying());
    Wrap().Widget()->close();
    EXPECT_FALSE(Page().Note().IsPlaying());
    EXPECT_EQ(Page().Note().Status()->text(), u"就绪");
}

TEST_F(IssueViewerTest, AChangeOfTabLetsTheVoiceGoOn) {
    Detail().voiceUuid = u"v"_s;
    Detail().voiceMd5 =
        gallery::FileMd5(folder.Write(u"1/attachments/v.amr"_s, support::SilentAmr(500)));
    ASSERT_TRUE(Open());
    support::Click(Page().Note().Button());
    Wrap().TabWnd()->SetActiveTab(1);
    EXPECT_TRUE(Page().Note().IsPlaying());
    EXPECT_EQ(Page().Note().Status()->text(), u"就绪") << "refreshed all the same";
    EXPECT_EQ(Rectify().Note().Status()->text(), u"无语音");
}
