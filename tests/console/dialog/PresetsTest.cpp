// Presets: limits from the host that hold for one search.
#include "base/Status.h"
#include "console/ConsoleEvents.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/controls/ColorTxtComboBox.h"

#include <QPushButton>
#include <QRadioButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class PresetsTest : public ConsoleFixture {
protected:
    void SearchAgain() {
        Log().Clear();
        Click(C().searchButton);
        ASSERT_EQ(Searches(), 1);
    }
    [[nodiscard]] int SelectedRow() {
        return Grid().GetCurSel() == nullptr ? -1 : Grid().GetCurSel()->GetRowId();
    }
};

TEST_F(PresetsTest, ABimPresetLimitsTheSearchOfTheOpening) {
    FillService(host, kModeBim, 5);
    EXPECT_EQ(Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3), 1);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().presetKey, u"K7"_s);
    EXPECT_EQ(BimFilter().markId, 2);
    EXPECT_EQ(BimFilter().picId, 3);
    EXPECT_EQ(C().markCombo->currentText(), u"全部标识"_s);
}

TEST_F(PresetsTest, ThePhotoOfAPresetIsTickedAndSelectedAndHasTheKeyboard) {
    FillService(host, kModeBim, 5);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
    Settle();
    EXPECT_TRUE(Item(2, 0).GetBool());
    EXPECT_EQ(SelectedRow(), 2);
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(PresetsTest, TheNextSearchUsesWhatTheControlsShow) {
    FillService(host, kModeBim, 5);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
    Settle();
    SearchAgain();
    EXPECT_EQ(BimFilter().presetKey, QString());
    EXPECT_EQ(BimFilter().markId, 0);
    EXPECT_EQ(BimFilter().picId, -1);
    EXPECT_FALSE(Item(2, 0).GetBool());
}

TEST_F(PresetsTest, APhotoThatIsNotOnThePageStaysWantedForLaterSearches) {
    FillService(host, kModeBim, 5);
    Facade().ShowBimPicMngFor(0, QString(), 0, 99);
    Settle();
    EXPECT_EQ(SelectedRow(), -1);
    SearchAgain();
    EXPECT_EQ(BimFilter().picId, 99);
}

TEST_F(PresetsTest, APhotoThatWasNeverFoundIsStillWantedAfterClosing) {
    Facade().ShowBimPicMngFor(0, QString(), 0, 99);
    Settle();
    Console().CloseConsole();
    Open(kModeBim, 5);
    EXPECT_EQ(BimFilter().picId, 99);
}

TEST_F(PresetsTest, APhotoThatIsStillWantedIsNotSelectedAmongDrawingPhotos) {
    Facade().ShowBimPicMngFor(0, QString(), 0, 3);
    Settle();
    Console().CloseConsole();
    Open(kModePdf, 5);
    EXPECT_EQ(SelectedRow(), -1);
}

TEST_F(PresetsTest, WithoutAPhotoNoRowIsTickedOrSelected) {
    FillService(host, kModeBim, 5);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, -1);
    Settle();
    EXPECT_FALSE(Grid().HasCheckedRow());
    EXPECT_EQ(SelectedRow(), -1);
}

TEST_F(PresetsTest, APresetForAnOpenConsoleOfTheSameKindActsOnItAndSelectsItsPhoto) {
    Open(kModeBim, 5);
    const toolkit::WindowId before = Console().Id();
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 4);
    EXPECT_EQ(Console().Id(), before);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().presetKey, u"K7"_s);
    EXPECT_EQ(BimFilter().markId, 2);
    Settle();
    EXPECT_TRUE(Item(3, 0).GetBool());
    EXPECT_EQ(SelectedRow(), 3);
    SearchAgain();
    EXPECT_EQ(BimFilter().presetKey, QString());
}

TEST_F(PresetsTest, TheMarkBoxIsNotMovedAndCountsAgainAfterThePreset) {
    host.pics.usedBimMarks = {1, 2};
    Open(kModeBim, 5);
    Choose(*C().markCombo, 1);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, -1);
    EXPECT_EQ(BimFilter().markId, 2);
    EXPECT_EQ(C().markCombo->currentText(), u"质量"_s);
    SearchAgain();
    EXPECT_EQ(BimFilter().markId, 1);
}

