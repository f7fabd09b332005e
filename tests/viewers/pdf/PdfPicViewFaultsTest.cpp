// Failing calls, and what happens to the drawing photo viewer while it waits for one.
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/pdf/PdfViewFixture.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::IsEmpty;

class PdfPicViewFaultsTest : public PdfViewFixture {
protected:
    /// In the next call of an operation the window closes.
    void CloseDuring(const char* operation) {
        host.script.During(operation, [this, operation] {
            host.script.During(operation, nullptr);
            Wrap().Widget()->close();
        });
    }
    void DeleteCurrent() {
        prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
        Click(Pane().DeleteButton());
    }
    void DeleteComment() {
        ClickComment(0);
        prompts.ExpectOkCancel(u"确定删除该帖？"_s, true);
        QTest::keyClick(&List(), Qt::Key_Delete);
    }
};

} // namespace

TEST_F(PdfPicViewFaultsTest, ADetailThatCannotBeReadKeepsTextsAndTitleAndIsAskedForAgain) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetCheckpointPics");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    Press(Qt::Key_Right);
    EXPECT_EQ(prompts.Parents().back(), Pane().Id());
    EXPECT_EQ(Title(), u"检查点7 - 图片1.jpg   (1/3)");
    EXPECT_EQ(Texts().picDescText->text(), u"照片描述：描述1");
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Pane().Items()[1].loaded, 0);
    Press(Qt::Key_Left);
    Press(Qt::Key_Right);
    EXPECT_EQ(Title(), u"检查点7 - 图片2.jpg   (2/3)");
}

