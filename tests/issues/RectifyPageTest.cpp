// The second page of the issue viewer: pictures, texts, rights, deleting.
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/AmrFiles.h"
#include "tests/support/Hands.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class RectifyPageTest : public IssueFixture {
protected:
    void Delete(bool answer = true) {
        prompts.ExpectOkCancel(u"确定删除当前照片!"_s, answer);
        support::Click(Rectify().DeleteButton());
    }
};

} // namespace

TEST_F(RectifyPageTest, ShowsStateTextRectifierAndPictures) {
    ASSERT_TRUE(OpenRectify());
    QString state;
    host.states.StateToText(state, 1);
    EXPECT_EQ(TextOf(Rectify(), "stateText"), u"整改情况："_s + state);
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：王五");
    EXPECT_EQ(TextOf(Rectify(), "textCaption"), u"整改说明：");
    const auto* box = Rectify().Widget()->findChild<QPlainTextEdit*>(u"rectifyBox"_s);
    EXPECT_EQ(box->toPlainText(), u"已注浆");
    EXPECT_FALSE(box->isEnabled());
    EXPECT_THAT(Uuids(Rectify()), ElementsAre("uuid-r1", "uuid-r2"));
    EXPECT_EQ(TextOf(Rectify(), "uploaderText"), u"    上传人：上传者r1");
    EXPECT_EQ(Rectify().UploadButton()->text(), u"上传图片");
}

TEST_F(RectifyPageTest, TheRecordBelongsToTheIssueWhateverTheServiceSays) {
    host.questions.rectifications[u"q1"_s].questionId = u"other"_s;
    ASSERT_TRUE(OpenRectify());
    EXPECT_EQ(Rectify().Rectify().questionId, u"q1");
}

TEST_F(RectifyPageTest, ARectificationThatCannotBeReadIsAnEmptyPage) {
    ASSERT_TRUE(OpenRectify());
    host.script.FailNext("GetRectification");
    ASSERT_TRUE(OpenRectify());
    EXPECT_THAT(Uuids(Rectify()), IsEmpty());
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：");
    EXPECT_EQ(TextOf(Rectify(), "uploaderText"), u"    上传人：");
    EXPECT_FALSE(Rectify().DeleteButton()->isEnabled());
    EXPECT_EQ(Rectify().Note().Status()->text(), u"无语音");
}

TEST_F(RectifyPageTest, ReadOnlyItCanBeBrowsedAndHeardButNotChanged) {
    host.questions.rectifications[u"q1"_s].voiceUuid = u"v"_s;
    host.questions.rectifications[u"q1"_s].voiceMd5 =
        gallery::FileMd5(folder.Write(u"1/attachments/v.amr"_s, support::SilentAmr(500)));
    ASSERT_TRUE(Open(u"q1"_s, 1));
    Wrap().TabWnd()->SetActiveTab(1);
    EXPECT_FALSE(Rectify().UploadButton()->isEnabled());
    EXPECT_FALSE(Rectify().EditButton()->isEnabled());
    EXPECT_FALSE(Rectify().DeleteButton()->isEnabled());
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    EXPECT_EQ(Rectify().State().currentIndex, 1);
    support::Click(Rectify().Note().Button());
    EXPECT_TRUE(Rectify().Note().IsPlaying());
}

TEST_F(RectifyPageTest, InAWorksetNothingCanBeChanged) {
    host.global.worksetMode = true;
    ASSERT_TRUE(OpenRectify());
    EXPECT_FALSE(Rectify().UploadButton()->isEnabled());
    EXPECT_FALSE(Rectify().EditButton()->isEnabled());
    EXPECT_FALSE(Rectify().DeleteButton()->isEnabled());
}

TEST_F(RectifyPageTest, WithoutPicturesOnlyDeletingIsDisabled) {
    ASSERT_TRUE(OpenRectify(u"q2"_s));
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
    EXPECT_TRUE(Rectify().EditButton()->isEnabled());
    EXPECT_FALSE(Rectify().DeleteButton()->isEnabled());
}

TEST_F(RectifyPageTest, ADeletedPictureGoesAndTheRectifierIsTheUserWithoutSayingSo) {
    ASSERT_TRUE(OpenRectify());
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    Delete();
    EXPECT_THAT(Log().LinesOf({"DeleteRectifyPics"}),
                ElementsAre("DeleteRectifyPics(kind=0,id=q1,ids=[r2])"));
    EXPECT_THAT(Uuids(Rectify()), ElementsAre("uuid-r1"));
    EXPECT_EQ(Rectify().Rectify().rectifierName, u"engineer");
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：王五");
    Rectify().ShowRectifyText();
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：engineer");
}

TEST_F(RectifyPageTest, TheLastPictureDeletedLeavesTheTwoCaptionsAndDeletingDisabled) {
    host.questions.rectifications[u"q1"_s].pics.resize(1);
    ASSERT_TRUE(OpenRectify());
    Delete();
    EXPECT_THAT(Uuids(Rectify()), IsEmpty());
    EXPECT_EQ(TextOf(Rectify(), "uploaderText"), u"    上传人：");
    EXPECT_EQ(TextOf(Rectify(), "uploadTimeText"), u"上传时间：");
    EXPECT_FALSE(Rectify().DeleteButton()->isEnabled());
}

TEST_F(RectifyPageTest, ARefusalToDeleteIsNotTold) {
    ASSERT_TRUE(OpenRectify());
    host.script.FailNext("DeleteRectifyPics");
    Delete();
    EXPECT_EQ(Uuids(Rectify()).size(), 2U);
    EXPECT_EQ(Rectify().Rectify().rectifierName, u"王五");
}

TEST_F(RectifyPageTest, ADeletionThatIsDeclinedAsksNoService) {
    ASSERT_TRUE(OpenRectify());
    Delete(false);
    EXPECT_EQ(Log().CountOf("DeleteRectifyPics"), 0);
}
