// Buttons that look like links.
#include "toolkit/controls/UnderLineButton.h"
#include "toolkit/Look.h"

#include <QAccessible>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class UnderLineButtonTest : public testing::Test {
protected:
    UnderLineButtonTest() {
        window.resize(200, 100);
        button.setText(u"删除照片"_s);
        button.setGeometry(10, 10, 70, 20);
        QObject::connect(&button, &QAbstractButton::clicked, &window, [this] { ++pressed; });
        window.show();
    }

    /// Whether a pixel near to this colour is drawn within rows.
    [[nodiscard]] bool Shows(const QColor& colour, int top, int bottom) {
        const QImage image = button.grab().toImage();
        for (int y = top; y <= bottom; ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == colour) {
                    return true;
                }
            }
        }
        return false;
    }

    QWidget window;
    UnderLineButton button{&window};
    int pressed = 0;
};

TEST_F(UnderLineButtonTest, IsPressedByMouseSpaceAndEnter) {
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(pressed, 1);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&button, key);
    }
    EXPECT_EQ(pressed, 4);
    button.setEnabled(false);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(&button, key);
    }
    EXPECT_EQ(pressed, 4);
}

TEST_F(UnderLineButtonTest, TabReachesItAndAFrameShowsThat) {
    EXPECT_EQ(button.focusPolicy(), Qt::StrongFocus);
    EXPECT_FALSE(Shows(toolkit::Colors::Accent(), 0, 0));
    window.activateWindow();
    button.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(Shows(toolkit::Colors::Accent(), 0, 0));
}

TEST_F(UnderLineButtonTest, IsUnderlinedInTheColourOfLinksAndGreyWhenDisabled) {
    const QImage image = button.grab().toImage();
    int longest = 0;
    for (int y = 0; y < image.height(); ++y) {
        int run = 0;
        for (int x = 0; x < image.width(); ++x) {
            run = image.pixelColor(x, y) == toolkit::Colors::Link() ? run + 1 : 0;
            longest = qMax(longest, run);
        }
    }
    EXPECT_GE(longest, button.fontMetrics().horizontalAdvance(button.text()) - 2);
    button.setEnabled(false);
    EXPECT_FALSE(Shows(toolkit::Colors::Link(), 0, 19));
    EXPECT_TRUE(Shows(toolkit::Colors::DisabledText(), 0, 19));
}

TEST_F(UnderLineButtonTest, ScreenReadersFindAButtonOfThatName) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Button);
    EXPECT_EQ(reader->text(QAccessible::Name), u"删除照片");
}

TEST_F(UnderLineButtonTest, ItsOwnSizeHoldsItsText) {
    EXPECT_GE(button.sizeHint().width(), button.fontMetrics().horizontalAdvance(button.text()));
    EXPECT_GE(button.sizeHint().height(), button.fontMetrics().height());
}

} // namespace
