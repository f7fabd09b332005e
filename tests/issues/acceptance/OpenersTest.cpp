// Who opens issue viewer and issue editor, and with which rights.
#include "console/VeskPicMngDlg.h"
#include "console/VeskPicMngGrid.h"
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class OpenersTest : public IssueFixture {
protected:
    void OpenConsole() {
        Facade().ShowPicMng(3);
        ASSERT_GT(Console().Grid()->GetRowCount(), 0);
        Log().Clear();
    }
    static CVeskPicMngGrid& Grid() { return *Console().Grid(); }
    static void Locate(int row = 0) { Grid().Manager()->LocateRow(*Grid().GetRow(row)); }
    static void Preview(int row = 0) { Grid().Manager()->PreviewRow(*Grid().GetRow(row)); }
};

} // namespace

TEST_F(OpenersTest, APreviewIsReadOnlyAndAsksNoView) {
    OpenConsole();
    Preview();
    EXPECT_EQ(Wrap().IsReadOnly(), 1);
    EXPECT_EQ(Log().CountOf("LocateIssue"), 0);
    EXPECT_FALSE(Console().Widget()->isMinimized());
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_EQ(Wrap().outerRefresh,
              static_cast<ZelvorNRQ_KXVeskPicture::IQuestionRefresh*>(&Facade()));
}

TEST_F(OpenersTest, APreviewOfAHiddenIssueIsShown) {
    Row().status = 1;
    OpenConsole();
    Preview();
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}

TEST_F(OpenersTest, AReverseLookupMayChangeUnlessAWorksetIsOpen) {
    OpenConsole();
    Locate();
    EXPECT_EQ(Wrap().IsReadOnly(), 0);
    EXPECT_TRUE(Console().Widget()->isMinimized());
    EXPECT_TRUE(Facade().reopenConsole);
    host.global.worksetMode = true;
    Locate();
    EXPECT_EQ(Wrap().IsReadOnly(), 1);
}

TEST_F(OpenersTest, AReverseLookupAsksTheViewBeforeTheIssue) {
    OpenConsole();
    Locate();
    EXPECT_THAT(Log().LinesOf({"LocateIssue", "GetIssueDetail"}),
                ElementsAre("LocateIssue(id=q1)", "GetIssueDetail(ppid=1,id=q1)"));
}

TEST_F(OpenersTest, AHiddenIssueIsNotLookedUpAndOneHiddenJustNowIs) {
    Row().status = 1;
    Row(u"q2"_s).status = 11;
    OpenConsole();
    prompts.ExpectMessage(u"当前问题状态为隐藏，不支持直接定位！"_s);
    Locate(0);
    EXPECT_EQ(prompts.Parents().back(), toolkit::kNoWindow);
    EXPECT_EQ(Log().CountOf("LocateIssue"), 0);
    EXPECT_FALSE(Wrap().HasWindow());
    Locate(1);
    EXPECT_EQ(Wrap().Question().questionId, u"q2");
}

TEST_F(OpenersTest, WithIssuesSwitchedOffInTheViewNothingOpens) {
    OpenConsole();
    host.script.FailAlways("LocateIssue");
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Locate();
    EXPECT_EQ(prompts.Parents().back(), toolkit::kNoWindow);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Facade().reopenConsole);
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Facade().LocateIssue(1, u"q1"_s);
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(OpenersTest, ASwitchedOffViewLeavesTheEditorAlone) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    host.script.FailAlways("LocateIssue");
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Facade().LocateIssue(1, u"q2"_s);
    EXPECT_TRUE(Editor().Widget()->isVisible());
    EXPECT_EQ(Wrap().Question().questionId, u"q1");
}

TEST_F(OpenersTest, APreviewEndsAnEditorOfTheConsoleWithoutSaving) {
    OpenConsole();
    EXPECT_FALSE(Grid().Manager()->EditRow(*Grid().GetRow(0)));
    ASSERT_TRUE(Editor().Widget()->isVisible());
    EXPECT_EQ(Editor().ownerView->data(), Grid().Widget());
    Preview(1);
    EXPECT_FALSE(Editor().Widget()->isVisible());
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 0);
}

TEST_F(OpenersTest, TheEditorOfTheConsoleTellsTheGridAndNotTheHost) {
    OpenConsole();
    EXPECT_FALSE(Grid().Manager()->EditRow(*Grid().GetRow(0)));
    EXPECT_EQ(Log().CountOf("QueryIssues"), 0);
    Press("okButton");
    EXPECT_THAT(Log().LinesOf({"UpdateIssue", "QueryIssues"}),
                ElementsAre("UpdateIssue(ppid=1,id=q1)", testing::StartsWith("QueryIssues")));
}

TEST_F(OpenersTest, AChangeOfModeLeavesViewerAndEditorOpen) {
    OpenConsole();
    Preview();
    EXPECT_FALSE(Grid().Manager()->EditRow(*Grid().GetRow(0)));
    Facade().ShowPicMng(1);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_TRUE(Editor().Widget()->isVisible());
    Press("okButton");
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 1);
}

TEST_F(OpenersTest, TheHostsObserverLocatesAsTheFacade) {
    CViewBimPicObs observer;
    observer.LocateIssue(1, u"q2"_s);
    EXPECT_EQ(Wrap().Question().questionId, u"q2");
    EXPECT_EQ(Wrap().IsReadOnly(), 0);
    EXPECT_THAT(Log().LinesOf({"LocateIssue", "GetIssueDetail"}),
                ElementsAre("LocateIssue(id=q2)", "GetIssueDetail(ppid=1,id=q2)"));
}

TEST_F(OpenersTest, ADeletionByTheFacadeNotifiesNobody) {
    EXPECT_TRUE(Facade().DeleteIssue(u"q1"_s));
    EXPECT_THAT(Log().LinesOf({"DeleteIssues", "RefreshTNMarks", "RefreshPicMarks"}),
                ElementsAre("DeleteIssues(ids=[q1])"));
    host.script.FailNext("DeleteIssues");
    EXPECT_FALSE(Facade().DeleteIssue(u"q1"_s));
}
