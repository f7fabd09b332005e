// The console photo viewer: the photos of one page of the grid.
#include "tests/support/WaitFor.h"
#include "tests/viewers/page/PageFixture.h"
#include "tests/viewers/support/RecordPane.h"
#include "toolkit/Look.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

class PagePicViewTest : public PageFixture {};

TEST_F(PagePicViewTest, OpensOnTheRowWithAllThatTheListSaysOfIt) {
    page.index = 2;
    Open();
    const gallery::PhotoBlock& texts = Pane().Texts();
    EXPECT_EQ(Pane().State().currentIndex, 2);
    EXPECT_EQ(texts.markText->text(), u"质量");
    EXPECT_EQ(texts.markText->BGColor(), toolkit::ColorFromBgr(0x2030F0));
    EXPECT_EQ(texts.posText->text(), u"位置：3层 1/A");
    EXPECT_EQ(texts.uploaderText->text(), u"    上传人：张3");
    EXPECT_EQ(texts.uploadTimeText->text(), u"上传时间：2026-03-03 12:00");
    EXPECT_EQ(texts.updaterText->text(), u"    更新人：李3") << "also of one never changed";
    EXPECT_EQ(texts.updateTimeText->text(), u"更新时间：2026-03-03 12:00");
    EXPECT_EQ(texts.labelText->text(), u"标签：渗漏 裂缝3");
    EXPECT_EQ(texts.descText->text(), u"描述：描述3");
    const auto tip = [](const QWidget* line) { return line->toolTip(); };
    EXPECT_EQ(tip(texts.posText), toolkit::PlainTip(u"3层 1/A"_s));
    EXPECT_EQ(tip(texts.uploaderText), toolkit::PlainTip(u"张3"_s));
    EXPECT_EQ(tip(texts.uploadTimeText), toolkit::PlainTip(u"2026-03-03 12:00"_s));
    EXPECT_EQ(tip(texts.updaterText), toolkit::PlainTip(u"李3"_s));
    EXPECT_EQ(tip(texts.updateTimeText), toolkit::PlainTip(u"2026-03-03 12:00"_s));
    EXPECT_EQ(tip(texts.labelText), toolkit::PlainTip(u"渗漏 裂缝3"_s));
    EXPECT_EQ(tip(texts.descText), toolkit::PlainTip(u"描述3"_s));
    EXPECT_TRUE(ModuleLog().contains(u"-------照片管理-查看照片-------"_s));
}

TEST_F(PagePicViewTest, AsksTheServicesForNoPhoto) {
    Open();
    Press(Qt::Key_Right);
    EXPECT_THAT(Log().LinesOf({"GetBimPicDetail", "GetPicFilesByPosition", "QueryBimPics"}),
                IsEmpty());
}

TEST_F(PagePicViewTest, OnPageThreeTheRowAtIndexFourHasTheNumber65Of61To90) {
    for (int number = 5; number <= 30; ++number) {
        AddItem(number);
    }
    page.page = 3;
    page.index = 4;
    Open();
    EXPECT_EQ(Title(), u"照片5.jpg    65/(61-90)");
    EXPECT_EQ(Pane().Widget()->windowTitle(), Title());
}

TEST_F(PagePicViewTest, ALastPageOfSevenRowsOnPageTwoHasTheRange31To37) {
    for (int number = 5; number <= 7; ++number) {
        AddItem(number);
    }
    page.page = 2;
    Open();
    EXPECT_EQ(Title(), u"照片1.jpg    31/(31-37)");
}

TEST_F(PagePicViewTest, OnPageOneTheNumbersBeginWithOne) {
    EXPECT_EQ(gallery::PageTitle(u"a"_s, 1, 0, 30), u"a    1/(1-30)");
    EXPECT_EQ(gallery::PageTitle(u"a"_s, 1, 29, 30), u"a    30/(1-30)");
    EXPECT_EQ(gallery::PageTitle(u"%1 %2"_s, 1, 0, 2), u"%1 %2    1/(1-2)");
}

