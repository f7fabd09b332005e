// The line of commands: its room, its way by the keyboard, its steps back and forth.
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "toolkit/richtext/NoteCommands.h"
#include "toolkit/richtext/NoteToolLine.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QtTest/QTest>

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using toolkit::CountInSight;

class NoteBarTest : public support::EditorFixture {
protected:
    NoteBarTest() {
        New();
        owner.activateWindow();
    }

    [[nodiscard]] QWidget& Bar() { return *editor.Widget()->findChild<QWidget*>(u"noteBar"_s); }
    template <class Kind> [[nodiscard]] Kind& Child(const char* name) {
        return *editor.Widget()->findChild<Kind*>(QString::fromLatin1(name));
    }
    void SetWidth(int width) {
        owner.resize(width, 400);
        editor.Widget()->setGeometry(owner.rect());
        support::RunPendingEvents();
    }
    /// Buttons and boxes that are in sight.
    [[nodiscard]] std::vector<QWidget*> InSight() {
        std::vector<QWidget*> seen;
        for (QWidget* child : Bar().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (!child->isWindow() && child->isVisible()) {
                seen.push_back(child);
            }
        }
        return seen;
    }
    /// Titles in the menu of what has no room, as it drops down.
    [[nodiscard]] QStringList BehindMore() {
        QMenu& menu = Child<QMenu>("moreMenu");
        menu.popup(owner.mapToGlobal(QPoint(0, 0)));
        QStringList titles;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator()) {
                titles << action->text();
            }
        }
        menu.close();
        return titles;
    }
    void PressHere(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    void EnterBar() { QTest::keyClick(&Sheet(), Qt::Key_F10, Qt::AltModifier); }
};

} // namespace

TEST(NoteToolLine, WhatHasNoRoomLeavesRoomForTheButtonBeforeIt) {
    EXPECT_EQ(CountInSight({20, 20, 20}, 60, 15), 3U);
    EXPECT_EQ(CountInSight({20, 20, 20}, 59, 15), 2U);
    EXPECT_EQ(CountInSight({20, 20, 20}, 54, 15), 1U);
    EXPECT_EQ(CountInSight({20, 20, 20}, 10, 15), 0U);
    EXPECT_EQ(CountInSight({}, 0, 15), 0U);
    EXPECT_EQ(CountInSight({50, 10}, 55, 15), 0U) << "none is left out in between";
}

TEST_F(NoteBarTest, EveryEntryIsInSightOrBehindMoreInAnyWidth) {
    SetWidth(1400);
    EXPECT_THAT(BehindMore(), IsEmpty());
    EXPECT_FALSE(Child<QToolButton>("moreButton").isVisible());
    const size_t all = InSight().size();
    for (const int width : {1000, 683, 500, 300, 120, 30}) {
        SetWidth(width);
        const QStringList hidden = BehindMore();
        ASSERT_TRUE(Child<QToolButton>("moreButton").isVisible() || hidden.isEmpty()) << width;
        const size_t more = hidden.isEmpty() ? 0 : 1;
        EXPECT_EQ(InSight().size() - more + size_t(hidden.size()), all) << width;
        for (const QWidget* seen : InSight()) {
            EXPECT_LE(seen->geometry().right(), Bar().width()) << width;
        }
    }
    EXPECT_TRUE(BehindMore().contains(u"撤销"_s));
    EXPECT_TRUE(BehindMore().contains(u"字体"_s));
}

TEST_F(NoteBarTest, BehindMoreTheTableHasItsEntriesAndABoxItsOwn) {
    SetWidth(200);
    QMenu& more = Child<QMenu>("moreMenu");
    more.popup(owner.mapToGlobal(QPoint(0, 0)));
    const auto below = [&](const QString& title) -> QMenu* {
        for (const QAction* action : more.actions()) {
            if (action->text() == title) {
                return action->menu();
            }
        }
        return nullptr;
    };
    ASSERT_NE(below(u"表格"_s), nullptr);
    EXPECT_EQ(below(u"表格"_s), &Child<QMenu>("tableMenu"));
    ASSERT_NE(below(u"文字颜色"_s), nullptr);
    QMenu* sizes = below(u"字号"_s);
    ASSERT_NE(sizes, nullptr);
    emit sizes->aboutToShow();
    const QList<QAction*> points = sizes->actions();
    const auto wanted = std::ranges::find(points, u"18"_s, &QAction::text);
    ASSERT_NE(wanted, points.end());
    (*wanted)->trigger();
    more.close();
    QTest::keyClicks(&Sheet(), u"a"_s);
    EXPECT_EQ(Sheet().currentCharFormat().fontPointSize(), 18);
    emit sizes->aboutToShow();
    const QList<QAction*> again = sizes->actions();
    EXPECT_EQ(std::ranges::count_if(again, &QAction::isChecked), 1);
}

TEST_F(NoteBarTest, TheLineIsOneStopForTab) {
    int stops = 0;
    for (QWidget* child : Bar().findChildren<QWidget*>()) {
        const bool isStop = !child->isWindow() && child->isVisible() && child->isEnabled() &&
                            child->focusProxy() == nullptr &&
                            (child->focusPolicy() & Qt::TabFocus) != 0;
        stops += isStop ? 1 : 0;
    }
    EXPECT_EQ(stops, 1);
}

TEST_F(NoteBarTest, FromTheSheetAltF10LeadsIntoTheLineAndEscapeBack) {
    EnterBar();
    EXPECT_EQ(QApplication::focusWidget(), &Child<QComboBox>("headingBox"))
        << "there is nothing to undo or redo";
    PressHere(Qt::Key_Escape);
    EXPECT_TRUE(Sheet().hasFocus());
}

