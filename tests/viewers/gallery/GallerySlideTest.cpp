// The slides, frame by frame.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QTest>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

using gallery::ItemRange;

namespace {

/// Does something in every sleep of the interface thread.
class FrameClock final : public toolkit::IClock {
public:
    explicit FrameClock(std::function<void()> frame)
        : m_frame(std::move(frame)), m_before(toolkit::SetClock(this)) {}
    ~FrameClock() override { toolkit::SetClock(m_before); }

    std::vector<int> sleeps;

    qint64 NowSeconds() override { return 0; }
    void SleepMilliseconds(int milliseconds) override {
        sleeps.push_back(milliseconds);
        m_frame();
    }

private:
    std::function<void()> m_frame;
    toolkit::IClock* m_before;
};

class GallerySlide : public GalleryFixture {
protected:
    /// Twenty pictures, the first one shown, the thumbnails of the first two pages there.
    void Start(bool horizontal = true) {
        Open(true, horizontal);
        ShowItems(OnDisk(20));
        Pane()->hide();
        for (const bool forward : {true, false}) {
            gallery->PageStrip(forward);
            static_cast<void>(Shown());
        }
        Pane()->show();
        support::RunPendingEvents();
        gallery->told.clear();
    }
    /// What the window shows in each frame of what `action` does, until the picture is there.
    std::vector<QImage> Frames(const std::function<void()>& action) {
        std::vector<QImage> frames;
        FrameClock frameClock([&] { frames.push_back(Shown()); });
        action();
        EXPECT_TRUE(support::WaitFor(
            [this] { return gallery->ShowsPicture() || State().picRect.isEmpty(); }));
        for (const int pause : frameClock.sleeps) {
            EXPECT_EQ(pause, 10);
        }
        return frames;
    }
};

} // namespace

TEST_F(GallerySlide, ThePictureLeavesToTheLeftAndTheNextArrivesExactly) {
    Start();
    const QRect place = State().picRect;
    const auto frames = Frames([this] { gallery->SelectPic(1, gallery::kCurrentLast); });
    // The picture is 433 wide in 500: it moves (500 - 433) / 2 + 433 + 1 = 467, by 46 a frame.
    ASSERT_EQ(place, QRect(33, 5, 433, 285));
    const int distance = 467;
    const std::vector<int> offsets{0, 46, 92, 138, 184, 230, 276, 322, 368, 414, 460, 467};
    ASSERT_EQ(frames.size(), offsets.size());
    for (size_t i = 0; i < offsets.size(); ++i) {
        const int oldLeft = 33 - offsets[i];
        const int newLeft = 33 + 467 - offsets[i];
        for (int x = 0; x < 500; ++x) {
            const bool onOld = x >= oldLeft && x < oldLeft + 433;
            const bool onNew = x >= newLeft && x < newLeft + 433;
            const QColor expected = onOld   ? ColourOf(0)
                                    : onNew ? ColourOf(1)
                                            : support::kPaneColour;
            ASSERT_EQ(frames[i].pixelColor(x, 20), expected) << "frame " << i << ", x " << x;
        }
    }
    const int y = place.center().y();
    EXPECT_EQ(frames.front().pixelColor(place.left(), 20), ColourOf(0));
    const int middle = offsets[5];
    EXPECT_EQ(frames[5].pixelColor(place.right() - middle, 20), ColourOf(0));
    EXPECT_EQ(frames[5].pixelColor(place.right() - middle + 1, 20), support::kPaneColour);
    EXPECT_EQ(frames[5].pixelColor(place.left() + distance - middle, 20), ColourOf(1));
    EXPECT_EQ(frames[5].pixelColor(place.left() + distance - middle - 1, 20), support::kPaneColour);
    EXPECT_EQ(frames.back().pixelColor(place.left(), y), ColourOf(1));
    EXPECT_EQ(frames.back().pixelColor(place.left() - 1, 20), support::kPaneColour);
    EXPECT_EQ(State().shownIndex, 1);
}

TEST_F(GallerySlide, GoingBackSlidesToTheRightAndAVerticalStripSlidesDown) {
    Start();
    gallery->SelectPic(1, gallery::kCurrentLast);
    const QRect place = State().picRect;
    auto frames = Frames([this] { gallery->SelectPic(0, gallery::kCurrentFirst); });
    int offset = ((500 - place.width()) / 2 + place.width() + 1) / 10;
    EXPECT_EQ(frames[1].pixelColor(place.left() + offset - 1, 20), support::kPaneColour);
    EXPECT_EQ(frames[1].pixelColor(place.left() + offset, 20), ColourOf(1));
    gallery->Destroy();
    Start(false);
    gallery->SelectPic(1, gallery::kCurrentLast);
    const QRect tall = State().picRect;
    frames = Frames([this] { gallery->SelectPic(0, gallery::kCurrentFirst); });
    ASSERT_FALSE(frames.empty());
    offset = ((400 - tall.height()) / 2 + tall.height() + 1) / 10;
    EXPECT_EQ(frames[1].pixelColor(tall.left() + 5, tall.top() + offset - 1), support::kPaneColour);
    EXPECT_EQ(frames[1].pixelColor(tall.left() + 5, tall.top() + offset), ColourOf(1));
}

TEST_F(GallerySlide, TheStepButtonsStayAboveTheSlide) {
    Start();
    const QImage before = Shown();
    const QRect button = State().buttons[gallery::kNextPic].rect;
    const auto frames = Frames([this] { gallery->SelectPic(1, gallery::kCurrentLast); });
    QPoint ink;
    for (int y = button.top(); y <= button.bottom() && ink.isNull(); ++y) {
        for (int x = button.left(); x <= button.right(); ++x) {
            if (before.pixelColor(x, y).blue() > before.pixelColor(x, y).red() + 60) {
                ink = {x, y};
            }
        }
    }
    ASSERT_FALSE(ink.isNull()) << "the button shows something";
    for (const QImage& frame : frames) {
        EXPECT_EQ(frame.pixelColor(ink), before.pixelColor(ink));
    }
}

