// Colours of text and ground: given, taken away, asked for.
#include "toolkit/richtext/NoteColors.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"

#include <QAction>
#include <QColorDialog>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;

class NoteColorsTest : public support::EditorFixture {
protected:
    NoteColorsTest() {
        Load(u"<p>一<span style='color:#ff0000; background-color:#00ff00'>二</span></p>"_s);
    }

    [[nodiscard]] QMenu& Menu(const char* name) {
        return *editor.Widget()->findChild<QMenu*>(QString::fromLatin1(name));
    }
    [[nodiscard]] static QAction* Entry(QMenu& menu, const QString& text) {
        emit menu.aboutToShow();
        for (QAction* action : menu.actions()) {
            if (action->text() == text) {
                return action;
            }
        }
        ADD_FAILURE() << "no entry: " << text.toStdString();
        return nullptr;
    }
    void ExpectAsked(const char* menu, const QColor& present) {
        const support::ModalVisit visit(u"noteColorDialog"_s, [&](QWidget& window) {
            auto& dialog = dynamic_cast<QColorDialog&>(window);
            EXPECT_EQ(dialog.currentColor().name(), present.name());
            dialog.setCurrentColor(QColor(1, 2, 3));
            dialog.accept();
        });
        Entry(Menu(menu), u"其他颜色…"_s)->trigger();
        EXPECT_TRUE(support::WaitFor([&] { return visit.HasCome(); }));
    }
    [[nodiscard]] QString Html() { return Sheet().Note()->Html(); }
};

} // namespace

TEST_F(NoteColorsTest, TheGroundIsTakenAwayInOneStep) {
    Sheet().selectAll();
    Entry(Menu("highlightMenu"), u"无底色"_s)->trigger();
    EXPECT_FALSE(Html().contains(u"background"_s)) << Html().toStdString();
    EXPECT_TRUE(Html().contains(u"#ff0000"_s)) << "the text keeps its colour";
    Sheet().undo();
    EXPECT_TRUE(Html().contains(u"background-color:#00ff00"_s));
}

TEST_F(NoteColorsTest, TheTextGoesBackToTheSheetsOwnColour) {
    Sheet().selectAll();
    Entry(Menu("textColorMenu"), u"自动"_s)->trigger();
    EXPECT_FALSE(Html().contains(u" color:"_s)) << Html().toStdString();
    EXPECT_TRUE(Html().contains(u"background-color:#00ff00"_s));
}

TEST_F(NoteColorsTest, WhatIsTypedNextHasTheColourThatWasChosen) {
    Sheet().moveCursor(QTextCursor::Start);
    Entry(Menu("highlightMenu"), u"黄色"_s)->trigger();
    EXPECT_TRUE(Sheet().hasFocus());
    QTest::keyClicks(&Sheet(), u"x"_s);
    EXPECT_TRUE(Html().contains(u"background-color:#ffff00"_s));
    Entry(Menu("highlightMenu"), u"无底色"_s)->trigger();
    QTest::keyClicks(&Sheet(), u"y"_s);
    EXPECT_EQ(PresentColor(Sheet().currentCharFormat(), toolkit::NotePaint::Ground), QColor());
}

TEST_F(NoteColorsTest, TheMenuMarksThePresentColour) {
    Sheet().moveCursor(QTextCursor::Start);
    EXPECT_TRUE(Entry(Menu("highlightMenu"), u"无底色"_s)->isChecked());
    EXPECT_FALSE(Entry(Menu("highlightMenu"), u"黄色"_s)->isChecked());
    Entry(Menu("highlightMenu"), u"黄色"_s)->trigger();
    EXPECT_TRUE(Entry(Menu("highlightMenu"), u"黄色"_s)->isChecked());
    EXPECT_FALSE(Entry(Menu("highlightMenu"), u"无底色"_s)->isChecked());
}

TEST_F(NoteColorsTest, AnyOtherIsAskedForFromThePresentOneOn) {
    Sheet().moveCursor(QTextCursor::End);
    ExpectAsked("highlightMenu", Qt::green);
    ExpectAsked("textColorMenu", Qt::red);
    ExpectAsked("textColorMenu", QColor(1, 2, 3));
}

TEST_F(NoteColorsTest, WithoutAPresentOneAGroundIsYellowAndNeverBlack) {
    Sheet().moveCursor(QTextCursor::Start);
    ExpectAsked("highlightMenu", Qt::yellow);
    EXPECT_EQ(PresentColor(Sheet().currentCharFormat(), toolkit::NotePaint::Ground),
              QColor(1, 2, 3));
}
