// Opening the console: what is asked of the services, what the controls say and which are there.
#include "base/Status.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/Look.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/KXComboBox.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

class OpeningTest : public ConsoleFixture {
protected:
    /// Names of the visible controls among those that depend on kind, rights and workset.
    [[nodiscard]] std::vector<std::string> Shown() {
        std::vector<std::string> names;
        for (const QWidget* control :
             {static_cast<QWidget*>(C().labelCombo), static_cast<QWidget*>(C().bimRadio),
              static_cast<QWidget*>(C().pdfRadio), static_cast<QWidget*>(C().downloadButton),
              static_cast<QWidget*>(C().deleteButton), static_cast<QWidget*>(C().showButton),
              static_cast<QWidget*>(C().hideButton)}) {
            if (control->isVisible()) {
                names.push_back(control->objectName().toStdString());
            }
        }
        return names;
    }
};

TEST_F(OpeningTest, TheServicesAreAskedInTheOrderOfTheControlsAndThenForTheFirstPage) {
    FillService(host, kModeBim, 0);
    Facade().ShowPicMng(kModeBim);
    EXPECT_THAT(Log().LinesOf({"GetWorksetProjects", "GetRecent", "GetStateNames", "QueryBimPics",
                               "RefreshPdfMarks", "GetUsedBimMarks", "GetBimLabels"}),
                ElementsAre("GetWorksetProjects()", "GetRecent()", "GetStateNames()",
                            "QueryBimPics(page=1,size=30,sort=last_modifytime desc)",
                            "RefreshPdfMarks()"));
}

TEST_F(OpeningTest, TheCaptionNamesTheKind) {
    Open(kModeBim);
    EXPECT_EQ(Window()->windowTitle(), u"Vesk照片管理"_s);
    Open(kModeIssue);
    EXPECT_EQ(Window()->windowTitle(), u"TN问题管理"_s);
    Open(kModePdf);
    EXPECT_EQ(Window()->windowTitle(), u"Vesk照片管理"_s);
}

TEST_F(OpeningTest, ControlsHaveTheirCaptions) {
    Open(kModeBim);
    EXPECT_EQ(C().noDateLimit->text(), u"不限"_s);
    EXPECT_EQ(C().dateDash->text(), u"-"_s);
    EXPECT_EQ(C().searchButton->text(), u"搜索"_s);
    EXPECT_EQ(C().bimRadio->text(), u"BIM模型照片"_s);
    EXPECT_EQ(C().pdfRadio->text(), u"平面图纸照片"_s);
    EXPECT_EQ(C().downloadButton->text(), u"下载"_s);
    EXPECT_EQ(C().deleteButton->text(), u"删除"_s);
    EXPECT_EQ(C().showButton->text(), u"显示"_s);
    EXPECT_EQ(C().hideButton->text(), u"隐藏"_s);
    EXPECT_TRUE(C().searchButton->isDefault());
}

TEST_F(OpeningTest, TheRowsAreThereWhenTheWindowIs) {
    Open(kModeBim, 3);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Grid().GetRowCount(), 3);
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到3张照片"_s);
    EXPECT_TRUE(C().searchButton->isEnabled());
}

TEST_F(OpeningTest, IssuesAreCountedAsIssues) {
    Open(kModeIssue, 2);
    EXPECT_EQ(C().statusPane->text(), u"本次共搜索到2个问题"_s);
}

TEST_F(OpeningTest, PhotosWithAllRightsShowAllControls) {
    for (const ConsoleMode mode : {kModeBim, kModePdf}) {
        Open(mode);
        EXPECT_THAT(Shown(), ElementsAre("labelCombo", "bimRadio", "pdfRadio", "downloadButton",
                                         "deleteButton", "showButton", "hideButton"))
            << mode;
    }
}

TEST_F(OpeningTest, TheRadioButtonOfTheKindIsChecked) {
    Open(kModeBim);
    EXPECT_TRUE(C().bimRadio->isChecked());
    Open(kModePdf);
    EXPECT_TRUE(C().pdfRadio->isChecked());
}

