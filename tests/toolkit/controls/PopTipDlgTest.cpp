// Balloons, messages and modal runs of the module's dialogs.
#include "toolkit/windows/PopTipDlg.h"

#include "tests/support/AnsweredPrompts.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/BalloonTip.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using support::ModalVisit;
using toolkit::BalloonKind;
using toolkit::BalloonTip;

/// One edit field, one button that ends with Ok.
class SampleDialog final : public CPopTipDlg {
public:
    QPointer<QLineEdit> edit;
    QPointer<QPushButton> button;
    bool endsAtOnce = false;
    using CPopTipDlg::EndDialog;

protected:
    void OnCreated() override {
        Widget()->setObjectName(u"sample"_s);
        auto* layout = new QVBoxLayout(Widget());
        edit = new QLineEdit(Widget());
        button = new QPushButton(Widget());
        layout->addWidget(edit);
        layout->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, Widget(),
                         [this] { EndDialog(DialogResult::Ok); });
        if (endsAtOnce) {
            EndDialog(DialogResult::Ok);
        }
    }
};

class PopTipDlgTest : public testing::Test {
protected:
    ~PopTipDlgTest() override {
        dialog.Destroy();
        support::RunPendingEvents();
    }
    void Show() {
        dialog.Create(toolkit::kNoWindow);
        dialog.ShowRestored();
        dialog.BringToForeground();
        ASSERT_TRUE(support::WaitFor([this] { return dialog.Widget()->isActiveWindow(); }));
    }

    support::AnsweredPrompts prompts;
    SampleDialog dialog;
};

TEST_F(PopTipDlgTest, AnErrorIsABalloonAtItsControlWhichGetsTheKeyboard) {
    Show();
    dialog.button->setFocus();
    dialog.ShowMsg(u"请输入照片名称！"_s, dialog.edit);
    ASSERT_NE(BalloonTip::Current(), nullptr);
    EXPECT_EQ(BalloonTip::Current()->Control(), dialog.edit);
    EXPECT_EQ(BalloonTip::Current()->Text(), u"请输入照片名称！"_s);
    EXPECT_EQ(BalloonTip::Current()->Kind(), BalloonKind::Error);
    EXPECT_TRUE(dialog.edit->hasFocus());
}

TEST_F(PopTipDlgTest, AnErrorAtNoControlOrOneThatIsHiddenIsAMessage) {
    Show();
    prompts.ExpectMessage(u"一"_s);
    dialog.ShowMsg(u"一"_s);
    dialog.edit->hide();
    prompts.ExpectMessage(u"二"_s);
    dialog.ShowMsg(u"二"_s, dialog.edit);
    EXPECT_EQ(BalloonTip::Current(), nullptr);
    EXPECT_THAT(prompts.Parents(), testing::Each(dialog.Id()));
}

TEST_F(PopTipDlgTest, ATipIsAHintAndTakesTheKeyboardOnRequestAlone) {
    Show();
    dialog.button->setFocus();
    dialog.PopTip(dialog.edit, u"提示"_s);
    EXPECT_EQ(BalloonTip::Current()->Kind(), BalloonKind::Hint);
    EXPECT_TRUE(dialog.button->hasFocus());
    dialog.PopTip(dialog.edit, u"提示"_s, true);
    EXPECT_TRUE(dialog.edit->hasFocus());
}

TEST_F(PopTipDlgTest, AnErrorIsWiderThanAHintByItsIcon) {
    Show();
    dialog.PopTip(dialog.edit, u"提示"_s);
    const int hint = BalloonTip::Current()->width();
    dialog.ShowMsg(u"提示"_s, dialog.edit);
    EXPECT_GT(BalloonTip::Current()->width(), hint + 16);
}

TEST_F(PopTipDlgTest, AModalRunLastsUntilTheDialogEndsAndAnswersHow) {
    const ModalVisit visit(u"sample"_s, [this](QWidget&) { dialog.button->click(); });
    EXPECT_EQ(dialog.DoModal(toolkit::kNoWindow), DialogResult::Ok);
    EXPECT_FALSE(dialog.HasWindow());
    const ModalVisit again(u"sample"_s, [](QWidget& window) { window.close(); });
    EXPECT_EQ(dialog.DoModal(toolkit::kNoWindow), DialogResult::Cancelled);
}

TEST_F(PopTipDlgTest, AModalRunEndsWithItsWindow) {
    const ModalVisit visit(u"sample"_s, [](QWidget& window) { delete &window; });
    EXPECT_EQ(dialog.DoModal(toolkit::kNoWindow), DialogResult::Cancelled);
}

TEST_F(PopTipDlgTest, AModalRunEndsWithItsParent) {
    auto* parent = new QWidget;
    const toolkit::WindowId id =
        toolkit::RegisterWindow(parent, [](const toolkit::WindowEvent&) { return qintptr(0); });
    const ModalVisit visit(u"sample"_s, [&](QWidget& window) {
        EXPECT_EQ(window.parentWidget(), parent);
        delete parent;
    });
    EXPECT_EQ(dialog.DoModal(id), DialogResult::Cancelled);
    EXPECT_FALSE(dialog.HasWindow());
}

TEST_F(PopTipDlgTest, AModalRunEndsWithTheProgram) {
    std::optional<DialogResult> result;
    QTimer::singleShot(0, qApp, [&] { result = dialog.DoModal(toolkit::kNoWindow); });
    QTimer::singleShot(0, qApp, [&] {
        EXPECT_TRUE(dialog.HasWindow());
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(result, DialogResult::Cancelled);
    EXPECT_FALSE(dialog.HasWindow());
}

TEST_F(PopTipDlgTest, ADialogThatEndsWhileItOpensRunsNoLoop) {
    dialog.endsAtOnce = true;
    EXPECT_EQ(dialog.DoModal(toolkit::kNoWindow), DialogResult::Ok);
}

TEST_F(PopTipDlgTest, ADialogThatHasAWindowIsNotRunAgain) {
    Show();
    EXPECT_EQ(dialog.DoModal(toolkit::kNoWindow), DialogResult::Cancelled);
    EXPECT_TRUE(dialog.HasWindow());
}

TEST_F(PopTipDlgTest, ItBlocksAllOtherWindowsAndCannotBeMinimised) {
    const ModalVisit visit(u"sample"_s, [](QWidget& window) {
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
        EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        window.close();
    });
    dialog.DoModal(toolkit::kNoWindow);
}

/// Ends its dialog as that comes up.
class EndsAtShow final : public QObject {
public:
    explicit EndsAtShow(SampleDialog& dialog) : m_dialog(dialog) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && m_dialog.HasWindow() && watched == m_dialog.Widget()) {
            m_dialog.EndDialog(DialogResult::Ok);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    SampleDialog& m_dialog;
};

TEST_F(PopTipDlgTest, AModalRunWhoseWindowGoesAsItComesUpDoesNotWait) {
    const EndsAtShow ender(dialog);
    EXPECT_EQ(dialog.DoModal(toolkit::kNoWindow), DialogResult::Ok);
    EXPECT_FALSE(dialog.HasWindow());
}

} // namespace
