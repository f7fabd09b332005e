// Deleting a picture and editing the checkpoint in the drawing photo viewer.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "tests/viewers/pdf/PdfViewFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PdfPicViewEditTest : public PdfViewFixture {
protected:
    void DeleteCurrent(bool answer = true) {
        prompts.ExpectOkCancel(u"确定删除当前照片？"_s, answer);
        Click(Pane().DeleteButton());
    }
    /// What "编辑" does: the test's action, then this result.
    void EditWith(DialogResult result, const std::function<void()>& meanwhile = {}) {
        Pane().runEditor = [=, this](const KX_DATA::CheckpointEdit& edit, const QString& mark,
                                     toolkit::WindowId parent) {
            opened = edit;
            openedMark = mark;
            openedParent = parent;
            if (meanwhile) {
                meanwhile();
            }
            return result;
        };
        Log().Clear();
        Click(Pane().EditButton());
    }
    [[nodiscard]] std::vector<qint32> Ids() const {
        std::vector<qint32> ids;
        for (const DrawingViewItem& item : Pane().Items()) {
            ids.push_back(item.picId);
        }
        return ids;
    }

    KX_DATA::CheckpointEdit opened;
    QString openedMark;
    toolkit::WindowId openedParent = toolkit::kNoWindow;
};

} // namespace

TEST_F(PdfPicViewEditTest, ADeletedPictureGivesItsPlaceToTheNext) {
    ASSERT_TRUE(Open(101, 2));
    Log().Clear();
    DeleteCurrent();
    EXPECT_THAT(Log().LinesOf(
                    {"AskOkCancel", "DeleteCheckpointPic", "GetCheckpointPics", "RefreshPdfMarks"}),
                ElementsAre("AskOkCancel(确定删除当前照片？)",
                            "DeleteCheckpointPic(drawing=101,id=2)",
                            "GetCheckpointPics(ppid=1,id=3)", "RefreshPdfMarks()"));
    EXPECT_THAT(Ids(), ElementsAre(1, 3));
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Title(), u"检查点7 - 图片3.jpg   (2/2)");
    EXPECT_EQ(Pane().State().Count(), 2);
    EXPECT_EQ(Pane().Record().pics.size(), 2U);
    EXPECT_EQ(prompts.Parents().back(), Pane().Id());
}

TEST_F(PdfPicViewEditTest, BehindTheDeletedLastPictureTheFirstIsShown) {
    ASSERT_TRUE(Open(101, 3));
    DeleteCurrent();
    EXPECT_THAT(Ids(), ElementsAre(1, 2));
    EXPECT_EQ(Title(), u"检查点7 - 图片1.jpg   (1/2)");
}

TEST_F(PdfPicViewEditTest, TheOnlyPictureStaysOnTheScreenWhenItIsDeleted) {
    ASSERT_TRUE(Open(102));
    DeleteCurrent();
    EXPECT_THAT(Ids(), IsEmpty());
    EXPECT_EQ(Pane().State().Count(), 1);
    EXPECT_EQ(Title(), u"检查点8 - 图片9.jpg   (1/1)");
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 1);
    prompts.ExpectMessage(u"无照片可删！"_s);
    Click(Pane().DeleteButton());
    EXPECT_EQ(Log().CountOf("DeleteCheckpointPic"), 1);
}

TEST_F(PdfPicViewEditTest, ThePicturesGoOneByOne) {
    ASSERT_TRUE(Open(101, 2));
    for (int left = 2; left >= 0; --left) {
        DeleteCurrent();
        EXPECT_EQ(int(Pane().Items().size()), left);
    }
    EXPECT_THAT(Log().LinesOf({"DeleteCheckpointPic"}),
                ElementsAre("DeleteCheckpointPic(drawing=101,id=2)",
                            "DeleteCheckpointPic(drawing=101,id=3)",
                            "DeleteCheckpointPic(drawing=101,id=1)"));
}

TEST_F(PdfPicViewEditTest, WithoutAnyPictureThereIsNothingToDelete) {
    ASSERT_TRUE(Open(103));
    prompts.ExpectMessage(u"无照片可删！"_s);
    Click(Pane().DeleteButton());
    EXPECT_EQ(Log().CountOf("DeleteCheckpointPic"), 0);
}

TEST_F(PdfPicViewEditTest, DeclinedNothingIsDeleted) {
    ASSERT_TRUE(Open());
    DeleteCurrent(false);
    EXPECT_EQ(Log().CountOf("DeleteCheckpointPic"), 0);
    EXPECT_EQ(Ids().size(), 3U);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
}

TEST_F(PdfPicViewEditTest, OfTwoPeopleWhoDeleteOnePictureTheSecondIsTold) {
    ASSERT_TRUE(Open());
    // As a site that doesn't have the picture any more.
    host.pics.judges = true;
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
    prompts.ExpectMessage(u"删除Vesk照片失败！"_s);
    Click(Pane().DeleteButton());
    EXPECT_EQ(Ids().size(), 3U);
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
}

