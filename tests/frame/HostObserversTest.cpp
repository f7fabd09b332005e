// What the host's observer hub gets, and what a change of project does.
#include "frame/HostObservers.h"

#include "base/PictureLog.h"
#include "console/VeskPicMngDlg.h"
#include "editors/PdfPicEditDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "issues/TNPicEditDlg.h"
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/WaitFor.h"
#include "viewers/BimPicViewWrap.h"
#include "viewers/PdfPicViewWrap.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HostObserversTest : public ModuleFixture {
protected:
    HostObserversTest() {
        Facade().AttachObservers(&hub);
        Log().Clear();
    }
    void ChangeProject(const QString& name, qint32 ppid) {
        host.project.project = KX_DATA::ProjectRecord{name, ppid};
        Observer<KXFRAME::IProjChangeObs>(0).OnProjChange();
    }
    void CloseProject() {
        host.project.project.reset();
        Observer<KXFRAME::IProjChangeObs>(0).OnProjChange();
    }
    template <class Interface> Interface& Observer(size_t index) {
        return dynamic_cast<Interface&>(*hub.observers.at(index));
    }

    support::RecordingHub hub{host.script};
};

TEST_F(HostObserversTest, TheObserverOfProjectsIsHandedOverFirst) {
    ASSERT_EQ(hub.observers.size(), 2U);
    EXPECT_EQ(hub.observers[0]->GetObsName(), u"ProjChange"_s);
    EXPECT_EQ(hub.observers[0]->GetObsClassName(), u"CVeskPicProjChangeObs"_s);
    EXPECT_EQ(hub.observers[1]->GetObsName(), u"ViewBimPic"_s);
    EXPECT_EQ(hub.observers[1]->GetObsClassName(), u"CViewBimPicObs"_s);
}

TEST_F(HostObserversTest, TheSameObserversAreHandedOverAgain) {
    Facade().AttachObservers(&hub);
    ASSERT_EQ(hub.observers.size(), 4U);
    EXPECT_EQ(hub.observers[2], hub.observers[0]);
    EXPECT_EQ(hub.observers[3], hub.observers[1]);
}

TEST_F(HostObserversTest, TheLogLiesInTheHostsFolderFromTheStart) {
    EXPECT_EQ(ZelvorNRQ_KXVeskPicture::LogFilePath(), folder.Path(u"log/VeskPicture.log"_s));
}

TEST_F(HostObserversTest, AChangeWithNoDialogEverOpenedMakesTheObjectsAndEndsNothing) {
    EXPECT_FALSE(CVeskPicMngDlg::HasInstance());
    ChangeProject(u"示例工程"_s, 1);
    EXPECT_TRUE(CVeskPicMngDlg::HasInstance());
    EXPECT_TRUE(CKXVeskPicDataImpl::HasInstance());
    EXPECT_TRUE(CBimPicViewWrap::HasInstance());
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_FALSE(CBimPicViewWrap::Instance().HasWindow());
    EXPECT_TRUE(CPdfPicViewWrap::HasInstance());
    EXPECT_FALSE(CPdfPicViewWrap::Instance().HasWindow());
    EXPECT_TRUE(CPdfPicEditDlg::HasInstance());
    EXPECT_FALSE(CPdfPicEditDlg::Instance().HasWindow());
    EXPECT_THAT(Log().LinesOf({"GetCurrentProject", "GetProjectRecord"}),
                ElementsAre("GetCurrentProject()", "GetProjectRecord()"));
}

TEST_F(HostObserversTest, AChangeWithNoDialogEverOpenedStillClearsTheProvider) {
    host.pics.markGroups = {{"1", 1, {{"key", "2/B", {}, {}, {}, 1, 1, {{"", "", 1, 1, {}}}}}}};
    host.pics.filterEntries = {{u"1"_s, 1, {{1, 1}}, 1}};
    host.questions.markGroups = {{u"1"_s, 1, 1, {{u"开裂"_s, u"k1"_s, {}, {}, 1}}}};
    KX_DATA::MarkFilterArg filterArg;
    std::vector<KX_DATA::PicFilterEntry> entries;
    CKXVeskPicDataImpl& data = CKXVeskPicDataImpl::Instance();
    data.GetPicFilterData(0, 0, 0, filterArg, entries);
    data.GetIssueFilterData(0, 0, 0, filterArg, entries);
    std::vector<KX_DATA::PicMarkGroup> photos;
    data.BuildPicMarks({{"1", {}}}, photos);
    ASSERT_EQ(photos.size(), 1U);
    ChangeProject(u"乙"_s, 2);
    photos.clear();
    std::vector<KX_DATA::IssueMarkGroup> issues;
    data.BuildPicMarks({{"1", {}}}, photos);
    data.BuildIssueMarks({{u"k1"_s, 1}}, issues);
    EXPECT_THAT(photos, IsEmpty());
    EXPECT_THAT(issues, IsEmpty());
    EXPECT_TRUE(data.IssueNameMap().empty());
}

