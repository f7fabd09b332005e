// Tables by the keyboard, and how large a new one is.
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "toolkit/richtext/NoteTableGrid.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QSpinBox>
#include <QTextTable>
#include <QToolButton>
#include <QtTest/QTest>

namespace {

using namespace Qt::StringLiterals;
using toolkit::NoteTableSize;

class NoteTableTest : public support::EditorFixture {
protected:
    [[nodiscard]] QTextTable* Table() {
        return qobject_cast<QTextTable*>(Sheet().document()->rootFrame()->childFrames().value(0));
    }
    void GoInto(int row, int column) {
        Sheet().setTextCursor(Table()->cellAt(row, column).firstCursorPosition());
    }
    [[nodiscard]] QString Selected() { return Sheet().textCursor().selectedText(); }
    void Tab(bool backwards = false) {
        QTest::keyClick(&Sheet(), backwards ? Qt::Key_Backtab : Qt::Key_Tab,
                        backwards ? Qt::ShiftModifier : Qt::NoModifier);
    }
    /// Drops the menu down as a person does, and acts in it.
    void InTableMenu(const std::function<void(QMenu&)>& act) {
        auto& menu = *editor.Widget()->findChild<QMenu*>(u"tableMenu"_s);
        menu.popup(owner.mapToGlobal(QPoint(0, 0)));
        ASSERT_TRUE(support::WaitFor([&] { return menu.isVisible(); }));
        act(menu);
        menu.close();
        support::RunPendingEvents();
    }
    [[nodiscard]] static toolkit::NoteTableGrid& GridOf(QMenu& menu) {
        return *menu.findChild<toolkit::NoteTableGrid*>();
    }
};

const QString kFourCells =
    u"<p>前</p><table><tr><td>甲</td><td>乙</td></tr><tr><td>丙</td><td>丁</td></tr></table>"_s;

} // namespace

TEST_F(NoteTableTest, TabSelectsTheTextOfTheNextCellAndShiftTabThatOfTheOneBefore) {
    Load(kFourCells);
    GoInto(0, 0);
    Tab();
    EXPECT_EQ(Selected(), u"乙");
    Tab();
    EXPECT_EQ(Selected(), u"丙");
    Tab(true);
    EXPECT_EQ(Selected(), u"乙");
    Tab(true);
    Tab(true);
    EXPECT_EQ(Selected(), u"甲") << "there is none before the first";
    EXPECT_FALSE(Sheet().document()->isModified());
}

TEST_F(NoteTableTest, TabInTheLastCellAddsARowInOneStep) {
    Load(kFourCells);
    GoInto(1, 1);
    Tab();
    ASSERT_EQ(Table()->rows(), 3);
    QTest::keyClicks(&Sheet(), u"x"_s);
    EXPECT_EQ(Table()->cellAt(2, 0).firstCursorPosition().block().text(), u"x");
    Sheet().undo();
    Sheet().undo();
    EXPECT_EQ(Table()->rows(), 2);
}

TEST_F(NoteTableTest, AMergedCellIsComeByOnce) {
    Load(u"<table><tr><td colspan='2' rowspan='2'>甲</td><td>乙</td></tr><tr><td>丙</td></tr>"
         "<tr><td>丁</td><td>戊</td><td>己</td></tr></table>"_s);
    GoInto(0, 0);
    QString seen;
    for (int times = 0; times < 5; ++times) {
        Tab();
        seen += Selected();
    }
    EXPECT_EQ(seen, u"乙丙丁戊己");
    for (int times = 0; times < 5; ++times) {
        Tab(true);
    }
    EXPECT_EQ(Selected(), u"甲");
}

TEST_F(NoteTableTest, OutsideTablesTabIsText) {
    Load(u"<p>甲</p>"_s);
    Sheet().moveCursor(QTextCursor::End);
    Tab();
    EXPECT_EQ(Sheet().toPlainText(), u"甲\t");
}