TEST_F(GallerySlide, TheStripSlidesByTheCellsThatLeaveIt) {
    Start();
    const auto frames = Frames([this] { gallery->PageStrip(true); });
    ASSERT_EQ(frames.size(), 11U);
    const QPoint second(kFirstCell - 15 + 150, 340);
    EXPECT_EQ(frames.front().pixelColor(second), ColourOf(1));
    EXPECT_EQ(frames[5].pixelColor(second), ColourOf(3)) << "half way: two cells on";
    EXPECT_EQ(frames.back().pixelColor(second), ColourOf(5));
    EXPECT_EQ(Shown().pixelColor(second), ColourOf(5));
    EXPECT_FALSE(State().stripSlidePending);
}

TEST_F(GallerySlide, AClickedThumbnailSlidesPictureThenStrip) {
    Start();
    const auto frames =
        Frames([this] { QTest::mouseClick(Pane(), Qt::LeftButton, {}, ThumbMiddle(3)); });
    const QRect place = State().picRect;
    const size_t pictures =
        gallery::SlideOffsets((500 - place.width()) / 2 + place.width() + 1).size();
    // One cell leaves the strip: a distance of 100.
    EXPECT_EQ(frames.size(), pictures + 11);
    EXPECT_EQ(State().visible, (ItemRange{1, 4}));
    EXPECT_EQ(frames.back().pixelColor(PictureMiddle()), ColourOf(3));
}

TEST_F(GallerySlide, AClickThatMovesNoCellSlidesThePictureAlone) {
    Open();
    ShowItems(OnDisk(3));
    const auto frames =
        Frames([this] { QTest::mouseClick(Pane(), Qt::LeftButton, {}, ThumbMiddle(2)); });
    const QRect place = State().picRect;
    EXPECT_EQ(frames.size(),
              gallery::SlideOffsets((500 - place.width()) / 2 + place.width() + 1).size());
}

TEST_F(GallerySlide, NoOtherEventIsHandledInBetween) {
    Start();
    const auto handled = std::make_shared<bool>(false);
    QMetaObject::invokeMethod(
        Pane(), [handled] { *handled = true; }, Qt::QueuedConnection);
    Frames([this] { gallery->SelectPic(1, gallery::kCurrentLast); });
    EXPECT_FALSE(*handled);
}

TEST_F(GallerySlide, AHiddenWindowChangesWithoutASlide) {
    Open(false);
    SetItems(OnDisk(5));
    EXPECT_TRUE(Frames([this] {
                    gallery->SelectPic(1, gallery::kCurrentLast);
                    gallery->PageStrip(true);
                }).empty());
    EXPECT_EQ(State().currentIndex, 1);
}

TEST_F(GallerySlide, FromNoPictureNothingSlides) {
    Open();
    auto items = OnDisk(3);
    items[0].picPath = folder.Path(QStringLiteral("none.jpg"));
    items[0].picState = kDownloadFailedState;
    SetItems(items);
    EXPECT_TRUE(Frames([this] { gallery->SelectPic(1, gallery::kCurrentLast); }).empty());
}

TEST_F(GallerySlide, ToAPictureThatCannotBeDecodedNothingSlides) {
    Start();
    auto items = OnDisk(3);
    items[1].picPath = folder.Write(QStringLiteral("bad.jpg"), "no picture");
    items[1].picSize = {300, 200};
    ShowItems(items);
    EXPECT_TRUE(Frames([this] { gallery->SelectPic(1, gallery::kCurrentLast); }).empty());
    EXPECT_TRUE(SaysNoPicture());
}

TEST_F(GallerySlide, WhatIsSeenSlidesOutWhateverBecameOfItsFile) {
    Start();
    folder.Write(QStringLiteral("pics/d000.jpg"), "no picture any more");
    const auto frames = Frames([this] { gallery->SelectPic(1, gallery::kCurrentLast); });
    ASSERT_EQ(frames.size(), 12U);
    EXPECT_EQ(frames.front().pixelColor(PictureMiddle()), ColourOf(0));
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(1));
}

TEST_F(GallerySlide, AVerticalStripSlidesUpByTheCellsThatLeaveIt) {
    Start(false);
    ASSERT_EQ(State().visible, (ItemRange{0, 2}));
    const QPoint second = ThumbMiddle(1);
    const auto frames = Frames([this] { gallery->PageStrip(true); });
    ASSERT_EQ(frames.size(), 11U);
    ASSERT_EQ(State().visible, (ItemRange{3, 5}));
    EXPECT_EQ(frames.front().pixelColor(second), ColourOf(1));
    EXPECT_EQ(frames.front().pixelColor(second + QPoint(0, 100)), ColourOf(2));
    EXPECT_EQ(frames[7].pixelColor(second + QPoint(0, -10)), ColourOf(3)) << "210 of 300 up";
    EXPECT_EQ(frames[7].pixelColor(second + QPoint(0, 90)), ColourOf(4));
    EXPECT_EQ(frames.back().pixelColor(second), ColourOf(4));
}

TEST_F(GallerySlide, WhatAHiddenWindowWouldHaveSlidToDoesNotShowYet) {
    Start();
    ASSERT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
    Pane()->hide();
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(State().shownIndex, 0);
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(1));
    EXPECT_EQ(State().shownIndex, 1);
}
