// What the facade does to open the console, and whom it tells.
#include "base/FacadeAccess.h"
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/WaitFor.h"

#include <QWidget>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FacadeConsoleTest : public ModuleFixture {
protected:
    [[nodiscard]] Calls SearchesAndNotifications() {
        return Log().LinesOf({"QueryBimPics", "QueryPdfPics", "QueryIssues", "RefreshBimMarks",
                              "RefreshPdfMarks", "RefreshTNMarks"});
    }
};

TEST_F(FacadeConsoleTest, DialogsReachTheFacadeThatLives) {
    EXPECT_EQ(&ZelvorNRQ_KXVeskPicture::PictureFacade(), &Facade());
    CKXVeskPictureImpl::ReleaseInstance();
    CKXVeskPictureImpl& next = Facade();
    EXPECT_EQ(&ZelvorNRQ_KXVeskPicture::PictureFacade(), &next);
}

TEST_F(FacadeConsoleTest, OpeningAlwaysAnswersOne) {
    for (const qint32 kind : {1, 2, 3, 1}) {
        EXPECT_EQ(Facade().ShowPicMng(kind), 1);
    }
    host.script.FailAlways("QueryBimPics");
    EXPECT_EQ(Facade().ShowPicMng(1), 1);
}

TEST_F(FacadeConsoleTest, OpeningBimPhotosTellsTheHostOfDrawingPhotos) {
    Facade().ShowPicMng(1);
    EXPECT_THAT(
        SearchesAndNotifications(),
        ElementsAre("QueryBimPics(page=1,size=30,sort=last_modifytime desc)", "RefreshPdfMarks()"));
}

TEST_F(FacadeConsoleTest, OpeningDrawingPhotosTellsTheHostOfBimPhotos) {
    Facade().ShowPicMng(2);
    EXPECT_THAT(
        SearchesAndNotifications(),
        ElementsAre("QueryPdfPics(page=1,size=30,sort=last_modifytime desc)", "RefreshBimMarks()"));
}

TEST_F(FacadeConsoleTest, OpeningIssuesTellsTheHostOfIssues) {
    Facade().ShowPicMng(3);
    EXPECT_THAT(
        SearchesAndNotifications(),
        ElementsAre("QueryIssues(page=1,size=30,sort=modifytime desc)", "RefreshTNMarks()"));
}

TEST_F(FacadeConsoleTest, PresetsTellTheHostLikeAPlainOpening) {
    Facade().ShowBimPicMngFor(0, u"K1"_s, 1, -1);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 1);
    Facade().ShowPdfPicMngFor(0, 1, 2);
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 1);
    Facade().ShowIssueMngFor(0, u"1"_s, 1, u"H"_s);
    EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 1);
}

TEST_F(FacadeConsoleTest, AnotherKindClosesTheConsoleFirstAndTheSameKindDoesNot) {
    Facade().ShowPicMng(1);
    Log().Clear();
    Facade().ShowPicMng(1);
    EXPECT_EQ(Log().CountOf("SaveRecent"), 0);
    Facade().ShowPicMng(2);
    EXPECT_THAT(
        Log().LinesOf({"SaveRecent", "QueryPdfPics"}),
        ElementsAre("SaveRecent([])", "QueryPdfPics(page=1,size=30,sort=last_modifytime desc)"));
}

TEST_F(FacadeConsoleTest, AnOpenConsoleComesToTheForeground) {
    Facade().ShowPicMng(1);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(support::WaitFor([&] { return other.isActiveWindow(); }));
    Facade().ShowPicMng(1);
    EXPECT_TRUE(support::WaitFor([] { return Console().Widget()->isActiveWindow(); }));
}

TEST_F(FacadeConsoleTest, OpeningForgetsAnEditorThatWaitedForADrawing) {
    Facade().backToPdfEdit = true;
    Facade().ShowPicMng(2);
    EXPECT_FALSE(Facade().backToPdfEdit);
}

TEST_F(FacadeConsoleTest, TheOpenDrawingIsAskedForBeforeTheConsoleOpens) {
    host.project.drawing = {500, u"一层平面"_s};
    Facade().ShowPdfPicMngFor(0, 2, 31);
    const Calls calls = Log().LinesOf({"GetCurrentDrawing", "GetWorksetProjects"});
    EXPECT_THAT(calls, ElementsAre("GetCurrentDrawing()", "GetWorksetProjects()"));
}

TEST_F(FacadeConsoleTest, WithoutASinkTheConsoleOpensAndTheLogSaysWhatWasSkipped) {
    Facade().SetPicSink(nullptr);
    Facade().ShowPicMng(1);
    Facade().ShowPicMng(2);
    Facade().ShowPicMng(3);
    EXPECT_TRUE(Console().HasWindow());
    EXPECT_THAT(Log().LinesOf({"RefreshBimMarks", "RefreshPdfMarks", "RefreshTNMarks"}), IsEmpty());
    for (const QString& skipped :
         {u"RefreshPdfMarks"_s, u"RefreshBimMarks"_s, u"RefreshTNMarks"_s}) {
        EXPECT_EQ(ModuleLog().count(skipped), 1) << skipped.toStdString();
    }
}

TEST_F(FacadeConsoleTest, WithoutAProjectTheConsoleOpens) {
    host.project.project.reset();
    Facade().ShowPicMng(1);
    EXPECT_TRUE(Console().HasWindow());
    host.script.FailAlways("GetCurrentProject");
    Facade().ShowPicMng(2);
    EXPECT_EQ(Console().GetMode(), kModePdf);
}

TEST_F(FacadeConsoleTest, TheLimitsOfABimPresetReachTheSearch) {
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
    EXPECT_EQ(host.pics.lastBimFilter.presetKey, u"K7"_s);
    EXPECT_EQ(host.pics.lastBimFilter.markId, 2);
    EXPECT_EQ(host.pics.lastBimFilter.picId, 3);
}

TEST_F(FacadeConsoleTest, OpeningAMinimisedConsoleBringsItBackUp) {
    Facade().ShowPicMng(1);
    EXPECT_TRUE(Console().Widget()->isVisible());
    Console().Minimise();
    ASSERT_TRUE(Console().Widget()->isMinimized());
    Facade().ShowPicMng(1);
    EXPECT_FALSE(Console().Widget()->isMinimized());
}

} // namespace
