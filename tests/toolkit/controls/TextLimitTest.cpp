// How much can be typed, pasted and dropped into a box.
#include "toolkit/controls/TextLimit.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TextLimitTest : ::testing::Test {
    QWidget window;
    QLineEdit* line = new QLineEdit(&window);
    QPlainTextEdit* box = new QPlainTextEdit(&window);

    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(line);
        layout->addWidget(box);
        window.show();
        window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&window));
    }
    void Paste(QWidget* target, const QString& text) const {
        QApplication::clipboard()->setText(text);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
    }
    [[nodiscard]] QString Text() const { return box->toPlainText(); }
};

TEST_F(TextLimitTest, ALineTakesNoMore) {
    toolkit::LimitText(*line, 5);
    QTest::keyClicks(line, u"abcdefg"_s);
    EXPECT_EQ(line->text(), u"abcde"_s);
}

TEST_F(TextLimitTest, ALineThatIsLongerAlreadyStaysWhole) {
    line->setText(u"abcdefg"_s);
    toolkit::LimitText(*line, 5);
    EXPECT_EQ(line->text(), u"abcdefg"_s);
    QTest::keyClicks(line, u"h"_s);
    EXPECT_EQ(line->text(), u"abcdefg"_s);
}

TEST_F(TextLimitTest, ABoxTakesNoMoreAndALineBreakCountsOne) {
    toolkit::LimitText(*box, 5);
    QTest::keyClicks(box, u"ab"_s);
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClicks(box, u"cdefg"_s);
    EXPECT_EQ(Text(), u"ab\ncd"_s);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Text(), u"ab\ncd"_s);
}

TEST_F(TextLimitTest, WhatIsTypedInTheMiddleOfAFullBoxGoesNotWhatWasThere) {
    toolkit::LimitText(*box, 5);
    box->setPlainText(u"abcde"_s);
    box->moveCursor(QTextCursor::Start);
    QTest::keyClick(box, Qt::Key_Right);
    QTest::keyClicks(box, u"xy"_s);
    EXPECT_EQ(Text(), u"abcde"_s);
    EXPECT_EQ(box->textCursor().position(), 1);
}

TEST_F(TextLimitTest, APasteKeepsAsMuchAsThereIsRoomFor) {
    toolkit::LimitText(*box, 6);
    box->setPlainText(u"abcd"_s);
    box->moveCursor(QTextCursor::Start);
    Paste(box, u"1234"_s);
    EXPECT_EQ(Text(), u"12abcd"_s);
    EXPECT_EQ(box->textCursor().position(), 2);
}

TEST_F(TextLimitTest, ASelectionIsReplacedAsFarAsThereIsRoom) {
    toolkit::LimitText(*box, 4);
    box->setPlainText(u"abcd"_s);
    box->selectAll();
    Paste(box, u"123456"_s);
    EXPECT_EQ(Text(), u"1234"_s);
}

TEST_F(TextLimitTest, APairIsNeverSplit) {
    toolkit::LimitText(*box, 3);
    Paste(box, u"ab\U0001F600"_s);
    EXPECT_EQ(Text(), u"ab"_s);
    toolkit::LimitText(*line, 3);
    line->setFocus();
    Paste(line, u"ab"_s);
    EXPECT_EQ(line->text(), u"ab"_s);
}

TEST_F(TextLimitTest, ABoxThatIsLongerAlreadyStaysWholeAndCanGetShorter) {
    box->setPlainText(u"abcdefg"_s);
    toolkit::LimitText(*box, 5);
    EXPECT_EQ(Text(), u"abcdefg"_s);
    box->moveCursor(QTextCursor::End);
    QTest::keyClicks(box, u"h"_s);
    EXPECT_EQ(Text(), u"abcdefg"_s);
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(Text(), u"abcdef"_s);
}

TEST_F(TextLimitTest, OneStepOfUndoTakesAPasteBack) {
    toolkit::LimitText(*box, 6);
    QTest::keyClicks(box, u"abcd"_s);
    box->moveCursor(QTextCursor::Start);
    Paste(box, u"1234"_s);
    ASSERT_EQ(Text(), u"12abcd"_s);
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), u"abcd"_s);
}

TEST_F(TextLimitTest, ATextSetByCodeIsCutAtItsEnd) {
    toolkit::LimitText(*box, 3);
    box->setPlainText(u"abcdef"_s);
    EXPECT_EQ(Text(), u"abc"_s);
}

} // namespace
