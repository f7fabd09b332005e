// What a person could do is done, and nothing else.
#include "hands/Hands.h"
#include "tests/hands/Recorder.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include <gtest/gtest.h>

namespace hands {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class Hands : public testing::Test {
protected:
    void SetUp() override {
        window.resize(300, 200);
        widget.setGeometry(0, 0, 100, 60);
        line.setGeometry(0, 100, 200, 30);
        ASSERT_TRUE(ShowInFront(window));
        widget.setFocus();
        widget.seen.clear();
    }

    /// Tries everything that mouse and keys can do with the widget.
    bool CanDoAnything() {
        return CanReach(&widget) || Click(&widget) || ClickAt(&widget, {1, 1}) ||
               DoubleClickAt(&widget, {1, 1}) || MoveTo(&widget, {1, 1}) ||
               PressKey(&widget, Qt::Key_A) || TypeOver(&widget, u"x"_s) ||
               DropPaths(&widget, {u"/a"_s});
    }

    QWidget window;
    Recorder widget{&window};
    QLineEdit line{&window};
};

TEST_F(Hands, AClickMeetsTheMiddleOfAWidget) {
    EXPECT_TRUE(Click(&widget));
    EXPECT_TRUE(widget.seen.contains(u"press 49,29"_s)) << qPrintable(widget.seen.join(u' '));
}

TEST_F(Hands, NothingIsDoneWithoutAWidget) {
    EXPECT_FALSE(CanReach(nullptr));
    EXPECT_FALSE(Click(nullptr));
    EXPECT_FALSE(ClickAt(nullptr, {}));
    EXPECT_FALSE(DoubleClickAt(nullptr, {}));
    EXPECT_FALSE(MoveTo(nullptr, {}));
    EXPECT_FALSE(PressKey(nullptr, Qt::Key_A));
    EXPECT_FALSE(TypeOver(nullptr, u"x"_s));
    EXPECT_FALSE(DropPaths(nullptr, {}));
    EXPECT_FALSE(CloseWindow(nullptr));
}

TEST_F(Hands, AHiddenWidgetIsOutOfReach) {
    widget.hide();
    EXPECT_FALSE(CanDoAnything());
    EXPECT_EQ(widget.seen, QStringList());
}

TEST_F(Hands, ADisabledWidgetIsOutOfReach) {
    widget.setEnabled(false);
    EXPECT_FALSE(CanDoAnything());
    EXPECT_EQ(widget.seen, QStringList());
}

TEST_F(Hands, ADialogInTheWayKeepsTheWindowOutOfReach) {
    QDialog dialog(&window);
    dialog.setModal(true);
    Recorder inside(&dialog);
    ASSERT_TRUE(ShowInFront(dialog));
    EXPECT_FALSE(CanDoAnything());
    EXPECT_EQ(widget.seen, QStringList());
    EXPECT_FALSE(CloseWindow(&window));
    EXPECT_TRUE(Click(&inside));
    EXPECT_TRUE(CloseWindow(&dialog));
    EXPECT_TRUE(WaitFor([this] { return Click(&widget); }));
}

TEST_F(Hands, APopupLiesOverTheDialogThatIsInTheWay) {
    QDialog dialog(&window);
    dialog.setModal(true);
    ASSERT_TRUE(ShowInFront(dialog));
    Recorder popup;
    popup.setWindowFlags(Qt::Popup);
    popup.resize(50, 50);
    popup.show();
    EXPECT_TRUE(Click(&popup));
    EXPECT_TRUE(popup.seen.contains(u"press 24,24"_s)) << qPrintable(popup.seen.join(u' '));
}

TEST_F(Hands, AWindowBehindComesToTheForegroundBeforeAnythingIsDone) {
    QWidget other;
    ASSERT_TRUE(ShowInFront(other));
    EXPECT_FALSE(Click(&widget));
    EXPECT_EQ(widget.seen, QStringList());
    EXPECT_TRUE(WaitFor([this] { return window.isActiveWindow(); }));
    EXPECT_TRUE(Click(&widget));
    EXPECT_TRUE(widget.seen.contains(u"press 49,29"_s));
}

TEST_F(Hands, KeysTooWaitForTheForeground) {
    QWidget other;
    ASSERT_TRUE(ShowInFront(other));
    EXPECT_FALSE(PressKey(&widget, Qt::Key_A));
    EXPECT_EQ(widget.seen, QStringList());
    EXPECT_TRUE(WaitFor([this] { return PressKey(&widget, Qt::Key_A); }));
    EXPECT_EQ(widget.seen, QStringList{u"key a"_s});
}

TEST_F(Hands, APlaceOutsideOfTheWidgetCantBeClicked) {
    EXPECT_FALSE(ClickAt(&widget, {100, 30}));
    EXPECT_FALSE(DoubleClickAt(&widget, {50, 60}));
    EXPECT_TRUE(ClickAt(&widget, {99, 59}));
    EXPECT_EQ(widget.seen.filter(u"press"_s), QStringList{u"press 99,59"_s});
}

TEST_F(Hands, APlaceThatAnotherWidgetCoversCantBeClicked) {
    QWidget cover(&window);
    cover.setGeometry(40, 0, 20, 60);
    cover.show();
    EXPECT_FALSE(Click(&widget));
    EXPECT_FALSE(DoubleClickAt(&widget, {50, 30}));
    EXPECT_EQ(widget.seen, QStringList());
    EXPECT_TRUE(ClickAt(&widget, {30, 30}));
    cover.setAttribute(Qt::WA_TransparentForMouseEvents);
    EXPECT_TRUE(Click(&widget));
}

TEST_F(Hands, ADoubleClickIsOneAndThePointerAloneClicksNothing) {
    EXPECT_TRUE(DoubleClickAt(&widget, {5, 6}));
    EXPECT_EQ(widget.seen.filter(u"double"_s), QStringList{u"double 5,6"_s});
    widget.seen.clear();
    EXPECT_TRUE(MoveTo(&widget, {7, 8}));
    EXPECT_EQ(widget.seen, QStringList{u"hover 7,8"_s});
}

TEST_F(Hands, KeysGoToWhatHasTheFocus) {
    line.setFocus();
    EXPECT_TRUE(PressKey(&widget, Qt::Key_B));
    EXPECT_EQ(line.text(), u"b"_s);
    EXPECT_EQ(widget.seen, QStringList());
}

TEST_F(Hands, WhatIsTypedOverReplacesTheTextAsAnInputMethodGivesIt) {
    line.setText(u"以前的 text"_s);
    EXPECT_TRUE(TypeOver(&line, u"三楼 3-2"_s));
    EXPECT_EQ(line.text(), u"三楼 3-2"_s);
    EXPECT_TRUE(line.hasFocus());
    EXPECT_TRUE(TypeOver(&line, QString()));
    EXPECT_EQ(line.text(), QString());
}

TEST_F(Hands, ALineThatOnlyShowsItsTextTakesNone) {
    line.setText(u"定"_s);
    line.setReadOnly(true);
    EXPECT_FALSE(TypeOver(&line, u"改"_s));
    EXPECT_EQ(line.text(), u"定"_s);
}

TEST_F(Hands, AButtonThatClosesItsWindowIsPressedOnce) {
    auto* dialog = new QDialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    auto* button = new QPushButton(dialog);
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, dialog, [&] {
        ++clicks;
        dialog->close();
    });
    ASSERT_TRUE(ShowInFront(*dialog));
    EXPECT_TRUE(Click(button));
    EXPECT_EQ(clicks, 1);
    support::RunPendingEvents();
}

/// Takes what is dropped if it was told to.
class Taker final : public QWidget {
public:
    explicit Taker(QWidget* parent) : QWidget(parent) { setAcceptDrops(true); }

    bool takes = true;
    QStringList taken;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->setAccepted(takes); }
    void dropEvent(QDropEvent* event) override {
        for (const QUrl& url : event->mimeData()->urls()) {
            taken << url.toLocalFile();
        }
        event->acceptProposedAction();
    }
};

TEST_F(Hands, PathsAreDroppedOnWhatTakesThem) {
    Taker taker(&window);
    taker.show();
    EXPECT_TRUE(DropPaths(&taker, {u"/照片/a.jpg"_s, u"/b"_s}));
    EXPECT_EQ(taker.taken, QStringList({u"/照片/a.jpg"_s, u"/b"_s}));
    taker.takes = false;
    EXPECT_FALSE(DropPaths(&taker, {u"/c"_s}));
    EXPECT_EQ(taker.taken.size(), 2);
}

TEST_F(Hands, AWindowIsClosedAsByItsButton) {
    EXPECT_TRUE(CloseWindow(&window));
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(CloseWindow(&window));
}

} // namespace
} // namespace hands
