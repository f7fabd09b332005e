// How facade, console and observers open and close the BIM photo viewer.
#include "console/VeskPicMngDlg.h"
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BimViewFacadeTest : public BimViewFixture {
protected:
    /// The console on the photos, with the first row looked up.
    void LocateFirstRow() {
        Facade().ShowPicMng(kModeBim);
        Log().Clear();
        CVeskPicMngGrid& grid = *Console().Grid();
        grid.Manager()->LocateRow(*grid.GetRow(0));
    }
};

} // namespace

TEST_F(BimViewFacadeTest, AnOpeningTakesThePendingPhoto) {
    EXPECT_TRUE(Open(2));
    EXPECT_EQ(Facade().pendingPicId, -1);
    EXPECT_EQ(Current(), 1);
}

TEST_F(BimViewFacadeTest, AFailedOpeningTakesThePendingPhotoTooAndClosesTheViewer) {
    host.script.FailNext("GetPicFilesByPosition");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    EXPECT_FALSE(Open(2));
    EXPECT_EQ(Facade().pendingPicId, -1);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().HasWindow());
}

TEST_F(BimViewFacadeTest, TheMessageOfAFailedOpeningBelongsToTheViewer) {
    host.script.FailNext("GetPicFilesByPosition");
    toolkit::WindowId viewer = toolkit::kNoWindow;
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([&] { viewer = Wrap().Id(); });
    EXPECT_FALSE(Open());
    EXPECT_NE(viewer, toolkit::kNoWindow);
    EXPECT_EQ(prompts.Parents().back(), viewer);
}

TEST_F(BimViewFacadeTest, TheViewerIsAWindowOfTheClientUnderItsOwnCaption) {
    host.pics.files.clear();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Widget()->parentWidget(), mainWindow.Widget());
    EXPECT_TRUE(Wrap().Widget()->isWindow());
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"vesk照片查看");
}

TEST_F(BimViewFacadeTest, AMaximisedViewerStaysSoAtTheNextOpening) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->showMaximized();
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Wrap().Widget()->isMaximized());
    Wrap().Widget()->showMinimized();
    ASSERT_TRUE(Open());
    EXPECT_FALSE(Wrap().Widget()->isMinimized());
}

TEST_F(BimViewFacadeTest, EveryOpeningBringsTheViewerToTheForeground) {
    mainWindow.Widget()->show();
    for (int opening = 0; opening < 2; ++opening) {
        mainWindow.Widget()->activateWindow();
        ASSERT_TRUE(support::WaitFor([this] { return mainWindow.Widget()->isActiveWindow(); }));
        ASSERT_TRUE(Open());
        EXPECT_TRUE(support::WaitFor([] { return Wrap().Widget()->isActiveWindow(); })) << opening;
    }
}

TEST_F(BimViewFacadeTest, AViewerClosedWhileItsPhotosAreListedIsNoViewerAndSaysNothing) {
    host.script.During("GetPicFilesByPosition", [] { Wrap().Widget()->close(); });
    EXPECT_FALSE(Open());
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(BimViewFacadeTest, AWindowOpenedBehindTheMessageOfAFailedOpeningStays) {
    host.script.FailNext("GetPicFilesByPosition");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([this] {
        Wrap().DestroyViews();
        EXPECT_TRUE(Open());
    });
    EXPECT_FALSE(Open());
    EXPECT_TRUE(Wrap().HasWindow());
}

TEST_F(BimViewFacadeTest, AReverseLookupOpensTheViewerOnThePhotoAndMinimisesTheConsole) {
    LocateFirstRow();
    EXPECT_THAT(Log().LinesOf({"GetView", "MainWindow", "LocatePicture", "GetPicFilesByPosition"}),
                ElementsAre("GetView()", testing::HasSubstr("7529"),
                            "LocatePicture(position=K1,mark=1)",
                            "GetPicFilesByPosition(ppid=1,position=K1,mark=1)"));
    EXPECT_TRUE(Facade().reopenConsole);
    EXPECT_TRUE(Console().Widget()->isMinimized());
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Current(), 0);
}

TEST_F(BimViewFacadeTest, ClosingTheViewerBringsTheConsoleBack) {
    LocateFirstRow();
    Wrap().Widget()->close();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
    EXPECT_TRUE(Console().Widget()->isVisible());
}

