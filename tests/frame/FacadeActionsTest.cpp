// The facade's operations for one photo or issue.
#include "frame/KXVeskPictureImpl.h"
#include "issues/TNPicViewWrap.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/PdfPicViewWrap.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::ModalVisit;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using ZelvorNRQ_KXVeskPicture::ViewPicRequest;

const QString kPhotoEditor = u"BimPicEditDlg"_s;

class FacadeActionsTest : public ModuleFixture {
protected:
    FacadeActionsTest() {
        FillService(host, kModeBim, 2);
        host.questions.issues = {Issue(1), Issue(2)};
    }
    static ViewPicRequest Request(qint32 picId) {
        ViewPicRequest request;
        request.positionKey = u"from the host"_s;
        request.picId = picId;
        request.ppid = 1;
        return request;
    }
    static void Press(QWidget& window, const QString& button) {
        support::Click(window.findChild<QPushButton*>(button));
    }
    void WatchPending() {
        host.script.During("LocatePicture", [this] { pendingDuring = Facade().pendingPicId; });
    }
    [[nodiscard]] bool ViewerOpened() { return ModuleLog().contains(u"BIM模型照片查看"_s); }
    KX_DATA::PicFileEntry FileOf(qint32 picId) {
        KX_DATA::PicFileEntry entry;
        entry.picId = picId;
        entry.picUuid = u"uuid%1"_s.arg(picId);
        return entry;
    }

    qint32 pendingDuring = 0;
};

TEST_F(FacadeActionsTest, ViewingAPhotoLocatesItAndThenOpensItsViewer) {
    WatchPending();
    Facade().ViewBimPic(Request(2));
    EXPECT_THAT(
        Log().LinesOf({"GetBimPicDetail", "GetView", "LocatePicture", "GetPicFilesByPosition"}),
        ElementsAre("GetBimPicDetail(ppid=1,id=2)", "GetView()",
                    "LocatePicture(position=K2,mark=1)",
                    "GetPicFilesByPosition(ppid=1,position=K2,mark=1)"));
    EXPECT_EQ(pendingDuring, 2);
    EXPECT_TRUE(ViewerOpened());
    EXPECT_EQ(Facade().pendingPicId, -1);
}

TEST_F(FacadeActionsTest, ViewingAHiddenPhotoIsRefusedInAMessageWithoutAParent) {
    host.pics.bimPics[0].status = 1;
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    Facade().ViewBimPic(Request(1));
    EXPECT_THAT(prompts.Parents(), ElementsAre(toolkit::kNoWindow));
    EXPECT_THAT(Log().LinesOf({"GetView", "LocatePicture"}), IsEmpty());
    EXPECT_EQ(Facade().pendingPicId, -1);
    EXPECT_FALSE(ViewerOpened());
}

TEST_F(FacadeActionsTest, ViewingAnUnknownPhotoSaysTheSame) {
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    Facade().ViewBimPic(Request(77));
    EXPECT_FALSE(ViewerOpened());
}

TEST_F(FacadeActionsTest, APhotoOnAFloorThatTheViewDoesNotShowIsForgottenWithAMessage) {
    host.script.FailNext("LocatePicture");
    prompts.ExpectMessage(u"请先开启vesk图形显示再定位！"_s);
    Facade().ViewBimPic(Request(1));
    EXPECT_EQ(Facade().pendingPicId, -1);
    EXPECT_FALSE(ViewerOpened());
    EXPECT_THAT(prompts.Parents(), ElementsAre(toolkit::kNoWindow));
}

TEST_F(FacadeActionsTest, APhotoWithoutAFloorOpensThoughTheViewDoesNotShowIt) {
    host.pics.bimPics[0].floor.clear();
    host.script.FailNext("LocatePicture");
    Facade().ViewBimPic(Request(1));
    EXPECT_TRUE(ViewerOpened());
    EXPECT_EQ(Facade().pendingPicId, -1);
}

TEST_F(FacadeActionsTest, WithoutAViewAPhotoOnAFloorIsNotShown) {
    host.script.FailAlways("GetView");
    prompts.ExpectMessage(u"请先开启vesk图形显示再定位！"_s);
    Facade().ViewBimPic(Request(1));
    EXPECT_EQ(Facade().pendingPicId, -1);
    host.pics.bimPics[0].floor.clear();
    Facade().ViewBimPic(Request(1));
    EXPECT_TRUE(ViewerOpened());
}

