// The button that looks like a link.
#include "toolkit/controls/RichLinkButton.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"

#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(RichLinkButton, OnlyTheMousePressesIt) {
    QWidget window;
    CRichLinkButton button(u"查看历史"_s, &window);
    button.SizeToContent();
    int pressed = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++pressed; });
    window.show();
    button.setFocus();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&button, key);
    }
    EXPECT_EQ(pressed, 0);
    support::Click(&button);
    EXPECT_EQ(pressed, 1);
}

TEST(RichLinkButton, FitsItsTextWithThreePixelsAroundAndCentresInItsOldPlace) {
    QWidget window;
    CRichLinkButton button(u"查看历史"_s, &window);
    button.setGeometry(100, 50, 200, 80);
    QFont underlined = button.font();
    underlined.setUnderline(true);
    const QSize wanted =
        QFontMetrics(underlined).size(Qt::TextSingleLine, u"查看历史"_s) + QSize(6, 6);
    button.SizeToContent();
    EXPECT_EQ(button.geometry(), QRect(QPoint(100, 50), wanted));
    button.setGeometry(100, 50, 200, 80);
    button.SizeToContent(true, true);
    EXPECT_EQ(button.geometry().topLeft(),
              QPoint(100 + (200 - wanted.width()) / 2, 50 + (80 - wanted.height()) / 2));
}

TEST(RichLinkButton, IsUnderlinedUnderThePointerOrAlways) {
    CRichLinkButton button(u"链接"_s, nullptr);
    button.SizeToContent();
    button.show();
    support::RunPendingEvents();
    const QImage resting = button.grab().toImage();
    button.SetAlwaysUnderline(true);
    const QImage underlined = button.grab().toImage();
    EXPECT_NE(underlined, resting);
    button.SetAlwaysUnderline(false);
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(button.grab().toImage(), resting);
}

TEST(RichLinkButton, IsBlueAndPurelyBlueUnderThePointer) {
    CRichLinkButton button(u"链接"_s, nullptr);
    button.SizeToContent();
    button.SetAlwaysUnderline(true); // its line has the colour unmixed
    button.show();
    support::RunPendingEvents();
    const auto pixelsOf = [&button](const QColor& colour) {
        const QImage image = button.grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y) == colour ? 1 : 0;
            }
        }
        return count;
    };
    const QColor resting(0, 102, 204);
    const QColor pointed(0, 0, 255);
    EXPECT_GT(pixelsOf(resting), 10);
    EXPECT_EQ(pixelsOf(pointed), 0);
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_GT(pixelsOf(pointed), 10);
    EXPECT_EQ(pixelsOf(resting), 0);
}
