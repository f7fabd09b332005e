// What the row icons, a double click, the row's menu and the actions on checked rows do.
#include "base/Status.h"
#include "console/ColumnTable.h"
#include "tests/console/grid/GridFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Icons.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QMenu>
#include <QPushButton>
#include <QtTest/QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::ModalVisit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

const QString kPhotoEditor = u"BimPicEditDlg"_s;

class GridActionsTest : public GridFixture {
protected:
    GridActionsTest() { host.project.drawing = {500, u"一层平面"_s}; }

    QMenu* OpenRowMenu(int row) {
        const QPoint place = CellCentre(row, 3);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                View().viewport()->mapToGlobal(place));
        QApplication::sendEvent(View().viewport(), &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    static std::vector<std::string> Entries(const QMenu& menu) {
        std::vector<std::string> texts;
        for (const QAction* action : menu.actions()) {
            texts.push_back(action->text().toStdString() + (action->isEnabled() ? "" : " off"));
        }
        return texts;
    }
};

TEST_F(GridActionsTest, AClickOnTheEditIconSelectsItsRowAndOpensItsEditor) {
    Show(kModeBim, 3);
    const ModalVisit visit(kPhotoEditor, [this](QWidget& editor) {
        EXPECT_EQ(editor.windowTitle(), u"编辑照片-照片2.jpg"_s);
        EXPECT_EQ(editor.parentWidget(), window.get());
        editor.close();
    });
    ClickCell(1, 12);
    ASSERT_NE(grid->GetCurSel(), nullptr);
    EXPECT_EQ(grid->GetCurSel()->GetRowId(), 1);
    // Cancelled: nothing is fetched again.
    EXPECT_THAT(Log().LinesOf({"Dialog", "UpdateBimPic", "RefreshBimMarks"}), IsEmpty());
}

TEST_F(GridActionsTest, ASavedEditFetchesThePageAgainAndTellsTheHost) {
    Show(kModeBim, 3);
    const ModalVisit visit(kPhotoEditor, [](QWidget& editor) {
        support::Click(editor.findChild<QPushButton*>(u"okButton"_s));
    });
    ClickCell(1, 12);
    EXPECT_THAT(Log().LinesOf({"UpdateBimPic", "Dialog", "QueryBimPics", "RefreshBimMarks"}),
                ElementsAre("UpdateBimPic(ppid=1,id=2)", "Dialog(1026)",
                            "QueryBimPics(page=1,size=30,sort=last_modifytime desc)",
                            "Dialog(1025)", "RefreshBimMarks()"));
    EXPECT_EQ(grid->GetCurSel()->GetRowId(), 1);
}

TEST_F(GridActionsTest, AStatusThatTheConsoleLeftInTheRecordSelectsNothingInTheEditor) {
    Show(kModeBim, 3);
    Check({1});
    grid->Actions().SetCheckedShown(false);
    const ModalVisit visit(kPhotoEditor, [](QWidget& editor) {
        EXPECT_EQ(editor.findChild<QComboBox*>(u"statusCombo"_s)->currentIndex(), -1);
        editor.close();
    });
    ClickCell(1, 12);
}

TEST_F(GridActionsTest, TheOtherIconsGoToTheirDialogs) {
    Show(kModeBim, 3);
    ClickCell(0, 13);
    EXPECT_EQ(Log().LinesOf({"LocatePicture"}).front(), "LocatePicture(position=K1,mark=1)");
    {
        const ModalVisit visit(u"VeskPicViewWrap"_s, [](QWidget& viewer) { viewer.close(); });
        ClickCell(0, 14);
        EXPECT_TRUE(visit.HasCome());
    }
    prompts.ExpectSaveFile(u"照片1"_s, QString());
    ClickCell(0, 15);
    EXPECT_EQ(Log().LinesOf({"DownloadFile"}), Calls{}) << "cancelled";
}

TEST_F(GridActionsTest, EachIconColumnShowsItsDrawing) {
    const QSize size(16, 16);
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Show(mode, 1);
        int column = FirstIconColumn(mode);
        for (const QString& name :
             {u"edit"_s, u"locate"_s, u"preview"_s, u"download"_s, u"delete"_s}) {
            const auto& icon = dynamic_cast<const CIconGridItem&>(Item(0, column));
            EXPECT_EQ(icon.Icon().pixmap(size).toImage(),
                      toolkit::Icon(name).pixmap(size).toImage())
                << mode << ' ' << column;
            ++column;
        }
    }
}