TEST_F(OpeningTest, WithoutTheRightToDeleteTheButtonIsHidden) {
    host.auth.rights = {21, 38};
    Open(kModePdf);
    EXPECT_THAT(Shown(), ElementsAre("labelCombo", "bimRadio", "pdfRadio", "downloadButton",
                                     "showButton", "hideButton"));
}

TEST_F(OpeningTest, WithoutTheRightToShowAndHideBothButtonsAreHidden) {
    host.auth.rights = {21, 22};
    Open(kModeBim);
    EXPECT_THAT(Shown(), ElementsAre("labelCombo", "bimRadio", "pdfRadio", "downloadButton",
                                     "deleteButton"));
}

TEST_F(OpeningTest, WithoutTheRightToDeleteThereIsNoDeleteAnywhere) {
    host.auth.rights = {21, 38};
    Open(kModeBim);
    EXPECT_FALSE(C().deleteButton->isVisible());
    EXPECT_FALSE(Grid().IsColumnVisible(16));
}

TEST_F(OpeningTest, IssuesShowTheirThreeActionsWhateverTheRights) {
    host.auth.rights = {};
    Open(kModeIssue);
    EXPECT_THAT(Shown(), ElementsAre("deleteButton", "showButton", "hideButton"));
}

TEST_F(OpeningTest, AWorksetHasNoActionInAnyKind) {
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}});
    Open(kModeBim);
    EXPECT_THAT(Shown(), ElementsAre("labelCombo", "bimRadio", "pdfRadio"));
    Open(kModePdf);
    EXPECT_THAT(Shown(), ElementsAre("labelCombo", "bimRadio", "pdfRadio"));
    Open(kModeIssue);
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(OpeningTest, TheKeywordBoxHintsAtWhatIsSearched) {
    Open(kModePdf);
    EXPECT_EQ(C().keywordCombo->TipInfo(), u"输入照片名称、图纸、相关人账号、描述等关键字"_s);
    EXPECT_EQ(C().keywordCombo->currentText(), QString());
}

TEST_F(OpeningTest, TheKeywordBoxHoldsTheRecentKeywordsInTheirOrder) {
    host.recent.keywords = {u"新"_s, u"旧"_s};
    Open(kModeBim);
    EXPECT_THAT(Entries(*C().keywordCombo), ElementsAre("新", "旧"));
    EXPECT_EQ(C().keywordCombo->currentText(), QString());
    EXPECT_EQ(BimFilter().keyword, QString());
}

TEST_F(OpeningTest, TheDatesAreTheLastWeekAndOff) {
    Open(kModeBim);
    EXPECT_TRUE(C().noDateLimit->isChecked());
    EXPECT_EQ(C().startPicker->date(), QDate(2026, 2, 26));
    EXPECT_EQ(C().endPicker->date(), QDate(2026, 3, 5));
    EXPECT_FALSE(C().startPicker->isEnabled());
    EXPECT_FALSE(C().endPicker->isEnabled());
}

TEST_F(OpeningTest, MarkAndLabelBoxHoldTheirFirstEntryAlone) {
    host.pics.usedBimMarks = {1, 2};
    host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}};
    Open(kModeBim);
    EXPECT_THAT(Entries(*C().markCombo), ElementsAre("全部标识"));
    EXPECT_EQ(C().markCombo->Entries().front().color, 0xFFFFFF);
    EXPECT_EQ(C().markCombo->currentIndex(), 0);
    EXPECT_THAT(Entries(*C().labelCombo), ElementsAre("全部标签"));
    EXPECT_EQ(C().labelCombo->currentIndex(), 0);
}

TEST_F(OpeningTest, TheMarkBoxShowsColoursAsSwatches) {
    Open(kModeBim);
    EXPECT_FALSE(C().markCombo->itemIcon(0).isNull());
}