TEST_F(FacadeActionsTest, EditingAPhotoEditsItsDetailInTheGivenProjectAndTellsTheHost) {
    const ModalVisit visit(kPhotoEditor, [this](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), u"编辑照片-照片2.jpg"_s);
        EXPECT_EQ(window.parentWidget(), mainWindow.Widget());
        Press(window, u"okButton"_s);
    });
    EXPECT_TRUE(Facade().EditBimPic(9, 2));
    EXPECT_THAT(Log().LinesOf({"GetBimPicDetail", "GetLabels", "UpdateBimPic", "RefreshBimMarks"}),
                ElementsAre("GetBimPicDetail(ppid=9,id=2)", "GetLabels(kind=2)",
                            "UpdateBimPic(ppid=9,id=2)", "RefreshBimMarks()"));
    EXPECT_EQ(host.pics.lastBimUpdate.positionKey, u"K2"_s);
}

TEST_F(FacadeActionsTest, APhotoWhoseDetailDoesNotNameItIsEditedUnderTheHostsIds) {
    host.pics.detailHasIds = false;
    const ModalVisit visit(kPhotoEditor, [](QWidget& window) { Press(window, u"okButton"_s); });
    EXPECT_TRUE(Facade().EditBimPic(9, 2));
    EXPECT_THAT(Log().LinesOf({"UpdateBimPic"}), ElementsAre("UpdateBimPic(ppid=9,id=2)"));
}

TEST_F(FacadeActionsTest, EditBimPicCancelledByTheUserSendsNoNotification) {
    const ModalVisit visit(kPhotoEditor, [](QWidget& window) { Press(window, u"cancelButton"_s); });
    EXPECT_TRUE(Facade().EditBimPic(1, 2));
    EXPECT_EQ(Log().CountOf("UpdateBimPic"), 0);
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 0);
}

TEST_F(FacadeActionsTest, AnEditThatTheServiceRefusedAndTheUserGaveUpTellsNobody) {
    host.script.FailNext("UpdateBimPic");
    const ModalVisit visit(kPhotoEditor, [](QWidget& window) {
        Press(window, u"okButton"_s);
        ASSERT_TRUE(window.isVisible());
        Press(window, u"cancelButton"_s);
    });
    EXPECT_TRUE(Facade().EditBimPic(1, 2));
    EXPECT_EQ(Log().CountOf("UpdateBimPic"), 1);
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 0);
}