TEST_F(GridActionsTest, TheDownloadIconSavesItsRowUnderTheNameThatIsShown) {
    struct Case {
        ConsoleMode mode;
        int column;
        QString cache;
    };
    for (const Case& c : {Case{kModeBim, 15, u"1/pics"_s}, Case{kModePdf, 16, u"1/thumbs"_s}}) {
        Show(c.mode, 3);
        const QString uuid =
            c.mode == kModeBim ? host.pics.bimPics[1].text8 : host.pics.pdfPics[1].text1;
        host.files.stored[uuid] = "photo";
        const QString shown = grid->GetRow(1)->GetItem(3)->GetText();
        prompts.ExpectSaveFile(shown.left(shown.lastIndexOf(u'.')), folder.Path(u"saved.jpg"_s));
        prompts.ExpectYesNo(u"下载成功，是否打开下载照片的所在目录？"_s, false);
        Log().Clear();
        ClickCell(1, c.column);
        EXPECT_EQ(Log().LinesOf({"DownloadFile"}).size(), 1U);
        EXPECT_EQ(folder.Read(u"saved.jpg"_s), "photo");
        EXPECT_EQ(folder.Read(c.cache + u'/' + uuid + u".jpg"_s), "photo");
    }
}

TEST_F(GridActionsTest, ADisabledLookupIconDoesNothing) {
    Show(kModeBim, 3);
    host.pics.bimPics[0].floor.clear();
    paging->DoFirstPage();
    Log().Clear();
    ClickCell(0, 13);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(GridActionsTest, ADoubleClickLooksTheRowUp) {
    Show(kModeBim, 3);
    DoubleClickCell(2, 3);
    EXPECT_THAT(Log().LinesOf({"LocatePicture"}), ElementsAre("LocatePicture(position=K3,mark=1)"));
}

TEST_F(GridActionsTest, ADoubleClickOnAPhotoWithoutAFloorDoesNothing) {
    Show(kModeBim, 3);
    host.pics.bimPics[0].floor.clear();
    paging->DoFirstPage();
    Log().Clear();
    DoubleClickCell(0, 3);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(GridActionsTest, ADoubleClickOnADrawingPhotoIsJudgedByTheEditIconAndAlwaysLooksUp) {
    Show(kModePdf, 3);
    DoubleClickCell(1, 3);
    EXPECT_EQ(Log().CountOf("SelectCheckpoint"), 1);
    // The icon of the column that holds the lookup in the other kinds decides.
    Item(1, 13).Enable(false);
    DoubleClickCell(1, 3);
    EXPECT_EQ(Log().CountOf("SelectCheckpoint"), 1);
    Item(2, 14).Enable(false);
    DoubleClickCell(2, 3);
    EXPECT_EQ(Log().CountOf("SelectCheckpoint"), 2);
}

TEST_F(GridActionsTest, ADoubleClickOnAnIssueLooksItUp) {
    Show(kModeIssue, 3);
    DoubleClickCell(1, 3);
    EXPECT_THAT(Log().LinesOf({"LocateIssue"}), ElementsAre("LocateIssue(id=q2)"));
}

TEST_F(GridActionsTest, EnterDoesWhatADoubleClickDoes) {
    Show(kModeIssue, 3);
    ClickCell(1, 3);
    QTest::keyClick(&View(), Qt::Key_Return);
    EXPECT_THAT(Log().LinesOf({"LocateIssue"}), ElementsAre("LocateIssue(id=q2)"));
}

TEST_F(GridActionsTest, DeletingARowAsksFetchesThePageAgainAndTellsTheHost) {
    Show(kModeBim, 3);
    prompts.ExpectOkCancel(u"确认删除照片 照片2.jpg ？"_s, true);
    ClickCell(1, 16);
    EXPECT_THAT(Log().LinesOf({"AskOkCancel", "DeleteBimPics", "WriteActionLog", "Dialog",
                               "QueryBimPics", "RefreshBimMarks"}),
                ElementsAre("AskOkCancel(确认删除照片 照片2.jpg ？)", "DeleteBimPics(ids=[2])",
                            "WriteActionLog(删除Vesk照片)", "Dialog(1026)",
                            "QueryBimPics(page=1,size=30,sort=last_modifytime desc)",
                            "Dialog(1025)", "RefreshBimMarks()"));
    EXPECT_EQ(grid->GetRowCount(), 2);
    EXPECT_THAT(prompts.Parents(), ElementsAre(windowId));
}

TEST_F(GridActionsTest, ACancelledDeleteLeavesThePageAsItIsAndTellsNobody) {
    Show(kModeBim, 3);
    Check({0});
    prompts.ExpectOkCancel(u"确认删除照片 照片2.jpg ？"_s, false);
    ClickCell(1, 16);
    EXPECT_THAT(Log().Lines(), ElementsAre("AskOkCancel(确认删除照片 照片2.jpg ？)"));
    EXPECT_EQ(grid->GetRowCount(), 3);
    EXPECT_THAT(Checked(), ElementsAre(0));
}

TEST_F(GridActionsTest, ARefusedDeleteShowsItsMessageAndLeavesThePage) {
    Show(kModeBim, 3);
    host.script.FailNext("DeleteBimPics");
    prompts.ExpectOkCancel(u"确认删除照片 照片1.jpg ？"_s, true);
    prompts.ExpectMessage(u"删除Vesk照片失败！"_s);
    ClickCell(0, 16);
    EXPECT_EQ(grid->GetRowCount(), 3);
    EXPECT_THAT(Log().LinesOf({"Dialog", "RefreshBimMarks"}), IsEmpty());
    EXPECT_THAT(prompts.Parents(), ElementsAre(windowId, windowId));
}

TEST_F(GridActionsTest, ADrawingPhotoDeletedFromTheOpenDrawingIsTold) {
    Show(kModePdf, 3);
    prompts.ExpectOkCancel(u"确认删除照片 图片1.jpg ？"_s, true);
    ClickCell(0, 17);
    EXPECT_THAT(Log().LinesOf({"DeletePdfPics", "QueryPdfPics", "RefreshPdfMarks"}),
                ElementsAre("DeletePdfPics(ppid=1,ids=[1])",
                            "QueryPdfPics(page=1,size=30,sort=last_modifytime desc)",
                            "RefreshPdfMarks()"));
}

TEST_F(GridActionsTest, ADrawingPhotoDeletedFromAnotherDrawingIsNotToldButThePageIsFetched) {
    host.project.drawing = {1, u"二层平面"_s};
    Show(kModePdf, 3);
    prompts.ExpectOkCancel(u"确认删除照片 图片1.jpg ？"_s, true);
    ClickCell(0, 17);
    EXPECT_EQ(Log().CountOf("QueryPdfPics"), 1);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
}

TEST_F(GridActionsTest, AnIssueIsDeletedByItsUuid) {
    Show(kModeIssue, 3);
    prompts.ExpectOkCancel(u"确认删除该问题和所附照片吗 ？"_s, true);
    ClickCell(2, 16);
    EXPECT_THAT(Log().LinesOf({"DeleteIssues", "RefreshTNMarks"}),
                ElementsAre("DeleteIssues(ids=[q3])", "RefreshTNMarks()"));
}

TEST_F(GridActionsTest, DeletingTheLastRowOfTheLastPageFetchesTheNewLastPageAfterTheEnd) {
    Show(kModeBim, 31);
    paging->DoPage(2);
    Log().Clear();
    prompts.ExpectOkCancel(u"确认删除照片 照片31.jpg ？"_s, true);
    ClickCell(0, 16);
    EXPECT_THAT(Log().LinesOf({"Dialog", "QueryBimPics", "RefreshBimMarks"}),
                ElementsAre("Dialog(1026)",
                            "QueryBimPics(page=2,size=30,sort=last_modifytime desc)",
                            "Dialog(1025)", "Dialog(1026)",
                            "QueryBimPics(page=1,size=30,sort=last_modifytime desc)",
                            "Dialog(1025)", "RefreshBimMarks()"));
    EXPECT_EQ(grid->GetCurrentPage(), 1);
    EXPECT_EQ(grid->GetRowCount(), 30);
}

TEST_F(GridActionsTest, AfterAFailedQueryNoOtherPageIsFetched) {
    Show(kModeBim, 31);
    paging->DoPage(2);
    Log().Clear();
    host.script.FailNext("QueryBimPics");
    prompts.ExpectOkCancel(u"确认删除照片 照片31.jpg ？"_s, true);
    ClickCell(0, 16);
    EXPECT_EQ(Log().CountOf("QueryBimPics"), 1);
    EXPECT_EQ(grid->GetCurrentPage(), 2);
}

TEST_F(GridActionsTest, DeletingWhatIsCheckedFetchesThePageAndTellsTheHost) {
    Show(kModeBim, 3);
    Check({0, 2});
    grid->Actions().DeleteChecked();
    EXPECT_THAT(Log().LinesOf({"DeleteBimPics", "Dialog", "RefreshBimMarks"}),
                ElementsAre("DeleteBimPics(ids=[3 1])", "Dialog(1026)", "Dialog(1025)",
                            "RefreshBimMarks()"));
    EXPECT_EQ(Cell(0, 3), "照片2.jpg");
}

TEST_F(GridActionsTest, ARefusalToDeleteWhatIsCheckedIsNotLookedAt) {
    Show(kModeBim, 3);
    Check({0});
    host.script.FailNext("DeleteBimPics");
    grid->Actions().DeleteChecked();
    EXPECT_THAT(Log().LinesOf({"QueryBimPics", "RefreshBimMarks"}).size(), 2U);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(GridActionsTest, DeletingCheckedDrawingPhotosOfOtherDrawingsTellsNobody) {
    host.project.drawing = {1, u"二层平面"_s};
    Show(kModePdf, 3);
    Check({0});
    grid->Actions().DeleteChecked();
    EXPECT_EQ(Log().CountOf("QueryPdfPics"), 1);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
}

TEST_F(GridActionsTest, AStatusRaisedByADeleteIsShown) {
    Show(kModeBim, 3);
    Check({0});
    host.script.During("DeleteBimPics", [] { throw e_VeskPicMngStatus::NothingToDelete; });
    prompts.ExpectMessage(u"无照片可删！"_s);
    grid->Actions().DeleteChecked();
    EXPECT_EQ(grid->GetRowCount(), 3);
}

TEST_F(GridActionsTest, HidingChangesTheCellsOfTheCheckedRowsWithoutAFetch) {
    Show(kModeBim, 3);
    Check({0, 2});
    grid->Actions().SetCheckedShown(false);
    EXPECT_THAT(Log().Lines(),
                ElementsAre("SetBimPicsShown(ppid=1,ids=[3 1],hidden=true)", "RefreshBimMarks()"));
    EXPECT_EQ(Cell(0, 11), "隐藏");
    EXPECT_EQ(Cell(1, 11), "显示");
    EXPECT_EQ(Cell(2, 11), "隐藏");
    EXPECT_THAT(Checked(), ElementsAre(0, 2));
}

TEST_F(GridActionsTest, ShowingIsTheSameWithTheOtherFlagAndText) {
    Show(kModeIssue, 2);
    Check({1});
    grid->Actions().SetCheckedShown(false);
    Log().Clear();
    grid->Actions().SetCheckedShown(true);
    EXPECT_THAT(Log().Lines(),
                ElementsAre("SetIssuesShown(ppid=1,ids=[q2],hidden=false)", "RefreshTNMarks()"));
    EXPECT_EQ(Cell(1, 11), "显示");
}

TEST_F(GridActionsTest, TheRecordHoldsTheNumberOfTheStatusColumnThenAndNotTheStatus) {
    Show(kModePdf, 2);
    Check({0});
    grid->Actions().SetCheckedShown(true);
    EXPECT_EQ(static_cast<KX_DATA::PdfPicRecord*>(grid->GetRow(0)->GetData())->status, 12);
    EXPECT_EQ(static_cast<KX_DATA::PdfPicRecord*>(grid->GetRow(1)->GetData())->status, 0);
}

TEST_F(GridActionsTest, ARefusalToHideShowsItsMessageAndChangesNothing) {
    Show(kModeBim, 3);
    Check({0});
    host.script.FailNext("SetBimPicsShown");
    prompts.ExpectMessage(u"修改照片状态出错！"_s);
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(Cell(0, 11), "显示");
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 0);
    EXPECT_EQ(static_cast<KX_DATA::BimPicRow*>(grid->GetRow(0)->GetData())->status, 0);
}

TEST_F(GridActionsTest, WithNothingCheckedHidingSaysWhatItSaysHere) {
    Show(kModeBim, 3);
    prompts.ExpectMessage(u"必须选择新的楼层轴网信息才能提交！"_s);
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(Log().CountOf("SetBimPicsShown"), 0);
}

TEST_F(GridActionsTest, HidingDrawingPhotosOfOtherDrawingsTellsNobody) {
    host.project.drawing = {1, u"二层平面"_s};
    Show(kModePdf, 3);
    Check({0});
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(Cell(0, 12), "隐藏");
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
}

TEST_F(GridActionsTest, TheRowsMenuOffersTheVisibleIcons) {
    Show(kModeBim, 3);
    QMenu* menu = OpenRowMenu(1);
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(Entries(*menu), ElementsAre("编辑", "反查", "预览", "下载", "删除"));
    EXPECT_EQ(grid->GetCurSel()->GetRowId(), 1);
    menu->close();
}

TEST_F(GridActionsTest, TheRowsMenuLeavesOutHiddenIconsAndDisablesDisabledOnes) {
    host.auth.rights = {};
    Show(kModeBim, 1);
    host.pics.bimPics[0].floor.clear();
    paging->DoFirstPage();
    QMenu* menu = OpenRowMenu(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(Entries(*menu), ElementsAre("反查 off", "预览", "下载"));
    menu->close();
}

TEST_F(GridActionsTest, TheMenuOfIssuesHasNoDownload) {
    Show(kModeIssue, 1);
    QMenu* menu = OpenRowMenu(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(Entries(*menu), ElementsAre("编辑", "反查", "预览", "删除"));
    menu->close();
}

TEST_F(GridActionsTest, AnEntryOfTheMenuDoesWhatItsIconDoes) {
    Show(kModeBim, 3);
    QMenu* menu = OpenRowMenu(1);
    ASSERT_NE(menu, nullptr);
    prompts.ExpectOkCancel(u"确认删除照片 照片2.jpg ？"_s, false);
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().back()).center());
    support::RunPendingEvents();
    EXPECT_TRUE(prompts.AllAnswered());
}

TEST_F(GridActionsTest, DeletingCheckedPhotosOfTheOpenDrawingTellsTheHost) {
    Show(kModePdf, 3);
    Check({0, 2});
    grid->Actions().DeleteChecked();
    EXPECT_THAT(Log().LinesOf({"DeletePdfPics", "QueryPdfPics", "RefreshPdfMarks"}),
                ElementsAre("DeletePdfPics(ppid=1,ids=[3 1])",
                            "QueryPdfPics(page=1,size=30,sort=last_modifytime desc)",
                            "RefreshPdfMarks()"));
}

TEST_F(GridActionsTest, ADoubleClickOnTheCheckBoxLooksTheRowUpToo) {
    Show(kModeBim, 3);
    DoubleClickCell(1, 0);
    EXPECT_THAT(Log().LinesOf({"LocatePicture"}), ElementsAre("LocatePicture(position=K2,mark=1)"));
    EXPECT_THAT(Checked(), ElementsAre(1));
}

TEST_F(GridActionsTest, ADoubleClickBelowTheRowsLooksTheSelectedRowUp) {
    Show(kModeBim, 3);
    const QPoint below(200, View().viewport()->height() - 5);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(Log().CountOf("LocatePicture"), 0);
    ClickCell(1, 3);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, below);
    EXPECT_THAT(Log().LinesOf({"LocatePicture"}), ElementsAre("LocatePicture(position=K2,mark=1)"));
}

TEST_F(GridActionsTest, ALongNameIsCutInItsBaseAndKeepsItsExtension) {
    Show(kModeBim, 1);
    host.pics.bimPics[0].fileName = QString(90, u'长') + u".PNG"_s;
    paging->DoFirstPage();
    // 220 bytes of three for each character.
    prompts.ExpectSaveFile(QString(73, u'长'), QString());
    ClickCell(0, 15);
    EXPECT_TRUE(prompts.AllAnswered());
    EXPECT_EQ(prompts.LastFilter(), u"KX文档(*.PNG)"_s);
}

TEST_F(GridActionsTest, WhatStopsALookupIsToldAtTheConsole) {
    Show(kModeBim, 2);
    grid->Manager()->SetRowStatus(*grid->GetRow(0), 1);
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    grid->Manager()->LocateRow(*grid->GetRow(0));
    host.script.FailNext("LocatePicture");
    prompts.ExpectMessage(u"请先开启vesk图形显示再定位！"_s);
    grid->Manager()->LocateRow(*grid->GetRow(1));
    EXPECT_THAT(prompts.Parents(), ElementsAre(windowId, windowId));
}

TEST_F(GridActionsTest, TheSamePhotoDownloadedAgainGetsANumber) {
    Show(kModeBim, 2);
    host.files.stored[host.pics.bimPics[0].text8] = "photo";
    Check({0});
    const support::TempFolder target;
    for (int i = 0; i < 3; ++i) {
        prompts.ExpectYesNo(u"下载成功，是否打开下载照片的所在目录？"_s, false);
        grid->Actions().DownloadChecked(target.Path());
    }
    const QString base = grid->GetRow(0)->GetItem(3)->GetText().chopped(4);
    EXPECT_THAT(QDir(target.Path()).entryList(QDir::Files),
                UnorderedElementsAre(base + u".jpg"_s, base + u"(1).jpg"_s, base + u"(2).jpg"_s));
}

TEST_F(GridActionsTest, TheProgressOfADownloadCountsAllRowsOfThePage) {
    Show(kModeBim, 3);
    host.files.stored[host.pics.bimPics[1].text8] = "photo";
    Check({1});
    prompts.ExpectYesNo(u"下载成功，是否打开下载照片的所在目录？"_s, false);
    grid->Actions().DownloadChecked(folder.Path());
    std::vector<std::string> progress;
    for (const std::string& line : Log().Lines()) {
        if (line.starts_with("Progress.Set")) {
            progress.push_back(line);
        }
    }
    ASSERT_EQ(progress.size(), 5U);
    EXPECT_TRUE(progress[0].starts_with("Progress.SetTitle"));
    EXPECT_THAT(progress[1], testing::MatchesRegex("Progress.SetRange.*3.*"));
    EXPECT_THAT(progress[4], testing::MatchesRegex("Progress.SetPos.*3.*"));
}

} // namespace
