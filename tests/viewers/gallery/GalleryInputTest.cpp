// Real mouse, wheel and keys on the real window.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using gallery::ItemRange;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class GalleryInput : public GalleryFixture {
protected:
    GalleryInput() {
        Open();
        SetItems(OnDisk(20));
        gallery->told.clear();
    }

    void Wheel(int delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPointF point = PictureMiddle();
        QWheelEvent event(point, Pane()->mapToGlobal(point), QPoint(), QPoint(0, delta),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Pane(), &event);
    }
    void Key(Qt::Key key) { QTest::keyClick(Pane(), key); }
    void Click(const QPoint& point) { QTest::mouseClick(Pane(), Qt::LeftButton, {}, point); }
    void ClickButton(gallery::GalleryButton button) {
        Click(State().buttons[button].rect.center());
    }
    /// Pauses of the slides since the last call, until the picture shows.
    size_t NewSleeps() {
        EXPECT_TRUE(support::WaitFor([this] { return gallery->ShowsPicture(); }));
        const size_t count = clock.Sleeps().size();
        const size_t added = count - m_sleeps;
        m_sleeps = count;
        return added;
    }

private:
    size_t m_sleeps = 0;
};

} // namespace

TEST_F(GalleryInput, ArrowKeysChangeThePictureWithoutASlide) {
    for (const auto& [key, index] : {std::pair(Qt::Key_Right, 1), std::pair(Qt::Key_Down, 2),
                                     std::pair(Qt::Key_Left, 1), std::pair(Qt::Key_Up, 0)}) {
        Key(key);
        EXPECT_EQ(State().currentIndex, index);
        EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(index));
    }
    EXPECT_THAT(gallery->told, ElementsAre(1, 2, 1, 0));
    EXPECT_EQ(NewSleeps(), 0U);
}

TEST_F(GalleryInput, StepButtonsThumbnailsHomeAndEndSlide) {
    ASSERT_EQ(NewSleeps(), 0U);
    ClickButton(gallery::kNextPic);
    EXPECT_EQ(State().currentIndex, 1);
    EXPECT_GE(NewSleeps(), 11U);
    ClickButton(gallery::kPrevPic);
    EXPECT_EQ(State().currentIndex, 0);
    EXPECT_GE(NewSleeps(), 11U);
    Key(Qt::Key_End);
    EXPECT_EQ(State().currentIndex, 19);
    EXPECT_GE(NewSleeps(), 11U);
    Key(Qt::Key_Home);
    EXPECT_EQ(State().currentIndex, 0);
    EXPECT_GE(NewSleeps(), 11U);
    Click(ThumbMiddle(1));
    EXPECT_EQ(State().currentIndex, 1);
    EXPECT_GE(NewSleeps(), 11U);
}

TEST_F(GalleryInput, KeysStopAtTheEndsOfTheList) {
    Key(Qt::Key_Left);
    EXPECT_THAT(gallery->told, IsEmpty());
    Key(Qt::Key_End);
    Key(Qt::Key_Right);
    EXPECT_THAT(gallery->told, ElementsAre(19));
}

TEST_F(GalleryInput, TheStripFollowsTheStepsFromItsEdge) {
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
    for (int i = 0; i < 4; ++i) {
        Key(Qt::Key_Right);
    }
    EXPECT_EQ(State().visible, (ItemRange{1, 4}));
    for (int i = 0; i < 4; ++i) {
        Key(Qt::Key_Left);
    }
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
}

TEST_F(GalleryInput, PageKeysAndPageButtonsPageTheStripAndKeepTheCurrentItem) {
    Key(Qt::Key_PageDown);
    EXPECT_EQ(State().visible, (ItemRange{4, 7}));
    ClickButton(gallery::kThumbRight);
    EXPECT_EQ(State().visible, (ItemRange{8, 11}));
    Key(Qt::Key_PageUp);
    ClickButton(gallery::kThumbLeft);
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
    EXPECT_EQ(State().currentIndex, 0);
    EXPECT_THAT(gallery->told, IsEmpty());
}

TEST_F(GalleryInput, PageDownOnAStripThatShowsTheEndDoesNothing) {
    Key(Qt::Key_End);
    NewSleeps();
    const QImage before = Shown();
    Key(Qt::Key_PageDown);
    EXPECT_EQ(State().visible, (ItemRange{16, 19}));
    EXPECT_EQ(NewSleeps(), 0U);
    EXPECT_EQ(Shown(), before);
}

