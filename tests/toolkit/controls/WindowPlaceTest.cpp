// Size and place of new windows.
#include "toolkit/windows/WindowPlace.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
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

TEST(WindowPlace, TheFrameStaysOnTheScreenToo) {
    QWidget window;
    const QRect screen = window.screen()->availableGeometry();
    toolkit::ResizeWithinScreen(window, screen.size() * 2);
    toolkit::CentreWindow(window);
    window.show();
    EXPECT_TRUE(screen.contains(window.frameGeometry()));
    EXPECT_GE(window.y() - screen.y() + window.geometry().y() - window.y(), 28)
        << "room for a title bar";
}

TEST(WindowPlace, AWindowFromALargerScreenIsMadeToFitAndMovedOntoThisOne) {
    QWidget window;
    const QRect screen = window.screen()->availableGeometry();
    window.setGeometry(screen.right() - 50, screen.bottom() - 50, screen.width() + 300, 200);
    toolkit::KeepOnScreen(window);
    window.show();
    EXPECT_TRUE(screen.contains(window.frameGeometry()));
    EXPECT_EQ(window.height(), 200);
}

TEST(WindowPlace, AWindowThatHasAnOwnerIsMinimisedOutOfSight) {
    QWidget owner;
    owner.show();
    QWidget window(&owner, Qt::Dialog);
    window.showMaximized();
    toolkit::MinimiseWindow(window);
    EXPECT_TRUE(window.isMinimized());
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.windowState().testFlag(Qt::WindowMaximized)) << "for when it comes back";
    EXPECT_TRUE(owner.isVisible() && !owner.isMinimized());
    QWidget alone;
    alone.show();
    toolkit::MinimiseWindow(alone);
    EXPECT_TRUE(alone.isMinimized() && alone.isVisible());
}

TEST(WindowPlace, ADialogWithoutAPlaceOfItsOwnComesUpOverItsWindow) {
    toolkit::KeepNewWindowsOnScreen(*qApp);
    QWidget owner;
    const QRect screen = owner.screen()->availableGeometry();
    owner.setGeometry(screen.center().x() - 100, screen.center().y() - 100, 300, 300);
    owner.show();
    QDialog dialog(&owner);
    dialog.resize(120, 80);
    dialog.show();
    EXPECT_NEAR(dialog.geometry().center().x(), owner.frameGeometry().center().x(), 1);
    EXPECT_NEAR(dialog.geometry().center().y(), owner.frameGeometry().center().y(), 1);
    QDialog placed(&owner);
    placed.setGeometry(screen.x() + 40, screen.y() + 60, 120, 80);
    placed.show();
    EXPECT_EQ(placed.geometry().topLeft(), screen.topLeft() + QPoint(40, 60));
}

class Form : public QWidget {
public:
    explicit Form(int height) {
        auto* lines = new QVBoxLayout(this);
        edit = new QLineEdit(this);
        edit->setObjectName(QStringLiteral("lowest"));
        lines->addSpacing(height);
        lines->addWidget(edit);
    }
    QLineEdit* edit = nullptr;
};

TEST(WindowPlace, AFormThatFitsIsLeftAsItIs) {
    Form form(100);
    toolkit::ScrollIfTooLarge(form);
    EXPECT_EQ(form.findChild<QScrollArea*>(), nullptr);
    EXPECT_EQ(form.edit->parentWidget(), &form);
}

TEST(WindowPlace, AFormLargerThanTheScreenScrollsToTheControlWithTheFocus) {
    QWidget probe;
    Form form(probe.screen()->availableSize().height() + 200);
    toolkit::ScrollIfTooLarge(form);
    form.show();
    EXPECT_TRUE(probe.screen()->availableSize().height() > form.height());
    auto* area = form.findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(form.findChild<QLineEdit*>(QStringLiteral("lowest")), form.edit);
    area->ensureWidgetVisible(form.edit);
    QApplication::processEvents();
    EXPECT_TRUE(form.rect().contains(form.edit->mapTo(&form, form.edit->rect().center())));
}

TEST(WindowPlace, OverAParentBelowTheScreenItStandsOnTheLowerEdge) {
    QWidget parent;
    const QRect screen = parent.screen()->availableGeometry();
    parent.setGeometry(screen.right() - 50, screen.bottom() - 50, 600, 400);
    QWidget window(&parent, Qt::Window);
    window.resize(300, 200);
    toolkit::CentreWindow(window);
    // 4 pixels of frame around it.
    EXPECT_EQ(window.geometry().bottom(), screen.bottom() - 4);
    EXPECT_EQ(window.geometry().right(), screen.right() - 4);
    EXPECT_EQ(window.size(), QSize(300, 200));
}

} // namespace
