// How facade, console and observers open and close the drawing photo viewer.
#include "console/VeskPicMngDlg.h"
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/pdf/PdfViewFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PdfViewFacadeTest : public PdfViewFixture {
protected:
    PdfViewFacadeTest() {
        for (const qint32 picId : {1, 2, 3}) {
            KX_DATA::PdfPicRecord row;
            row.picId = picId;
            row.ppid = 1;
            row.drawingId = 101;
            row.checkpointId = 500;
            row.drawingName = u"一层平面"_s;
            host.pics.pdfPics.push_back(row);
        }
    }
    /// The console on the drawing photos, with a row looked up.
    void LocateRow(int row) {
        Facade().ShowPicMng(kModePdf);
        Log().Clear();
        CVeskPicMngGrid& grid = *Console().Grid();
        grid.Manager()->LocateRow(*grid.GetRow(row));
    }
};

} // namespace

TEST_F(PdfViewFacadeTest, AnOpeningNamesTheCheckpointAndTakesThePendingPhoto) {
    Facade().pendingPicId = 2;
    Facade().ShowPdfPicView(1, 101, u"一层平面"_s, mainWindow.Id());
    EXPECT_EQ(Facade().pendingPicId, -1);
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Wrap().drawingId, 101);
    EXPECT_EQ(Wrap().drawingName, u"一层平面");
    EXPECT_EQ(Wrap().ppid, 1);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}

TEST_F(PdfViewFacadeTest, ItsWindowBelongsToTheCallersAndBearsItsCaption) {
    ASSERT_TRUE(Open(103));
    EXPECT_EQ(Wrap().Widget()->parentWidget(), mainWindow.Widget());
    EXPECT_TRUE(Wrap().Widget()->isWindow());
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"PDF照片查看");
    EXPECT_EQ(Wrap().Widget()->objectName(), u"PdfPicViewWrap");
}

TEST_F(PdfViewFacadeTest, ACheckpointThatCannotBeReadIsToldAndTheViewerClosed) {
    Facade().pendingPicId = 2;
    host.script.FailNext("GetDrawing");
    toolkit::WindowId viewer = toolkit::kNoWindow;
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    prompts.Meanwhile([&] { viewer = Wrap().Id(); });
    EXPECT_FALSE(Facade().OpenPdfPicView(1, 101, u"一层平面"_s, mainWindow.Id()));
    EXPECT_EQ(Facade().pendingPicId, -1);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_NE(viewer, toolkit::kNoWindow);
    EXPECT_EQ(prompts.Parents().back(), viewer);
}

TEST_F(PdfViewFacadeTest, ACheckpointThatIsNotThereClosesAViewerThatWasOpen) {
    ASSERT_TRUE(Open());
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    EXPECT_FALSE(Open(999));
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(PdfViewFacadeTest, AWindowOpenedBehindTheMessageOfAFailedOpeningStays) {
    host.script.FailNext("GetDrawing");
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    prompts.Meanwhile([this] {
        Wrap().DestroyViews();
        EXPECT_TRUE(Open());
    });
    EXPECT_FALSE(Open());
    EXPECT_TRUE(Wrap().HasWindow());
}

TEST_F(PdfViewFacadeTest, EveryOpeningBringsTheViewerToTheForeground) {
    mainWindow.Widget()->show();
    for (int opening = 0; opening < 2; ++opening) {
        mainWindow.Widget()->activateWindow();
        ASSERT_TRUE(support::WaitFor([this] { return mainWindow.Widget()->isActiveWindow(); }));
        ASSERT_TRUE(Open());
        EXPECT_TRUE(support::WaitFor([] { return Wrap().Widget()->isActiveWindow(); })) << opening;
    }
}

TEST_F(PdfViewFacadeTest, TheEditorThatWaitsGetsTheDrawingAndNoViewerOpens) {
    Facade().backToPdfEdit = true;
    EXPECT_FALSE(Open());
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("GetDrawing"), 0);
}

TEST_F(PdfViewFacadeTest, ALookupFromTheConsoleOpensTheViewerOnThePhotoAndMinimisesTheConsole) {
    LocateRow(1);
    EXPECT_THAT(Log().LinesOf({"SelectCheckpoint", "GetDrawing"}),
                ElementsAre("SelectCheckpoint(drawing=500)", "GetDrawing(drawing=101)"));
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Current(), 1);
    EXPECT_TRUE(Facade().reopenConsole);
    EXPECT_TRUE(Console().Widget()->isMinimized());
}

TEST_F(PdfViewFacadeTest, ClosingTheViewerBringsTheConsoleBackOnTheDrawingPhotosBeforeItGoes) {
    LocateRow(0);
    bool there = false;
    host.script.During("QueryPdfPics", [&] { there = Wrap().HasWindow() && Pane().HasWindow(); });
    Wrap().Widget()->close();
    EXPECT_TRUE(there);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().HasWindow());
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
    EXPECT_EQ(Log().CountOf("QueryPdfPics"), 1);
}

TEST_F(PdfViewFacadeTest, ThePanesOwnCloseBringsTheConsoleBackToo) {
    LocateRow(0);
    Pane().Widget()->close();
    EXPECT_FALSE(Pane().HasWindow());
    EXPECT_FALSE(Facade().reopenConsole);
}

TEST_F(PdfViewFacadeTest, ClosingAViewerThatTheConsoleDidNotOpenLeavesTheConsoleAlone) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->close();
    EXPECT_FALSE(Console().HasWindow());
}

TEST_F(PdfViewFacadeTest, AFailedViewerLeavesTheConsoleInSight) {
    host.script.FailNext("GetDrawing");
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    LocateRow(0);
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

TEST_F(PdfViewFacadeTest, AChangeOfProjectEndsBothViewersBeforeTheProviderAndAsksNothing) {
    LocateRow(0);
    std::string seen;
    host.script.During("GetCurrentProject", [&] {
        seen += Console().HasWindow() || Wrap().HasWindow() || Pane().HasWindow() ? "open;"
                                                                                  : "all shut;";
    });
    CVeskPicProjChangeObs().OnProjChange();
    EXPECT_EQ(seen, "all shut;");
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_TRUE(Facade().reopenConsole) << "for the next viewer that closes";
    EXPECT_THAT(prompts.Parents(), IsEmpty());
    host.script.During("GetCurrentProject", nullptr);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Current(), 0);
}