TEST_F(GalleryInput, AClickOnTheCurrentThumbnailChangesNothing) {
    const QImage before = Shown();
    Click(ThumbMiddle(0));
    EXPECT_THAT(gallery->told, IsEmpty());
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
    QTest::mouseMove(Pane(), {1, 1});
    EXPECT_EQ(Shown(), before);
}

TEST_F(GalleryInput, AClickOnTheCurrentThumbnailRendersAReplacedFileAnew) {
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
    QFile::remove(State().items[0].picPath);
    QFile::copy(State().items[7].picPath, State().items[0].picPath);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0)) << "its rendering is kept";
    Click(ThumbMiddle(0));
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(7));
}

TEST_F(GalleryInput, AClickedThumbnailGoesToTheMiddleOfTheStrip) {
    Key(Qt::Key_PageDown);
    Click(ThumbMiddle(7));
    EXPECT_EQ(State().currentIndex, 7);
    EXPECT_EQ(State().visible, (ItemRange{5, 8}));
}

TEST_F(GalleryInput, AWheelNotchStepsOnePictureAndLessThanOneSteps) {
    Wheel(-120);
    EXPECT_EQ(State().currentIndex, 1);
    Wheel(-240);
    EXPECT_EQ(State().currentIndex, 3);
    Wheel(120);
    EXPECT_EQ(State().currentIndex, 2);
    gallery->told.clear();
    Wheel(119);
    Wheel(-119);
    EXPECT_THAT(gallery->told, IsEmpty());
    EXPECT_EQ(NewSleeps(), 0U) << "the wheel never slides";
}

TEST_F(GalleryInput, AWheelBelowANotchOnlyRendersThePictureAnew) {
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
    QFile::remove(State().items[0].picPath);
    QFile::copy(State().items[7].picPath, State().items[0].picPath);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0)) << "its rendering is kept";
    Wheel(119);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(7));
    EXPECT_EQ(State().currentIndex, 0);
    EXPECT_THAT(gallery->told, IsEmpty());
}

TEST_F(GalleryInput, AWheelPastTheEndOfTheListStaysWhereItIs) {
    Wheel(120);
    Wheel(-120 * 20);
    EXPECT_EQ(State().currentIndex, 0);
}

TEST_F(GalleryInput, EnterAndEscapeLeaveTheDialogOpen) {
    QLineEdit edit(Pane());
    int returns = 0;
    QObject::connect(&edit, &QLineEdit::returnPressed, [&] { ++returns; });
    for (QWidget* target : {Pane(), static_cast<QWidget*>(&edit)}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QTest::keyClick(target, key);
        }
    }
    EXPECT_TRUE(gallery->HasWindow());
    EXPECT_TRUE(Pane()->isVisible());
    EXPECT_EQ(gallery->closed, 0);
    EXPECT_EQ(returns, 0);
}

TEST_F(GalleryInput, KeysOfAControlOnThePaneStepToo) {
    QLineEdit edit(Pane());
    QTest::keyClick(&edit, Qt::Key_Right);
    EXPECT_EQ(State().currentIndex, 1);
    SetItems({});
    edit.setText(u"ab"_s);
    QTest::keyClick(&edit, Qt::Key_Home);
    EXPECT_EQ(edit.cursorPosition(), 0) << "without a list they are the control's";
}

TEST_F(GalleryInput, KeysOfAnotherWindowAreItsOwn) {
    QLineEdit other;
    QTest::keyClick(&other, Qt::Key_Right);
    EXPECT_EQ(State().currentIndex, 0);
}

TEST_F(GalleryInput, TheThumbnailUnderTheMouseHasAFrame) {
    const QColor hover(0xA9, 0xDA, 0xF5);
    QTest::mouseMove(Pane(), ThumbMiddle(2));
    EXPECT_EQ(State().hoverIndex, 2);
    EXPECT_EQ(PixelAt(State().items[2].thumbRect.topLeft() - QPoint(3, 3)), hover);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(Pane(), &leave);
    EXPECT_EQ(State().hoverIndex, -1);
    EXPECT_NE(PixelAt(State().items[2].thumbRect.topLeft() - QPoint(3, 3)), hover);
}

TEST_F(GalleryInput, ADisabledButtonTakesNoClick) {
    ClickButton(gallery::kPrevPic);
    ClickButton(gallery::kThumbLeft);
    EXPECT_THAT(gallery->told, IsEmpty());
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
}

