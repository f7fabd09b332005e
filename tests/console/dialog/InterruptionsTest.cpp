// The console may be closed, or another project come, while a question stands open or a service
// answers.
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/ColorTxtComboBox.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QRadioButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InterruptionsTest : public ConsoleFixture {
protected:
    void ChangeProject() {
        host.project.project = KX_DATA::ProjectRecord{u"另一工程"_s, 2};
        CVeskPicProjChangeObs().OnProjChange();
    }
    /// Everything that may end the console behind its back.
    std::vector<std::function<void()>> Ends() {
        return {[] { Console().CloseConsole(); }, [this] { ChangeProject(); },
                [] { Facade().ShowPicMng(kModeIssue); }};
    }
    void ExpectUsable() {
        support::RunPendingEvents();
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, false);
        Open(kModeBim, 3);
        EXPECT_EQ(Grid().GetRowCount(), 3);
        CheckRows({1});
        Click(C().deleteButton);
        Console().CloseConsole();
    }
};

TEST_F(InterruptionsTest, WhileTheButtonsDeletionIsAskedNothingIsDeletedThen) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        CheckRows({0});
        prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
        prompts.Meanwhile(end);
        Click(C().deleteButton);
        EXPECT_EQ(Log().CountOf("DeleteBimPics"), 0);
        EXPECT_EQ(Log().CountOf("DeleteIssues"), 0);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileTheButtonsDeletionIsAskedANewPageUnchecksAll) {
    Open(kModeBim, 3);
    CheckRows({0});
    prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
    prompts.Meanwhile([this] { Grid().FetchCurrentPage(); });
    Click(C().deleteButton);
    EXPECT_EQ(Log().CountOf("DeleteBimPics"), 0);
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 0);
}

TEST_F(InterruptionsTest, WhileARowsDeletionIsAskedThePhotoThatWasNamedGoesAndIsTold) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        prompts.ExpectOkCancel(u"确认删除照片 照片2.jpg ？"_s, true);
        prompts.Meanwhile(end);
        ClickCell(1, 16);
        EXPECT_THAT(Log().LinesOf({"DeleteBimPics", "QueryBimPics", "RefreshBimMarks"}),
                    ElementsAre("DeleteBimPics(ids=[2])", "RefreshBimMarks()"));
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileARowsDeletionIsAskedACancelledOneDoesNothing) {
    Open(kModeBim, 3);
    prompts.ExpectOkCancel(u"确认删除照片 照片2.jpg ？"_s, false);
    prompts.Meanwhile([] { Console().CloseConsole(); });
    ClickCell(1, 16);
    EXPECT_THAT(Log().LinesOf({"DeleteBimPics", "RefreshBimMarks"}), IsEmpty());
}

TEST_F(InterruptionsTest, WhileARowIsEditedItsEditorGoesWithTheConsole) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        const support::ModalVisit visit(u"BimPicEditDlg"_s, [&](QWidget&) {
            end();
            support::RunPendingEvents();
        });
        ClickCell(1, 12);
        EXPECT_THAT(Log().LinesOf({"UpdateBimPic", "QueryBimPics", "RefreshBimMarks"}), IsEmpty());
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileAnEditIsSavedItIsToldAllTheSame) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        host.script.During("UpdateBimPic", end);
        const support::ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
            Click(editor.findChild<QPushButton*>(u"okButton"_s));
        });
        ClickCell(1, 12);
        host.script.During("UpdateBimPic", nullptr);
        EXPECT_THAT(Log().LinesOf({"UpdateBimPic", "QueryBimPics", "RefreshBimMarks"}),
                    ElementsAre("UpdateBimPic(ppid=1,id=2)", "RefreshBimMarks()"));
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileARowIsEditedANewPageMayCome) {
    Open(kModeBim, 3);
    const support::ModalVisit visit(u"BimPicEditDlg"_s, [this](QWidget& editor) {
        FillService(host, kModeBim, 1);
        Grid().FetchCurrentPage();
        Click(editor.findChild<QPushButton*>(u"okButton"_s));
    });
    ClickCell(1, 12);
    EXPECT_THAT(Log().LinesOf({"UpdateBimPic"}), ElementsAre("UpdateBimPic(ppid=1,id=2)"));
    EXPECT_EQ(Grid().GetRowCount(), 1);
}

