// The pane and the window of the BIM photo viewer.
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/ScriptedAudio.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"
#include "toolkit/GbkText.h"
#include "toolkit/Look.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BimPicViewTest : public BimViewFixture {
protected:
    static QString Tip(const QWidget* control) { return control->toolTip(); }
    static QString PlayerText() { return Pane().Note().Status()->text(); }
    void Play() {
        Click(Pane().Note().Button());
        ASSERT_TRUE(Pane().Note().IsPlaying());
    }
    [[nodiscard]] std::vector<std::string> DetailCalls() {
        return Log().LinesOf({"GetBimPicDetail"});
    }

    support::ScriptedAudio audio;
};

} // namespace

TEST_F(BimPicViewTest, ShowsThePhotosOfThePositionByItsService) {
    ASSERT_TRUE(Open());
    EXPECT_THAT(Log().LinesOf({"GetPicFilesByPosition"}),
                ElementsAre("GetPicFilesByPosition(ppid=1,position=K,mark=1)"));
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Pane().Items().size(), 3U);
    EXPECT_EQ(Pane().State().Count(), 3);
    EXPECT_TRUE(ModuleLog().contains(u"-------BIM模型照片查看-------"_s));
}

TEST_F(BimPicViewTest, WithoutAWantedPhotoOpensOnTheFirst) {
    ASSERT_TRUE(Open(-1));
    EXPECT_EQ(Current(), 0);
}

TEST_F(BimPicViewTest, AWantedPhotoThatIsNotInTheListOpensOnTheFirst) {
    ASSERT_TRUE(Open(77));
    EXPECT_EQ(Current(), 0);
}

TEST_F(BimPicViewTest, OpensOnTheWantedPhoto) {
    ASSERT_TRUE(Open(3));
    EXPECT_EQ(Current(), 2);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"照片3.jpg   (3/3)");
    EXPECT_EQ(Pane().Widget()->windowTitle(), u"照片3.jpg   (3/3)");
}

TEST_F(BimPicViewTest, EveryLineHasItsCaptionAndItsLeadingBlanks) {
    host.pics.detailMarkName = u"质量"_s;
    host.pics.detailMarkColor = 0x00C0FF;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().labelText->text(), u"标签：裂缝 渗漏 ");
    EXPECT_EQ(Texts().posText->text(), u"位置：1层 3/B");
    EXPECT_EQ(Texts().uploaderText->text(), u"    上传人：zhang");
    EXPECT_EQ(Texts().uploadTimeText->text(), u"上传时间：2026-03-04 12:00:00");
    EXPECT_EQ(Texts().updaterText->text(), u"   更新人：li");
    EXPECT_EQ(Texts().updateTimeText->text(), u"更新时间：2026-03-05 11:00:00");
    EXPECT_EQ(Texts().descText->text(), u"描述：描述1");
    EXPECT_EQ(Texts().markText->text(), u"质量");
    EXPECT_EQ(Texts().markText->BGColor(), toolkit::ColorFromBgr(0x00C0FF));
    EXPECT_EQ(Texts().noteGroup->title(), u"语音");
    EXPECT_EQ(Pane().ReportButton()->text(), u"输出报告");
}

TEST_F(BimPicViewTest, EveryLineHasItsBareValueAsTip) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Tip(Texts().labelText), toolkit::PlainTip(u"裂缝\n渗漏\n"_s));
    EXPECT_EQ(Tip(Texts().posText), toolkit::PlainTip(u"1层 3/B"_s));
    EXPECT_EQ(Tip(Texts().uploaderText), toolkit::PlainTip(u"zhang"_s));
    EXPECT_EQ(Tip(Texts().uploadTimeText), toolkit::PlainTip(u"2026-03-04 12:00:00"_s));
    EXPECT_EQ(Tip(Texts().updaterText), toolkit::PlainTip(u"li"_s));
    EXPECT_EQ(Tip(Texts().updateTimeText), toolkit::PlainTip(u"2026-03-05 11:00:00"_s));
    EXPECT_EQ(Tip(Texts().descText), toolkit::PlainTip(u"描述1"_s));
}