TEST_F(BimViewFacadeTest, ClosingAViewerThatTheConsoleDidNotOpenLeavesTheConsoleAlone) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->close();
    EXPECT_FALSE(Console().HasWindow());
}

TEST_F(BimViewFacadeTest, AFailedViewerLeavesTheConsoleInSight) {
    host.script.FailNext("GetPicFilesByPosition");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    LocateFirstRow();
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_TRUE(Console().Widget()->isVisible());
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

TEST_F(BimViewFacadeTest, AViewerClosedBehindItsFirstMessageLeavesTheConsoleInSight) {
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([] { Wrap().Widget()->close(); });
    LocateFirstRow();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

TEST_F(BimViewFacadeTest, AFailureOfTheSecondLookupBringsTheConsoleBackToo) {
    LocateFirstRow();
    host.script.FailNext("GetPicFilesByPosition");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    CVeskPicMngGrid& grid = *Console().Grid();
    grid.Manager()->LocateRow(*grid.GetRow(1));
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

TEST_F(BimViewFacadeTest, QuickLookupsOneAfterTheOtherEndOnTheLast) {
    for (const char* uuid : {"uuid1", "uuid2", "uuid3"}) {
        QFile::remove(folder.Path(PictureFolder() + QString::fromLatin1(uuid) + u".jpg"_s));
    }
    LocateFirstRow();
    CVeskPicMngGrid& grid = *Console().Grid();
    grid.Manager()->LocateRow(*grid.GetRow(1));
    grid.Manager()->LocateRow(*grid.GetRow(2));
    EXPECT_EQ(Current(), 2);
    EXPECT_TRUE(support::WaitFor([] { return Pane().State().activeDownloads == 0; }));
    Wrap().Widget()->close();
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

TEST_F(BimViewFacadeTest, AFlagOpensItsPhotosThroughTheObserver) {
    const qint32 ppid = 1;
    CViewBimPicObs observer;
    observer.ViewBimPic(&ppid, u"1"_s, u"K"_s, 1);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Current(), 0);
}

TEST_F(BimViewFacadeTest, APhotoWithoutAPlaceInTheViewOpensByTheRequestsOwnKey) {
    host.pics.bimPics[0].floor.clear();
    host.script.FailNext("LocatePicture");
    ZelvorNRQ_KXVeskPicture::ViewPicRequest request;
    request.positionKey = u"from the host"_s;
    request.picId = 1;
    request.ppid = 1;
    Facade().ViewBimPic(request);
    EXPECT_THAT(Log().LinesOf({"GetPicFilesByPosition"}),
                ElementsAre("GetPicFilesByPosition(ppid=1,position=from the host,mark=1)"));
    EXPECT_TRUE(Wrap().Widget()->isVisible());
}

TEST_F(BimViewFacadeTest, AChangeOfProjectEndsTheViewerWithoutBringingTheConsoleBack) {
    LocateFirstRow();
    CVeskPicProjChangeObs observer;
    observer.OnProjChange();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().HasWindow());
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(BimViewFacadeTest, AChangeOfProjectLeavesTheConsoleToBeBroughtBackByTheNextViewer) {
    LocateFirstRow();
    CVeskPicProjChangeObs observer;
    observer.OnProjChange();
    EXPECT_TRUE(Facade().reopenConsole);
    ASSERT_TRUE(Open());
    Wrap().Widget()->close();
    EXPECT_TRUE(Console().HasWindow());
}

TEST_F(BimViewFacadeTest, AfterAChangeOfProjectTheSameViewerOpensAgain) {
    ASSERT_TRUE(Open());
    CVeskPicProjChangeObs observer;
    observer.OnProjChange();
    ASSERT_TRUE(Open(2));
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Pane().Items().size(), 3U);
}

TEST_F(BimViewFacadeTest, EverythingClosedDuringADownloadEndsQuietly) {
    QFile::remove(folder.Path(PictureFolder() + u"uuid1.jpg"_s));
    host.files.stored = {{u"uuid1"_s, QByteArray(100'000, 'x')}};
    LocateFirstRow();
    Wrap().Widget()->close();
    Console().CloseConsole();
    support::RunPendingEvents();
    EXPECT_FALSE(Wrap().HasWindow());
}
