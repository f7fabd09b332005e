// The issue viewer's promises: what it asks, says, leaves alone.
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Look.h"
#include "toolkit/controls/StaticText.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ViewerSentencesTest : public IssueFixture {
protected:
    [[nodiscard]] static CColorStatic& Mark() {
        return *Page().Widget()->findChild<CColorStatic*>(u"markText"_s);
    }
    /// "q1" belongs to project 2 while 1 is the current one.
    void MoveToOtherProject() {
        Row().ppid = 2;
        Wrap().readOnly = 0;
        Wrap().outerRefresh = &Facade();
        ASSERT_TRUE(Wrap().ShowQuestion(2, u"q1"_s, mainWindow.Id()));
    }
};

} // namespace

TEST_F(ViewerSentencesTest, AFailedOpeningAsksNothingMoreAndKeepsTabTitleAndPictures) {
    ASSERT_TRUE(OpenRectify());
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    Log().Clear();
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_FALSE(Open(u"q2"_s));
    EXPECT_EQ(Wrap().TabWnd()->GetActiveTab(), 1);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"梁底裂缝");
    EXPECT_EQ(Rectify().State().currentIndex, 1);
    EXPECT_THAT(Log().LinesOf({"GetIssueDetail", "ShowMessage", "GetIssuePics", "GetMarkTable",
                               "GetRectification", "StateToText", "GetAttachFolder"}),
                ElementsAre("GetIssueDetail(ppid=1,id=q2)", "ShowMessage(获取问题详细信息失败!)"));
}

TEST_F(ViewerSentencesTest, AnIssueOfAnotherProjectHasItsOwnPicturesAndTheCurrentOnesForItsRepair) {
    MoveToOtherProject();
    EXPECT_THAT(Log().LinesOf({"GetIssueDetail", "GetIssuePics", "GetRectification"}),
                ElementsAre("GetIssueDetail(ppid=2,id=q1)", "GetIssuePics(ppid=2,id=q1,kind=0)",
                            "GetRectification(id=q1)"));
    EXPECT_EQ(Page().State().items[0].picPath, folder.Path(u"2/attachments/uuid-p1.jpg"_s));
    EXPECT_EQ(Rectify().State().items[0].picPath, folder.Path(u"1/attachments/uuid-r1.jpg"_s));
    support::Click(Wrap().PropertiesButton());
    EXPECT_THAT(Log().LinesOf({"ShowComponentProperties"}),
                ElementsAre("ShowComponentProperties(ppid=2,floor=3,handle=H77)"));
    support::Click(Page().EditButton());
    Press("okButton");
    EXPECT_THAT(Log().LinesOf({"UpdateIssue"}), ElementsAre("UpdateIssue(ppid=2,id=q1)"));
}

TEST_F(ViewerSentencesTest, ARefreshKeepsTitlePictureAndTab) {
    ASSERT_TRUE(OpenRectify());
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    Row().theme = u"改过的名称"_s;
    Wrap().Refresh();
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"梁底裂缝");
    EXPECT_EQ(Wrap().TabWnd()->GetActiveTab(), 1);
    EXPECT_EQ(Rectify().State().currentIndex, 1);
}

TEST_F(ViewerSentencesTest, ARefreshAsksForTheIssueThenItsMarkThenItsStateAndTellsOnLast) {
    ASSERT_TRUE(Open());
    Log().Clear();
    Wrap().Refresh();
    const auto lines =
        Log().LinesOf({"GetIssueDetail", "GetMarkTable", "StateToText", "RefreshTNMarks"});
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_TRUE(lines[0].starts_with("GetIssueDetail"));
    EXPECT_TRUE(lines[1].starts_with("GetMarkTable"));
    EXPECT_TRUE(lines[2].starts_with("StateToText"));
    EXPECT_EQ(lines[3], "RefreshTNMarks()");
}

TEST_F(ViewerSentencesTest, WithNobodyToTellARefreshOnlyReads) {
    ASSERT_TRUE(Open());
    Wrap().outerRefresh = nullptr;
    Row().theme = u"改过的名称"_s;
    Log().Clear();
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：改过的名称");
    EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 0);
}