TEST_F(BimPicViewTest, TextsThatLookLikeMarkupStandAsTheyAre) {
    host.pics.bimPics[0].description = u"<b>x</b> & y"_s;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().descText->text(), u"描述：<b>x</b> & y");
    EXPECT_EQ(Texts().descText->textFormat(), Qt::PlainText);
    EXPECT_EQ(Tip(Texts().descText), toolkit::PlainTip(u"<b>x</b> & y"_s));
}

TEST_F(BimPicViewTest, APhotoNeverChangedShowsNoUpdater) {
    host.pics.bimPics[0].updateStamp = host.pics.bimPics[0].uploadStamp;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().updaterText->text(), u"   更新人：");
    EXPECT_EQ(Texts().updateTimeText->text(), u"更新时间：");
    EXPECT_EQ(Tip(Texts().updaterText), QString());
}

TEST_F(BimPicViewTest, APhotoWithoutAFloorShowsNoPosition) {
    host.pics.bimPics[0].floor.clear();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().posText->text(), u"位置：");
}

TEST_F(BimPicViewTest, GoingBackToAPhotoSeenBeforeFetchesNothing) {
    ASSERT_TRUE(Open());
    Press(Qt::Key_Right);
    EXPECT_THAT(DetailCalls(),
                ElementsAre("GetBimPicDetail(ppid=1,id=1)", "GetBimPicDetail(ppid=1,id=2)"));
    Press(Qt::Key_Left);
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(DetailCalls().size(), 2U);
    EXPECT_EQ(Texts().descText->text(), u"描述：描述1");
}

TEST_F(BimPicViewTest, AFailedDetailSaysSoAndIsAskedForAgain) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Texts().descText->text(), u"描述：描述1") << "the texts keep what they show";
    EXPECT_EQ(prompts.Parents().back(), Pane().Id());
    Press(Qt::Key_Left);
    Press(Qt::Key_Right);
    EXPECT_EQ(Texts().descText->text(), u"描述：描述2");
}

TEST_F(BimPicViewTest, APhotoDeletedByAnotherClientKeepsTheOthersInReach) {
    ASSERT_TRUE(Open());
    host.pics.bimPics.erase(host.pics.bimPics.begin() + 1);
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(Texts().descText->text(), u"描述：描述3");
}

TEST_F(BimPicViewTest, ClosedWhileItsMessageIsOpenEndsQuietly) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([] { Wrap().Widget()->close(); });
    Press(Qt::Key_Right);
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(BimPicViewTest, ClosedWhileTheServiceIsAskedForADetailItEndsQuietly) {
    ASSERT_TRUE(Open());
    host.script.During("GetBimPicDetail", [] { Wrap().Widget()->close(); });
    Press(Qt::Key_Right);
    EXPECT_FALSE(Wrap().HasWindow());
    host.script.FailNext("GetBimPicDetail");
    EXPECT_FALSE(Open());
}

TEST_F(BimPicViewTest, AnotherPlaceOpenedWhileADetailIsFetchedIsTheOneThatStays) {
    ASSERT_TRUE(Open());
    host.script.During("GetBimPicDetail", [this] {
        host.script.During("GetBimPicDetail", nullptr);
        host.pics.files.resize(1);
        EXPECT_TRUE(Open());
    });
    Press(Qt::Key_Right);
    EXPECT_EQ(Pane().Items().size(), 1U);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"照片1.jpg   (1/1)");
    EXPECT_EQ(Texts().descText->text(), u"描述：描述1");
}

TEST_F(BimPicViewTest, TheWaitCursorShowsWhileTheServicesAreAskedAndNotInAMessage) {
    const auto waits = [] { return QGuiApplication::overrideCursor() != nullptr; };
    std::vector<bool> during;
    for (const char* call : {"GetPicFilesByPosition", "GetBimPicDetail"})
        host.script.During(call, [&] { during.push_back(waits()); });
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([&] { during.push_back(waits()); });
    ASSERT_TRUE(Open());
    EXPECT_THAT(during, ElementsAre(true, true, false));
    EXPECT_FALSE(waits());
}

