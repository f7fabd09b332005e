// The buttons below the grid.
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/windows/BalloonTip.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const kNothingChecked = "至少要选中一项！";

class ButtonsTest : public ConsoleFixture {
protected:
    ButtonsTest() { host.project.drawing = {500, u"一层平面"_s}; }
};

TEST_F(ButtonsTest, WithNothingCheckedEachButtonSaysSoAtItself) {
    Open(kModeBim);
    for (QPushButton* button : {C().showButton, C().hideButton, C().deleteButton}) {
        Click(button);
        EXPECT_EQ(BalloonAt(button), kNothingChecked) << button->objectName().toStdString();
    }
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(ButtonsTest, WithNothingCheckedTheDownloadSaysSoAtTheGrid) {
    Open(kModeBim);
    Click(C().downloadButton);
    EXPECT_EQ(BalloonAt(&View()), "请选择要下载的图片！");
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(ButtonsTest, HidingChangesTheCheckedRowsWithoutAFetch) {
    Open(kModeBim);
    CheckRows({0, 2});
    Click(C().hideButton);
    EXPECT_THAT(Log().Lines(),
                ElementsAre("SetBimPicsShown(ppid=1,ids=[3 1],hidden=true)", "RefreshBimMarks()"));
    EXPECT_EQ(Cell(0, 11), "隐藏");
    EXPECT_EQ(Cell(1, 11), "显示");
    EXPECT_EQ(Cell(2, 11), "隐藏");
}

TEST_F(ButtonsTest, ShowingGivesTheOtherFlag) {
    Open(kModePdf);
    CheckRows({1});
    Click(C().hideButton);
    Log().Clear();
    Click(C().showButton);
    EXPECT_THAT(Log().LinesOf({"SetPdfPicsShown", "RefreshPdfMarks"}),
                ElementsAre("SetPdfPicsShown(ppid=1,ids=[2],hidden=false)", "RefreshPdfMarks()"));
    EXPECT_EQ(Cell(1, 12), "显示");
}

TEST_F(ButtonsTest, TheRecordsStatusIsTheColumnsNumberUntilTheNextSearch) {
    Open(kModeBim);
    CheckRows({0});
    Click(C().hideButton);
    EXPECT_EQ(static_cast<KX_DATA::BimPicRow*>(Grid().GetRow(0)->GetData())->status, 11);
    Click(C().searchButton);
    EXPECT_EQ(static_cast<KX_DATA::BimPicRow*>(Grid().GetRow(0)->GetData())->status, 1);
}

TEST_F(ButtonsTest, ARefusedChangeOfStatusSaysSoAndChangesNothing) {
    Open(kModeBim);
    CheckRows({0});
    host.script.FailNext("SetBimPicsShown");
    prompts.ExpectMessage(u"修改照片状态出错！"_s);
    Click(C().hideButton);
    EXPECT_EQ(Cell(0, 11), "显示");
    EXPECT_THAT(prompts.Parents(), ElementsAre(Console().Id()));
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 0);
}

TEST_F(ButtonsTest, DeletingAsksForPhotosInOneWay) {
    for (const ConsoleMode mode : {kModeBim, kModePdf}) {
        Open(mode);
        CheckRows({0, 1});
        prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, false);
        Click(C().deleteButton);
        EXPECT_EQ(Log().Lines().size(), 1U) << mode;
        EXPECT_EQ(Grid().GetRowCount(), 3) << mode;
        EXPECT_TRUE(Grid().HasCheckedRow()) << mode;
    }
}

TEST_F(ButtonsTest, DeletingAsksForIssuesInAnother) {
    Open(kModeIssue);
    CheckRows({2});
    prompts.ExpectOkCancel(u"确认删除该问题和所附照片吗 ？"_s, true);
    Click(C().deleteButton);
    EXPECT_THAT(Log().LinesOf({"DeleteIssues", "WriteActionLog", "QueryIssues", "RefreshTNMarks"}),
                ElementsAre("DeleteIssues(ids=[q3])", "WriteActionLog(删除TN问题)",
                            "QueryIssues(page=1,size=30,sort=modifytime desc)",
                            "RefreshTNMarks()"));
    EXPECT_EQ(Grid().GetRowCount(), 2);
}

TEST_F(ButtonsTest, DeletingPhotosFetchesThePageAgainAndTellsTheHost) {
    Open(kModeBim);
    CheckRows({0, 2});
    prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
    Click(C().deleteButton);
    EXPECT_THAT(
        Log().LinesOf({"DeleteBimPics", "WriteActionLog", "QueryBimPics", "RefreshBimMarks"}),
        ElementsAre("DeleteBimPics(ids=[3 1])", "WriteActionLog(删除Vesk照片)",
                    "QueryBimPics(page=1,size=30,sort=last_modifytime desc)", "RefreshBimMarks()"));
    EXPECT_EQ(Grid().GetRowCount(), 1);
}

TEST_F(ButtonsTest, DeletingAllOfTheLastPageShowsTheNewLastPage) {
    Open(kModeBim, 62);
    Console().Paging()->DoPage(3);
    CheckRows({0, 1});
    Log().Clear();
    prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
    Click(C().deleteButton);
    EXPECT_THAT(Log().LinesOf({"QueryBimPics"}),
                ElementsAre("QueryBimPics(page=3,size=30,sort=last_modifytime desc)",
                            "QueryBimPics(page=2,size=30,sort=last_modifytime desc)"));
    EXPECT_EQ(Grid().GetCurrentPage(), 2);
    EXPECT_EQ(Grid().GetRowCount(), 30);
}

TEST_F(ButtonsTest, DeletingEverythingLeavesAnEmptyConsole) {
    Open(kModeBim, 2);
    CheckRows({0, 1});
    prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
    Click(C().deleteButton);
    EXPECT_EQ(Grid().GetRowCount(), 0);
    EXPECT_EQ(Log().CountOf("QueryBimPics"), 1);
}

TEST_F(ButtonsTest, AFailedQueryAfterADeleteFetchesNoOtherPage) {
    Open(kModeBim, 31);
    Console().Paging()->DoPage(2);
    CheckRows({0});
    Log().Clear();
    host.script.FailNext("QueryBimPics");
    prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, true);
    Click(C().deleteButton);
    EXPECT_EQ(Log().CountOf("QueryBimPics"), 1);
}

TEST_F(ButtonsTest, ADownloadAsksForItsFolderAndACancelledOneDoesNothing) {
    Open(kModePdf);
    CheckRows({0});
    prompts.ExpectFolder(u"请选择文件存放的路径："_s, QString());
    Click(C().downloadButton);
    EXPECT_EQ(Log().Lines().size(), 1U);
    EXPECT_EQ(toolkit::BalloonTip::Current(), nullptr);
    EXPECT_THAT(prompts.Parents(), ElementsAre(Console().Id()));
}

TEST_F(ButtonsTest, WhatTheProjectsIdWasWhenTheConsoleOpenedGoesToTheService) {
    host.project.project = KX_DATA::ProjectRecord{u"另一工程"_s, 7};
    Open(kModeBim);
    CheckRows({0});
    Click(C().hideButton);
    EXPECT_EQ(Log().LinesOf({"SetBimPicsShown"}).front(),
              "SetBimPicsShown(ppid=7,ids=[1],hidden=true)");
}

} // namespace