TEST_F(GalleryInput, QuickClicksOnAStepButtonAllCount) {
    const QPoint next = State().buttons[gallery::kNextPic].rect.center();
    QTest::mouseClick(Pane(), Qt::LeftButton, {}, next);
    QTest::mouseDClick(Pane(), Qt::LeftButton, {}, next);
    QTest::mouseRelease(Pane(), Qt::LeftButton, {}, next);
    EXPECT_EQ(State().currentIndex, 2);
    EXPECT_TRUE(State().zoom.fit);
}

TEST_F(GalleryInput, AllButtonsHaveTipsWithTheirKeysAlsoWhileDisabled) {
    ASSERT_FALSE(State().buttons[gallery::kPrevPic].IsEnabled());
    for (const auto& [button, tip] : {std::pair(gallery::kPrevPic, u"上一张（←）"_s),
                                      std::pair(gallery::kNextPic, u"下一张（→）"_s),
                                      std::pair(gallery::kThumbLeft, u"前一页（Page Up）"_s),
                                      std::pair(gallery::kThumbRight, u"后一页（Page Down）"_s)}) {
        const QPoint place = State().buttons[button].rect.center();
        QHelpEvent help(QEvent::ToolTip, place, Pane()->mapToGlobal(place));
        QApplication::sendEvent(Pane(), &help);
        EXPECT_TRUE(QToolTip::text().contains(tip)) << tip.toStdString();
    }
    QToolTip::hideText();
}

TEST_F(GalleryInput, ATipGoesBesideTheButtons) {
    const auto tipAt = [this](const QPoint& place) {
        QHelpEvent help(QEvent::ToolTip, place, Pane()->mapToGlobal(place));
        QApplication::sendEvent(Pane(), &help);
    };
    tipAt(State().buttons[gallery::kNextPic].rect.center());
    ASSERT_TRUE(QToolTip::isVisible());
    tipAt(PictureMiddle());
    EXPECT_TRUE(support::WaitFor([] { return !QToolTip::isVisible(); }, std::chrono::seconds(3)));
    QToolTip::hideText();
}

TEST_F(GalleryInput, ASelectionAndAClickTakeTheFocus) {
    QLineEdit edit(Pane());
    edit.setGeometry(0, 0, 5, 5);
    edit.show();
    const auto focus = [this] { return Pane()->window()->focusWidget(); };
    edit.setFocus();
    ASSERT_EQ(focus(), &edit);
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(focus(), Pane()) << "another picture";
    edit.setFocus();
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(focus(), &edit) << "the same picture";
    Click(PictureMiddle());
    EXPECT_EQ(focus(), Pane()) << "a click beside everything";
    edit.setFocus();
    Click(ThumbMiddle(1));
    EXPECT_EQ(focus(), Pane()) << "a click on the current thumbnail";
}

TEST_F(GalleryInput, ANewLayoutForgetsTheThumbnailUnderTheMouse) {
    const QColor hover(0xA9, 0xDA, 0xF5);
    QTest::mouseMove(Pane(), {1, 1});
    QTest::mouseMove(Pane(), ThumbMiddle(2));
    ASSERT_EQ(State().hoverIndex, 2);
    gallery->PageStrip(true);
    EXPECT_EQ(State().hoverIndex, -1);
    for (int i = State().visible.first; i <= State().visible.last; ++i) {
        EXPECT_NE(PixelAt(State().items[size_t(i)].thumbRect.topLeft() - QPoint(3, 3)), hover) << i;
    }
    QTest::mouseMove(Pane(), {1, 1});
    QTest::mouseMove(Pane(), ThumbMiddle(5));
    ASSERT_EQ(State().hoverIndex, 5);
    gallery->SetPicRects(State().bigArea, State().stripArea);
    EXPECT_EQ(State().hoverIndex, -1);
}

TEST_F(GalleryInput, ANewListEndsADragOfTheOldPicture) {
    const auto items = OnDisk(10);
    SetItems(items, 5);
    QTest::mouseDClick(Pane(), Qt::LeftButton, {}, PictureMiddle());
    ASSERT_FALSE(State().zoom.fit);
    QTest::mousePress(Pane(), Qt::LeftButton, {}, PictureMiddle());
    gallery->SetPicItems(items);
    QTest::mouseMove(Pane(), {1, 1});
    QTest::mouseMove(Pane(), ThumbMiddle(5));
    EXPECT_EQ(State().hoverIndex, 5) << "the mouse points again, and drags nothing";
}