TEST_F(PdfPicViewFaultsTest, AFirstDetailThatCannotBeReadLeavesTheRestOfTheCheckpoint) {
    host.script.FailNext("GetCheckpointPics");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    EXPECT_TRUE(Open());
    EXPECT_EQ(Title(), u"PDF照片查看");
    EXPECT_EQ(Texts().cpDescText->text(), u"检查点描述：梁底裂缝");
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(PdfPicViewFaultsTest, ClosedWhileTheServicesAreAskedAtAnOpeningItIsNoViewer) {
    for (const char* call : {"GetDrawing", "GetThumbFolder", "GetCheckpointPics", "GetComments"}) {
        CloseDuring(call);
        EXPECT_FALSE(Open()) << call;
        EXPECT_FALSE(Wrap().HasWindow()) << call;
        EXPECT_FALSE(Pane().HasWindow()) << call;
    }
    SetComments(120);
    host.script.During("GetComments", [this] {
        if (Log().CountOf("GetComments") > 2) {
            CloseDuring("GetComments");
        }
    });
    EXPECT_FALSE(Open());
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(PdfPicViewFaultsTest, ClosedWhileACallOfAPersonsDeedRunsItEndsQuietly) {
    ASSERT_TRUE(Open());
    CloseDuring("GetCheckpointPics");
    Press(Qt::Key_Right);
    EXPECT_FALSE(Wrap().HasWindow());

    ASSERT_TRUE(Open());
    CloseDuring("AddComment");
    Send(u"已处理"_s);
    EXPECT_FALSE(Wrap().HasWindow());

    ASSERT_TRUE(Open());
    CloseDuring("DeleteComment");
    DeleteComment();
    EXPECT_FALSE(Wrap().HasWindow());

    ASSERT_TRUE(Open());
    CloseDuring("DeleteCheckpointPic");
    DeleteCurrent();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 1) << "the picture is gone all the same";
}

TEST_F(PdfPicViewFaultsTest, ClosedInTheReadingThatFollowsADeedItEndsQuietly) {
    ASSERT_TRUE(Open());
    CloseDuring("GetCheckpointPics");
    DeleteCurrent();
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 1);

    ASSERT_TRUE(Open());
    Pane().runEditor = [this](const auto&, const auto&, auto) {
        CloseDuring("GetDrawing");
        return DialogResult::Ok;
    };
    Click(Pane().EditButton());
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(PdfPicViewFaultsTest, ClosedBehindAQuestionOrTheEditorItAsksNoServiceAnyMore) {
    const auto close = [] { Wrap().Widget()->close(); };
    ASSERT_TRUE(Open());
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
    prompts.Meanwhile(close);
    Click(Pane().DeleteButton());
    ASSERT_TRUE(Open());
    ClickComment(0);
    prompts.ExpectOkCancel(u"确定删除该帖？"_s, true);
    prompts.Meanwhile(close);
    QTest::keyClick(&List(), Qt::Key_Delete);
    ASSERT_TRUE(Open());
    Log().Clear();
    Pane().runEditor = [&](const auto&, const auto&, auto) {
        close();
        return DialogResult::Ok;
    };
    Click(Pane().EditButton());
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_THAT(Log().LinesOf({"DeleteCheckpointPic", "DeleteComment", "GetDrawing"}), IsEmpty());
}

TEST_F(PdfPicViewFaultsTest, ClosedBehindAMessageItEndsQuietly) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetCheckpointPics");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([] { Wrap().Widget()->close(); });
    Press(Qt::Key_Right);
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(PdfPicViewFaultsTest, AFailingCallOfAWindowThatIsGoneIsNotTold) {
    const std::vector<std::pair<const char*, std::function<void()>>> deeds{
        {"GetCheckpointPics", [] { Press(Qt::Key_Right); }},
        {"AddComment", [] { Send(u"已处理"_s); }},
        {"DeleteComment", [this] { DeleteComment(); }},
        {"DeleteCheckpointPic", [this] { DeleteCurrent(); }},
    };
    for (const auto& [call, deed] : deeds) {
        ASSERT_TRUE(Open());
        CloseDuring(call);
        host.script.FailNext(call);
        deed();
        EXPECT_FALSE(Wrap().HasWindow()) << call;
    }
    EXPECT_EQ(Log().CountOf("ShowMessage"), 0);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
}

TEST_F(PdfPicViewFaultsTest, ACheckpointOpenedWhileAnotherIsReadIsTheOneThatStays) {
    for (const char* call : {"GetDrawing", "GetCheckpointPics", "GetComments"}) {
        host.script.During(call, [this, call] {
            host.script.During(call, nullptr);
            EXPECT_TRUE(Open(102)) << call;
        });
        EXPECT_TRUE(Open(101)) << call;
        EXPECT_EQ(Title(), u"检查点8 - 图片9.jpg   (1/1)") << call;
        EXPECT_EQ(Pane().Items().size(), 1U) << call;
        EXPECT_EQ(Pane().State().Count(), 1) << call;
        EXPECT_EQ(Texts().cpLabelText->text(), u"标签：") << call;
        Wrap().Widget()->close();
    }
}

TEST_F(PdfPicViewFaultsTest, ADeedThatEndsOnAnotherCheckpointChangesNothingThere) {
    const auto openOther = [this](const char* call) {
        host.script.During(call, [this, call] {
            host.script.During(call, nullptr);
            EXPECT_TRUE(Open(102));
        });
    };
    ASSERT_TRUE(Open(101, 2));
    openOther("DeleteCheckpointPic");
    DeleteCurrent();
    EXPECT_EQ(Pane().Items().size(), 1U);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 1);
    ASSERT_TRUE(Open(101));
    Pane().runEditor = [&](const auto&, const auto&, auto) {
        openOther("GetDrawing");
        return DialogResult::Ok;
    };
    Click(Pane().EditButton());
    EXPECT_EQ(Title(), u"检查点8 - 图片9.jpg   (1/1)");
    EXPECT_EQ(Texts().cpDescText->text(), u"检查点描述：");
}

TEST_F(PdfPicViewFaultsTest, WithoutAProjectTheServicesAreAskedForNone) {
    host.project.project.reset();
    EXPECT_TRUE(Open());
    EXPECT_EQ(Log().LinesOf({"GetCheckpointPics"}).front(), "GetCheckpointPics(ppid=0,id=1)");
}

TEST_F(PdfPicViewFaultsTest, AChangeOfProjectBehindAQuestionEndsTheViewer) {
    ASSERT_TRUE(Open());
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
    prompts.Meanwhile([] { CVeskPicProjChangeObs().OnProjChange(); });
    Click(Pane().DeleteButton());
    EXPECT_FALSE(Wrap().HasWindow());
    EXPECT_EQ(Log().CountOf("DeleteCheckpointPic"), 0);
}

TEST_F(PdfPicViewFaultsTest, EverythingClosedDuringADownloadEndsQuietly) {
    QFile::remove(folder.Path(u"1/thumbs/uuid1.jpg"_s));
    host.files.stored = {{u"uuid1"_s, QByteArray(100'000, 'x')}};
    ASSERT_TRUE(Open());
    Wrap().Widget()->close();
    support::RunPendingEvents();
    EXPECT_FALSE(Wrap().HasWindow());
}
