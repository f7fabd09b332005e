// The grid with real keys.
#include "tests/toolkit/controls/SampleGrid.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct GridKeys : ::testing::Test {
    SampleGrid grid;
    std::unique_ptr<SampleWindow> window;

    void Open(int rows) {
        grid.AddColumns();
        window = std::make_unique<SampleWindow>(grid);
        grid.Fill(rows);
        grid.SetFocus();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(grid.View(), key, modifiers);
    }
    [[nodiscard]] int Selected() const {
        return grid.GetCurSel() == nullptr ? -1 : grid.GetCurSel()->GetRowId();
    }
};

TEST_F(GridKeys, FocusAloneSelectsNothing) {
    Open(5);
    EXPECT_TRUE(grid.View()->hasFocus());
    EXPECT_EQ(grid.GetCurSel(), nullptr);
    Press(Qt::Key_Space);
    EXPECT_FALSE(grid.IsChecked(0));
}

TEST_F(GridKeys, ArrowsMoveTheSelectedRowAndStopAtTheEnds) {
    Open(3);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 0);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 2);
    Press(Qt::Key_Up);
    EXPECT_EQ(Selected(), 1);
    Press(Qt::Key_Home);
    EXPECT_EQ(Selected(), 0);
    Press(Qt::Key_Up);
    EXPECT_EQ(Selected(), 0);
    Press(Qt::Key_End);
    EXPECT_EQ(Selected(), 2);
}

TEST_F(GridKeys, PageKeysMoveByAViewAndShowTheRow) {
    Open(60);
    grid.SetCurSel(0);
    Press(Qt::Key_PageDown);
    const int page = Selected();
    EXPECT_GT(page, 5);
    EXPECT_LT(page, 30);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Selected(), 2 * page);
    const QRect row = grid.View()->visualRect(grid.View()->model()->index(2 * page, 0));
    EXPECT_TRUE(grid.View()->viewport()->rect().contains(row));
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Selected(), page);
}

TEST_F(GridKeys, LeftAndRightMoveTheCellAmongVisibleColumns) {
    Open(3);
    grid.SetColumnVisible(SampleGrid::kNumber, false);
    grid.AdjustLayout();
    grid.SetCurSel(1);
    EXPECT_EQ(grid.View()->currentIndex().column(), SampleGrid::kCheck);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.View()->currentIndex().column(), SampleGrid::kMark);
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    EXPECT_EQ(grid.View()->currentIndex().column(), SampleGrid::kCheck);
    EXPECT_EQ(Selected(), 1);
}

TEST_F(GridKeys, SpaceTurnsTheCheckBoxOfTheCurrentRow) {
    Open(3);
    grid.SetCurSel(1);
    Press(Qt::Key_Right);
    Press(Qt::Key_Space);
    EXPECT_TRUE(grid.IsChecked(1));
    Press(Qt::Key_Space);
    EXPECT_FALSE(grid.IsChecked(1));
}

TEST_F(GridKeys, EnterDoesWhatADoubleClickDoes) {
    Open(3);
    grid.SetCurSel(1);
    Press(Qt::Key_Return);
    Press(Qt::Key_Right);
    Press(Qt::Key_Enter);
    EXPECT_THAT(grid.doubleClicks,
                ElementsAre(SampleGrid::DoubleClickCall{1, SampleGrid::kCheck},
                            SampleGrid::DoubleClickCall{1, SampleGrid::kNumber}));
}

TEST_F(GridKeys, HeldEnterActsOnce) {
    Open(3);
    grid.SetCurSel(1);
    for (const bool repeated : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, {}, QString(), repeated);
        QCoreApplication::sendEvent(grid.View(), &event);
    }
    EXPECT_EQ(grid.doubleClicks.size(), 1U);
}

TEST_F(GridKeys, EnterInTheGridOrThePageBoxLeavesTheDefaultButtonAlone) {
    grid.AddColumns();
    QDialog dialog;
    auto* button = new QPushButton(u"搜索"_s, &dialog);
    button->setDefault(true);
    int pressed = 0;
    QObject::connect(button, &QPushButton::clicked, &dialog, [&] { ++pressed; });
    CMultiPageGridManager manager;
    manager.SetGrid(&grid);
    manager.Create(&dialog);
    manager.SetPageCount(3);
    dialog.show();
    grid.Fill(2);
    QTest::keyClick(grid.View(), Qt::Key_Return);
    grid.SetCurSel(1);
    QTest::keyClick(grid.View(), Qt::Key_Enter);
    QTest::keyClick(manager.Widget()->findChild<QLineEdit*>(u"pagingBox"_s), Qt::Key_Return);
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(grid.doubleClicks.size(), 1U);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_EQ(pressed, 1);
}

TEST_F(GridKeys, MenuKeyOpensTheMenuOfTheCurrentRow) {
    Open(3);
    grid.menuActions = {u"编辑"_s};
    Press(Qt::Key_Menu);
    EXPECT_EQ(grid.View()->findChild<QMenu*>(), nullptr);
    grid.SetCurSel(2);
    Press(Qt::Key_Menu);
    QContextMenuEvent again(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QCoreApplication::sendEvent(grid.View(), &again);
    const QList<QMenu*> menus = grid.View()->findChildren<QMenu*>();
    ASSERT_EQ(menus.size(), 1);
    EXPECT_TRUE(menus.first()->isVisible());
    menus.first()->close();
}

TEST_F(GridKeys, KeyboardGoesOnWhereItWasAfterTheSamePageWasFetchedAgain) {
    Open(10);
    grid.onQuery = [&] {
        grid.RemoveAll();
        grid.Fill(10);
    };
    grid.DoPage(1);
    grid.SetCurSel(6);
    grid.DoCurrentPage();
    EXPECT_EQ(Selected(), -1);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 6);
    grid.DoPage(2);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), 0);
}

TEST_F(GridKeys, TabLeavesTheGrid) {
    Open(3);
    grid.SetCurSel(1);
    window->manager.SetPageCount(3);
    QTest::keyClick(grid.View(), Qt::Key_Tab);
    EXPECT_FALSE(grid.View()->hasFocus());
    EXPECT_TRUE(window->manager.Widget()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(GridKeys, OtherKeysGoOnToTheDialog) {
    Open(3);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F5, {});
    QCoreApplication::sendEvent(grid.View(), &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(GridKeys, TheMenuKeyOpensTheMenuOfTheFirstRowToo) {
    Open(3);
    grid.menuActions = QStringList{u"编辑"_s};
    Press(Qt::Key_Menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "no row is current";
    grid.SetCurSel(0);
    Press(Qt::Key_Menu);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    menu->close();
}

TEST_F(GridKeys, LeftAndRightWithoutARowGoToOne) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right}) {
        grid.DeleteAllColumns();
        Open(3);
        Press(key);
        EXPECT_EQ(Selected(), 0);
        grid.RemoveAll();
    }
}

} // namespace
