// What happens to the issue viewer and its editor while they wait for a call or an answer.
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class IssueViewerFaultsTest : public IssueFixture {
protected:
    /// In the next call of an operation the window ends.
    void EndDuring(const char* operation) {
        host.script.During(operation, [this, operation] {
            host.script.During(operation, nullptr);
            Wrap().Destroy();
        });
    }
    /// In the next call of an operation another issue is opened.
    void OpenOtherDuring(const char* operation) {
        host.script.During(operation, [this, operation] {
            host.script.During(operation, nullptr);
            EXPECT_TRUE(Open(u"q2"_s));
        });
    }
};

} // namespace

TEST_F(IssueViewerFaultsTest, EndedWhileTheServicesAreAskedItIsNoViewer) {
    for (const char* call :
         {"GetIssuePics", "GetMarkTable", "GetRectification", "GetAttachFolder"}) {
        EndDuring(call);
        EXPECT_FALSE(Open()) << call;
        EXPECT_FALSE(Wrap().HasWindow()) << call;
    }
}

TEST_F(IssueViewerFaultsTest, AnIssueThatIsOpenedMeanwhileIsTheOneThatStays) {
    Row(u"q2"_s).theme = u"漏水"_s;
    for (const char* call : {"GetIssueDetail", "GetIssuePics", "GetRectification"}) {
        OpenOtherDuring(call);
        EXPECT_FALSE(Open()) << call;
        EXPECT_EQ(Wrap().Question().questionId, u"q2") << call;
        EXPECT_EQ(Wrap().Widget()->windowTitle(), u"漏水") << call;
        EXPECT_EQ(Uuids(Page()).size(), 0U) << call;
        EXPECT_EQ(Uuids(Rectify()).size(), 0U) << call;
    }
}

TEST_F(IssueViewerFaultsTest, EndedBehindTheQuestionNothingIsDeleted) {
    ASSERT_TRUE(Open());
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    prompts.Meanwhile([] { Wrap().Destroy(); });
    support::Click(Page().DeleteButton());
    EXPECT_EQ(Log().CountOf("DeletePics"), 0);
    ASSERT_TRUE(OpenRectify());
    prompts.ExpectOkCancel(u"确定删除当前照片!"_s, true);
    prompts.Meanwhile([] { Wrap().Destroy(); });
    support::Click(Rectify().DeleteButton());
    EXPECT_EQ(Log().CountOf("DeleteRectifyPics"), 0);
}

TEST_F(IssueViewerFaultsTest, AnotherIssueBehindTheQuestionLosesNoPicture) {
    host.questions.pics[u"q2"_s] = {Picture(u"x1"_s)};
    ASSERT_TRUE(Open());
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    prompts.Meanwhile([this] { EXPECT_TRUE(Open(u"q2"_s)); });
    support::Click(Page().DeleteButton());
    EXPECT_EQ(Log().CountOf("DeletePics"), 0);
}

TEST_F(IssueViewerFaultsTest, EndedDuringADeletionItEndsQuietly) {
    ASSERT_TRUE(Open());
    EndDuring("DeletePics");
    prompts.ExpectOkCancel(u"确定删除当前图片!"_s, true);
    support::Click(Page().DeleteButton());
    EXPECT_FALSE(Wrap().HasWindow());
    ASSERT_TRUE(OpenRectify());
    EndDuring("DeleteRectifyPics");
    prompts.ExpectOkCancel(u"确定删除当前照片!"_s, true);
    support::Click(Rectify().DeleteButton());
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(IssueViewerFaultsTest, EndedDuringARefreshOrAStatusCheckItEndsQuietly) {
    ASSERT_TRUE(Open());
    EndDuring("GetIssueDetail");
    Wrap().Refresh();
    EXPECT_FALSE(Wrap().HasWindow());
    ASSERT_TRUE(Open());
    EndDuring("GetIssueDetail");
    support::Click(Wrap().ReportButton());
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_TRUE(mainWindow.Widget()->isEnabled());
}

TEST_F(IssueViewerFaultsTest, TheEditorEndedDuringItsCallsEndsQuietly) {
    for (const char* call : {"GetMarkTable", "GetView"}) {
        host.script.During(call, [this, call] {
            host.script.During(call, nullptr);
            Editor().Destroy();
        });
        EXPECT_FALSE(Editor().OpenQuestion(1, u"q1"_s, mainWindow.Id())) << call;
    }
    ASSERT_TRUE(Edit());
    host.script.During("UpdateIssue", [this] {
        host.script.During("UpdateIssue", nullptr);
        Editor().Destroy();
    });
    Press("okButton");
    EXPECT_FALSE(Editor().HasWindow());
    EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 1) << "it was saved";
}

TEST_F(IssueViewerFaultsTest, AnIssueDeletedByAnotherClientIsToldAtTheNextOpening) {
    ASSERT_TRUE(Open());
    host.questions.issues.erase(host.questions.issues.begin());
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：梁底裂缝");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_FALSE(Open());
}
