// Reverse lookup from a row into the view.
#include "base/FacadeAccess.h"
#include "frame/KXVeskPictureImpl.h"
#include "issues/TNPicEditDlg.h"
#include "issues/TNPicViewWrap.h"
#include "tests/console/managers/ManagerFixture.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/PdfPicViewWrap.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A facade whose viewer for drawing photos comes or not, as a test says.
class FacadeWithPdfViewer final : public ZelvorNRQ_KXVeskPicture::IPictureFacade {
public:
    explicit FacadeWithPdfViewer(IPictureFacade& real) : m_real(real) {
        ZelvorNRQ_KXVeskPicture::SetPictureFacade(this);
    }
    ~FacadeWithPdfViewer() override { ZelvorNRQ_KXVeskPicture::SetPictureFacade(&m_real); }

    ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink& Sink() override { return m_real.Sink(); }
    qint32 ShowPicMng(qint32 kind) override { return m_real.ShowPicMng(kind); }
    bool OpenBimPicView(qint32, const QString&, const QString&, qint32) override { return false; }
    bool OpenPdfPicView(qint32 ppid, qint32 drawingId, const QString& name, KXWindow) override {
        opened = QString::number(ppid) + u' ' + QString::number(drawingId) + u' ' + name;
        selectedPicId = TakePendingPic();
        return comes;
    }
    ZelvorNRQ_KXVeskPicture::IKXIssueEditSink& IssueEditSink() override {
        return m_real.IssueEditSink();
    }
    void RefreshIssueMarks() override {}
    void LocateIssue(qint32, const QString&) override {}
    ZelvorNRQ_KXVeskPicture::IQuestionRefresh& IssueRefresh() override {
        return m_real.IssueRefresh();
    }

    bool comes = true;
    QString opened;
    qint32 selectedPicId = KX_DATA::kNoPic;

private:
    IPictureFacade& m_real;
};

class LocateTest : public ManagerFixture {
protected:
    void Show(ConsoleMode mode, int rows = 3) {
        Open(mode, rows);
        Fetch();
        Log().Clear();
    }
    /// What waits to be selected while the operation runs.
    void WatchPending(const std::string& operation) {
        host.script.During(operation, [this] { pendingDuring = Facade().pendingPicId; });
    }

    qint32 pendingDuring = KX_DATA::kNoPic;
};

TEST_F(LocateTest, ABimPhotoIsToldToTheMainWindowAndShownByTheView) {
    Show(kModeBim);
    WatchPending("LocatePicture");
    Manager().LocateRow(Row(1));
    EXPECT_THAT(Log().LinesOf({"GetView", "MainWindow", "LocatePicture", "GetPicFilesByPosition"}),
                ElementsAre("GetView()", "MainWindow(event=7529,first=0,text=1-1-2)",
                            "LocatePicture(position=K2,mark=1)",
                            "GetPicFilesByPosition(ppid=1,position=K2,mark=1)"));
    EXPECT_EQ(pendingDuring, 2);
    EXPECT_TRUE(ModuleLog().contains(u"BIM模型照片查看"_s));
}

TEST_F(LocateTest, NoPhotoWaitsAfterASuccessfulLookupAndTheViewerWillBringTheConsoleBack) {
    Show(kModeBim);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Facade().pendingPicId, KX_DATA::kNoPic);
    EXPECT_TRUE(Facade().reopenConsole);
}

TEST_F(LocateTest, AHiddenBimPhotoIsRefusedBeforeAnythingIsAsked) {
    Show(kModeBim);
    Manager().SetRowStatus(Row(0), 1);
    Facade().pendingPicId = 5;
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Log().CountOf("GetView"), 0);
    EXPECT_EQ(Facade().pendingPicId, 5);
}

TEST_F(LocateTest, OnlyStatusOneIsRefusedSoThatAPhotoJustHiddenByTheConsoleIsLocated) {
    Show(kModeBim);
    Check({0});
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(Cell(0, 11), "隐藏");
    EXPECT_EQ(static_cast<KX_DATA::BimPicRow*>(Row(0).GetData())->status, 11);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Log().CountOf("LocatePicture"), 1);
}