TEST_F(BimPicViewTest, ShowsOnlyThePhotosThatTheModelsMarksShow) {
    host.project.shownPicMarks["1"][QString()][1] = {{"A-1", 1}, {"A-1", 3}};
    ASSERT_TRUE(Open(3));
    EXPECT_EQ(Pane().Items().size(), 2U);
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Texts().descText->text(), u"描述：描述3");
}

TEST_F(BimPicViewTest, TheModelsMarksAreLookedUpByTheFloorInCodePage936) {
    for (const QString& floor : {QString(), u"地下室"_s, u"-1"_s}) {
        const QString group = floor.isEmpty() ? u"其他"_s : floor;
        host.project.shownPicMarks = {{toolkit::ToGbk(group), {{QString(), {{1, {{"A-1", 2}}}}}}}};
        ASSERT_TRUE(Facade().OpenBimPicView(1, floor, u"K"_s, 1));
        ASSERT_EQ(Pane().Items().size(), 1U) << group.toStdString();
        EXPECT_EQ(Pane().Items().front().picId, 2);
    }
}

TEST_F(BimPicViewTest, AModelThatIsNotThereShowsAll) {
    host.script.FailAlways("GetCurrentModel");
    ASSERT_TRUE(Open());
    EXPECT_EQ(Pane().Items().size(), 3U);
}

TEST_F(BimPicViewTest, APositionWithoutPhotosOpensWithNoPicture) {
    host.pics.files.clear();
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_TRUE(Pane().State().picRect.isEmpty());
    EXPECT_THAT(DetailCalls(), IsEmpty());
    EXPECT_EQ(Texts().markText->BGColor(), toolkit::ColorFromBgr(0xfafafa));
    EXPECT_EQ(Texts().markText->DrawnFontColor(), QColor(Qt::black));
    EXPECT_EQ(PlayerText(), u"无语音");
}

TEST_F(BimPicViewTest, APositionEmptiedMeanwhileKeepsTheTextsOfItsLastPhoto) {
    ASSERT_TRUE(Open());
    host.pics.files.clear();
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_EQ(Texts().descText->text(), u"描述：描述1");
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"照片1.jpg   (1/3)");
}

TEST_F(BimPicViewTest, APositionEmptiedWhileANotePlaysStopsItAndOffersNone) {
    ASSERT_TRUE(Open(2));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
    Play();
    host.pics.files.clear();
    ASSERT_TRUE(Open());
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
    EXPECT_EQ(PlayerText(), u"无语音");
}

TEST_F(BimPicViewTest, FilesLieInTheProjectsFolder) {
    ASSERT_TRUE(Open());
    const GalleryItem& second = Pane().State().items[1];
    EXPECT_EQ(second.picPath, folder.Path(u"1/pics/uuid2.jpg"_s));
    EXPECT_EQ(second.audioPath, folder.Path(u"1/pics/note2.amr"_s));
    EXPECT_EQ(second.picState, kOnDisk);
}

TEST_F(BimPicViewTest, TheFolderIsAskedForByTheNameOfTheOpenProject) {
    host.project.project = KX_DATA::ProjectRecord{u"示例工程"_s, 7};
    ASSERT_TRUE(Open());
    EXPECT_EQ(host.paths.lastProjectName, u"示例工程");
    EXPECT_TRUE(Pane().State().items[0].picPath.contains(u"/1/"_s)) << "of the photos' own number";
    host.project.project.reset();
    ASSERT_TRUE(Open());
    EXPECT_EQ(host.paths.lastProjectName, QString());
}

TEST_F(BimPicViewTest, ANoteIsReadyAndAPhotoWithoutOneSaysSo) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(PlayerText(), u"无语音");
    EXPECT_FALSE(Pane().Note().Button()->isEnabled());
    Press(Qt::Key_Right);
    EXPECT_EQ(PlayerText(), u"就绪");
    EXPECT_TRUE(Pane().Note().Button()->isEnabled());
}