TEST_F(OpeningTest, AWindowThatIsMadeWithoutAKindShowsBimPhotos) {
    FillService(host, kModeBim, 2);
    ASSERT_TRUE(Console().Create(toolkit::kNoWindow));
    EXPECT_EQ(Console().GetMode(), kModeBim);
    EXPECT_TRUE(C().bimRadio->isChecked());
    Console().RunSearch();
    EXPECT_EQ(Grid().GetRowCount(), 2);
}

TEST_F(OpeningTest, TheStateThatMeansAllIsNamedSo) {
    Open(kModeBim);
    EXPECT_THAT(Entries(*C().statusCombo), ElementsAre("全部状态", "待整改", "整改中", "已整改"));
    EXPECT_EQ(C().statusCombo->currentIndex(), 0);
}

TEST_F(OpeningTest, WithoutStatesNothingIsSelected) {
    host.script.FailAlways("GetStateNames");
    Open(kModeBim);
    EXPECT_EQ(C().statusCombo->count(), 0);
    EXPECT_EQ(BimFilter().status, QString());
}

TEST_F(OpeningTest, TheProjectBoxHoldsTheOpenProject) {
    Open(kModeBim);
    EXPECT_THAT(Entries(*C().projectCombo), ElementsAre("示例工程"));
    EXPECT_EQ(C().projectCombo->toolTip(), u"示例工程"_s);
}

TEST_F(OpeningTest, AReopenedConsoleSearchesInEachProjectOnce) {
    Open(kModeBim);
    const std::vector<qint32> first = BimFilter().projectIds;
    EXPECT_EQ(first.size(), 1U);
    Console().CloseConsole();
    Open(kModeBim);
    EXPECT_EQ(BimFilter().projectIds, first);
}

TEST_F(OpeningTest, AProjectNamedLikeMarkupStandsInItsTipAsItIs) {
    host.OpenWorkset({{1, u"<b>甲</b>"_s}, {2, u"<i>乙</i>"_s}});
    Open(kModeBim);
    for (const int entry : {1, 2}) {
        support::Choose(*C().projectCombo, entry);
        EXPECT_EQ(C().projectCombo->toolTip(), toolkit::PlainTip(C().projectCombo->currentText()));
        EXPECT_TRUE(C().projectCombo->toolTip().contains(u"&lt;"_s));
    }
}

TEST_F(OpeningTest, TheProjectBoxOfAWorksetBeginsWithAllOfIt) {
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}});
    Open(kModeBim);
    EXPECT_THAT(Entries(*C().projectCombo), ElementsAre("工作集", "甲", "乙"));
    EXPECT_EQ(C().projectCombo->currentText(), u"工作集"_s);
    EXPECT_EQ(C().projectCombo->toolTip(), u"工作集"_s);
}

TEST_F(OpeningTest, TheWindowHasTheLeastSizeOfItsKind) {
    Open(kModeBim);
    EXPECT_EQ(Window()->minimumSize(), QSize(1085, 845));
    EXPECT_EQ(Window()->size(), QSize(1085, 845));
    Open(kModePdf);
    EXPECT_EQ(Window()->minimumSize(), QSize(1085, 845));
    Open(kModeIssue);
    EXPECT_EQ(Window()->minimumSize(), QSize(1025, 820));
}

TEST_F(OpeningTest, TheWindowIsAChildOfTheMainWindowAndLiesOnTheScreen) {
    Open(kModeBim);
    EXPECT_EQ(Window()->parentWidget(), mainWindow.Widget());
    EXPECT_TRUE(Window()->screen()->availableGeometry().contains(Window()->frameGeometry()));
}

