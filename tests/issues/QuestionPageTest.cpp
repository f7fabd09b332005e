// The first page of the issue viewer: pictures, texts, rights, deleting.
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class QuestionPageTest : public IssueFixture {
protected:
    static void Select(int index) {
        for (int at = Page().State().currentIndex; at < index; ++at) {
            QTest::keyClick(Page().Widget(), Qt::Key_Right);
        }
    }
    void Delete(bool answer = true) {
        prompts.ExpectOkCancel(u"确定删除当前图片!"_s, answer);
        support::Click(Page().DeleteButton());
    }
    [[nodiscard]] static bool DeleteEnabled() { return Page().DeleteButton()->isEnabled(); }
    [[nodiscard]] static bool EditEnabled() { return Page().EditButton()->isEnabled(); }
};

} // namespace

TEST_F(QuestionPageTest, ThePicturesLieInTheFolderOfTheProject) {
    ASSERT_TRUE(Open());
    EXPECT_THAT(Uuids(Page()), ElementsAre("uuid-p1", "uuid-p2", "uuid-p3"));
    EXPECT_EQ(Page().State().items[1].picPath, folder.Path(u"1/attachments/uuid-p2.jpg"_s));
    EXPECT_EQ(Page().State().currentIndex, 0);
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：上传者p1");
}

TEST_F(QuestionPageTest, EnterPressesNoneOfItsButtonsAndItsLinesStandBelowEachOther) {
    ASSERT_TRUE(Open());
    EXPECT_FALSE(Page().DeleteButton()->autoDefault());
    EXPECT_FALSE(Page().EditButton()->autoDefault());
    const auto* uploader = Page().Widget()->findChild<QWidget*>(u"uploaderText"_s);
    const auto* time = Page().Widget()->findChild<QWidget*>(u"uploadTimeText"_s);
    EXPECT_EQ(time->x(), uploader->x());
    EXPECT_GT(time->y(), uploader->y());
}

TEST_F(QuestionPageTest, AnotherPictureShowsWhoUploadedIt) {
    ASSERT_TRUE(Open());
    Select(2);
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：上传者p3");
    EXPECT_EQ(TextOf(Page(), "uploadTimeText"), u"上传时间：2026年03月05日 08:00:00");
}

TEST_F(QuestionPageTest, TheTextsSayWhatTheIssueHolds) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：梁底裂缝");
    EXPECT_EQ(TextOf(Page(), "componentText"), u"问题构件：3层 框架梁 KL-5");
    EXPECT_EQ(TextOf(Page(), "creatorText"), u"    创建人：张三");
    EXPECT_EQ(TextOf(Page(), "updaterText"), u"    更新人：李四");
    EXPECT_EQ(TextOf(Page(), "updateTimeText"), u"更新时间：2026年03月05日 09:00:00");
    EXPECT_EQ(TextOf(Page(), "descriptionCaption"), u"问题描述：");
    const auto* box = Page().Widget()->findChild<QPlainTextEdit*>(u"descriptionBox"_s);
    EXPECT_EQ(box->toPlainText(), u"缝宽0.3");
    EXPECT_TRUE(box->isReadOnly());
    EXPECT_FALSE(box->isEnabled());
}

TEST_F(QuestionPageTest, EqualTimesShowTheTwoCaptionsWithoutAValue) {
    Row().updateTime = Row().createTime;
    ASSERT_TRUE(Open());
    EXPECT_EQ(TextOf(Page(), "updaterText"), u"    更新人：");
    EXPECT_EQ(TextOf(Page(), "updateTimeText"), u"更新时间：");
}

TEST_F(QuestionPageTest, AWideNameHasATipUntilANarrowOneComes) {
    Row().theme = QString(15, u'梁');
    ASSERT_TRUE(Open());
    EXPECT_TRUE(TipOf(Page(), "nameText").contains(Row().theme));
    Row().theme = QString(14, u'梁');
    Wrap().Refresh();
    EXPECT_EQ(TipOf(Page(), "nameText"), QString());
}

TEST_F(QuestionPageTest, TheMarkHasItsNameAndColour) {
    ASSERT_TRUE(Open());
    const auto* mark = Page().Widget()->findChild<CColorStatic*>(u"markText"_s);
    EXPECT_EQ(mark->text(), host.marks.marks.at(1).name);
}

TEST_F(QuestionPageTest, AMarkThatIsNotKnownLeavesTheLastOneStanding) {
    ASSERT_TRUE(Open());
    const auto* mark = Page().Widget()->findChild<CColorStatic*>(u"markText"_s);
    const QString before = mark->text();
    Row(u"q2"_s).markId = 999;
    ASSERT_TRUE(Open(u"q2"_s));
    EXPECT_EQ(mark->text(), before);
    host.script.FailNext("GetMarkTable");
    ASSERT_TRUE(Open(u"q1"_s));
    EXPECT_EQ(mark->text(), before);
}

