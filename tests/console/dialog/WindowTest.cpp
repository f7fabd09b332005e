// Places of the controls, sizes, events from others, and the end of the window.
#include "console/ConsoleEvents.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/KXComboBox.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QWindow>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ConsoleWindowTest : public ConsoleFixture {
protected:
    void Resize(int width, int height) {
        Window()->resize(width, height);
        support::RunPendingEvents();
    }
    [[nodiscard]] QRect BarRect() { return Console().Paging()->GetRect(); }
};

TEST_F(ConsoleWindowTest, PhotosLieWhereTheLayoutSays) {
    Open(kModeBim);
    EXPECT_EQ(C().bimRadio->pos(), QPoint(8, 770));
    EXPECT_EQ(C().pdfRadio->pos(), QPoint(100, 770));
    EXPECT_EQ(C().pdfRadio->size(), C().bimRadio->size());
    EXPECT_EQ(C().downloadButton->pos(), QPoint(10, 790));
    EXPECT_EQ(C().deleteButton->pos(), QPoint(60, 790));
    EXPECT_EQ(C().showButton->pos(), QPoint(110, 790));
    EXPECT_EQ(C().hideButton->pos(), QPoint(160, 790));
    EXPECT_EQ(C().hideButton->size(), C().downloadButton->size());
    EXPECT_EQ(C().statusBar->geometry(), QRect(0, 825, 1085, 20));
    EXPECT_EQ(BarRect().right() + 1, 1085);
    EXPECT_EQ(BarRect().bottom() + 1, 825);
    EXPECT_EQ(View().geometry(), QRect(10, 40, 1060, BarRect().top() - 20 - 40));
}

TEST_F(ConsoleWindowTest, IssuesUseTheLineOfTheRadioButtons) {
    Open(kModeIssue);
    EXPECT_EQ(View().geometry().bottom() + 1, BarRect().top());
    EXPECT_EQ(C().deleteButton->pos(), QPoint(10, 765));
    EXPECT_EQ(C().showButton->pos(), QPoint(60, 765));
    EXPECT_EQ(C().hideButton->pos(), QPoint(110, 765));
}

TEST_F(ConsoleWindowTest, TheFiltersOfIssuesFollowEachOther) {
    Open(kModeIssue);
    const int y = 10;
    EXPECT_EQ(C().projectCombo->pos(), QPoint(10, y));
    const std::vector<std::pair<QWidget*, int>> line = {
        {C().markCombo, 3}, {C().statusCombo, 3}, {C().noDateLimit, 3},  {C().startPicker, 3},
        {C().dateDash, 1},  {C().endPicker, 1},   {C().keywordCombo, 3}, {C().searchButton, 3}};
    const QWidget* before = C().projectCombo;
    for (const auto& [control, gap] : line) {
        EXPECT_EQ(control->pos(), QPoint(before->x() + before->width() + gap, y))
            << control->objectName().toStdString();
        before = control;
    }
    EXPECT_LE(before->geometry().right(), Window()->width());
}

TEST_F(ConsoleWindowTest, EverythingFollowsALargerWindow) {
    Open(kModeBim);
    Resize(1400, 1000);
    EXPECT_EQ(C().bimRadio->pos(), QPoint(8, 925));
    EXPECT_EQ(C().downloadButton->pos(), QPoint(10, 945));
    EXPECT_EQ(C().statusBar->geometry(), QRect(0, 980, 1400, 20));
    EXPECT_EQ(BarRect().right() + 1, 1400);
    EXPECT_EQ(View().geometry().right() + 1, 1385);
    EXPECT_EQ(View().geometry().bottom() + 1, BarRect().top() - 20);
}

TEST_F(ConsoleWindowTest, TheWindowDoesNotGetSmallerThanItsKindAllows) {
    Open(kModeBim);
    Resize(300, 200);
    EXPECT_EQ(Window()->size(), QSize(1085, 845));
}

TEST_F(ConsoleWindowTest, WithoutTheRightToDeleteTheButtonsCloseUp) {
    host.auth.rights = {21, 38};
    Open(kModeBim);
    EXPECT_EQ(C().showButton->pos(), QPoint(60, 790));
    EXPECT_EQ(C().hideButton->pos(), QPoint(110, 790));
}

TEST_F(ConsoleWindowTest, NoFilterOfPhotosIsCutOff) {
    Open(kModePdf);
    int end = 0;
    for (const QWidget* control : C().Filters()) {
        EXPECT_LE(control->geometry().right(), Window()->width() - 15);
        EXPECT_GT(control->x(), end) << control->objectName().toStdString();
        end = control->geometry().right();
    }
}