TEST_F(ViewerSentencesTest, TheMarkIsBlackOnNearlyWhiteUntilOneIsKnown) {
    Row().markId = 999;
    ASSERT_TRUE(Open());
    EXPECT_EQ(Mark().text(), QString());
    EXPECT_EQ(Mark().BGColor(), QColor(0xfa, 0xfa, 0xfa));
    EXPECT_EQ(Mark().FontColor(), QColor(Qt::black));
}

TEST_F(ViewerSentencesTest, AKnownMarkLendsItsColourWhichAnUnknownOneKeeps) {
    ASSERT_TRUE(Open());
    const QColor own = toolkit::ColorFromBgr(host.marks.marks.at(1).color);
    EXPECT_EQ(Mark().BGColor(), own);
    Row().markId = 999;
    Wrap().Refresh();
    EXPECT_EQ(Mark().BGColor(), own);
    EXPECT_EQ(Mark().text(), host.marks.marks.at(1).name);
}

TEST_F(ViewerSentencesTest, AComponentWithoutSubNameHasOneBlank) {
    Detail().componentSubName.clear();
    ASSERT_TRUE(Open());
    EXPECT_EQ(TextOf(Page(), "componentText"), u"问题构件：3层 KL-5");
    Row().floor.clear();
    Row().compName.clear();
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Page(), "componentText"), u"问题构件：层 ");
}

TEST_F(ViewerSentencesTest, TwentyEightColumnsNeedNoTipAndTwentyNineDo) {
    // "3层" and two blanks are five columns, "框架梁" six.
    Row().compName = QString(28 - 11, u'K');
    Row().theme = QString(28, u'a');
    ASSERT_TRUE(Open());
    EXPECT_EQ(TipOf(Page(), "nameText"), QString());
    EXPECT_EQ(TipOf(Page(), "componentText"), QString());
    Row().compName += u'K';
    Row().theme = QString(13, u'梁') + u"abc"_s;
    Wrap().Refresh();
    EXPECT_TRUE(TipOf(Page(), "nameText").contains(Row().theme));
    EXPECT_TRUE(TipOf(Page(), "componentText").contains(Row().compName));
    Row().compName = u"K"_s;
    Wrap().Refresh();
    EXPECT_EQ(TipOf(Page(), "componentText"), QString()) << "the tip of before is gone";
}

TEST_F(ViewerSentencesTest, NamesWithQuotesPercentAndTagsStandAsTheyAre) {
    const QString name = u"\"50%1\" <b>&裂缝</b> %s"_s;
    Row().theme = name;
    Row().creatorName = u"<i>%2</i>"_s;
    Row().description = u"第一行\n第二行 %d"_s;
    ASSERT_TRUE(Open());
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称："_s + name);
    EXPECT_EQ(TextOf(Page(), "creatorText"), u"    创建人：<i>%2</i>");
    EXPECT_EQ(Page().Widget()->findChild<QLabel*>(u"nameText"_s)->textFormat(), Qt::PlainText);
    EXPECT_EQ(Page().Widget()->findChild<QPlainTextEdit*>(u"descriptionBox"_s)->toPlainText(),
              u"第一行\n第二行 %d");
    EXPECT_EQ(Wrap().Widget()->windowTitle(), name);
    support::Click(Page().EditButton());
    EXPECT_EQ(Editor().Widget()->windowTitle(), u"编辑问题-"_s + name);
    EXPECT_EQ(Box<QLineEdit>("subjectEdit").text(), name);
}

TEST_F(ViewerSentencesTest, CaptionsOfButtonsAndGroups) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().ReportButton()->text(), u"输出报告");
    EXPECT_EQ(Wrap().PropertiesButton()->text(), u"构件属性");
    EXPECT_EQ(Wrap().PropertiesButton()->geometry().right() + 1 + 30,
              Wrap().ReportButton()->geometry().left());
    for (const issues::IssuePane* page : {static_cast<const issues::IssuePane*>(&Page()),
                                          static_cast<const issues::IssuePane*>(&Rectify())}) {
        EXPECT_EQ(page->DeleteButton()->text(), u"删除照片");
        EXPECT_EQ(page->EditButton()->text(), u"编辑");
    }
}

TEST_F(ViewerSentencesTest, AMiddlePictureDeletedShowsTheOneBeforeIt) {
    ASSERT_TRUE(Open());
    QTest::keyClick(Page().Widget(), Qt::Key_Right);
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    support::Click(Page().DeleteButton());
    EXPECT_THAT(Uuids(Page()), ElementsAre("uuid-p1", "uuid-p3"));
    EXPECT_EQ(Page().State().currentIndex, 0);
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：上传者p1");
}

