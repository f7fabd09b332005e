// Which keys the gallery takes, with which modifiers, and which go on to the controls on its pane.
#include "tests/viewers/gallery/GalleryFixture.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using gallery::ItemRange;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A control that takes every key that reaches it, and notes all but the modifiers.
class KeyTaker final : public QWidget {
public:
    explicit KeyTaker(QWidget* parent) : QWidget(parent) {}

    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Control && event->key() != Qt::Key_Alt) {
            keys.push_back(event->key());
        }
    }
};

class GalleryKeys : public GalleryFixture {
protected:
    GalleryKeys() {
        Open();
        SetItems(OnDisk(20), 8);
        gallery->told.clear();
        QApplication::clipboard()->setText(u"text"_s);
    }

    [[nodiscard]] static QString Clip() { return QApplication::clipboard()->text(); }

    const std::vector<Qt::Key> steps{Qt::Key_Left,   Qt::Key_Up,       Qt::Key_Right, Qt::Key_Down,
                                     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,  Qt::Key_End};
};

} // namespace

TEST_F(GalleryKeys, WithControlOrAltTheyDoNotStep) {
    const ItemRange before = State().visible;
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::AltModifier),
          Qt::ControlModifier | Qt::AltModifier}) {
        for (const Qt::Key key : steps) {
            QTest::keyClick(Pane(), key, modifiers);
        }
    }
    EXPECT_THAT(gallery->told, IsEmpty());
    EXPECT_EQ(State().visible, before);
}

TEST_F(GalleryKeys, WithShiftAndOnTheKeypadTheyStep) {
    QTest::keyClick(Pane(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(Pane(), Qt::Key_Down, Qt::KeypadModifier);
    EXPECT_THAT(gallery->told, ElementsAre(9, 10));
}

TEST_F(GalleryKeys, WhatStepsDoesNotReachTheControl) {
    KeyTaker control(Pane());
    for (const Qt::Key key : steps) {
        QTest::keyClick(&control, key);
    }
    EXPECT_THAT(control.keys, IsEmpty());
    EXPECT_EQ(State().currentIndex, 19) << "End was the last";
}

TEST_F(GalleryKeys, WhatDoesNotStepIsTheControls) {
    KeyTaker control(Pane());
    QTest::keyClick(&control, Qt::Key_A);
    QTest::keyClick(&control, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&control, Qt::Key_Home, Qt::AltModifier);
    QTest::keyClick(&control, Qt::Key_C, Qt::ControlModifier);
    EXPECT_THAT(control.keys, ElementsAre(Qt::Key_A, Qt::Key_Right, Qt::Key_Home, Qt::Key_C));
    EXPECT_THAT(gallery->told, IsEmpty());
    EXPECT_EQ(Clip(), u"text") << "a control copies its own";
}

TEST_F(GalleryKeys, ControlAndCAloneCopies) {
    QTest::keyClick(Pane(), Qt::Key_C);
    QTest::keyClick(Pane(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(Pane(), Qt::Key_C, Qt::AltModifier);
    QTest::keyClick(Pane(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Clip(), u"text");
    QTest::keyClick(Pane(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_NE(Clip(), u"text");
}

TEST_F(GalleryKeys, CopyingIsNotHandedOnToTheWindowAround) {
    KeyTaker window(nullptr);
    const toolkit::WindowId id =
        toolkit::RegisterWindow(&window, [](const toolkit::WindowEvent&) { return qintptr(0); });
    gallery->Destroy();
    gallery->Create(id);
    SetItems(OnDisk(3));
    QTest::keyClick(Pane(), Qt::Key_C, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(Pane(), key);
    }
    for (const Qt::Key key : steps) {
        QTest::keyClick(Pane(), key);
    }
    EXPECT_THAT(window.keys, IsEmpty());
    QTest::keyClick(Pane(), Qt::Key_A);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_A));
    gallery->Destroy();
    toolkit::UnregisterWindow(id);
}