TEST_F(QuestionPageTest,
       WithoutPicturesTheGalleryIsEmptyAndDeletingIsDisabledWhileEditingFollowsTheRight) {
    ASSERT_TRUE(Open(u"q2"_s));
    EXPECT_THAT(Uuids(Page()), IsEmpty());
    EXPECT_FALSE(DeleteEnabled());
    EXPECT_TRUE(EditEnabled());
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：");
    ASSERT_TRUE(Open(u"q2"_s, 1));
    EXPECT_FALSE(EditEnabled());
}

TEST_F(QuestionPageTest, PicturesThatCannotBeListedLeaveAnEmptyGalleryWithoutAWord) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetIssuePics");
    ASSERT_TRUE(Open());
    EXPECT_THAT(Uuids(Page()), IsEmpty());
    EXPECT_FALSE(DeleteEnabled());
}

TEST_F(QuestionPageTest, ReadOnlyOrInAWorksetNothingCanBeChanged) {
    ASSERT_TRUE(Open());
    EXPECT_TRUE(DeleteEnabled());
    EXPECT_TRUE(EditEnabled());
    ASSERT_TRUE(Open(u"q1"_s, 1));
    EXPECT_FALSE(DeleteEnabled());
    EXPECT_FALSE(EditEnabled());
    host.global.worksetMode = true;
    ASSERT_TRUE(Open());
    EXPECT_FALSE(DeleteEnabled());
    EXPECT_FALSE(EditEnabled());
}

TEST_F(QuestionPageTest, ADeletedPictureGoesAndTheOneBeforeItIsShown) {
    ASSERT_TRUE(Open());
    Select(2);
    Log().Clear();
    Delete();
    EXPECT_THAT(Log().LinesOf({"DeletePics"}), ElementsAre("DeletePics(kind=1,ids=[p3])"));
    EXPECT_THAT(Uuids(Page()), ElementsAre("uuid-p1", "uuid-p2"));
    EXPECT_EQ(Page().State().currentIndex, 1);
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：上传者p2");
}

TEST_F(QuestionPageTest, DeletingTheFirstPictureKeepsIndexZero) {
    ASSERT_TRUE(Open());
    Delete();
    EXPECT_EQ(Page().State().currentIndex, 0);
    EXPECT_THAT(Uuids(Page()), ElementsAre("uuid-p2", "uuid-p3"));
}

TEST_F(QuestionPageTest, DeletingTheLastPictureLeavesTheTextInPlaceAndTheGalleryEmpty) {
    host.questions.pics[u"q1"_s].resize(1);
    ASSERT_TRUE(Open());
    Delete();
    EXPECT_THAT(Uuids(Page()), IsEmpty());
    EXPECT_EQ(TextOf(Page(), "uploaderText"), u"    上传人：上传者p1");
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：梁底裂缝");
    EXPECT_FALSE(DeleteEnabled());
    EXPECT_FALSE(Page().State().bigArea.isEmpty()) << "laid out for the next issue";
}

TEST_F(QuestionPageTest, AQuestionThatIsDeclinedDeletesNothing) {
    ASSERT_TRUE(Open());
    Delete(false);
    EXPECT_EQ(Log().CountOf("DeletePics"), 0);
    EXPECT_EQ(Uuids(Page()).size(), 3U);
}

TEST_F(QuestionPageTest, AServiceTextThatNamesThePictureReachesTheUserUnchanged) {
    ASSERT_TRUE(Open());
    host.script.FailNext("DeletePics");
    host.soapError.lastText = u"要删除的图片已不存在。"_s;
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    prompts.ExpectMessage(u"要删除的图片已不存在。"_s);
    support::Click(Page().DeleteButton());
    EXPECT_EQ(Uuids(Page()).size(), 3U);
}

TEST_F(QuestionPageTest, AnyOtherServiceTextIsNotShown) {
    ASSERT_TRUE(Open());
    host.script.FailNext("DeletePics");
    host.soapError.lastText = u"timeout"_s;
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    prompts.ExpectMessage(u"删除图片服务调用失败!"_s);
    support::Click(Page().DeleteButton());
}

TEST_F(QuestionPageTest, EditingOpensTheEditorOnTheIssueAndASaveReadsItAnew) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    ASSERT_TRUE(Editor().HasWindow());
    EXPECT_EQ(Editor().Question().questionId, u"q1");
    EXPECT_EQ(Editor().ownerView->data(), Page().Widget());
    Log().Clear();
    Press("okButton");
    EXPECT_THAT(Log().LinesOf({"UpdateIssue", "GetIssueDetail", "RefreshTNMarks"}),
                ElementsAre("UpdateIssue(ppid=1,id=q1)", "GetIssueDetail(ppid=1,id=q1)",
                            "RefreshTNMarks()"));
}
