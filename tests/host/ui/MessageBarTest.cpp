#include "host/ui/MessageBar.h"

#include "tests/support/WaitFor.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <memory>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class MessageBarWindow : public testing::Test {
protected:
    MessageBarWindow() {
        window.resize(800, 300);
        bar.resize(800, 200);
        window.show();
    }

    [[nodiscard]] QStringList Texts() {
        support::RunPendingEvents();
        QStringList texts;
        for (const QLabel* label : bar.findChildren<QLabel*>(u"messageText"_s)) {
            texts << label->text();
        }
        return texts;
    }

    /// An undoing that counts.
    [[nodiscard]] MessageAction Undoing() {
        return {u"撤销"_s, u"恢复刚删除的照片"_s, [this] { ++done; }, [this] { ++dropped; }};
    }
    [[nodiscard]] QAbstractButton* ActionButton() {
        support::RunPendingEvents();
        return bar.findChild<QAbstractButton*>(u"messageAction"_s);
    }

    int done = 0;
    int dropped = 0;
    QWidget window;
    MessageBar bar{&window};
};

TEST_F(MessageBarWindow, IsThereOnlyWhileItHasSomethingToSay) {
    EXPECT_FALSE(bar.isVisible());
    bar.Show(MessageKind::Warning, u"磁盘空间不足"_s);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(Texts(), QStringList{u"磁盘空间不足"_s});
    bar.Clear();
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(MessageBarWindow, ClosesTheMessageWhoseButtonIsClicked) {
    bar.Show(MessageKind::Info, u"一"_s);
    bar.Show(MessageKind::Error, u"二"_s);
    EXPECT_EQ(Texts(), QStringList({u"二"_s, u"一"_s}));
    QTest::mouseClick(bar.findChildren<QToolButton*>(u"messageClose"_s).last(), Qt::LeftButton);
    EXPECT_EQ(Texts(), QStringList{u"二"_s});
    QTest::mouseClick(bar.findChild<QToolButton*>(u"messageClose"_s), Qt::LeftButton);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(MessageBarWindow, CopiesAMessageWhole) {
    bar.Show(MessageKind::Error, u"查询失败\n请稍后再试"_s);
    QTest::mouseClick(bar.findChild<QToolButton*>(u"messageCopy"_s), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), u"查询失败\n请稍后再试"_s);
}

TEST_F(MessageBarWindow, ShowsMarkupAsItIsWritten) {
    bar.Show(MessageKind::Info, u"<b>粗</b>"_s);
    EXPECT_EQ(bar.findChild<QLabel*>(u"messageText"_s)->textFormat(), Qt::PlainText);
}

TEST_F(MessageBarWindow, OffersAnActionOnceByAClick) {
    bar.Show(MessageKind::Info, u"已删除 1 张照片。"_s, Undoing());
    QPointer<QAbstractButton> button = ActionButton();
    ASSERT_FALSE(button.isNull());
    EXPECT_TRUE(button->isVisible());
    EXPECT_EQ(button->text(), u"撤销"_s);
    EXPECT_TRUE(button->toolTip().contains(u"恢复刚删除的照片"_s));
    EXPECT_EQ(button->accessibleName(), u"撤销：已删除 1 张照片。"_s);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(done, 1);
    ASSERT_FALSE(button.isNull()) << "the click ended it under its own feet";
    button->click();
    EXPECT_EQ(done, 1) << "the second click";
    EXPECT_EQ(ActionButton(), nullptr);
    EXPECT_EQ(Texts(), QStringList{u"已删除 1 张照片。"_s});
    EXPECT_EQ(dropped, 0);
}

TEST_F(MessageBarWindow, MessagesWithoutAnActionHaveNoButtonForIt) {
    bar.Show(MessageKind::Info, u"一"_s);
    EXPECT_EQ(ActionButton(), nullptr);
}

TEST_F(MessageBarWindow, AWithdrawnOrClosedMessageDropsItsAction) {
    const qint64 id = bar.Show(MessageKind::Info, u"一"_s, Undoing());
    bar.Withdraw(id);
    EXPECT_EQ(dropped, 1);
    EXPECT_FALSE(bar.isVisible());
    bar.Withdraw(id);
    EXPECT_EQ(dropped, 1);
    bar.Show(MessageKind::Info, u"二"_s, Undoing());
    support::RunPendingEvents();
    QTest::mouseClick(bar.findChild<QToolButton*>(u"messageClose"_s), Qt::LeftButton);
    EXPECT_EQ(dropped, 2);
    EXPECT_EQ(done, 0);
}

TEST_F(MessageBarWindow, ItsEndDropsTheActionsThatStand) {
    auto shortLived = std::make_unique<MessageBar>(&window);
    shortLived->Show(MessageKind::Info, u"一"_s, Undoing());
    shortLived.reset();
    EXPECT_EQ(dropped, 1);
}

TEST_F(MessageBarWindow, AnActionMayShowAndWithdrawMessages) {
    qint64 id = 0;
    MessageAction action = Undoing();
    action.work = [&] {
        bar.Withdraw(id);
        bar.Show(MessageKind::Info, u"已撤销"_s);
    };
    id = bar.Show(MessageKind::Info, u"一"_s, std::move(action));
    QTest::mouseClick(ActionButton(), Qt::LeftButton);
    EXPECT_EQ(Texts(), QStringList{u"已撤销"_s});
}

TEST_F(MessageBarWindow, ALineThatStaysKeepsTheKeyboardWhenAnotherMessageComes) {
    bar.Show(MessageKind::Info, u"一"_s, Undoing());
    window.activateWindow();
    QAbstractButton* button = ActionButton();
    button->setFocus();
    bar.Show(MessageKind::Error, u"二"_s);
    EXPECT_EQ(ActionButton(), button);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(Texts().size(), 2);
    EXPECT_EQ(bar.layout()->itemAt(1)->widget(), button->parentWidget()) << "newest first";
}

TEST_F(MessageBarWindow, KeysReachTheActionsInTheOrderInWhichTheyAreSeen) {
    QLineEdit behind(&window);
    behind.move(0, 250);
    behind.show();
    bar.Show(MessageKind::Info, u"一"_s, Undoing());
    bar.Show(MessageKind::Info, u"二"_s, Undoing());
    window.activateWindow();
    ASSERT_EQ(Texts().size(), 2);
    bar.findChild<QLabel*>(u"messageText"_s)->setFocus();
    QStringList names;
    for (int step = 0; step < 7; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        names << QApplication::focusWidget()->accessibleName();
    }
    const QStringList buttons{u"复制这条消息"_s, u"关闭这条消息"_s};
    EXPECT_EQ(names, QStringList{u"撤销：二"_s} + buttons + QStringList{u"撤销：一"_s} + buttons +
                         QStringList{QString()});
    EXPECT_TRUE(behind.hasFocus());
}

TEST_F(MessageBarWindow, EnterAndTheBlankDoTheActionThatHasTheKeyboard) {
    window.activateWindow();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        done = 0;
        bar.Show(MessageKind::Info, u"一"_s, Undoing());
        QAbstractButton* button = ActionButton();
        ASSERT_NE(button, nullptr);
        button->setFocus();
        QTest::keyClick(button, key);
        EXPECT_EQ(done, 1) << key;
        bar.Clear();
    }
}

} // namespace
} // namespace host