TEST_F(BimPicViewTest, AChangeOfPictureStopsTheNoteAndResetsTheBar) {
    ASSERT_TRUE(Open(2));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
    Play();
    EXPECT_EQ(PlayerText(), u"00:00 / 00:03");
    Press(Qt::Key_Right);
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_EQ(Pane().Note().Progress()->GetPos(), 0);
    EXPECT_EQ(PlayerText(), u"无语音");
    Press(Qt::Key_Left);
    EXPECT_EQ(PlayerText(), u"就绪");
}

TEST_F(BimPicViewTest, ClosingWhileANotePlaysStopsItBeforeTheWindowsGo) {
    ASSERT_TRUE(Open(2));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
    Play();
    bool stoppedFirst = false;
    QObject::connect(Pane().Widget(), &QObject::destroyed,
                     [&] { stoppedFirst = audio.Alive() == 0; });
    Wrap().Widget()->close();
    support::RunPendingEvents();
    EXPECT_TRUE(stoppedFirst);
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_FALSE(Pane().HasWindow());
}

TEST_F(BimPicViewTest, ClosingThePaneAloneStopsTheNoteAndBringsTheConsoleBack) {
    Facade().ShowPicMng(kModeBim);
    Console().Minimise();
    Facade().reopenConsole = true;
    ASSERT_TRUE(Open(2));
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
    Play();
    Pane().Widget()->close();
    EXPECT_FALSE(Pane().HasWindow());
    EXPECT_EQ(audio.Alive(), 0);
    EXPECT_FALSE(Facade().reopenConsole);
    EXPECT_FALSE(Console().Widget()->isMinimized());
    EXPECT_TRUE(Wrap().HasWindow());
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    EXPECT_FALSE(Open()) << "without its pane the window ends, and the next opening makes both";
    EXPECT_TRUE(Open());
}

TEST_F(BimPicViewTest, AWorksetIsReadOnlyYetBrowsesAndPlays) {
    host.OpenWorkset({{1, u"示例工程"_s}, {2, u"二期"_s}});
    ASSERT_TRUE(Open(2));
    EXPECT_FALSE(Pane().ReportButton()->isEnabled());
    ASSERT_TRUE(support::WaitFor([] { return Pane().State().items[1].audioState == kOnDisk; }));
    Play();
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), 2);
}

TEST_F(BimPicViewTest, EnterAndEscapeDoNotCloseIt) {
    ASSERT_TRUE(Open());
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        Press(key);
        QTest::keyClick(Wrap().Widget(), Qt::Key(key));
    }
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Current(), 0);
}

TEST_F(BimPicViewTest, KeysOfTheGalleryWorkWhileTheReportButtonHasTheFocus) {
    ASSERT_TRUE(Open());
    Pane().ReportButton()->setFocus();
    QTest::keyClick(Pane().ReportButton(), Qt::Key_Right);
    EXPECT_EQ(Current(), 1);
}

TEST_F(BimPicViewTest, ItsLeastSizeIsThatOfThePane) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Widget()->minimumSize(), QSize(800, 630));
    Wrap().Widget()->resize(800, 630);
    EXPECT_EQ(Pane().Widget()->size(), QSize(800, 630));
    EXPECT_EQ(Texts().markText->geometry(), QRect(5, 570, 80, 20));
    EXPECT_EQ(Pane().State().bigArea, QRect(0, 0, 675, 550));
    EXPECT_EQ(Pane().ReportButton()->geometry(), QRect(675, 5, 110, 25));
}

