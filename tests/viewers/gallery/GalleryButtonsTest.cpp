// What the mouse does to the painted buttons, seen on the screen; what the other mouse buttons
// don't.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "viewers/GalleryPane.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <gmock/gmock.h>

namespace {

class GalleryButtons : public GalleryFixture {
protected:
    GalleryButtons() {
        Open();
        SetItems(OnDisk(20));
        Pane()->repaint();
        gallery->told.clear();
    }

    /// What stands on the screen, without another paint.
    [[nodiscard]] QImage OnScreen(const QRect& rect) {
        return Pane()->screen()->grabWindow(Pane()->winId()).toImage().copy(rect);
    }
    [[nodiscard]] const CDirectUIButton& Button(gallery::GalleryButton button) const {
        return State().buttons[button];
    }
    void Move(const QPoint& point) {
        QMouseEvent event(QEvent::MouseMove, point, Pane()->mapToGlobal(point), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(Pane(), &event);
    }
    void Leave() {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(Pane(), &leave);
    }
};

/// Counts what a pane tells.
class CountedEvents final : public gallery::IGalleryEvents {
public:
    mutable int calls = 0;

    void OnShown() override { ++calls; }
    void OnPictureTaken() override { ++calls; }
    void OnPaint(QPainter&, const QRegion&) const override { ++calls; }
    void OnLeftButtonDown(const QPoint&) override { ++calls; }
    void OnLeftButtonUp(const QPoint&) override { ++calls; }
    void OnDoubleClick(const QPoint&) override { ++calls; }
    void OnMouseMove(const QPoint&) override { ++calls; }
    void OnMouseLeave() override { ++calls; }
    void OnMouseWheel(int, const QPoint&, bool) override { ++calls; }
    bool OnKey(int, Qt::KeyboardModifiers, bool) override { return ++calls != 0; }
    [[nodiscard]] QString TipAt(const QPoint&) const override { return QString::number(++calls); }
    [[nodiscard]] QRect TipPlace(const QPoint&) const override { return {}; }
    [[nodiscard]] std::span<const CDirectUIButton> Buttons() const override { return {}; }
    void OnButtonPressed(int) override { ++calls; }
};

} // namespace

TEST_F(GalleryButtons, EachChangeOfAButtonIsOnTheScreenAtOnce) {
    for (const auto which : {gallery::kNextPic, gallery::kThumbRight}) {
        const QRect rect = Button(which).rect;
        const QPoint middle = rect.center();
        const QImage rest = OnScreen(rect);
        Move(middle);
        const QImage hot = OnScreen(rect);
        EXPECT_NE(hot, rest) << which << ": the mouse came";
        Leave();
        EXPECT_EQ(OnScreen(rect), rest) << which << ": it left the window";
        Move(middle);
        EXPECT_EQ(OnScreen(rect), hot) << which;
        Move(State().bigArea.center());
        EXPECT_EQ(OnScreen(rect), rest) << which << ": it left the button";
        Move(middle);
        QTest::mousePress(Pane(), Qt::LeftButton, {}, middle);
        EXPECT_NE(OnScreen(rect), hot) << which << ": pressed";
        QTest::mouseRelease(Pane(), Qt::LeftButton, {}, State().bigArea.center());
        EXPECT_EQ(OnScreen(rect), hot) << which << ": let go elsewhere";
        Leave();
    }
    EXPECT_THAT(gallery->told, testing::IsEmpty());
}

TEST_F(GalleryButtons, TheFrameOfTheThumbnailUnderTheMouseComesAndGoesOnTheScreen) {
    const QRect cell = State().items[2].thumbRect.adjusted(-3, -3, 3, 3);
    const QImage rest = OnScreen(cell);
    Move(ThumbMiddle(2));
    EXPECT_EQ(OnScreen(cell).pixelColor(0, 0), QColor(0xA9, 0xDA, 0xF5));
    Leave();
    EXPECT_EQ(OnScreen(cell), rest);
}

TEST_F(GalleryButtons, OnlyTheLeftButtonPressesReleasesAndZooms) {
    const QPoint next = Button(gallery::kNextPic).rect.center();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(Pane(), button, {}, next);
        EXPECT_FALSE(Button(gallery::kNextPic).IsPressed());
        QTest::mouseRelease(Pane(), button, {}, next);
        QTest::mouseClick(Pane(), button, {}, ThumbMiddle(1));
        QTest::mouseDClick(Pane(), button, {}, PictureMiddle());
        EXPECT_TRUE(State().zoom.fit);
        QTest::mousePress(Pane(), Qt::LeftButton, {}, next);
        QTest::mouseRelease(Pane(), button, {}, next);
        EXPECT_TRUE(Button(gallery::kNextPic).IsPressed()) << "the left one is still down";
        QTest::mouseRelease(Pane(), Qt::LeftButton, {}, PictureMiddle());
    }
    EXPECT_THAT(gallery->told, testing::IsEmpty());
    EXPECT_EQ(State().currentIndex, 0);
}

TEST_F(GalleryButtons, APaneThatOutlivesItsGalleryTakesEveryEventAndDoesNothing) {
    CountedEvents events;
    gallery::GalleryPane pane(events, nullptr);
    const auto everything = [&] {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            QTest::mouseClick(&pane, button, {}, {5, 5});
            QTest::mouseDClick(&pane, button, {}, {5, 5});
        }
        QMouseEvent move(QEvent::MouseMove, QPoint(6, 6), QPoint(6, 6), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QWheelEvent wheel(QPoint(5, 5), QPoint(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QEvent leave(QEvent::Leave);
        QEvent screen(QEvent::ScreenChangeInternal);
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), QPoint(5, 5));
        for (QEvent* event :
             std::initializer_list<QEvent*>{&move, &wheel, &leave, &screen, &help}) {
            QApplication::sendEvent(&pane, event);
        }
        QTest::keyClick(&pane, Qt::Key_Right);
        pane.PressButton(0);
        (void)pane.grab();
        pane.show();
        pane.hide();
    };
    everything();
    EXPECT_GT(events.calls, 10);
    pane.Detach();
    events.calls = 0;
    everything();
    EXPECT_EQ(events.calls, 0);
    EXPECT_TRUE(pane.Buttons().empty());
}