TEST_F(NoteBarTest, ArrowKeysComeByEveryEntryAndGoRound) {
    SetWidth(683);
    EnterBar();
    const QWidget* first = QApplication::focusWidget();
    std::vector<const QWidget*> seen;
    do {
        seen.push_back(QApplication::focusWidget());
        PressHere(Qt::Key_Right);
    } while (QApplication::focusWidget() != first && seen.size() < 100);
    size_t enabled = 0;
    for (const QWidget* widget : InSight()) {
        enabled += widget->isEnabled() ? 1 : 0;
    }
    EXPECT_EQ(seen.size(), enabled);
    PressHere(Qt::Key_End);
    EXPECT_EQ(QApplication::focusWidget(), &Child<QToolButton>("moreButton"));
    PressHere(Qt::Key_Home);
    EXPECT_EQ(QApplication::focusWidget(), first);
    PressHere(Qt::Key_Left);
    EXPECT_EQ(QApplication::focusWidget(), &Child<QToolButton>("moreButton"));
    PressHere(Qt::Key_Escape);
    EnterBar();
    EXPECT_EQ(QApplication::focusWidget(), &Child<QToolButton>("moreButton"))
        << "where it was left";
}

TEST_F(NoteBarTest, EnterDoesWhatTheButtonDoesAndLeadsBackToTheText) {
    EnterBar();
    for (int times = 0; times < 3; ++times) {
        PressHere(Qt::Key_Right);
    }
    PressHere(Qt::Key_Return);
    EXPECT_TRUE(Sheet().hasFocus());
    QTest::keyClicks(&Sheet(), u"a"_s);
    EXPECT_EQ(Sheet().currentCharFormat().fontWeight(), QFont::Bold);
}

TEST_F(NoteBarTest, DownOpensABoxWhoseChoiceLeadsBackToTheText) {
    EnterBar();
    PressHere(Qt::Key_Down);
    EXPECT_EQ(toolkit::HeadingAt(Sheet().textCursor()), 0) << "nothing is chosen yet";
    QComboBox& heading = Child<QComboBox>("headingBox");
    ASSERT_TRUE(heading.view()->isVisible());
    QTest::keyClick(heading.view(), Qt::Key_Down);
    QTest::keyClick(heading.view(), Qt::Key_Down);
    QTest::keyClick(heading.view(), Qt::Key_Return);
    EXPECT_EQ(toolkit::HeadingAt(Sheet().textCursor()), 2);
    EXPECT_TRUE(Sheet().hasFocus());
}

TEST_F(NoteBarTest, InAFaceThatIsTypedTheArrowKeysAreOfTheText) {
    EnterBar();
    PressHere(Qt::Key_Right);
    auto& face = Child<QComboBox>("faceBox");
    ASSERT_TRUE(face.hasFocus());
    QTest::keyClicks(&face, u"W"_s);
    PressHere(Qt::Key_Left);
    EXPECT_TRUE(face.hasFocus());
}

TEST_F(NoteBarTest, StepsAreOfferedOnlyWhereThereAreSome) {
    QAction& undo = Child<QAction>("undo");
    QAction& redo = Child<QAction>("redo");
    EXPECT_FALSE(undo.isEnabled());
    EXPECT_FALSE(redo.isEnabled());
    QTest::keyClicks(&Sheet(), u"a"_s);
    EXPECT_TRUE(undo.isEnabled());
    EXPECT_FALSE(redo.isEnabled());
    undo.trigger();
    EXPECT_FALSE(undo.isEnabled());
    EXPECT_TRUE(redo.isEnabled());
    QTest::keyClicks(&Sheet(), u"b"_s);
    EXPECT_FALSE(redo.isEnabled());
    New();
    EXPECT_FALSE(undo.isEnabled()) << "of another document";
}

TEST_F(NoteBarTest, CtrlYAndCtrlShiftZBothRedo) {
    for (const auto& [key, held] :
         {std::pair(Qt::Key_Y, Qt::KeyboardModifiers(Qt::ControlModifier)),
          std::pair(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier)}) {
        New();
        QTest::keyClicks(&Sheet(), u"a"_s);
        QTest::keyClick(&Sheet(), Qt::Key_Z, Qt::ControlModifier);
        ASSERT_EQ(Sheet().toPlainText(), QString());
        QTest::keyClick(&Sheet(), key, held);
        EXPECT_EQ(Sheet().toPlainText(), u"a");
    }
    EXPECT_EQ(Child<QAction>("redo").toolTip(), u"重做（Ctrl+Y、Ctrl+Shift+Z）");
}

TEST_F(NoteBarTest, ShortcutsOfHiddenCommandsDoNotWriteWhereNothingMayBeWritten) {
    Load(u"<p>梁</p>"_s, 1);
    Sheet().selectAll();
    QTest::keyClick(&Sheet(), Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(&Sheet(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_FALSE(Sheet().document()->isModified());
    EXPECT_NE(Sheet().currentCharFormat().fontWeight(), QFont::Bold);
    QTest::keyClick(&Sheet(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Child<QLineEdit>("wantedEdit").isVisible()) << "what only looks works";
}

TEST_F(NoteBarTest, EveryEntryHasANameAndATooltip) {
    SetWidth(683);
    for (const QWidget* seen : InSight()) {
        EXPECT_FALSE(seen->accessibleName().isEmpty());
        EXPECT_FALSE(seen->toolTip().isEmpty()) << seen->accessibleName().toStdString();
    }
    EXPECT_TRUE(Child<QToolButton>("moreButton").toolTip().contains(u"Alt+F10"_s));
    EXPECT_TRUE(Bar().toolTip().contains(u"Alt+F10"_s));
}
