// The comments on a checkpoint.
#include "tests/support/Hands.h"
#include "tests/viewers/pdf/PdfViewFixture.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommentsTest : public PdfViewFixture {
protected:
    void AskDeletion(bool answer) { prompts.ExpectOkCancel(u"确定删除该帖？"_s, answer); }
    static void PressDelete() { QTest::keyClick(&List(), Qt::Key_Delete); }
    /// Texts that were sent to the service.
    [[nodiscard]] Calls Sent() { return Log().LinesOf({"AddComment"}); }
};

} // namespace

TEST_F(CommentsTest, AreListedWithTheirTimesAndTheNewestInSight) {
    SetComments(30);
    ASSERT_TRUE(Open());
    EXPECT_EQ(List().GetRowCount(), 30);
    EXPECT_EQ(Shown().front(), "张三：评论1");
    EXPECT_EQ(List().GetRowData(29), 1030);
    EXPECT_EQ(List().model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
              u"张三：评论1\n2026-03-05 12:00:00");
    EXPECT_TRUE(
        List().viewport()->rect().contains(List().visualRect(List().model()->index(29, 0))));
    EXPECT_EQ(List().GetCurSel(), -1);
}

TEST_F(CommentsTest, AHundredAndTwentyTakeThreeCalls) {
    SetComments(120);
    ASSERT_TRUE(Open());
    EXPECT_THAT(Log().LinesOf({"GetComments"}),
                ElementsAre("GetComments(drawing=101,page=0,size=50)",
                            "GetComments(drawing=101,page=1,size=50)",
                            "GetComments(drawing=101,page=2,size=50)"));
    EXPECT_EQ(List().GetRowCount(), 120);
}

TEST_F(CommentsTest, AHundredTakeThreeCallsTooTheLastWithNone) {
    SetComments(100);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Log().CountOf("GetComments"), 3);
    EXPECT_EQ(List().GetRowCount(), 100);
}

TEST_F(CommentsTest, NoneTakeOneCallAndTheListSaysSo) {
    SetComments(0);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Log().CountOf("GetComments"), 1);
    EXPECT_EQ(List().GetRowCount(), 0);
}

// A hundred calls of the scripted service, then one insertion.
TEST_F(CommentsTest, FiveThousandComeAtOnce) {
    SetComments(5000);
    ASSERT_TRUE(Open());
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(Open());
    RecordProperty("milliseconds", int(timer.elapsed()));
    EXPECT_EQ(List().GetRowCount(), 5000);
    EXPECT_LT(timer.elapsed(), 3000);
}

TEST_F(CommentsTest, AFailingPageIsToldAndTheListKeepsWhatItHad) {
    ASSERT_TRUE(Open());
    SetComments(120);
    for (const int failing : {0, 1, 2}) {
        int page = 0;
        host.script.During("GetComments", [&, failing] {
            if (++page == failing) {
                host.script.FailNext("GetComments");
            }
        });
        if (failing == 0) {
            host.script.FailNext("GetComments");
        }
        prompts.ExpectMessage(u"获取检查点评论失败！"_s);
        EXPECT_TRUE(Open()) << "the viewer stays open";
        EXPECT_THAT(Shown(), ElementsAre("张三：评论1", "张三：评论2")) << failing;
        host.script.During("GetComments", nullptr);
        EXPECT_EQ(prompts.Parents().back(), Pane().Id());
    }
}

