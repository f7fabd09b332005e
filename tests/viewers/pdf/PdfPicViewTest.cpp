// What the drawing photo viewer shows of a checkpoint and its pictures.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/pdf/PdfViewFixture.h"

#include <QRegularExpression>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PdfPicViewTest : public PdfViewFixture {};

/// The text of a tip as it is shown.
QString TipOf(const QWidget* control) {
    QString tip = control->toolTip();
    tip.replace(u"<br>"_s, u"\n"_s);
    tip.remove(QRegularExpression(u"<[^>]*>"_s));
    return tip;
}

} // namespace

TEST_F(PdfPicViewTest, AnOpeningAsksTheServicesInTheirOrder) {
    ASSERT_TRUE(Open());
    EXPECT_THAT(Log().LinesOf({"HasRight", "IsWorksetMode", "GetDrawing", "GetThumbFolder",
                               "GetCheckpointPics", "GetComments"}),
                ElementsAre("HasRight(right=21)", "HasRight(right=22)", "IsWorksetMode()",
                            "GetDrawing(drawing=101)", "GetThumbFolder()",
                            "GetCheckpointPics(ppid=1,id=1)",
                            "GetComments(drawing=101,page=0,size=50)"));
}

TEST_F(PdfPicViewTest, APicturesLinesBeginWithTheirBlanks) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().uploaderText->text(), u"    上传人：张三");
    EXPECT_EQ(Texts().uploadTimeText->text(), u"上传时间：2026-03-01 08:00:00");
    EXPECT_EQ(Texts().updaterText->text(), u"    更新人：李四");
    EXPECT_EQ(Texts().updateTimeText->text(), u"更新时间：2026-03-02 09:00:00");
    EXPECT_EQ(Texts().picDescText->text(), u"照片描述：描述1");
}

TEST_F(PdfPicViewTest, ThePicturesTipsAreTheBareValues) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(TipOf(Texts().uploaderText), u"张三");
    EXPECT_EQ(TipOf(Texts().uploadTimeText), u"2026-03-01 08:00:00");
    EXPECT_EQ(TipOf(Texts().updaterText), u"李四");
    EXPECT_EQ(TipOf(Texts().updateTimeText), u"2026-03-02 09:00:00");
    EXPECT_EQ(TipOf(Texts().picDescText), u"描述1");
}

TEST_F(PdfPicViewTest, TheCheckpointsLinesAndTheirTips) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().cpLabelText->text(), u"标签：裂缝 二 层 ");
    EXPECT_EQ(TipOf(Texts().cpLabelText).trimmed(), u"裂缝\n二\n层");
    EXPECT_EQ(Texts().cpDescText->text(), u"检查点描述：梁底裂缝");
    EXPECT_EQ(TipOf(Texts().cpDescText), u"梁底裂缝");
    EXPECT_EQ(Texts().cpUpdateTimeText->text(), u"更新时间：2026-03-04 08:00:00");
    EXPECT_EQ(TipOf(Texts().cpUpdateTimeText), u"2026-03-04 08:00:00");
    EXPECT_EQ(Texts().remarkText->text(), u"检查点备注：请复查");
    EXPECT_EQ(TipOf(Texts().remarkText), u"请复查");
}

TEST_F(PdfPicViewTest, TheMarkStandsInBlackOnItsColour) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().markText->text(), u"质量");
    EXPECT_EQ(Texts().markText->BGColor(), QColor(255, 0, 0));
    EXPECT_EQ(Texts().markText->FontColor(), QColor(Qt::black));
}

TEST_F(PdfPicViewTest, GroupsAndButtonsBearTheirCaptions) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().picGroup->title(), u"照片信息");
    EXPECT_EQ(Texts().noteGroup->title(), u"检查点语音");
    EXPECT_EQ(Texts().checkpointGroup->title(), u"检查点信息");
    EXPECT_EQ(Pane().DeleteButton()->text(), u"删除照片");
    EXPECT_EQ(Pane().EditButton()->text(), u"编辑");
    EXPECT_EQ(SendButton().text(), u"发表");
    EXPECT_EQ(Pane().ReportButton()->text(), u"输出报告");
}

