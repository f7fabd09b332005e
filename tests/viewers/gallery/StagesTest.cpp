// What stands on a gallery's pane, without a pane.
#include "viewers/PictureStage.h"
#include "viewers/SlideLoop.h"
#include "viewers/StripStage.h"

#include "tests/support/ManualClock.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"
#include "viewers/GalleryTimers.h"

#include <QFile>
#include <QPainter>
#include <gmock/gmock.h>

#include <functional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using gallery::PictureStage;
using gallery::StripStage;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

/// Notes what it is asked for.
class NotedSurface final : public gallery::IGallerySurface {
public:
    bool shown = true;
    std::vector<QRect> repaints;
    std::vector<QRect> updates;
    std::vector<std::pair<int, int>> timers;
    std::function<void()> onRepaint;

    /// Nobody has it: what is told to it is dropped.
    [[nodiscard]] toolkit::WindowId Window() const override { return toolkit::WindowId(1 << 20); }
    [[nodiscard]] bool IsShown() const override { return shown; }
    [[nodiscard]] qreal Ratio() const override { return 1; }
    void Repaint(const QRect& place) override {
        repaints.push_back(place);
        if (onRepaint) {
            onRepaint();
        }
    }
    void Update(const QRect& place) override { updates.push_back(place); }
    void StartTimer(int timerId, int milliseconds) override {
        timers.emplace_back(timerId, milliseconds);
    }
};

const QRect kBig(0, 0, 500, 295);
const QRect kStrip(5, 300, 490, 95);

/// Six pictures of one colour each, laid out as in a window of 500 by 400.
class GalleryStages : public testing::Test {
protected:
    GalleryStages() {
        for (int i = 0; i < 6; ++i) {
            GalleryItem item;
            item.picPath =
                folder.Write(u"s%1.png"_s.arg(i),
                             support::PngBytes(support::OneColour({300, 200}, ColourOf(i))));
            item.picState = kOnDisk;
            state.items.push_back(item);
        }
        gallery::PlaceAreas(state, kBig, kStrip, gallery::FileSizes(state));
    }
    ~GalleryStages() override { gallery::JoinDecoders(); }

    static QColor ColourOf(int index) { return QColor::fromRgb(40 * index, 200 - 30 * index, 90); }
    void ShowFirst() {
        picture.Change();
        WaitForPicture();
    }
    void WaitForPicture() {
        EXPECT_TRUE(support::WaitFor([this] {
            picture.OnPictureReady();
            return picture.ShowsPicture();
        }));
    }
    void GoTo(int index, bool slide) {
        state.skipSlide = !slide;
        const int before = state.currentIndex;
        picture.Expire();
        ASSERT_TRUE(
            gallery::MakeCurrent(state, index, gallery::kCurrentLast, gallery::FileSizes(state)));
        picture.GoTo(before);
        picture.Change();
    }
    template <class Stage> [[nodiscard]] QImage Painted(const Stage& stage) {
        QImage image(500, 400, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        stage.Paint(painter);
        return image;
    }

    support::TempFolder folder;
    support::ManualClock clock;
    gallery::GalleryState state;
    gallery::GalleryPictures pictures;
    NotedSurface surface;
    PictureStage picture{state, pictures, surface};
    StripStage strip{state, pictures, surface, picture};
};

} // namespace

TEST_F(GalleryStages, APictureShowsWhenTheDecodersHaveIt) {
    picture.Change();
    EXPECT_THAT(surface.repaints, ElementsAre(kBig));
    EXPECT_EQ(state.shownIndex, 0);
    WaitForPicture();
    EXPECT_EQ(Painted(picture).pixelColor(kBig.center()), ColourOf(0));
    surface.repaints.clear();
    picture.OnPictureReady();
    EXPECT_THAT(surface.repaints, IsEmpty()) << "it shows by now";
}

TEST_F(GalleryStages, AStepWithoutASlideRepaintsOnceItIsThere) {
    ShowFirst();
    surface.repaints.clear();
    GoTo(1, false);
    WaitForPicture();
    EXPECT_THAT(surface.repaints, Each(kBig));
    EXPECT_THAT(clock.Sleeps(), IsEmpty());
    EXPECT_EQ(Painted(picture).pixelColor(kBig.center()), ColourOf(1));
}

TEST_F(GalleryStages, AStepWithASlideWaitsForItsPictureAndThenRunsAllFrames) {
    ShowFirst();
    GoTo(4, true);
    EXPECT_EQ(state.shownIndex, 4);
    WaitForPicture();
    EXPECT_EQ(clock.Sleeps().size(), 12U);
    EXPECT_FALSE(picture.IsSliding());
    EXPECT_EQ(Painted(picture).pixelColor(kBig.center()), ColourOf(4));
}