TEST_F(PresetsTest, APresetForAnOpenConsoleOfAnotherKindClosesThatFirstAndIsNotLost) {
    Open(kModeIssue, 2);
    FillService(host, kModeBim, 5);
    const toolkit::WindowId before = Console().Id();
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
    EXPECT_NE(Console().Id(), before);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().presetKey, u"K7"_s);
    EXPECT_EQ(BimFilter().markId, 2);
    EXPECT_EQ(Grid().GetColumnCount(), 17);
    EXPECT_EQ(Grid().GetColumnCaption(3), u"照片名称"_s);
    Settle();
    EXPECT_EQ(SelectedRow(), 2);
    EXPECT_EQ(Window()->windowTitle(), u"Vesk照片管理"_s);
}

TEST_F(PresetsTest, AnIssuePresetGivesFloorAndComponent) {
    FillService(host, kModeIssue, 2);
    EXPECT_EQ(Facade().ShowIssueMngFor(0, u"3"_s, 1, u"H77"_s), 1);
    EXPECT_EQ(IssueFilter().presetKey, u"3"_s);
    EXPECT_EQ(IssueFilter().presetExtra, u"H77"_s);
    EXPECT_EQ(IssueFilter().markId, 1);
    EXPECT_EQ(IssueFilter().picId, -1);
    Settle();
    SearchAgain();
    EXPECT_EQ(IssueFilter().presetKey, QString());
    EXPECT_EQ(IssueFilter().markId, 0);
    // The component stays and counts only together with a floor.
    EXPECT_EQ(IssueFilter().presetExtra, u"H77"_s);
}

TEST_F(PresetsTest, AnIssuePresetSelectsNothing) {
    FillService(host, kModeIssue, 2);
    Facade().ShowIssueMngFor(0, u"3"_s, 1, u"H77"_s);
    Settle();
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_FALSE(Grid().HasCheckedRow());
}

TEST_F(PresetsTest, ADrawingPresetGivesTheOpenDrawingAndTheCheckpoint) {
    host.project.drawing = {500, u"一层平面"_s};
    FillService(host, kModePdf, 2);
    EXPECT_EQ(Facade().ShowPdfPicMngFor(0, 2, 31), 1);
    EXPECT_EQ(PdfFilter().drawingId, 500);
    EXPECT_EQ(PdfFilter().checkpointId, 31);
    EXPECT_EQ(PdfFilter().markId, 2);
    Settle();
    SearchAgain();
    EXPECT_EQ(PdfFilter().drawingId, -1);
    EXPECT_EQ(PdfFilter().checkpointId, -1);
    EXPECT_EQ(PdfFilter().markId, 0);
}

TEST_F(PresetsTest, EachPresetClosesAnOpenConsoleOfAnotherKindBeforeItsSearch) {
    Open(kModeBim, 2);
    Facade().ShowPdfPicMngFor(0, 2, 31);
    EXPECT_THAT(Log().LinesOf({"GetCurrentDrawing", "SaveRecent", "QueryPdfPics"}).size(), 3U);
    EXPECT_EQ(PdfFilter().checkpointId, 31);
    Log().Clear();
    Facade().ShowIssueMngFor(0, u"3"_s, 1, u"H77"_s);
    EXPECT_EQ(Log().CountOf("SaveRecent"), 1);
    EXPECT_EQ(IssueFilter().presetKey, u"3"_s);
    EXPECT_EQ(Console().GetMode(), kModeIssue);
}

TEST_F(PresetsTest, APlainOpeningAfterAPresetHasNoLimit) {
    FillService(host, kModeBim, 5);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
    Settle();
    Facade().ShowPicMng(kModeBim);
    EXPECT_EQ(BimFilter().presetKey, QString());
    EXPECT_EQ(BimFilter().markId, 0);
}

TEST_F(PresetsTest, AfterAPresetAnEmptyMarkBoxMeansAllMarks) {
    Open(kModeBim);
    host.pics.usedBimMarks = {99};
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    ASSERT_EQ(C().markCombo->currentIndex(), -1);
    Facade().ShowBimPicMngFor(0, QString(), 3, -1);
    EXPECT_EQ(BimFilter().markId, 3);
    SearchAgain();
    EXPECT_EQ(BimFilter().markId, 0);
}

