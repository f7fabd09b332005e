// Opening, saving and ending the editor of a checkpoint.
#include "tests/editors/checkpoint/CheckPtFixture.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QtTest/QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CheckPtEditDlgTest : public CheckPtFixture {
protected:
    static void Paste(QPlainTextEdit& box, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        box.selectAll();
        box.paste();
    }
};

TEST_F(CheckPtEditDlgTest, OpensWithTheCheckpointsFields) {
    Open();
    EXPECT_EQ(Window()->windowTitle(), u"编辑");
    EXPECT_EQ(Description().toPlainText(), u"梁底裂缝");
    EXPECT_EQ(Remark().toPlainText(), u"请复查");
    EXPECT_EQ(Mark().currentText(), u"安全");
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工"));
    EXPECT_EQ(Root().text(0), u"全部标签");
    EXPECT_THAT(Log().LinesOf({"GetLabels", "GetMarkTable", "HasRight"}),
                ElementsAre("GetLabels(kind=2)", "GetMarkTable()", "HasRight(right=5)"));
}

TEST_F(CheckPtEditDlgTest, CaptionsAreTheSystems) {
    Open();
    EXPECT_EQ(Find<QLabel>("markCaption").text(), u"标识：");
    EXPECT_EQ(Find<QGroupBox>("labelGroup").title(), u"标签");
    EXPECT_EQ(Find<QGroupBox>("descriptionGroup").title(), u"检查点描述");
    EXPECT_EQ(Find<QGroupBox>("remarkGroup").title(), u"检查点备注");
    EXPECT_EQ(Find<QLabel>("newLabelCaption").text(), u"若无合适标签，请添加标签：");
    EXPECT_EQ(AddLabel().text(), u"增加标签");
}

TEST_F(CheckPtEditDlgTest, TabFollowsTheEye) {
    Open();
    EXPECT_THAT(support::TabOrder(&Mark()),
                ElementsAre("markCombo", "labelTree", "newLabelEdit", "descriptionEdit",
                            "remarkEdit", "okButton", "cancelButton"));
}

TEST_F(CheckPtEditDlgTest, NothingIsCutAtItsLeastSize) {
    Open();
    Window()->resize(Window()->minimumSizeHint());
    support::RunPendingEvents();
    for (const QWidget* control : Window()->findChildren<QWidget*>()) {
        const bool isText = qobject_cast<const QLabel*>(control) != nullptr ||
                            qobject_cast<const QPushButton*>(control) != nullptr;
        if (isText && control->isVisible()) {
            const std::string name = control->objectName().toStdString();
            EXPECT_GE(control->width(), control->sizeHint().width()) << name;
            EXPECT_GE(control->height(), control->sizeHint().height()) << name;
        }
    }
}

TEST_F(CheckPtEditDlgTest, SavesWhatItHasWithTheIdsOfItsLabels) {
    Open();
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().checkpointId, 101);
    EXPECT_EQ(Sent().position1, 11);
    EXPECT_EQ(Sent().position2, 22);
    EXPECT_EQ(Sent().description, u"梁底裂缝");
    EXPECT_EQ(Sent().remark, u"请复查");
    EXPECT_EQ(Sent().markId, 2);
    EXPECT_THAT(Sent().labelNames, ElementsAre(u"l1"_s, u"l3"_s));
}

TEST_F(CheckPtEditDlgTest, SavesWhatWasChanged) {
    Open();
    support::Choose(Mark(), 2);
    Paste(Description(), u"一\n二"_s);
    Paste(Remark(), u"<b>三</b>"_s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().markId, 3);
    EXPECT_EQ(Sent().description, u"一\n二");
    EXPECT_EQ(Sent().remark, u"<b>三</b>");
}

TEST_F(CheckPtEditDlgTest, EmptyDescriptionAndEmptyRemarkAreSavedAsSuch) {
    Open();
    for (QPlainTextEdit* box : {&Description(), &Remark()}) {
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
    }
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().description, QString());
    EXPECT_EQ(Sent().remark, QString());
}

TEST_F(CheckPtEditDlgTest, UntouchedTextsAreSentAsTheyCame) {
    KX_DATA::CheckpointEdit checkpoint = Checkpoint();
    checkpoint.description = u"一\r\n二\u00a0"_s;
    checkpoint.remark = QString(300, u'长');
    Open(checkpoint);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().description, checkpoint.description);
    EXPECT_EQ(Sent().remark, checkpoint.remark);
}

TEST_F(CheckPtEditDlgTest, ADescriptionTakesOneCharacterMoreThanARemark) {
    Open();
    Paste(Description(), QString(300, u'字'));
    Paste(Remark(), QString(300, u'字'));
    EXPECT_EQ(Description().toPlainText().size(), 256);
    EXPECT_EQ(Remark().toPlainText().size(), 255);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().description.size(), 256);
}