TEST_F(ViewerSentencesTest, OfPicturesWithOneIdOnlyTheCurrentOneGoes) {
    for (auto& pic : host.questions.pics[u"q1"_s]) {
        pic.picId = u"same"_s;
    }
    for (auto& pic : host.questions.rectifications[u"q1"_s].pics) {
        pic.picId = u"same"_s;
    }
    ASSERT_TRUE(Open());
    QTest::keyClick(Page().Widget(), Qt::Key_Right);
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    support::Click(Page().DeleteButton());
    EXPECT_THAT(Uuids(Page()), ElementsAre("uuid-p1", "uuid-p3"));
    Wrap().TabWnd()->SetActiveTab(1);
    prompts.ExpectOkCancel(u"确定删除当前照片!"_s, true);
    support::Click(Rectify().DeleteButton());
    EXPECT_THAT(Uuids(Rectify()), ElementsAre("uuid-r2"));
}

TEST_F(ViewerSentencesTest, ARefusedDeletionAsksForTheServicesTextLast) {
    ASSERT_TRUE(Open());
    Log().Clear();
    host.script.FailNext("DeletePics");
    host.script.FailNext("GetLastError");
    host.soapError.lastText = u"删除的图片"_s;
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    prompts.ExpectMessage(u"删除图片服务调用失败!"_s);
    support::Click(Page().DeleteButton());
    EXPECT_THAT(Log().LinesOf({"AskOkCancel", "DeletePics", "GetLastError", "ShowMessage"}),
                ElementsAre("AskOkCancel(确定删除当前图片!)", "DeletePics(kind=1,ids=[p1])",
                            "GetLastError()", "ShowMessage(删除图片服务调用失败!)"));
    EXPECT_TRUE(Page().DeleteButton()->isEnabled());
}

TEST_F(ViewerSentencesTest, OnlyTheStatusOneIsHiddenForTheReport) {
    ASSERT_TRUE(Open());
    Row().status = 11;
    Log().Clear();
    support::Click(Wrap().ReportButton());
    EXPECT_EQ(Log().CountOf("GetIssueDetail"), 1);
    EXPECT_FALSE(mainWindow.Widget()->isEnabled());
    EXPECT_TRUE(support::WaitFor([this] { return mainWindow.Widget()->isEnabled(); }));
}

TEST_F(ViewerSentencesTest, ClosingOneThatNoConsoleWaitsForOpensNone) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->close();
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_EQ(Log().CountOf("QueryIssues"), 0);
}

TEST_F(ViewerSentencesTest, ShownByTheHostItStandsAsItStood) {
    ASSERT_TRUE(OpenRectify());
    Wrap().Widget()->close();
    Log().Clear();
    Facade().ShowIssueView();
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"梁底裂缝");
    EXPECT_EQ(Wrap().TabWnd()->GetActiveTab(), 1);
    EXPECT_EQ(Log().CountOf("GetIssueDetail") + Log().CountOf("GetIssuePics"), 0);
}

TEST_F(ViewerSentencesTest, FewestPixelsOfTheWindow) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->resize(100, 100);
    support::RunPendingEvents();
    EXPECT_EQ(Wrap().Widget()->size(), QSize(800, 630));
    EXPECT_EQ(Page().State().bigArea.width(), Page().Widget()->width() - 250);
}

TEST_F(ViewerSentencesTest, AnIssueWithNothingInItShowsItsCaptions) {
    KX_DATA::IssueRow bare;
    bare.questionId = u"q1"_s;
    bare.ppid = 1;
    Row() = bare;
    Detail() = {};
    host.questions.pics.clear();
    ASSERT_TRUE(Open());
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：");
    EXPECT_EQ(TextOf(Page(), "componentText"), u"问题构件：层 ");
    EXPECT_EQ(TextOf(Page(), "creatorText"), u"    创建人：");
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：");
    EXPECT_EQ(TextOf(Page(), "uploadTimeText"), u"上传时间：");
    EXPECT_THAT(Uuids(Page()), IsEmpty());
    EXPECT_EQ(Page().Note().Status()->text(), u"无语音");
}