TEST_F(BimPicViewTest, EveryControlStandsInItsPlace) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->resize(1000, 700);
    // Lines grow up and down by what their face needs.
    const auto expectLine = [](const QWidget* line, int x, int y, int width) {
        const std::string name = line->objectName().toStdString();
        EXPECT_EQ(line->x(), x) << name;
        EXPECT_EQ(line->width(), width) << name;
        EXPECT_TRUE(line->geometry().contains(QRect(x, y, width, 14))) << name;
        EXPECT_NEAR(line->geometry().center().y(), y + 7, 1) << name;
    };
    expectLine(Texts().posText, 5, 670, 100);
    expectLine(Texts().uploaderText, 199, 645, 189);
    expectLine(Texts().uploadTimeText, 199, 670, 189);
    expectLine(Texts().updaterText, 398, 645, 189);
    expectLine(Texts().updateTimeText, 398, 670, 189);
    expectLine(Texts().labelText, 597, 645, 189);
    expectLine(Texts().descText, 597, 670, 189);
    expectLine(Pane().Note().Status(), 846, 650, 139);
    EXPECT_EQ(Texts().markText->geometry(), QRect(5, 640, 80, 20));
    EXPECT_EQ(Texts().separator->geometry(), QRect(0, 620, 1000, 2));
    EXPECT_EQ(Texts().noteGroup->geometry(), QRect(796, 625, 199, 70));
    EXPECT_EQ(Pane().Note().Button()->geometry(), QRect(801, 640, 42, 43));
    EXPECT_EQ(Pane().Note().Progress()->geometry(), QRect(846, 670, 139, 5));
    EXPECT_EQ(Pane().ReportButton()->geometry(), QRect(875, 5, 110, 25));
    EXPECT_EQ(Pane().State().bigArea, QRect(0, 0, 875, 620));
    EXPECT_EQ(Pane().State().stripArea, QRect(QPoint(875, 35), QPoint(994, 614)));
}

TEST_F(BimPicViewTest, TheNameOfTheMarkIsCentredOnItsColour) {
    host.pics.detailMarkName = u"质量"_s;
    host.pics.detailMarkColor = 0xFFFFFF;
    ASSERT_TRUE(Open());
    const QImage painted = Texts().markText->grab().toImage();
    QRect ink;
    for (int y = 0; y < painted.height(); ++y)
        for (int x = 0; x < painted.width(); ++x)
            if (qGray(painted.pixel(x, y)) < 128)
                ink |= QRect(x, y, 1, 1);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_NEAR(ink.center().x(), painted.width() / 2, 2);
    EXPECT_NEAR(ink.center().y(), painted.height() / 2, 2);
}

TEST_F(BimPicViewTest, ASecondOpeningShowsAnotherPositionInTheSameWindow) {
    ASSERT_TRUE(Open());
    const toolkit::WindowId window = Wrap().Id();
    host.pics.files.erase(host.pics.files.begin(), host.pics.files.begin() + 2);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Id(), window);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"照片3.jpg   (1/1)");
}

TEST_F(BimPicViewTest, TheReportBlocksTheClientUntilTheFirstTick) {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    ASSERT_NE(client, nullptr);
    ASSERT_TRUE(Open());
    Click(Pane().ReportButton());
    EXPECT_FALSE(client->isEnabled());
    EXPECT_TRUE(Wrap().Widget()->isEnabled()) << "the viewer itself can still be used";
    EXPECT_TRUE(ModuleLog().contains(u"输出报告"_s));
    EXPECT_TRUE(support::WaitFor([&] { return client->isEnabled(); }));
}

TEST_F(BimPicViewTest, TheClientStaysBlockedWhileAReportIsOpen) {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    QWidget report;
    report.setWindowTitle(u"输出报告"_s);
    report.show();
    ASSERT_TRUE(Open());
    Click(Pane().ReportButton());
    Wrap().OnTimer(1);
    EXPECT_FALSE(client->isEnabled());
    report.hide();
    Wrap().OnTimer(1);
    EXPECT_TRUE(client->isEnabled());
}

TEST_F(BimPicViewTest, AViewerThatGoesLeavesNoBlockedClient) {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    ASSERT_TRUE(Open());
    Click(Pane().ReportButton());
    Wrap().Widget()->close();
    EXPECT_TRUE(client->isEnabled());
}