TEST_F(PdfPicViewTest, TheTitleNamesCheckpointPictureAndPlaceInPaneAndWindow) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Title(), u"检查点7 - 图片1.jpg   (1/3)");
    EXPECT_EQ(Pane().Widget()->windowTitle(), Title());
    Press(Qt::Key_Right);
    EXPECT_EQ(Title(), u"检查点7 - 图片2.jpg   (2/3)");
}

TEST_F(PdfPicViewTest, APictureNeverChangedShowsNoUpdater) {
    ASSERT_TRUE(Open(101, 2));
    EXPECT_EQ(Texts().updaterText->text(), u"    更新人：");
    EXPECT_EQ(Texts().updateTimeText->text(), u"更新时间：");
    EXPECT_EQ(Texts().updaterText->toolTip(), QString());
}

TEST_F(PdfPicViewTest, TheWantedPictureIsShownAndElseTheFirst) {
    ASSERT_TRUE(Open(101, 3));
    EXPECT_EQ(Current(), 2);
    ASSERT_TRUE(Open(101, -1));
    EXPECT_EQ(Current(), 0);
    ASSERT_TRUE(Open(101, 99));
    EXPECT_EQ(Current(), 0);
}

TEST_F(PdfPicViewTest, APictureSeenBeforeIsNotFetchedAgain) {
    ASSERT_TRUE(Open());
    Press(Qt::Key_Right);
    Press(Qt::Key_Left);
    EXPECT_EQ(Log().CountOf("GetCheckpointPics"), 2);
    EXPECT_EQ(Title(), u"检查点7 - 图片1.jpg   (1/3)");
}

TEST_F(PdfPicViewTest, DetailsAreThoseOfTheCurrentProjectWhateverTheViewerWasOpenedFor) {
    Facade().OpenPdfPicView(5, 101, u"一层平面"_s, mainWindow.Id());
    EXPECT_EQ(Wrap().ppid, 5);
    EXPECT_THAT(Log().LinesOf({"GetCheckpointPics"}),
                ElementsAre("GetCheckpointPics(ppid=1,id=1)"));
}

TEST_F(PdfPicViewTest, PicturesAndNoteLieInTheThumbFolderByTheirUuids) {
    GiveNote();
    ASSERT_TRUE(Open());
    ASSERT_EQ(Pane().State().Count(), 3);
    for (int at = 0; at < 3; ++at) {
        const GalleryItem& item = Pane().State().items[size_t(at)];
        EXPECT_TRUE(item.picPath.endsWith(u"1/thumbs/uuid%1.jpg"_s.arg(at + 1)));
        EXPECT_EQ(item.audioUuid, u"note");
        EXPECT_TRUE(item.audioPath.endsWith(u"1/thumbs/note.amr"_s));
    }
}

TEST_F(PdfPicViewTest, AFileNameThatIsNoneLeadsNowhere) {
    Stored().pics[0].uuid = u"../../etc/passwd"_s;
    Stored().audioUuid = u"../note"_s;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Pane().State().items[0].picPath, QString());
    EXPECT_EQ(Pane().State().items[0].audioPath, QString());
}

TEST_F(PdfPicViewTest, AnotherCheckpointIsShownInTheSameWindow) {
    ASSERT_TRUE(Open(101, 2));
    const toolkit::WindowId window = Wrap().Id();
    ASSERT_TRUE(Open(102));
    EXPECT_EQ(Wrap().Id(), window);
    EXPECT_EQ(Title(), u"检查点8 - 图片9.jpg   (1/1)");
    EXPECT_EQ(Pane().Items().size(), 1U);
    EXPECT_EQ(Texts().cpLabelText->text(), u"标签：");
    EXPECT_EQ(Texts().cpLabelText->toolTip(), QString());
}