TEST_F(HostObserversTest, AChangeShutsTheConsoleWithoutAQuestion) {
    FillService(host, kModeIssue, 2);
    Facade().ShowPicMng(3);
    support::RunPendingEvents();
    Log().Clear();
    ChangeProject(u"乙"_s, 2);
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_EQ(Console().GetMode(), kModeBim);
    EXPECT_EQ(Log().CountOf("SaveRecent"), 1);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(HostObserversTest, TheConsoleOfTheNextProjectIsThatOfTheNextProject) {
    Facade().ShowPicMng(1);
    ChangeProject(u"乙"_s, 2);
    host.global.projects = {{2, u"乙"_s}};
    Facade().ShowPicMng(1);
    EXPECT_THAT(host.pics.lastBimFilter.projectIds, ElementsAre(2));
}

TEST_F(HostObserversTest, TheConsoleIsShutBeforeTheProjectIsLookedAt) {
    Facade().ShowPicMng(1);
    Log().Clear();
    ChangeProject(u"乙"_s, 2);
    EXPECT_EQ(Log().Lines().front(), "SaveRecent([])");
}

TEST_F(HostObserversTest, AChangeEndsTheEditorOfADrawingPhotoAndItsWaitForACheckpoint) {
    CPdfPicEditDlg& editor = CPdfPicEditDlg::Instance();
    // Without a console that would take it along.
    editor.Create(toolkit::kNoWindow);
    Facade().backToPdfEdit = true;
    bool wasOpen = true;
    host.script.During("GetCurrentProject", [&] { wasOpen = editor.HasWindow(); });
    Log().Clear();
    ChangeProject(u"乙"_s, 2);
    EXPECT_FALSE(wasOpen);
    EXPECT_FALSE(editor.HasWindow());
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_EQ(Log().CountOf("UpdatePdfPic"), 0);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(HostObserversTest, EachChangeWritesTheBannerOfItsProject) {
    ChangeProject(u"示例工程"_s, 1);
    EXPECT_EQ(ModuleLog(),
              u"[2026-03-05 12:00:00] **********工程名:示例工程 PPID:1**********\r\n"_s);
}

TEST_F(HostObserversTest, AfterThreeChangesTheLogHoldsThreeBannersAndTheFourthEmptiesItFirst) {
    ChangeProject(u"一"_s, 1);
    ChangeProject(u"二"_s, 2);
    ChangeProject(u"三"_s, 3);
    EXPECT_EQ(ModuleLog().count(u"PPID:"_s), 3);
    ChangeProject(u"四"_s, 4);
    EXPECT_EQ(ModuleLog().count(u"PPID:"_s), 1);
    EXPECT_TRUE(ModuleLog().contains(u"工程名:四 PPID:4"_s));
}

TEST_F(HostObserversTest, AChangeToNoProjectWritesNoBannerButCounts) {
    CloseProject();
    EXPECT_EQ(ModuleLog(), QString());
    host.script.FailNext("GetCurrentProject");
    ChangeProject(u"二"_s, 2);
    EXPECT_EQ(ModuleLog(), QString());
    ChangeProject(u"三"_s, 3);
    EXPECT_EQ(ModuleLog().count(u"PPID:"_s), 1);
    ChangeProject(u"四"_s, 4);
    EXPECT_FALSE(ModuleLog().contains(u"工程名:三"_s));
}

TEST_F(HostObserversTest, ANameThatTheCodePageLacksIsReplacedInTheBanner) {
    ChangeProject(u"工程😀한"_s, 1);
    EXPECT_TRUE(ModuleLog().contains(u"工程名:工程?? PPID:1"_s)) << ModuleLog().toStdString();
}

TEST_F(HostObserversTest, AnUnwritableLogStopsNothing) {
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(folder.Path(u"no such folder/VeskPicture.log"_s));
    Facade().ShowPicMng(1);
    ChangeProject(u"乙"_s, 2);
    EXPECT_FALSE(Console().HasWindow());
}

TEST_F(HostObserversTest, AnotherModuleOpensAPhotoWhichTakesThePendingOne) {
    Facade().pendingPicId = 7;
    const qint32 ppid = 1;
    Observer<KXFRAME::IViewBimPicObs>(1).ViewBimPic(&ppid, u"1"_s, u"K1"_s, 1);
    EXPECT_TRUE(ModuleLog().contains(u"BIM模型照片查看"_s));
    EXPECT_EQ(Facade().pendingPicId, -1);
}

TEST_F(HostObserversTest, AnotherModuleLocatesAnIssue) {
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    Observer<KXFRAME::IViewBimPicObs>(1).LocateIssue(1, u"q1"_s);
    EXPECT_THAT(Log().LinesOf({"GetView", "LocateIssue"}),
                ElementsAre("GetView()", "LocateIssue(id=q1)"));
}

TEST_F(HostObserversTest, AnotherModuleComesBackToTheIssueEditor) {
    host.questions.issues.emplace_back().questionId = u"q1"_s;
    host.questions.issues.back().ppid = 1;
    ASSERT_TRUE(CTNPicEditDlg::Instance().OpenQuestion(1, u"q1"_s, mainWindow.Id()));
    CTNPicEditDlg::Instance().Hide();
    Observer<KXFRAME::IViewBimPicObs>(1).OpenIssueEdit(0);
    EXPECT_TRUE(CTNPicEditDlg::Instance().Widget()->isVisible());
}

} // namespace