TEST_F(PagePicViewTest, SteppingStopsAtThePagesEdges) {
    Open();
    Press(Qt::Key_Left);
    EXPECT_EQ(Title(), u"照片1.jpg    1/(1-4)");
    for (int i = 0; i < 6; ++i) {
        Press(Qt::Key_Right);
    }
    EXPECT_EQ(Title(), u"照片4.jpg    4/(1-4)");
    EXPECT_EQ(Pane().Texts().descText->text(), u"描述：描述4");
}

TEST_F(PagePicViewTest, AMarkThatIsNotInTheTableKeepsTheOneOfThePhotoBefore) {
    page.items[1].markId = 99;
    Open();
    EXPECT_EQ(Pane().Texts().markText->text(), u"质量");
    Press(Qt::Key_Right);
    EXPECT_EQ(Pane().Texts().markText->text(), u"质量");
    EXPECT_EQ(Pane().Texts().markText->BGColor(), toolkit::ColorFromBgr(0x2030F0));
    page.items[1].markId = 2;
}

TEST_F(PagePicViewTest, MarksAreLookedUpForEachPicture) {
    Open();
    host.marks.marks[2].name = u"改名"_s;
    Press(Qt::Key_Right);
    EXPECT_EQ(Pane().Texts().markText->text(), u"改名");
}

TEST_F(PagePicViewTest, APhotoWithoutANoteSaysSoWithTheButtonDisabled) {
    Open();
    EXPECT_EQ(PlayerText(), u"无语音");
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
    Press(Qt::Key_Right);
    EXPECT_EQ(PlayerText(), u"就绪");
    EXPECT_TRUE(Pane().Note().Button()->isEnabled());
}

TEST_F(PagePicViewTest, TwoNeighboursWithTheSameNoteKeepPlayingAcrossTheChange) {
    PlayTheNote();
    ASSERT_TRUE(support::WaitFor([&] { return PlayerText() == u"00:01 / 00:02"; }));
    Press(Qt::Key_Right);
    EXPECT_TRUE(Pane().Note().IsPlaying());
    EXPECT_EQ(PlayerText(), u"00:01 / 00:02") << "its time display stays";
}

TEST_F(PagePicViewTest, AnotherNoteStopsTheOneThatPlaysWhoseTimeDisplayStays) {
    PlayTheNote();
    ASSERT_TRUE(support::WaitFor([&] { return PlayerText() == u"00:01 / 00:02"; }));
    Press(Qt::Key_Left);
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
    EXPECT_EQ(PlayerText(), u"00:00 / 00:02") << "the texts came first";
}

TEST_F(PagePicViewTest, NoNotePlaysOnWhenTheWindowHasGone) {
    PlayTheNote();
    wrap.Widget()->close();
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_FALSE(wrap.HasWindow());
}

TEST_F(PagePicViewTest, ABimPhotoTakesItsFilesFromThePicturesFolderOfItsProject) {
    page.items[1].ppid = 7;
    Open();
    EXPECT_EQ(Pane().State().items[0].picPath, folder.Path(u"1/pics/uuid1.jpg"_s));
    EXPECT_EQ(Pane().State().items[1].picPath, folder.Path(u"7/pics/uuid2.jpg"_s));
    EXPECT_EQ(Pane().State().items[1].audioPath, folder.Path(u"7/pics/note.amr"_s));
}

TEST_F(PagePicViewTest, ADrawingPhotoTakesThemFromTheFolderOfDrawingPhotos) {
    page.kind = 2;
    Open();
    QString thumbs;
    host.paths.GetThumbFolder(thumbs, 1, {});
    EXPECT_EQ(Pane().State().items[0].picPath, thumbs + u"uuid1.jpg"_s);
}

TEST_F(PagePicViewTest, AnyOtherKindKeepsTheFolderOfTheItemBefore) {
    page.kind = 3;
    Open();
    EXPECT_EQ(Pane().State().items[0].picPath, u"uuid1.jpg");
    EXPECT_THAT(Log().LinesOf({"GetPicFolder", "GetThumbFolder"}), IsEmpty());
}

