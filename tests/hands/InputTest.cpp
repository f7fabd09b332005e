// What arrives at a widget.
#include "hands/Input.h"
#include "tests/hands/Recorder.h"

#include <gtest/gtest.h>

namespace hands {
namespace {

using namespace Qt::StringLiterals;

class Input : public testing::Test {
protected:
    void SetUp() override {
        window.resize(200, 100);
        widget.setGeometry(0, 0, 200, 100);
        ASSERT_TRUE(ShowInFront(window));
        widget.setFocus();
        // A pointer that doesn't move isn't seen.
        SendHover(&widget, {1, 1});
        widget.seen.clear();
    }

    QWidget window;
    Recorder widget{&window};
};

TEST_F(Input, AClickComesWithThePointerAndIsPressedAndReleased) {
    SendClick(&widget, {20, 10});
    EXPECT_EQ(widget.seen, QStringList({u"hover 20,10"_s, u"press 20,10"_s, u"release 20,10"_s}));
}

TEST_F(Input, TwoClicksAreNoDoubleClick) {
    SendClick(&widget, {20, 10});
    SendClick(&widget, {20, 10});
    EXPECT_FALSE(widget.seen.contains(u"double 20,10"_s));
    SendDoubleClick(&widget, {20, 10});
    EXPECT_EQ(widget.seen.count(u"double 20,10"_s), 1);
    EXPECT_EQ(widget.seen.last(), u"release 20,10"_s);
}

TEST_F(Input, ModifiersAreHeldDuringAClickAndUnderTheWheel) {
    SendClick(&widget, {20, 10}, {Qt::LeftButton, Qt::ControlModifier});
    EXPECT_TRUE(widget.seen.contains(u"Ctrl+press 20,10"_s)) << qPrintable(widget.seen.join(u' '));
    widget.seen.clear();
    SendWheel(&widget, {20, 10}, 2, Qt::ControlModifier);
    EXPECT_EQ(widget.seen, QStringList{u"Ctrl+wheel 240"_s});
}

TEST_F(Input, ADragMovesInStepsFromPlaceToPlace) {
    SendDrag(&widget, {20, 10}, {80, 40});
    EXPECT_EQ(widget.seen.first(), u"hover 20,10"_s);
    EXPECT_EQ(widget.seen.value(1), u"press 20,10"_s);
    EXPECT_EQ(widget.seen.filter(u"move"_s).size(), 6);
    EXPECT_EQ(widget.seen.value(widget.seen.size() - 2), u"move 80,40"_s);
    EXPECT_EQ(widget.seen.last(), u"release 80,40"_s);
}

TEST_F(Input, WhatIsHiddenByAPressGetsNoRelease) {
    widget.onPress = [this] { widget.hide(); };
    SendDoubleClick(&widget, {20, 10});
    EXPECT_EQ(widget.seen, QStringList({u"hover 20,10"_s, u"press 20,10"_s}));
    widget.seen.clear();
    SendClick(&widget, {20, 10});
    SendWheel(&widget, {20, 10}, 1);
    EXPECT_EQ(widget.seen, QStringList());
}

TEST_F(Input, KeysWriteWhatTheyAreLabelledWith) {
    SendKey(&widget, Qt::Key_A);
    SendKey(&widget, Qt::Key_A, Qt::ShiftModifier);
    SendKey(&widget, Qt::Key_7);
    SendKey(&widget, Qt::Key_A, Qt::ControlModifier);
    SendKey(&widget, Qt::Key_F5);
    EXPECT_EQ(widget.seen,
              QStringList({u"key a"_s, u"key A"_s, u"key 7"_s, u"Ctrl+key "_s, u"key "_s}));
}

TEST_F(Input, TextComesByKeysAndWhatHasNoneByAnInputMethodInOne) {
    SendText(&widget, u"a中文B1"_s);
    EXPECT_EQ(widget.seen, QStringList({u"key a"_s, u"commit 中文"_s, u"key B"_s, u"key 1"_s}));
}

TEST_F(Input, TextIsCommittedOnlyWhereTextIsTaken) {
    EXPECT_TRUE(CommitText(u"中文"_s));
    EXPECT_EQ(widget.seen, QStringList{u"commit 中文"_s});
    widget.setAttribute(Qt::WA_InputMethodEnabled, false);
    EXPECT_FALSE(CommitText(u"中文"_s));
    widget.clearFocus();
    EXPECT_FALSE(CommitText(u"中文"_s));
    EXPECT_EQ(widget.seen.size(), 1);
}

} // namespace
} // namespace hands