TEST_F(ConsoleWindowTest, AChangedPhotoIsToldToTheHostAndThePageFetched) {
    Open(kModePdf, 65);
    Console().Paging()->DoPage(2);
    Log().Clear();
    toolkit::SendWindowEvent(Console().Id(), WM_PIC_MNG_REFRESH);
    EXPECT_THAT(
        Log().LinesOf({"RefreshPdfMarks", "QueryPdfPics"}),
        ElementsAre("RefreshPdfMarks()", "QueryPdfPics(page=2,size=30,sort=last_modifytime desc)"));
}

TEST_F(ConsoleWindowTest, UnknownEventsAreIgnored) {
    Open(kModeBim);
    EXPECT_EQ(toolkit::SendWindowEvent(Console().Id(), 4711), 0);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(ConsoleWindowTest, TheWindowManagersCloseClosesTheConsole) {
    Open(kModeBim);
    Window()->close();
    support::RunPendingEvents();
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_EQ(Log().CountOf("SaveRecent"), 1);
}

TEST_F(ConsoleWindowTest, ClosingAsksNothingAndEndsGridAndPaging) {
    Open(kModeBim);
    Console().CloseConsole();
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_EQ(Console().Grid(), nullptr);
    EXPECT_EQ(Console().Paging(), nullptr);
    EXPECT_EQ(Console().Controls(), nullptr);
    EXPECT_EQ(Console().GetMode(), kModeBim);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(ConsoleWindowTest, ClosingResetsTheKindToBimPhotos) {
    Open(kModeIssue);
    Console().CloseConsole();
    EXPECT_EQ(Console().GetMode(), kModeBim);
}

TEST_F(ConsoleWindowTest, ClosingWithoutAWindowDoesNothing) {
    Console().CloseConsole();
    EXPECT_THAT(Log().Lines(), IsEmpty());
    EXPECT_EQ(Console().GetMode(), kModeNone);
}

TEST_F(ConsoleWindowTest, ClosingForgetsTheFiltersButNotTheSecondPresetText) {
    host.questions.usedMarks = {1, 2};
    FillService(host, kModeIssue, 2);
    Facade().ShowIssueMngFor(0, u"3"_s, 2, u"H77"_s);
    Settle();
    Choose(*C().markCombo, 1);
    Console().CloseConsole();
    EXPECT_EQ(Console().Filters().MarkId(), 0);
    EXPECT_EQ(Console().Filters().Preset().key, QString());
    EXPECT_EQ(Console().Filters().Preset().extra, u"H77"_s);
    Open(kModeIssue);
    EXPECT_EQ(IssueFilter().markId, 0);
    EXPECT_EQ(IssueFilter().presetExtra, u"H77"_s);
    // The lists are fetched anew.
    DropDown(*C().markCombo);
    EXPECT_EQ(Log().CountOf("GetUsedMarks"), 1);
}

TEST_F(ConsoleWindowTest, AClosedConsoleOpensAgainLikeTheFirstTime) {
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    Click(C().searchButton);
    Click(C().noDateLimit);
    Console().CloseConsole();
    Open(kModeBim, 2);
    EXPECT_TRUE(C().noDateLimit->isChecked());
    EXPECT_EQ(C().keywordCombo->currentText(), QString());
    EXPECT_THAT(Entries(*C().keywordCombo), ElementsAre("abc"));
    EXPECT_EQ(Grid().GetRowCount(), 2);
    EXPECT_EQ(BimFilter().keyword, QString());
}

TEST_F(ConsoleWindowTest, EventsForAClosedConsoleAreDropped) {
    Open(kModeBim);
    const toolkit::WindowId id = Console().Id();
    toolkit::PostWindowEvent(id, WM_PIC_MNG_REFRESH);
    Console().CloseConsole();
    Log().Clear();
    support::RunPendingEvents();
    EXPECT_EQ(toolkit::SendWindowEvent(id, WM_PIC_MNG_REFRESH), 0);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(ConsoleWindowTest, TheConsoleEndsWithTheMainWindowThatItLiesOn) {
    auto* parent = new QWidget;
    const toolkit::WindowId id =
        toolkit::RegisterWindow(parent, [](const toolkit::WindowEvent&) { return qintptr(0); });
    Console().SetMode(kModeBim);
    Console().Create(id);
    ASSERT_TRUE(Console().HasWindow());
    delete parent;
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_EQ(Console().Controls(), nullptr);
    Open(kModeBim);
    EXPECT_EQ(Grid().GetRowCount(), 3);
}

TEST_F(ConsoleWindowTest, ClosingForgetsTheChosenLabel) {
    host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}};
    Open(kModeBim);
    Choose(*C().labelCombo, 1);
    ASSERT_EQ(BimFilter().labelId, u"l1"_s);
    Console().CloseConsole();
    Open(kModeBim);
    EXPECT_EQ(BimFilter().labelId, QString());
}

TEST_F(ConsoleWindowTest, TheMainWindowOwnsIt) {
    mainWindow.Widget()->show();
    Open(kModeBim);
    ASSERT_NE(Window()->windowHandle(), nullptr);
    EXPECT_EQ(Window()->windowHandle()->transientParent(), mainWindow.Widget()->windowHandle());
    // Of a plain window no window manager is told so.
    EXPECT_EQ(Window()->windowHandle()->type(), Qt::Dialog);
    EXPECT_TRUE(Window()->windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_TRUE(Window()->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
}

TEST_F(ConsoleWindowTest, MinimisedItComesBackAsItWas) {
    for (const bool maximised : {false, true}) {
        Open(kModeBim);
        if (maximised) {
            Window()->showMaximized();
        }
        Console().Minimise();
        ASSERT_TRUE(Window()->isMinimized());
        Facade().ShowPicMng(kModeBim);
        EXPECT_FALSE(Window()->isMinimized());
        EXPECT_EQ(Window()->isMaximized(), maximised);
        Console().CloseConsole();
    }
}

TEST_F(ConsoleWindowTest, TheEndOfADownloadIsAskedAtItAndLeavesItInFront) {
    mainWindow.Widget()->show();
    Open(kModeBim);
    host.files.stored[host.pics.bimPics[0].text8] = "photo";
    CheckRows({0});
    prompts.ExpectFolder(u"请选择文件存放的路径："_s, folder.Path());
    prompts.ExpectYesNo(u"下载成功，是否打开下载照片的所在目录？"_s, false);
    host.script.During("Progress.Close", [this] {
        mainWindow.Widget()->activateWindow();
        ASSERT_TRUE(support::WaitFor([this] { return mainWindow.Widget()->isActiveWindow(); }));
    });
    Click(C().downloadButton);
    EXPECT_EQ(Log().CountOf("Progress.Close"), 1);
    EXPECT_THAT(prompts.Parents(), ElementsAre(Console().Id(), Console().Id()));
    EXPECT_TRUE(support::WaitFor([this] { return Window()->isActiveWindow(); }));
}

TEST_F(ConsoleWindowTest, MaximisedAndInSightItIsRestoredByTheNextOpening) {
    Open(kModeBim);
    const QSize before = Window()->size();
    Window()->showMaximized();
    Facade().ShowPicMng(kModeBim);
    EXPECT_FALSE(Window()->isMaximized());
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Window()->size(), before);
}

TEST_F(ConsoleWindowTest, MinimisedItIsRestoredByAPresetToo) {
    Open(kModeBim);
    Console().Minimise();
    EXPECT_EQ(Facade().ShowBimPicMngFor(0, u"K"_s, 0, -1), 1);
    EXPECT_FALSE(Window()->isMinimized());
    EXPECT_TRUE(Window()->isVisible());
}

TEST_F(ConsoleWindowTest, ItGoesOutOfTheWayOfTheViewerThatALookupOpens) {
    Open(kModeBim);
    Grid().Manager()->LocateRow(*Grid().GetRow(0));
    EXPECT_TRUE(Window()->isMinimized());
    EXPECT_TRUE(Facade().reopenConsole);
}

TEST_F(ConsoleWindowTest, ItStandsOverTheMiddleOfTheMainWindow) {
    mainWindow.Widget()->setGeometry(0, 0, 1300, 100);
    Open(kModeBim);
    EXPECT_EQ(Window()->frameGeometry().center().x(),
              mainWindow.Widget()->frameGeometry().center().x());
}

TEST_F(ConsoleWindowTest, TheStatusTextHasTheWholeBarButEightPixelsAtItsEnds) {
    Open(kModeBim);
    const QRect text = C().statusPane->geometry();
    EXPECT_EQ(text.left(), 8 + 2) << "two are the bar's own";
    EXPECT_EQ(text.right() + 1, C().statusBar->width() - 8);
}

TEST_F(ConsoleWindowTest, ItsControlsHaveTheirSizes) {
    Open(kModeBim);
    // The keywords have given way to what the window is too narrow for.
    const int widths[] = {144, 112, 104, 96, 54, 104, 8, 104, 226, 64};
    for (size_t i = 0; i < kFilterControls; ++i) {
        EXPECT_EQ(C().Filters()[i]->size(), QSize(widths[i], 24))
            << C().Filters()[i]->objectName().toStdString();
    }
    for (const QPushButton* action : C().Actions()) {
        EXPECT_EQ(action->size(), QSize(46, 24));
    }
    for (const QRadioButton* radio : {C().bimRadio, C().pdfRadio}) {
        EXPECT_EQ(radio->size(), QSize(90, 18));
    }
}

TEST_F(ConsoleWindowTest, TheKindOfAnOpenConsoleIsTheCheckedButton) {
    Open(kModeBim);
    Console().SetMode(kModePdf);
    EXPECT_TRUE(C().pdfRadio->isChecked());
    Console().SetMode(kModeBim);
    EXPECT_TRUE(C().bimRadio->isChecked());
    Console().SetMode(kModeIssue);
    EXPECT_TRUE(C().pdfRadio->isChecked());
}

} // namespace