TEST_F(CheckPtEditDlgTest, AMarkThatIsNotInTheTableSelectsNothingAndIsLeftAlone) {
    Open(Checkpoint(), u"没有的"_s);
    EXPECT_EQ(Mark().currentIndex(), -1);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().markId, 0);
}

TEST_F(CheckPtEditDlgTest, ARefusedSaveIsToldAtItsButtonAndTheNextSendsTheSameAgain) {
    Open();
    Paste(Remark(), u"新"_s);
    host.script.FailNext("UpdateCheckpoint");
    EXPECT_FALSE(Save());
    EXPECT_EQ(support::BalloonAt(&Ok()), "修改检查点信息失败！");
    EXPECT_EQ(editor->Checkpoint().remark, u"新");
    EXPECT_THAT(editor->Checkpoint().labelNames, ElementsAre(u"l1"_s, u"l3"_s));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().remark, u"新");
    EXPECT_THAT(Sent().labelNames, ElementsAre(u"l1"_s, u"l3"_s));
}

TEST_F(CheckPtEditDlgTest, ACheckpointDeletedWhileItsEditorIsOpenIsToldAndNothingTypedIsLost) {
    Open();
    Paste(Remark(), u"新"_s);
    host.drawings.drawings.erase(101);
    EXPECT_FALSE(Save());
    EXPECT_EQ(support::BalloonAt(&Ok()), "修改检查点信息失败！");
    EXPECT_EQ(Remark().toPlainText(), u"新");
}

TEST_F(CheckPtEditDlgTest, LabelsThatFailAreToldInABoxAndTheTextsAreThere) {
    host.script.FailNext("GetLabels");
    prompts.ExpectMessage(u"获取标签出错！"_s);
    Open();
    EXPECT_TRUE(support::WaitFor([this] { return prompts.AllAnswered(); }));
    EXPECT_EQ(Description().toPlainText(), u"梁底裂缝");
    EXPECT_THAT(Labels(), IsEmpty());
    EXPECT_THAT(Log().LinesOf({"GetMarkTable", "HasRight"}), IsEmpty());
    EXPECT_EQ(prompts.Parents().back(), editor->Id());
}

TEST_F(CheckPtEditDlgTest, MarksThatFailAreToldInABoxAndLeaveTheMarkAlone) {
    host.script.FailNext("GetMarkTable");
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    Open();
    EXPECT_TRUE(support::WaitFor([this] { return prompts.AllAnswered(); }));
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().markId, 0);
}

TEST_F(CheckPtEditDlgTest, ClosedDuringEachCallItEndsQuietly) {
    for (const char* call : {"GetLabels", "GetMarkTable", "HasRight"}) {
        host.script.During(call, [this, call] {
            host.script.During(call, nullptr);
            editor->Widget()->close();
        });
        editor = std::make_unique<CCheckPtEditDlg>(Checkpoint(), u"安全"_s);
        editor->Create(toolkit::kNoWindow);
        EXPECT_FALSE(IsOpen()) << call;
        support::RunPendingEvents();
    }
    Open();
    host.script.FailNext("UpdateCheckpoint");
    host.script.During("UpdateCheckpoint", [this] { editor->Widget()->close(); });
    EXPECT_TRUE(Save());
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST_F(CheckPtEditDlgTest, ItAnswersByItsResultAlone) {
    const auto run = [this](const char* button) {
        CCheckPtEditDlg dialog(Checkpoint(), u"安全"_s);
        const support::ModalVisit visit(u"CheckPtEditDlg"_s, [button](QWidget& window) {
            support::Click(window.findChild<QPushButton*>(QString::fromLatin1(button)));
        });
        return dialog.DoModal(mainWindow.Id());
    };
    EXPECT_EQ(run("cancelButton"), DialogResult::Cancelled);
    EXPECT_EQ(Log().CountOf("UpdateCheckpoint"), 0);
    EXPECT_EQ(run("okButton"), DialogResult::Ok);
    EXPECT_EQ(Log().CountOf("UpdateCheckpoint"), 1);
}

TEST_F(CheckPtEditDlgTest, EscapeCancelsAndEnterSaves) {
    Open();
    QTest::keyClick(&Mark(), Qt::Key_Escape);
    EXPECT_TRUE(support::WaitFor([this] { return !IsOpen(); }));
    EXPECT_EQ(Log().CountOf("UpdateCheckpoint"), 0);
    Open();
    Ok().setFocus();
    QTest::keyClick(&Ok(), Qt::Key_Return);
    EXPECT_TRUE(support::WaitFor([this] { return !IsOpen(); }));
    EXPECT_EQ(Log().CountOf("UpdateCheckpoint"), 1);
}

} // namespace