TEST_F(PdfPicViewTest, ACheckpointWithoutPicturesOpensWithItsTextsAndComments) {
    ASSERT_TRUE(Open(103));
    EXPECT_EQ(Title(), u"PDF照片查看");
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_TRUE(Pane().State().items.empty());
    EXPECT_EQ(Texts().cpDescText->text(), u"检查点描述：");
    EXPECT_EQ(List().GetRowCount(), 2);
    EXPECT_EQ(Log().CountOf("GetCheckpointPics"), 0);
}

TEST_F(PdfPicViewTest, AGalleryThatHadPicturesKeepsThemForACheckpointWithoutAny) {
    ASSERT_TRUE(Open(101, 3));
    ASSERT_TRUE(Open(103));
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_EQ(Pane().State().Count(), 3);
    EXPECT_EQ(Current(), 0);
    Press(Qt::Key_Right);
    EXPECT_EQ(Log().CountOf("GetCheckpointPics"), 1) << "of a picture that isn't its own";
    EXPECT_EQ(Texts().picDescText->text(), u"照片描述：描述3") << "the texts stay";
}

TEST_F(PdfPicViewTest, TextsAreShownAsTheyStandWhateverTheyLookLike) {
    Stored().remark = u"<b>A&B</b>\n第二行"_s;
    host.pics.checkpointPics[1].description = QString(300, u'长');
    ASSERT_TRUE(Open());
    EXPECT_EQ(Texts().remarkText->text(), u"检查点备注：<b>A&B</b>\n第二行");
    EXPECT_EQ(Texts().remarkText->textFormat(), Qt::PlainText);
    EXPECT_TRUE(Texts().remarkText->toolTip().contains(u"&lt;b&gt;A&amp;B&lt;/b&gt;"_s));
    EXPECT_EQ(Texts().picDescText->text().size(), 305);
}

TEST_F(PdfPicViewTest, EveryWindowWritesItsLine) {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Open(102));
    EXPECT_EQ(ModuleLog().count(u"-------PDF照片查看-------"_s), 1);
    Wrap().Widget()->close();
    ASSERT_TRUE(Open());
    EXPECT_EQ(ModuleLog().count(u"-------PDF照片查看-------"_s), 2);
}

TEST_F(PdfPicViewTest, WithoutTheRightsTheLinksAreHidden) {
    host.auth.rights.erase(KX_DATA::kRightDelete);
    ASSERT_TRUE(Open());
    EXPECT_FALSE(Pane().DeleteButton()->isVisible());
    EXPECT_TRUE(Pane().EditButton()->isVisible());
    Wrap().Widget()->close();
    host.auth.rights = {KX_DATA::kRightDelete};
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Pane().DeleteButton()->isVisible());
    EXPECT_FALSE(Pane().EditButton()->isVisible());
    Wrap().Widget()->resize(1000, 700);
    EXPECT_FALSE(Pane().EditButton()->isVisible()) << "places don't bring it back";
}

TEST_F(PdfPicViewTest, AReadOnlyClientSeesEverythingAndChangesNothing) {
    GiveNote();
    host.global.worksetMode = true;
    ASSERT_TRUE(Open());
    for (const QWidget* control :
         std::initializer_list<const QWidget*>{Pane().DeleteButton(), Pane().EditButton(), &List(),
                                               &Box(), &SendButton(), Pane().ReportButton()}) {
        EXPECT_TRUE(control->isVisible()) << control->objectName().toStdString();
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    }
    EXPECT_TRUE(Box().placeholderText().isEmpty()) << "nothing can be written";
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), 1);
    EXPECT_TRUE(Pane().Note().Button()->isEnabled());
}

TEST_F(PdfPicViewTest, ClosedItForgetsItsPicturesAndKeepsItsRecord) {
    ASSERT_TRUE(Open(101, 3));
    Wrap().Widget()->close();
    support::RunPendingEvents();
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_TRUE(Pane().State().items.empty());
    EXPECT_EQ(Pane().Comments().List(), nullptr);
    EXPECT_EQ(Pane().Record().checkpointNo, 7);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(List().GetRowCount(), 2);
}