TEST_F(CommentsTest, AnotherCheckpointWhoseCommentsFailKeepsTheList) {
    ASSERT_TRUE(Open(101));
    host.script.FailNext("GetComments");
    prompts.ExpectMessage(u"获取检查点评论失败！"_s);
    EXPECT_TRUE(Open(102));
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(CommentsTest, AWrittenOneBearsTheLoginNameAndStandsAtTheEnd) {
    host.auth.userName = "\xD5\xC5\xC8\xFD"; // 张三
    ASSERT_TRUE(Open());
    Send(u"  已处理 \n"_s);
    EXPECT_THAT(Sent(), ElementsAre("AddComment(drawing=101,text=张三：已处理)"));
    EXPECT_EQ(List().GetRowCount(), 3);
    EXPECT_EQ(Shown().back(), "张三：已处理");
    EXPECT_EQ(List().GetRowData(2), host.drawings.comments.back().commentId);
    EXPECT_TRUE(Box().toPlainText().isEmpty());
    EXPECT_EQ(Log().CountOf("GetComments"), 1) << "the list isn't loaded again";
}

TEST_F(CommentsTest, NothingAndBlanksAloneAreRefusedAtTheBox) {
    ASSERT_TRUE(Open());
    for (const QString& text : {QString(), u"   "_s, u" \n\t　"_s}) {
        Box().setPlainText(text);
        Click(&SendButton());
        EXPECT_EQ(support::BalloonAt(&Box()), "评论内容不能为空！");
        EXPECT_EQ(Box().toPlainText(), text);
    }
    EXPECT_THAT(Sent(), IsEmpty());
}

TEST_F(CommentsTest, AFailedOneIsToldAtTheButtonAndStaysInTheBox) {
    ASSERT_TRUE(Open());
    host.script.FailNext("AddComment");
    Send(u"已处理"_s);
    EXPECT_EQ(support::BalloonAt(&SendButton()), "评论失败！");
    EXPECT_EQ(Box().toPlainText(), u"已处理");
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(CommentsTest, OneThatTheServiceDidNotMakeCountsAsFailed) {
    ASSERT_TRUE(Open());
    host.drawings.makesComments = false;
    Send(u"已处理"_s);
    EXPECT_EQ(support::BalloonAt(&SendButton()), "评论失败！");
    EXPECT_EQ(Box().toPlainText(), u"已处理");
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(CommentsTest, TheBoxTakesFiveHundredCharactersAndNoMore) {
    ASSERT_TRUE(Open());
    const QString most(500, u'字');
    Send(most);
    EXPECT_TRUE(Shown().back().ends_with(most.toStdString()));
    QGuiApplication::clipboard()->setText(QString(501, u'字'));
    Box().paste();
    EXPECT_EQ(Box().toPlainText().size(), 500);
    Box().clear();
    QGuiApplication::clipboard()->setText(QString(499, u'字') + u"\U0001F44D"_s);
    Box().paste();
    EXPECT_EQ(Box().toPlainText().size(), 499) << "no half of a sign";
}

TEST_F(CommentsTest, LineBreaksEmojiAndMarkupGoAndComeAsTheyStand) {
    ASSERT_TRUE(Open());
    const QString text = u"一\n二 \U0001F44D <b>三</b> &amp; \"四\" %1"_s;
    QGuiApplication::clipboard()->setText(text);
    Box().paste();
    Click(&SendButton());
    EXPECT_EQ(QString::fromStdString(Shown().back()), u"engineer："_s + text);
    EXPECT_EQ(host.drawings.comments.back().text, u"engineer："_s + text);
}

TEST_F(CommentsTest, ASecondPressWhileTheServiceIsAskedWritesNothing) {
    ASSERT_TRUE(Open());
    host.script.During("AddComment", [] { Click(&SendButton()); });
    Send(u"已处理"_s);
    EXPECT_EQ(Sent().size(), 1U);
    host.script.During("AddComment", nullptr);
    Send(u"再来"_s);
    EXPECT_EQ(Sent().size(), 2U);
}

TEST_F(CommentsTest, TypedOnWhileTheServiceIsAskedTheBoxKeepsItsText) {
    ASSERT_TRUE(Open());
    host.script.During("AddComment", [] { Box().setPlainText(u"还有"_s); });
    Send(u"已处理"_s);
    EXPECT_EQ(Box().toPlainText(), u"还有");
    EXPECT_EQ(List().GetRowCount(), 3);
}

TEST_F(CommentsTest, OneWrittenForACheckpointThatWasLeftMeanwhileIsNotListed) {
    ASSERT_TRUE(Open());
    host.script.During("AddComment", [this] { EXPECT_TRUE(Open(102)); });
    Send(u"已处理"_s);
    EXPECT_EQ(List().GetRowCount(), 2);
    EXPECT_TRUE(Box().toPlainText().isEmpty());
}

TEST_F(CommentsTest, TheSelectedOneIsDeletedAfterAQuestion) {
    ASSERT_TRUE(Open());
    ClickComment(0);
    AskDeletion(true);
    PressDelete();
    EXPECT_THAT(Log().LinesOf({"AskOkCancel", "DeleteComment"}),
                ElementsAre("AskOkCancel(确定删除该帖？)", "DeleteComment(drawing=101,id=1001)"));
    EXPECT_THAT(Shown(), ElementsAre("张三：评论2"));
    EXPECT_EQ(prompts.Parents().back(), Pane().Id());
}

TEST_F(CommentsTest, DeclinedNothingIsDeleted) {
    ASSERT_TRUE(Open());
    ClickComment(0);
    AskDeletion(false);
    PressDelete();
    EXPECT_EQ(Log().CountOf("DeleteComment"), 0);
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(CommentsTest, WithNothingSelectedTheQuestionIsAskedAllTheSame) {
    ASSERT_TRUE(Open());
    AskDeletion(true);
    PressDelete();
    EXPECT_EQ(Log().CountOf("DeleteComment"), 0);
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(CommentsTest, ARefusedDeletionIsToldAndTheRowStays) {
    ASSERT_TRUE(Open());
    ClickComment(1);
    host.script.FailNext("DeleteComment");
    AskDeletion(true);
    prompts.ExpectMessage(u"删除评论失败！"_s);
    PressDelete();
    EXPECT_EQ(List().GetRowCount(), 2);
    EXPECT_EQ(List().GetCurSel(), 1);
}

TEST_F(CommentsTest, TheRowThatGoesIsTheOneOfTheCommentWhateverCameMeanwhile) {
    ASSERT_TRUE(Open());
    ClickComment(1);
    host.script.During("DeleteComment", [] { List().RemoveRow(0); });
    AskDeletion(true);
    PressDelete();
    EXPECT_EQ(List().GetRowCount(), 0);
}

TEST_F(CommentsTest, AListThatWasLoadedBehindTheQuestionHasNothingSelected) {
    ASSERT_TRUE(Open());
    ClickComment(1);
    AskDeletion(true);
    prompts.Meanwhile([this] { EXPECT_TRUE(Open(102)); });
    PressDelete();
    EXPECT_EQ(Log().CountOf("DeleteComment"), 0);
}

TEST_F(CommentsTest, TheWaitCursorShowsDuringTheCallsAndNotInAMessage) {
    const auto waits = [] { return QGuiApplication::overrideCursor() != nullptr; };
    std::vector<bool> during;
    for (const char* call : {"GetDrawing", "GetCheckpointPics", "GetComments"}) {
        host.script.During(call, [&] { during.push_back(waits()); });
    }
    host.script.FailNext("GetComments");
    prompts.ExpectMessage(u"获取检查点评论失败！"_s);
    prompts.Meanwhile([&] { during.push_back(waits()); });
    ASSERT_TRUE(Open());
    EXPECT_THAT(during, ElementsAre(true, true, true, false));
    EXPECT_FALSE(waits());
}

TEST_F(CommentsTest, ControlAndArrowsReachTheCommentsBesideTheGallerysOwnArrows) {
    ASSERT_TRUE(Open());
    ClickComment(0);
    QTest::keyClick(&List(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(List().GetCurSel(), 1);
    EXPECT_EQ(Current(), 0);
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_EQ(Current(), 1) << "a plain one goes to the pictures";
}