TEST_F(PdfPicViewEditTest, TheEditorBeginsWithTheCheckpointsRecord) {
    ASSERT_TRUE(Open());
    EditWith(DialogResult::Cancelled);
    EXPECT_EQ(opened.checkpointId, 101);
    EXPECT_EQ(opened.position1, 11);
    EXPECT_EQ(opened.position2, 22);
    EXPECT_EQ(opened.description, u"梁底裂缝");
    EXPECT_EQ(opened.remark, u"请复查");
    EXPECT_THAT(opened.labelNames, ElementsAre(u"裂缝"_s, u"二 层"_s));
    EXPECT_EQ(openedMark, u"质量");
    EXPECT_EQ(openedParent, Pane().Id());
}

TEST_F(PdfPicViewEditTest, TheLinkOpensTheEditorOverTheViewerAndWhatItSavesIsShown) {
    ASSERT_TRUE(Open());
    const support::ModalVisit visit(u"CheckPtEditDlg"_s, [](QWidget& window) {
        EXPECT_EQ(window.parentWidget(), Pane().Widget());
        auto* remark = window.findChild<QPlainTextEdit*>(u"remarkEdit"_s);
        EXPECT_EQ(remark->toPlainText(), u"请复查");
        remark->selectAll();
        remark->insertPlainText(u"已复查"_s);
        support::Click(window.findChild<QPushButton*>(u"okButton"_s));
    });
    Click(Pane().EditButton());
    EXPECT_TRUE(visit.HasCome());
    EXPECT_EQ(host.drawings.lastEdit.checkpointId, 101);
    EXPECT_EQ(Texts().remarkText->text(), u"检查点备注：已复查");
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 1);
}

TEST_F(PdfPicViewEditTest, ACancelledEditReadsNothingAnew) {
    ASSERT_TRUE(Open());
    EditWith(DialogResult::Cancelled, [this] { Stored().remark = u"新"_s; });
    EXPECT_THAT(Log().LinesOf({"GetDrawing", "RefreshPdfMarks"}), IsEmpty());
    EXPECT_EQ(Texts().remarkText->text(), u"检查点备注：请复查");
}

TEST_F(PdfPicViewEditTest, AnEditShowsTheCheckpointAnewAndNeitherPicturesNorComments) {
    ASSERT_TRUE(Open(101, 2));
    EditWith(DialogResult::Ok, [this] {
        Stored().remark = u"已复查"_s;
        Stored().markName = u"安全"_s;
        Stored().markColor = 0x00FFFF;
        Stored().pics.pop_back();
        SetComments(5);
    });
    EXPECT_THAT(Log().LinesOf({"GetDrawing", "GetCheckpointPics", "GetComments", "GetThumbFolder",
                               "RefreshPdfMarks"}),
                ElementsAre("GetDrawing(drawing=101)", "RefreshPdfMarks()"));
    EXPECT_EQ(Texts().remarkText->text(), u"检查点备注：已复查");
    EXPECT_EQ(Texts().markText->text(), u"安全");
    EXPECT_EQ(Texts().markText->BGColor(), QColor(255, 255, 0));
    EXPECT_EQ(Pane().State().Count(), 3);
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(List().GetRowCount(), 2);
}

TEST_F(PdfPicViewEditTest, APictureThatWentWithTheEditLeavesTheOthersWhenItIsDeleted) {
    ASSERT_TRUE(Open(101, 2));
    EditWith(DialogResult::Ok, [this] {
        auto& pics = Stored().pics;
        pics.erase(pics.begin() + 1);
    });
    DeleteCurrent();
    EXPECT_THAT(Ids(), ElementsAre(1, 3));
    EXPECT_EQ(Title(), u"检查点7 - 图片3.jpg   (2/2)");
}

TEST_F(PdfPicViewEditTest, ACheckpointThatCannotBeReadAfterAnEditKeepsItsTexts) {
    ASSERT_TRUE(Open());
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    EditWith(DialogResult::Ok, [this] {
        Stored().remark = u"已复查"_s;
        host.script.FailNext("GetDrawing");
    });
    EXPECT_EQ(Texts().remarkText->text(), u"检查点备注：请复查");
    EXPECT_EQ(Log().CountOf("RefreshPdfMarks"), 0);
    EXPECT_TRUE(Wrap().HasWindow());
}

TEST_F(PdfPicViewEditTest, TheCheckpointDeletedWhileItsViewerIsOpenIsToldAtEveryDeed) {
    ASSERT_TRUE(Open());
    host.pics.judges = true;
    host.drawings.drawings.erase(101);
    prompts.ExpectOkCancel(u"确定删除当前照片？"_s, true);
    prompts.ExpectMessage(u"删除Vesk照片失败！"_s);
    Click(Pane().DeleteButton());
    prompts.ExpectMessage(u"获取检查点信息失败！"_s);
    EditWith(DialogResult::Ok);
    host.script.FailAlways("AddComment");
    Send(u"还在吗"_s);
    EXPECT_EQ(Box().toPlainText(), u"还在吗");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    host.pics.checkpointPics.clear();
    Press(Qt::Key_Right);
    EXPECT_TRUE(Wrap().HasWindow());
    EXPECT_EQ(Texts().cpDescText->text(), u"检查点描述：梁底裂缝");
}