TEST_F(OpeningTest, AStatusRaisedAtTheEndOfTheOpeningIsShownAndTheConsoleWorks) {
    host.script.During("GetStateNames", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Open(kModeBim, 3);
    EXPECT_EQ(Grid().GetRowCount(), 3);
    EXPECT_EQ(Window()->windowTitle(), u"Vesk照片管理"_s);
}

TEST_F(OpeningTest, AStatusRaisedAtTheBeginningOfTheOpeningIsShownAndTheConsoleWorks) {
    host.script.During("GetWorksetProjects", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Open(kModeBim, 3);
    EXPECT_EQ(Grid().GetRowCount(), 3);
    EXPECT_TRUE(View().isVisible());
    EXPECT_FALSE(C().deleteButton->isVisible()) << "the rights aren't known";
    Click(C().searchButton);
    EXPECT_EQ(Searches(), 1);
}

TEST_F(OpeningTest, TheSameKindAgainFetchesAnewAndKeepsTheFilters) {
    Open(kModeBim, 3);
    TypeKeyword(u"abc"_s);
    Click(C().noDateLimit);
    Log().Clear();
    const toolkit::WindowId before = Console().Id();
    Facade().ShowPicMng(kModeBim);
    EXPECT_EQ(Console().Id(), before);
    EXPECT_EQ(C().keywordCombo->currentText(), u"abc"_s);
    EXPECT_FALSE(C().noDateLimit->isChecked());
    EXPECT_EQ(Log().CountOf("SaveRecent"), 0);
    EXPECT_EQ(Log().CountOf("GetWorksetProjects"), 0);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(Grid().GetRowCount(), 3);
}

TEST_F(OpeningTest, AnotherKindResetsTheFiltersButNotTheHistory) {
    Open(kModeBim, 3);
    TypeKeyword(u"abc"_s);
    Click(C().searchButton);
    Click(C().noDateLimit);
    Log().Clear();
    const toolkit::WindowId before = Console().Id();
    Facade().ShowPicMng(kModePdf);
    Settle();
    EXPECT_NE(Console().Id(), before);
    EXPECT_EQ(C().keywordCombo->currentText(), QString());
    EXPECT_TRUE(C().noDateLimit->isChecked());
    EXPECT_THAT(Entries(*C().keywordCombo), ElementsAre("abc"));
    EXPECT_EQ(Log().CountOf("SaveRecent"), 1);
    EXPECT_TRUE(C().pdfRadio->isChecked());
    EXPECT_EQ(PdfFilter().keyword, QString());
}

TEST_F(OpeningTest, AConsoleThatWasMinimisedForALookupIsOnlyBroughtBack) {
    Open(kModeBim, 3);
    Console().Minimise();
    Facade().reopenConsole = true;
    const toolkit::WindowId before = Console().Id();
    Facade().ShowPicMng(kModeBim);
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_EQ(Console().Id(), before);
    EXPECT_FALSE(Window()->isMinimized());
}

TEST_F(OpeningTest, AConsoleThatComesBackHasItsRowSelected) {
    Open(kModeBim, 3);
    Grid().SetCurSel(1);
    Console().Minimise();
    Facade().reopenConsole = true;
    Facade().ShowPicMng(kModeBim);
    ASSERT_NE(Grid().GetCurSel(), nullptr);
    EXPECT_EQ(Grid().GetCurSel()->GetRowId(), 1);
}

TEST_F(OpeningTest, AnotherKindBeginsWithoutASelectedRow) {
    Open(kModeBim, 3);
    FillService(host, kModePdf, 3);
    Grid().SetCurSel(1);
    Click(C().pdfRadio);
    ASSERT_EQ(Grid().GetRowCount(), 3);
    EXPECT_EQ(Grid().GetCurSel(), nullptr);
}

TEST_F(OpeningTest, WithoutAWindowTheFlagForComingBackStays) {
    Facade().reopenConsole = true;
    Open(kModeBim, 3);
    EXPECT_TRUE(Facade().reopenConsole);
}

TEST_F(OpeningTest, AConsoleOfAnUnknownKindListsBimPhotos) {
    Open(7, 0);
    EXPECT_EQ(Grid().GetColumnCount(), 17);
    EXPECT_EQ(Grid().GetColumnCaption(2), u"照片标识"_s);
}

} // namespace
