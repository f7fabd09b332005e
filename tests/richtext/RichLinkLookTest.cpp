// How the link button looks, where it stands, and which keys end in it.
#include "tests/support/WaitFor.h"
#include "toolkit/controls/RichLinkButton.h"

#include <QDialog>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Where something was painted on a white ground.
QRect InkOf(QWidget& button) {
    const QImage image = button.grab().toImage();
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).red() < 128) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

/// Counts the keys that reach it.
class KeyCounter final : public QDialog {
public:
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
    void keyReleaseEvent(QKeyEvent*) override { ++keys; }
};

class RichLinkLookTest : public testing::Test {
protected:
    RichLinkLookTest() {
        QPalette white;
        white.setColor(QPalette::Window, Qt::white);
        window.setPalette(white);
        window.resize(400, 200);
        button.setGeometry(0, 0, 200, 60);
    }
    void ShowAll() {
        window.show();
        support::RunPendingEvents();
        button.clearFocus();
    }

    KeyCounter window;
    CRichLinkButton button{u"链接"_s, &window};
};

} // namespace

TEST_F(RichLinkLookTest, SpaceAndReturnEndInItDownAndUpOtherKeysDoNot) {
    ShowAll();
    button.setFocus();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyPress(&button, key);
        QTest::keyRelease(&button, key);
    }
    EXPECT_EQ(window.keys, 0);
    QTest::keyClick(&button, Qt::Key_F9);
    EXPECT_EQ(window.keys, 2) << "what is counted does arrive";
}

TEST_F(RichLinkLookTest, ReturnPressesNoDefaultButtonInItsPlace) {
    QDialog dialog;
    CRichLinkButton link(u"查看历史"_s, &dialog);
    QPushButton ok(u"确定"_s, &dialog);
    ok.setDefault(true);
    int pressed = 0;
    QObject::connect(&ok, &QPushButton::clicked, [&] { ++pressed; });
    dialog.show();
    link.setFocus();
    support::RunPendingEvents();
    QTest::keyClick(&link, Qt::Key_Return);
    EXPECT_EQ(pressed, 0);
}

TEST_F(RichLinkLookTest, OnOneLineTheTextStandsAtTheSideThatItWasGiven) {
    ShowAll();
    button.SetAlignment(Qt::AlignLeft);
    const QRect left = InkOf(button);
    button.SetAlignment(Qt::AlignRight);
    const QRect right = InkOf(button);
    button.SetAlignment(Qt::AlignHCenter);
    const QRect centre = InkOf(button);
    EXPECT_LT(left.right(), 100);
    EXPECT_GT(right.left(), 100);
    EXPECT_NEAR(centre.center().x(), 100, 4);
    EXPECT_GT(left.width(), 5);
}

TEST_F(RichLinkLookTest, WrappedItTakesMoreLinesThanOne) {
    button.setText(u"一 二 三 四 五 六 七 八 九 十"_s);
    button.setGeometry(0, 0, 60, 120);
    ShowAll();
    const int line = QFontMetrics(button.font()).height();
    EXPECT_LE(InkOf(button).height(), line);
    button.SetMultiline(true);
    EXPECT_GT(InkOf(button).height(), line);
}

TEST_F(RichLinkLookTest, TheGroundShowsThroughItAndTheFocusHasARectangleHoweverItCame) {
    QPalette red;
    red.setColor(QPalette::Window, Qt::red);
    window.setPalette(red);
    ShowAll();
    const QImage behind = window.grab().toImage();
    EXPECT_EQ(behind.pixelColor(199, 59), QColor(Qt::red));
    EXPECT_EQ(behind.pixelColor(150, 5), QColor(Qt::red));
    window.activateWindow();
    for (const auto reason : {Qt::MouseFocusReason, Qt::TabFocusReason}) {
        button.clearFocus();
        button.setFocus(reason);
        support::RunPendingEvents();
        ASSERT_TRUE(button.hasFocus());
        EXPECT_NE(window.grab().toImage(), behind) << reason;
    }
}

TEST_F(RichLinkLookTest, ItCentresAcrossOrDownAloneInItsOldPlace) {
    button.SizeToContent();
    const QSize wanted = button.size();
    button.setGeometry(10, 20, 200, 80);
    button.SizeToContent(true, false);
    EXPECT_EQ(button.geometry(), QRect(QPoint(10 + (200 - wanted.width()) / 2, 20), wanted));
    button.setGeometry(10, 20, 200, 80);
    button.SizeToContent(false, true);
    EXPECT_EQ(button.geometry(), QRect(QPoint(10, 20 + (80 - wanted.height()) / 2), wanted));
}

TEST_F(RichLinkLookTest, WithAPictureItIsAsLargeAsAnyButton) {
    QPixmap picture(16, 16);
    picture.fill(Qt::green);
    button.setIcon(QIcon(picture));
    button.SizeToContent();
    EXPECT_EQ(button.size(), button.sizeHint());
    QFont underlined = button.font();
    underlined.setUnderline(true);
    EXPECT_NE(button.size(),
              QFontMetrics(underlined).size(Qt::TextSingleLine, button.text()) + QSize(6, 6));
}