TEST_F(PagePicViewTest, EnterAndEscapeDoNotCloseThePreview) {
    Open();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(wrap.Widget(), key);
        QTest::keyClick(Pane().Widget(), key);
    }
    EXPECT_TRUE(wrap.Widget()->isVisible());
}

TEST_F(PagePicViewTest, WithoutPhotosThereIsAnEmptyPane) {
    page.items.clear();
    Open();
    EXPECT_TRUE(wrap.Widget()->isVisible());
    EXPECT_EQ(Title(), u"查看照片");
}

TEST_F(PagePicViewTest, ThePicturesLieInsideAnEdgeOfFivePixels) {
    const gallery::ConsoleViewerPlaces places = gallery::PlaceConsoleViewer(QSize(1000, 600));
    EXPECT_EQ(places.bigArea, QRect(5, 5, 865, 510));
    EXPECT_EQ(places.stripArea, QRect(880, 5, 115, 510));
}

TEST_F(PagePicViewTest, TheTextsStandInFiveColumns) {
    const gallery::PhotoBlockLayout at =
        gallery::LayoutPhotoBlock(QSize(1000, 600), gallery::ConsoleViewerBlock());
    EXPECT_EQ(at.separator, QRect(0, 521, 1000, 2));
    EXPECT_EQ(at.mark, QRect(5, 540, 80, 20));
    EXPECT_EQ(at.position, QRect(5, 570, 198, 14));
    EXPECT_EQ(at.uploader, QRect(203, 545, 188, 14));
    EXPECT_EQ(at.uploadTime, QRect(203, 570, 188, 14));
    EXPECT_EQ(at.updater, QRect(401, 545, 188, 14));
    EXPECT_EQ(at.updateTime, QRect(401, 570, 188, 14));
    EXPECT_EQ(at.labels, QRect(599, 545, 188, 14));
    EXPECT_EQ(at.description, QRect(599, 570, 188, 14));
    EXPECT_EQ(at.noteGroup, QRect(792, 525, 198, 70));
    EXPECT_EQ(at.noteButton, QPoint(797, 540));
    EXPECT_EQ(at.noteProgress, QRect(842, 570, 138, 5));
    EXPECT_EQ(at.noteStatus, QRect(842, 550, 138, 14));
}

TEST_F(PagePicViewTest, TheRecordOfEachPhotosPlaceIsShownAndCannotBeChanged) {
    const support::RecordPane record(host);
    Open();
    CRichEditorDlg& pane = wrap.RichEditor();
    ASSERT_TRUE(support::WaitFor([&] { return pane.IsEditorReady(); }));
    EXPECT_EQ(support::RecordPane::ContextOf(pane), u"K1,1,71,1,1,1");
    EXPECT_EQ(support::RecordPane::Text(pane), u"雨后渗水");
    EXPECT_TRUE(pane.Editor()->Sheet()->isReadOnly());
    Press(Qt::Key_Right);
    EXPECT_EQ(support::RecordPane::ContextOf(pane), u"K2,2,72,1,1,1");
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_NE(wrap.UpDownView(), nullptr);
    wrap.Widget()->close();
    EXPECT_EQ(Log().CountOf("SaveRichText"), 0);
    EXPECT_THAT(host.drafts.kept, IsEmpty());
}

TEST_F(PagePicViewTest, TheRecordOfADrawingPhotoIsThatOfItsCheckpoint) {
    const support::RecordPane record(host);
    page.kind = 2;
    Open();
    ASSERT_TRUE(support::WaitFor([&] { return wrap.RichEditor().IsEditorReady(); }));
    EXPECT_EQ(support::RecordPane::ContextOf(wrap.RichEditor()), u"K1,1,71,2,1,1");
}

TEST_F(PagePicViewTest, WithoutRichTextThePaneStandsAlone) {
    Open();
    EXPECT_EQ(wrap.UpDownView(), nullptr);
    EXPECT_FALSE(wrap.RichEditor().HasWindow());
    EXPECT_EQ(Pane().Widget()->geometry(), wrap.Widget()->rect());
}
