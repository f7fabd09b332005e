// The pane of the BIM photo viewer: which photos it shows, and what it says of them.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/GbkText.h"
#include "toolkit/Look.h"

#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BimPicViewTest : public BimViewFixture {
protected:
    static QString Tip(const QWidget* control) { return control->toolTip(); }
    [[nodiscard]] std::vector<std::string> DetailCalls() {
        return Log().LinesOf({"GetBimPicDetail"});
    }
};

} // namespace

TEST_F(BimPicViewTest, ShowsThePhotosOfThePositionByItsService) {
    host.pics.files[1].kind = 7;
    ASSERT_TRUE(Open());
    EXPECT_THAT(Log().LinesOf({"GetPicFilesByPosition"}),
                ElementsAre("GetPicFilesByPosition(ppid=1,position=K,mark=1)"));
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    ASSERT_EQ(Pane().Items().size(), 3U);
    EXPECT_EQ(Pane().Items()[1].picId, 2);
    EXPECT_EQ(Pane().Items()[1].ppid, 1);
    EXPECT_EQ(Pane().Items()[1].kind, 7);
    EXPECT_EQ(Pane().Items()[0].loaded, 1);
    EXPECT_EQ(Pane().Items()[1].loaded, 0);
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

TEST_F(BimPicViewTest, AUuidThatLeadsOutOfTheFolderShowsAndPlaysNothing) {
    folder.Write(u"secret.jpg"_s, support::JpegBytes(support::CornerMarked(QSize(300, 200))));
    host.pics.files[0].picUuid = u"../../secret"_s;
    host.pics.files[0].audioUuid = u"../../secret"_s;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Pane().State().items[0].picPath, QString());
    EXPECT_EQ(Pane().State().items[0].audioPath, QString());
    EXPECT_TRUE(Pane().State().picRect.isEmpty());
    ASSERT_TRUE(support::WaitFor([this] {
        return Pane().State().items[0].picState == kDownloadFailedState &&
               Pane().State().items[0].audioState == kDownloadFailedState;
    }));
    EXPECT_EQ(Log().CountOf("StartDownload"), 0);
    EXPECT_TRUE(ModuleLog().contains(u"下载照片失败,UUID=../../secret"_s));
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
    EXPECT_EQ(Texts().markText->FontColor(), QColor(Qt::black));
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

TEST_F(BimPicViewTest, ASecondOpeningShowsAnotherPositionInTheSameWindow) {
    ASSERT_TRUE(Open());
    const toolkit::WindowId window = Wrap().Id();
    host.pics.files.erase(host.pics.files.begin(), host.pics.files.begin() + 2);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Id(), window);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"照片3.jpg   (1/1)");
}