TEST_F(FacadeActionsTest, APhotoThatCannotBeReadIsNotEdited) {
    EXPECT_FALSE(Facade().EditBimPic(1, 77));
    host.script.FailNext("GetBimPicDetail");
    EXPECT_FALSE(Facade().EditBimPic(1, 2));
    host.pics.bimPics[1].status = KX_DATA::kStatusHidden;
    EXPECT_FALSE(Facade().EditBimPic(1, 2));
    EXPECT_EQ(Log().CountOf("GetLabels"), 0);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(FacadeActionsTest, EditingAnIssueAlwaysAnswersTrue) {
    const qint32 project = 5;
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_TRUE(Facade().EditIssue(&project, u"none"_s));
    EXPECT_THAT(Log().LinesOf({"GetIssueDetail"}), ElementsAre("GetIssueDetail(ppid=5,id=none)"));
}

TEST_F(FacadeActionsTest, SavingAPhotoAsksForItsFilesItsDetailAndItsFolder) {
    host.pics.files = {FileOf(2)};
    prompts.ExpectSaveFile(u"照片"_s, QString());
    EXPECT_EQ(Facade().SaveBimPicAs(1, 2, u"照片.jpg"_s), 1);
    EXPECT_THAT(Log().LinesOf({"GetPicFiles", "GetBimPicDetail", "GetProjectName", "GetPicFolder"}),
                ElementsAre("GetPicFiles(ids=[2])", "GetBimPicDetail(ppid=1,id=2)",
                            "GetProjectName(ppid=1)", "GetPicFolder()"));
}

TEST_F(FacadeActionsTest, SavingFetchesTheFirstFileIntoThePhotoFolder) {
    host.pics.files = {FileOf(2)};
    host.files.stored = {{u"uuid2"_s, "jpeg"}};
    prompts.ExpectSaveFile(u"照片"_s, folder.Path(u"target.jpg"_s));
    prompts.ExpectYesNo(u"下载成功，是否打开下载照片的所在目录？"_s, false);
    EXPECT_EQ(Facade().SaveBimPicAs(1, 2, u"照片.jpg"_s), 1);
    EXPECT_EQ(folder.Read(u"1/pics/uuid2.jpg"_s), "jpeg");
}

TEST_F(FacadeActionsTest, SavingAnswersOneWhateverBecomesOfTheDownload) {
    host.pics.files = {FileOf(2)};
    host.script.FailAlways("DownloadFile");
    prompts.ExpectSaveFile(u"照片"_s, folder.Path(u"target.jpg"_s));
    prompts.ExpectMessage(u"scripted failure"_s);
    EXPECT_EQ(Facade().SaveBimPicAs(1, 2, u"照片.jpg"_s), 1);
}

TEST_F(FacadeActionsTest, APhotoWithoutFilesOrDetailIsNotSaved) {
    EXPECT_EQ(Facade().SaveBimPicAs(1, 2, u"a.jpg"_s), 0);
    host.pics.files = {FileOf(2), FileOf(77)};
    EXPECT_EQ(Facade().SaveBimPicAs(1, 77, u"a.jpg"_s), 0);
    host.script.FailNext("GetPicFiles");
    EXPECT_EQ(Facade().SaveBimPicAs(1, 2, u"a.jpg"_s), 0);
    EXPECT_EQ(Log().CountOf("GetPicFolder"), 0);
}

TEST_F(FacadeActionsTest, ADeletedPhotoIsTold) {
    EXPECT_TRUE(Facade().DeleteBimPic(2));
    EXPECT_THAT(Log().Lines(), ElementsAre("DeleteBimPics(ids=[2])", "RefreshBimMarks()"));
}

TEST_F(FacadeActionsTest, APhotoThatCannotBeDeletedIsNotTold) {
    host.script.FailNext("DeleteBimPics");
    EXPECT_FALSE(Facade().DeleteBimPic(2));
    EXPECT_THAT(Log().Lines(), ElementsAre("DeleteBimPics(ids=[2])"));
}

TEST_F(FacadeActionsTest, TheHostMayDeleteWhateverTheUsersRights) {
    host.auth.rights = {};
    EXPECT_TRUE(Facade().DeleteBimPic(2));
    EXPECT_EQ(Log().CountOf("HasRight"), 0);
}

TEST_F(FacadeActionsTest, ADeletedIssueIsNeverTold) {
    EXPECT_TRUE(Facade().DeleteIssue(u"q2"_s));
    EXPECT_THAT(Log().Lines(), ElementsAre("DeleteIssues(ids=[q2])"));
    host.script.FailNext("DeleteIssues");
    EXPECT_FALSE(Facade().DeleteIssue(u"q1"_s));
    EXPECT_THAT(Log().Lines(), Each(testing::StartsWith("DeleteIssues")));
}

TEST_F(FacadeActionsTest, AnIssueThatTheViewShowsGoesToItsViewer) {
    Facade().LocateIssue(1, u"q2"_s);
    EXPECT_THAT(Log().LinesOf({"GetView", "LocateIssue", "GetIssueDetail"}),
                ElementsAre("GetView()", "LocateIssue(id=q2)", "GetIssueDetail(ppid=1,id=q2)"));
}

TEST_F(FacadeActionsTest, AnIssueThatTheViewDoesNotShowGivesAMessageAndNothingElse) {
    host.script.FailNext("LocateIssue");
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Facade().LocateIssue(1, u"q2"_s);
    host.script.FailAlways("GetView");
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    Facade().LocateIssue(1, u"q2"_s);
    EXPECT_EQ(Log().CountOf("GetIssueDetail"), 0);
}

TEST_F(FacadeActionsTest, TheIssueViewGoesUpToItsWindow) {
    Facade().ShowIssueView();
    EXPECT_TRUE(CTNPicViewWrap::Instance().Widget()->isVisible());
    EXPECT_EQ(Log().CountOf("GetIssueDetail"), 0);
}

TEST_F(FacadeActionsTest, ADrawingGoesToTheEditorThatWaitsForIt) {
    Facade().backToPdfEdit = true;
    Facade().pendingPicId = 7;
    Facade().ShowPdfPicView(1, 102, u"一层平面"_s, toolkit::kNoWindow);
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_FALSE(CPdfPicViewWrap::HasInstance());
    EXPECT_EQ(Facade().pendingPicId, 7) << "that is for the next viewer";
}

TEST_F(FacadeActionsTest, WithoutAWaitingEditorADrawingGoesToItsViewerWithThePendingPhoto) {
    host.drawings.drawings[102].pics = {{6, 0, 0, u"u6"_s}, {7, 0, 0, u"u7"_s}};
    host.pics.checkpointPics[7].name = u"七.jpg"_s;
    Facade().pendingPicId = 7;
    Facade().ShowPdfPicView(1, 102, u"一层平面"_s, toolkit::kNoWindow);
    EXPECT_EQ(CPdfPicViewWrap::Instance().Widget()->windowTitle(), u"检查点0 - 七.jpg   (2/2)");
    EXPECT_EQ(Facade().pendingPicId, -1);
}

TEST_F(FacadeActionsTest, NeitherTheWaitingEditorNorAFailedViewerIsAnOpenViewer) {
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    EXPECT_FALSE(Facade().OpenPdfPicView(1, 102, u"一层平面"_s, toolkit::kNoWindow));
    Facade().backToPdfEdit = true;
    EXPECT_FALSE(Facade().OpenPdfPicView(1, 102, u"一层平面"_s, toolkit::kNoWindow));
}

TEST_F(FacadeActionsTest, TheIssueEditorsSinkIsTheHostsOrElseTheLog) {
    Facade().IssueEditSink().OnIssueEditVisible(0);
    EXPECT_TRUE(ModuleLog().contains(u"OnIssueEditVisible 0"_s));
    support::RecordingIssueEditSink editSink(host.script);
    Facade().SetIssueEditSink(&editSink);
    EXPECT_EQ(&Facade().IssueEditSink(), &editSink);
    Facade().SetIssueEditSink(nullptr);
    EXPECT_NE(&Facade().IssueEditSink(), &editSink);
}

TEST_F(FacadeActionsTest, MarksOfPhotosAndIssuesGoFromThePanelsTicksToTheView) {
    Facade().RefreshPicMarks();
    Facade().RefreshIssueMarks();
    EXPECT_THAT(Log().LinesOf({"GetShownPicMarks", "SetVeskPicMarkers", "GetShownIssueMarks",
                               "SetTNIssueMarkers"}),
                ElementsAre("GetShownPicMarks()", "SetVeskPicMarkers(groups=0)",
                            "GetShownIssueMarks()", "SetTNIssueMarkers(groups=0)"));
}

TEST_F(FacadeActionsTest, WithoutAViewOrAModelNoMarksAreDrawn) {
    host.script.FailAlways("GetView");
    Facade().RefreshPicMarks();
    Facade().RefreshIssueMarks();
    host.script.FailAlways("GetCurrentModel");
    Facade().RefreshPicMarks();
    Facade().RefreshIssueMarks();
    EXPECT_THAT(Log().LinesOf({"SetVeskPicMarkers", "SetTNIssueMarkers"}), IsEmpty());
}

TEST_F(FacadeActionsTest, AChangedIssueIsHandedOnToTheHost) {
    Facade().IssueRefresh().Refresh();
    EXPECT_THAT(Log().Lines(), ElementsAre("RefreshTNMarks()"));
}

TEST_F(FacadeActionsTest, WithoutASinkNotificationsAreSkippedWithALine) {
    Facade().SetPicSink(nullptr);
    EXPECT_TRUE(Facade().DeleteBimPic(2));
    Facade().Refresh();
    Facade().Sink().SelectCheckpoint(500);
    Facade().Sink().SelectPictureMark(u"1"_s, 2, 3);
    Facade().Sink().RefreshPdfMarks();
    for (const QString& skipped : {u"RefreshBimMarks"_s, u"RefreshTNMarks"_s, u"RefreshPdfMarks"_s,
                                   u"SelectCheckpoint 500"_s, u"SelectPictureMark 1 2 3"_s}) {
        EXPECT_EQ(ModuleLog().count(u"跳过："_s + skipped), 1) << skipped.toStdString();
    }
}

TEST_F(FacadeActionsTest, AFloorThatLooksLikeAPlaceholderIsLoggedAsItIs) {
    Facade().SetPicSink(nullptr);
    Facade().Sink().SelectPictureMark(u"%2"_s, 5, 3);
    EXPECT_TRUE(ModuleLog().contains(u"SelectPictureMark %2 5 3"_s)) << ModuleLog().toStdString();
}

TEST_F(FacadeActionsTest, ASinkThatIsSetLaterIsTold) {
    Facade().SetPicSink(nullptr);
    Facade().DeleteBimPic(1);
    Facade().SetPicSink(&sink);
    Facade().DeleteBimPic(2);
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 1);
}

} // namespace
