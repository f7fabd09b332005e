#include "host/ui/MessageBar.h"

#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QToolButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

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

} // namespace
} // namespace host