TEST_F(InterruptionsTest, WhileARefusalIsShown) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        CheckRows({0});
        host.script.FailNext("SetBimPicsShown");
        prompts.ExpectMessage(u"修改照片状态出错！"_s);
        prompts.Meanwhile(end);
        Click(C().hideButton);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileAFolderForTheDownloadsIsAsked) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        CheckRows({0});
        prompts.ExpectFolder(u"请选择文件存放的路径："_s, folder.Path());
        prompts.Meanwhile(end);
        Click(C().downloadButton);
        EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileTheMessageOfTheMarksIsShown) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        host.script.FailNext("GetUsedBimMarks");
        prompts.ExpectMessage(u"获取照片标识失败！"_s);
        prompts.Meanwhile(end);
        DropDown(*C().markCombo);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileTheMessageOfTheLabelsIsShown) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        host.script.FailNext("GetBimLabels");
        prompts.ExpectMessage(u"获取照片标签失败！"_s);
        prompts.Meanwhile(end);
        DropDown(*C().labelCombo);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileItSearches) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        host.script.During("QueryBimPics", end);
        Click(C().searchButton);
        host.script.During("QueryBimPics", nullptr);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileItSearchesForTheFirstTime) {
    for (const auto& end : Ends()) {
        FillService(host, kModeBim, 3);
        host.script.During("QueryBimPics", end);
        Facade().ShowPicMng(kModeBim);
        host.script.During("QueryBimPics", nullptr);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileItSearchesForAPreset) {
    for (const auto& end : Ends()) {
        FillService(host, kModeBim, 3);
        host.script.During("QueryBimPics", end);
        Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
        host.script.During("QueryBimPics", nullptr);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileARaisedStatusIsShownAfterASearch) {
    for (const auto& end : Ends()) {
        Open(kModeBim, 3);
        host.script.During("QueryBimPics",
                           [] { throw ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus::NoPicInfo; });
        prompts.ExpectMessage(u"没有Vesk照片信息！"_s);
        prompts.Meanwhile(end);
        Click(C().searchButton);
        host.script.During("QueryBimPics", nullptr);
        ExpectUsable();
    }
}

TEST_F(InterruptionsTest, WhileServicesChangeWhatIsChecked) {
    for (const char* operation : {"SetBimPicsShown", "DeleteBimPics", "RefreshBimMarks"}) {
        for (const auto& end : Ends()) {
            Open(kModeBim, 3);
            CheckRows({0});
            host.script.During(operation, end);
            Click(C().hideButton);
            if (Console().HasWindow() && Console().GetMode() == kModeBim) {
                prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
                Click(C().deleteButton);
            }
            host.script.During(operation, nullptr);
            ExpectUsable();
        }
    }
}

TEST_F(InterruptionsTest, AnotherKindByTheRadioButtonWhileItSearchesWins) {
    Open(kModeBim, 3);
    host.pics.pdfPics = {DrawingPhoto(1), DrawingPhoto(2)};
    host.script.During("QueryBimPics", [this] {
        host.script.During("QueryBimPics", nullptr);
        Click(C().pdfRadio);
    });
    Click(C().searchButton);
    EXPECT_EQ(Console().GetMode(), kModePdf);
    EXPECT_EQ(Grid().GetColumnCount(), 18);
    ASSERT_EQ(Grid().GetRowCount(), 2);
    EXPECT_EQ(Cell(1, 3), "图片2.jpg");
    EXPECT_EQ(Grid().totalCount, 2);
}

} // namespace