TEST_F(LocateTest, AnIssueJustHiddenByTheConsoleIsLocatedToo) {
    Show(kModeIssue);
    Check({0});
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(static_cast<KX_DATA::IssueRow*>(Row(0).GetData())->status, 11);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Log().CountOf("LocateIssue"), 1);
}

TEST_F(LocateTest, TheNextFetchBringsTheServicesStatusBack) {
    Show(kModeBim);
    Check({0});
    grid->Actions().SetCheckedShown(false);
    Fetch();
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Log().CountOf("LocatePicture"), 0);
}

TEST_F(LocateTest, APhotoThatTheViewDoesNotShowIsForgottenWithAMessage) {
    Show(kModeBim);
    host.script.FailNext("LocatePicture");
    prompts.ExpectMessage(u"请先开启vesk图形显示再定位！"_s);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Facade().pendingPicId, KX_DATA::kNoPic);
    EXPECT_THAT(Log().LinesOf({"MainWindow"}),
                ElementsAre("MainWindow(event=7529,first=0,text=1-1-1)"));
    EXPECT_FALSE(ModuleLog().contains(u"BIM模型照片查看"_s));
}

TEST_F(LocateTest, WithoutAViewALookupAnswersLikeOneThatShowsNothing) {
    Show(kModeBim);
    host.script.FailAlways("GetView");
    prompts.ExpectMessage(u"请先开启vesk图形显示再定位！"_s);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Facade().pendingPicId, KX_DATA::kNoPic);
    Show(kModeIssue);
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Manager().LocateRow(Row(0));
}

TEST_F(LocateTest, ThePageMayBeFetchedAgainByWhatTheMainWindowDoes) {
    Show(kModeBim);
    host.script.During("MainWindow", [this] {
        host.pics.bimPics.clear();
        Fetch();
    });
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Log().LinesOf({"LocatePicture"}).front(), "LocatePicture(position=K1,mark=1)");
}

TEST_F(LocateTest, AHiddenDrawingPhotoIsShownOnItsDrawingWithoutAnyCheck) {
    Show(kModePdf);
    Manager().SetRowStatus(Row(1), 1);
    qint32 pending = 0;
    host.script.During("SelectCheckpoint", [&] { pending = Facade().pendingPicId; });
    Manager().LocateRow(Row(1));
    EXPECT_THAT(Log().LinesOf({"SelectCheckpoint", "GetDrawing"}),
                ElementsAre("SelectCheckpoint(drawing=500)", "GetDrawing(drawing=102)"));
    // The drawing comes up before the photo waits for its viewer.
    EXPECT_EQ(pending, KX_DATA::kNoPic);
    support::RunPendingEvents();
    EXPECT_THAT(Log().LinesOf({"MainWindow"}),
                ElementsAre("MainWindow(event=7529,first=3,second=102)"));
    EXPECT_EQ(Facade().pendingPicId, KX_DATA::kNoPic);
    EXPECT_TRUE(CPdfPicViewWrap::Instance().Widget()->isVisible());
}

TEST_F(LocateTest, ADrawingPhotoWhoseEditorWaitsGoesBackToTheEditor) {
    Show(kModePdf);
    Facade().backToPdfEdit = true;
    Manager().LocateRow(Row(0));
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_FALSE(CPdfPicViewWrap::HasInstance());
}

TEST_F(LocateTest, ADrawingPhotoIsSelectedInItsViewerWhichBringsTheConsoleBack) {
    Show(kModePdf);
    FacadeWithPdfViewer facade(Facade());
    Manager().LocateRow(Row(1));
    EXPECT_EQ(facade.opened, u"1 102 一层平面"_s);
    EXPECT_EQ(facade.selectedPicId, 2);
    EXPECT_TRUE(facade.reopenConsole);
}

TEST_F(LocateTest, WithoutAViewerOfItsDrawingNothingWaitsToBringTheConsoleBack) {
    Show(kModePdf);
    FacadeWithPdfViewer facade(Facade());
    facade.comes = false;
    Manager().LocateRow(Row(1));
    EXPECT_FALSE(facade.reopenConsole);
}

