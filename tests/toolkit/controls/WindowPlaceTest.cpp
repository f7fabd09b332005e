// Size and place of new windows.
#include "toolkit/WindowPlace.h"

#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

TEST(WindowPlace, AWindowStandsOverTheMiddleOfItsParent) {
    QWidget parent;
    parent.setGeometry(100, 100, 600, 400);
    QWidget window(&parent, Qt::Window);
    window.resize(200, 100);
    toolkit::CentreWindow(window);
    EXPECT_NEAR(window.geometry().center().x(), parent.frameGeometry().center().x(), 1);
    EXPECT_NEAR(window.geometry().center().y(), parent.frameGeometry().center().y(), 1);
}

TEST(WindowPlace, WithoutAParentItStandsInTheMiddleOfTheScreen) {
    QWidget window;
    window.resize(200, 100);
    toolkit::CentreWindow(window);
    EXPECT_NEAR(window.geometry().center().x(), window.screen()->availableGeometry().center().x(),
                1);
}

TEST(WindowPlace, OverAParentAtTheEdgeItStaysOnTheScreen) {
    QWidget parent;
    parent.setGeometry(-500, -300, 600, 400);
    QWidget window(&parent, Qt::Window);
    window.resize(300, 200);
    toolkit::CentreWindow(window);
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
}

TEST(WindowPlace, NoWindowIsMadeLargerThanTheScreen) {
    QWidget window;
    const QSize screen = window.screen()->availableSize();
    toolkit::ResizeWithinScreen(window, screen + QSize(500, 500));
    EXPECT_LT(window.width(), screen.width() + 1);
    EXPECT_LT(window.height(), screen.height() + 1);
    toolkit::SetLeastSize(window, screen + QSize(500, 500));
    EXPECT_LT(window.minimumHeight(), screen.height() + 1);
    toolkit::SetLeastSize(window, QSize(300, 200));
    EXPECT_EQ(window.minimumSize(), QSize(300, 200));
}

} // namespace