TEST_F(NoteTableTest, CtrlTabLeavesTheSheetBothWaysFromACellToo) {
    Load(kFourCells);
    for (const bool backwards : {false, true}) {
        owner.activateWindow();
        Sheet().setFocus();
        GoInto(0, 0);
        QTest::keyClick(&Sheet(), backwards ? Qt::Key_Backtab : Qt::Key_Tab,
                        backwards ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
        EXPECT_FALSE(Sheet().hasFocus());
        EXPECT_NE(QApplication::focusWidget(), nullptr);
    }
    EXPECT_FALSE(Sheet().document()->isModified());
}

TEST_F(NoteTableTest, ATextThatIsReadOnlyIsNotChangedByTab) {
    Load(kFourCells, 1);
    GoInto(1, 1);
    Tab();
    EXPECT_EQ(Table()->rows(), 2);
}

TEST_F(NoteTableTest, ASizeIsShownUnderTheMouseAndChosenByAClick) {
    New();
    InTableMenu([](QMenu& menu) {
        toolkit::NoteTableGrid& grid = GridOf(menu);
        const QPoint place = toolkit::TableSquare(2, 3).center();
        QTest::mouseMove(&grid, place);
        EXPECT_EQ(grid.Lit(), (NoteTableSize{3, 4}));
        EXPECT_EQ(grid.accessibleDescription(), u"3 × 4");
        QTest::mouseClick(&grid, Qt::LeftButton, {}, place);
        EXPECT_FALSE(menu.isVisible());
    });
    ASSERT_NE(Table(), nullptr);
    EXPECT_EQ(Table()->rows(), 3);
    EXPECT_EQ(Table()->columns(), 4);
    EXPECT_EQ(Table()->cellAt(Sheet().textCursor()).row(), 0);
    EXPECT_EQ(Table()->cellAt(Sheet().textCursor()).column(), 0);
    EXPECT_TRUE(Table()->cellAt(Sheet().textCursor()).isValid()) << "it is written in";
}

TEST_F(NoteTableTest, ASizeIsChosenByTheArrowKeysAlone) {
    New();
    const auto press = [](Qt::Key key) {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        QTest::keyClick(popup->focusWidget() != nullptr ? popup->focusWidget() : popup, key);
    };
    InTableMenu([&](QMenu& menu) {
        press(Qt::Key_Down);
        ASSERT_TRUE(GridOf(menu).hasFocus()) << "the first entry";
        press(Qt::Key_Right);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Up);
        EXPECT_EQ(GridOf(menu).Lit(), (NoteTableSize{2, 2}));
        press(Qt::Key_Return);
        EXPECT_FALSE(menu.isVisible());
    });
    ASSERT_NE(Table(), nullptr);
    EXPECT_EQ(Table()->rows(), 2);
    EXPECT_EQ(Table()->columns(), 2);
}

TEST_F(NoteTableTest, BelowTheSquaresTheArrowKeysReachTheOtherEntries) {
    New();
    InTableMenu([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        for (int times = 0; times < toolkit::kTableGridSide; ++times) {
            QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
        }
        ASSERT_NE(menu.activeAction(), nullptr);
        EXPECT_EQ(menu.activeAction()->text(), u"其他大小…");
    });
}

TEST_F(NoteTableTest, AnotherSizeIsAskedInTwoNumbers) {
    New();
    const support::ModalVisit visit(u"noteTableDialog"_s, [](QWidget& window) {
        EXPECT_TRUE(window.findChild<QSpinBox*>(u"rowsBox"_s)->hasFocus());
        window.findChild<QSpinBox*>(u"rowsBox"_s)->setValue(12);
        window.findChild<QSpinBox*>(u"columnsBox"_s)->setValue(1000);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    Press("otherTableSize");
    ASSERT_TRUE(support::WaitFor([&] { return visit.HasCome() && Table() != nullptr; }));
    EXPECT_EQ(Table()->rows(), 12);
    EXPECT_EQ(Table()->columns(), 100) << "at most";
    EXPECT_TRUE(Table()->cellAt(Sheet().textCursor()).isValid());
}

TEST_F(NoteTableTest, EveryPlaceOfTheFieldIsASizeThatItHas) {
    using toolkit::TableSizeAt;
    EXPECT_EQ(TableSizeAt({-50, -50}), (NoteTableSize{1, 1}));
    EXPECT_EQ(TableSizeAt({5000, 5000}), (NoteTableSize{8, 8}));
    for (int row = 0; row < toolkit::kTableGridSide; ++row) {
        const QRect square = toolkit::TableSquare(row, 7 - row);
        for (const QPoint& corner : {square.topLeft(), square.bottomRight()}) {
            EXPECT_EQ(TableSizeAt(corner), (NoteTableSize{row + 1, 8 - row}));
        }
    }
}