TEST_F(LocateTest, AHiddenIssueIsRefusedInAMessageWithoutAParent) {
    Show(kModeIssue);
    Manager().SetRowStatus(Row(0), 1);
    prompts.ExpectMessage(u"当前问题状态为隐藏，不支持直接定位！"_s);
    Manager().LocateRow(Row(0));
    EXPECT_THAT(Log().LinesOf({"GetView", "LocateIssue"}), IsEmpty());
    EXPECT_THAT(prompts.Parents(), ElementsAre(toolkit::kNoWindow));
}

TEST_F(LocateTest, AnIssueThatTheViewDoesNotShowGivesAMessage) {
    Show(kModeIssue);
    host.script.FailNext("LocateIssue");
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Manager().LocateRow(Row(0));
    EXPECT_FALSE(CTNPicViewWrap::Instance().HasWindow());
    EXPECT_THAT(prompts.Parents(), ElementsAre(toolkit::kNoWindow));
}

TEST_F(LocateTest, AnIssueThatTheViewShowsIsOpenedAndBringsTheConsoleBackLater) {
    Show(kModeIssue);
    Manager().LocateRow(Row(2));
    EXPECT_THAT(Log().LinesOf({"GetView", "LocateIssue", "GetIssueDetail"}),
                ElementsAre("GetView()", "LocateIssue(id=q3)", "GetIssueDetail(ppid=1,id=q3)"));
    EXPECT_TRUE(CTNPicViewWrap::Instance().Widget()->isVisible());
    EXPECT_EQ(CTNPicViewWrap::Instance().IsReadOnly(), 0);
    EXPECT_TRUE(Facade().reopenConsole);
}

TEST_F(LocateTest, AnIssueLocatedInAWorksetIsReadOnly) {
    Show(kModeIssue);
    host.global.worksetMode = true;
    Manager().LocateRow(Row(2));
    EXPECT_EQ(CTNPicViewWrap::Instance().IsReadOnly(), 1);
}

TEST_F(LocateTest, ASecondIssueLocatedBringsTheConsoleBackFirstAndLeavesItAgain) {
    Show(kModeIssue);
    Manager().LocateRow(Row(2));
    Log().Clear();
    Manager().LocateRow(Row(0));
    EXPECT_THAT(Log().LinesOf({"LocateIssue", "QueryIssues", "GetIssueDetail"}),
                ElementsAre("LocateIssue(id=q1)", testing::StartsWith("QueryIssues"),
                            "GetIssueDetail(ppid=1,id=q1)"));
    EXPECT_TRUE(Facade().reopenConsole);
}

TEST_F(LocateTest, APreviewOfAnIssueIsReadOnlyAndLocatesNothing) {
    Show(kModeIssue);
    Manager().PreviewRow(Row(2));
    EXPECT_THAT(Log().LinesOf({"GetView", "LocateIssue"}), IsEmpty());
    EXPECT_EQ(CTNPicViewWrap::Instance().IsReadOnly(), 1);
    EXPECT_EQ(CTNPicViewWrap::Instance().Question().questionId, u"q3");
    EXPECT_FALSE(Facade().reopenConsole);
}

TEST_F(LocateTest, AnIssueIsEditedWithoutARefetchByTheGrid) {
    Show(kModeIssue);
    EXPECT_FALSE(Manager().EditRow(Row(2)));
    EXPECT_EQ(CTNPicEditDlg::Instance().Question().questionId, u"q3");
    EXPECT_TRUE(CTNPicEditDlg::Instance().ownerView.has_value());
}

TEST_F(LocateTest, ThePageOfIssuesMayBeFetchedAgainByWhatTheViewDoes) {
    Show(kModeIssue);
    // Other issues, at the places of the old ones.
    host.script.During("GetView", [this] {
        for (KX_DATA::IssueRow& issue : host.questions.issues) {
            issue.questionId += u"-other"_s;
        }
        Fetch();
        Fetch();
    });
    // The one that was asked for is gone by then.
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    Manager().LocateRow(Row(0));
    EXPECT_EQ(Log().LinesOf({"LocateIssue"}).front(), "LocateIssue(id=q1)");
}

} // namespace