TEST_F(PresetsTest, AMarkFromAPresetFiltersExactlyOneSearch) {
    FillService(host, kModeBim, 5);
    Facade().ShowBimPicMngFor(0, QString(), 3, -1);
    EXPECT_EQ(BimFilter().markId, 3);
    Settle();
    for (int i = 0; i < 2; ++i) {
        SearchAgain();
        EXPECT_EQ(BimFilter().markId, 0);
    }
}

TEST_F(PresetsTest, ADrawingPresetWithoutAnOpenProjectLimitsNoDrawing) {
    host.script.FailAlways("GetCurrentProject");
    FillService(host, kModePdf, 2);
    Facade().ShowPdfPicMngFor(0, 2, 31);
    EXPECT_EQ(PdfFilter().drawingId, -1);
}

TEST_F(PresetsTest, AConsoleOfAnotherKindIsClosedBeforeThePresetsOpens) {
    Open(kModeIssue, 2);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
    EXPECT_THAT(Log().LinesOf({"SaveRecent", "GetRecent", "QueryBimPics", "RefreshPdfMarks"}),
                ElementsAre("SaveRecent([])", "GetRecent()",
                            "QueryBimPics(page=1,size=30,sort=last_modifytime desc)",
                            "RefreshPdfMarks()"));
    Log().Clear();
    Facade().ShowPdfPicMngFor(0, 2, 5);
    EXPECT_THAT(Log().LinesOf({"GetCurrentDrawing", "SaveRecent", "GetRecent", "QueryPdfPics"}),
                ElementsAre("GetCurrentDrawing()", "SaveRecent([])", "GetRecent()",
                            "QueryPdfPics(page=1,size=30,sort=last_modifytime desc)"));
    Log().Clear();
    Facade().ShowIssueMngFor(0, u"K7"_s, 2, u"H77"_s);
    EXPECT_THAT(Log().LinesOf({"SaveRecent", "GetRecent", "QueryIssues"}),
                ElementsAre("SaveRecent([])", "GetRecent()",
                            "QueryIssues(page=1,size=30,sort=modifytime desc)"));
}

TEST_F(PresetsTest, ThePhotoOfAPresetIsNotLookedForAmongDrawingPhotos) {
    Open(kModeBim, 2);
    Facade().ShowBimPicMngFor(0, QString(), 0, 99);
    Settle();
    host.pics.pdfPics = {DrawingPhoto(98), DrawingPhoto(99)};
    Click(C().pdfRadio);
    ASSERT_EQ(Grid().GetRowCount(), 2);
    toolkit::SendWindowEvent(Console().Id(), WM_PIC_MNG_SELECT);
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_EQ(Console().Filters().Preset().picId, 99);
    host.pics.bimPics = {BimPhoto(99)};
    Click(C().bimRadio);
    toolkit::SendWindowEvent(Console().Id(), WM_PIC_MNG_SELECT);
    EXPECT_EQ(SelectedRow(), 0);
}

TEST_F(PresetsTest, APresetWhoseSearchRaisesAStatusIsUsedUpAllTheSame) {
    FillService(host, kModeBim, 3);
    host.script.During("QueryBimPics",
                       [] { throw ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Facade().ShowBimPicMngFor(0, u"K7"_s, 2, -1);
    host.script.During("QueryBimPics", nullptr);
    Settle();
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().presetKey, QString());
    EXPECT_EQ(BimFilter().markId, 0);
}

TEST_F(PresetsTest, SelectingThePresetPhotoHappensOnce) {
    FillService(host, kModeBim, 3);
    Facade().ShowBimPicMngFor(0, QString(), 0, 2);
    Settle();
    ASSERT_NE(Grid().GetCurSel(), nullptr);
    EXPECT_EQ(Console().Filters().Preset().picId, -1);
    Grid().SetCurSel(0);
    toolkit::SendWindowEvent(Console().Id(), WM_PIC_MNG_SELECT);
    EXPECT_EQ(Grid().GetCurSel()->GetRowId(), 0);
}

} // namespace