TEST_F(GalleryStages, AfterAPictureThatWasLeftBeforeItCameTheOneBeforeItSlidesFromItsPlace) {
    state.items[1].picPath =
        folder.Write(u"tall.png"_s, support::PngBytes(support::OneColour({100, 300}, ColourOf(1))));
    state.items[1].picSize = {100, 300};
    ShowFirst();
    const QRect wide = state.picRect;
    GoTo(1, true);
    const QRect tall = state.picRect;
    ASSERT_GT(tall.left(), wide.left() + 10);
    GoTo(2, true);
    std::vector<QImage> frames;
    surface.onRepaint = [&] {
        if (picture.IsSliding()) {
            frames.push_back(Painted(picture));
        }
    };
    WaitForPicture();
    ASSERT_FALSE(frames.empty());
    const int y = wide.center().y();
    EXPECT_EQ(frames.front().pixelColor(wide.left(), y), ColourOf(0));
    EXPECT_EQ(frames.front().pixelColor(wide.right(), y), ColourOf(0));
}

TEST_F(GalleryStages, ASurfaceThatIsHiddenWhenThePictureComesSeesNoSlide) {
    ShowFirst();
    GoTo(4, true);
    surface.shown = false;
    WaitForPicture();
    EXPECT_THAT(clock.Sleeps(), IsEmpty());
    surface.shown = true;
    picture.Repaint();
    EXPECT_THAT(clock.Sleeps(), IsEmpty()) << "nor later";
}

TEST_F(GalleryStages, AnotherListTakesTheSlideThatWaits) {
    ShowFirst();
    GoTo(4, true);
    picture.Clear();
    WaitForPicture();
    EXPECT_THAT(clock.Sleeps(), IsEmpty());
}

TEST_F(GalleryStages, ACompletePictureIsThereWithoutAnEvent) {
    picture.Complete();
    EXPECT_TRUE(picture.ShowsPicture());
    EXPECT_EQ(state.shownIndex, 0);
    EXPECT_THAT(surface.repaints, IsEmpty());
}

TEST_F(GalleryStages, APictureThatCannotBeDecodedIsSaidToBeNone) {
    state.items[0].picPath = folder.Write(u"bad.png"_s, "no picture");
    picture.Complete();
    EXPECT_FALSE(picture.ShowsPicture());
    EXPECT_TRUE(state.items[0].unreadable);
    EXPECT_TRUE(state.picRect.isEmpty());
    EXPECT_EQ(state.shownIndex, -1);
}

TEST_F(GalleryStages, AStretchedPictureIsRenderedAgainASecondAfterItsLastPaint) {
    ShowFirst();
    EXPECT_THAT(surface.timers, IsEmpty());
    gallery::PlaceAreas(state, kBig.adjusted(0, 0, -50, -50), kStrip, gallery::FileSizes(state));
    picture.OnPlaced();
    picture.Repaint();
    EXPECT_THAT(surface.timers, ElementsAre(Pair(int(gallery::kRenderTimer), 1000)));
}

TEST_F(GalleryStages, ACellIsUpdatedWhenItsThumbnailComes) {
    ShowFirst();
    strip.Repaint();
    EXPECT_THAT(surface.repaints, Contains(kStrip));
    EXPECT_TRUE(support::WaitFor([this] {
        strip.OnThumbReady();
        return state.items[3].thumbDC != nullptr;
    }));
    EXPECT_THAT(surface.updates, Contains(state.items[3].thumbRect));
    EXPECT_EQ(Painted(strip).pixelColor(state.items[3].thumbRect.center()), ColourOf(3));
}

TEST_F(GalleryStages, ACompleteStripHasAllItsThumbnails) {
    strip.Complete();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Painted(strip).pixelColor(state.items[size_t(i)].thumbRect.center()), ColourOf(i))
            << i;
    }
}

TEST_F(GalleryStages, FilesAreLookedAtBeforeThePaint) {
    ASSERT_TRUE(QFile::remove(state.items[2].picPath));
    strip.Prepare();
    EXPECT_FALSE(state.items[2].fileThere);
    EXPECT_TRUE(state.items[1].fileThere);
    EXPECT_THAT(surface.repaints, IsEmpty());
}

TEST_F(GalleryStages, AStripThatMovedSlidesOnceAndAHiddenOneNot) {
    for (const bool shown : {true, false}) {
        surface.shown = shown;
        const size_t before = clock.Sleeps().size();
        ASSERT_TRUE(gallery::PageStrip(state, shown, gallery::FileSizes(state)));
        strip.Change();
        strip.Change();
        EXPECT_EQ(clock.Sleeps().size() - before, shown ? 11U : 0U);
        EXPECT_FALSE(state.stripSlidePending);
    }
}

TEST_F(GalleryStages, ASlideRepaintsItsBoundsInEachFrameAndPausesTenMilliseconds) {
    gallery::SlideRunner slides;
    gallery::SlideScene scene;
    scene.slide.bounds = QRect(1, 2, 30, 40);
    scene.slide.distance = 100;
    gallery::RunSlide(slides, scene, surface);
    EXPECT_EQ(surface.repaints, std::vector<QRect>(11, QRect(1, 2, 30, 40)));
    EXPECT_EQ(clock.Sleeps().size(), 11U);
    EXPECT_THAT(clock.Sleeps(), Each(10));
    EXPECT_FALSE(slides.IsRunning());
}
