// The strip on the screen: painted from what is there, decoded beside it.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"

#include <QFile>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Keeps decoders from their next job until it is let go, or dies: all of them, or those that do
/// thumbnails.
class BusyDecoders final {
public:
    explicit BusyDecoders(const QString& anyPicture,
                          gallery::Urgency urgency = gallery::Urgency::Wanted) {
        const bool all = urgency != gallery::Urgency::Strip;
        const int threads =
            int(gallery::DecoderCount(std::thread::hardware_concurrency())) - (all ? 0 : 1);
        for (int i = 0; i < threads; ++i) {
            toolkit::PictureRequest request;
            request.path = anyPicture;
            request.size = {1, 1};
            gallery::DecodeInBackground(
                std::make_shared<gallery::DecodeJob>(request, [this] { Hold(); }), urgency);
        }
        std::unique_lock lock(m_lock);
        m_changed.wait(lock, [&] { return m_held == threads; });
    }
    ~BusyDecoders() { LetGo(); }
    BusyDecoders(const BusyDecoders&) = delete;
    BusyDecoders& operator=(const BusyDecoders&) = delete;

    void LetGo() {
        std::unique_lock lock(m_lock);
        m_free = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_held == 0; });
    }

private:
    void Hold() {
        std::unique_lock lock(m_lock);
        ++m_held;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_free; });
        --m_held;
        m_changed.notify_all();
    }

    std::mutex m_lock;
    std::condition_variable m_changed;
    bool m_free = false;
    int m_held = 0;
};

class GalleryStrip : public GalleryFixture {
protected:
    /// What stands on the screen, which no grab of the pane has completed.
    [[nodiscard]] QImage OnScreen() {
        return Pane()->screen()->grabWindow(Pane()->winId()).toImage();
    }
    [[nodiscard]] bool HasThumb(int index) const {
        return State().items.at(size_t(index)).thumbDC != nullptr;
    }
};

} // namespace

TEST_F(GalleryStrip, APaintDecodesNothingAndACellIsPaintedWhenItsPictureComes) {
    const std::vector<GalleryItem> items = OnDisk(5);
    BusyDecoders decoders(items[0].picPath);
    Open();
    SetItems(items);
    Pane()->repaint();
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), support::kPaneColour) << "nor the big one";
    for (int i = 0; i <= 3; ++i) {
        EXPECT_FALSE(HasThumb(i)) << i;
        EXPECT_EQ(OnScreen().pixelColor(ThumbMiddle(i)), support::kPaneColour) << i;
    }
    decoders.LetGo();
    EXPECT_TRUE(
        support::WaitFor([this] { return OnScreen().pixelColor(PictureMiddle()) == ColourOf(0); }));
    EXPECT_TRUE(support::WaitFor([this] { return HasThumb(1) && HasThumb(2) && HasThumb(3); }));
    EXPECT_FALSE(HasThumb(4)) << "nobody sees it";
    for (int i = 0; i <= 3; ++i) {
        EXPECT_TRUE(support::WaitFor([&] {
            return OnScreen().pixelColor(ThumbMiddle(i)) == ColourOf(i);
        })) << i;
    }
}

TEST_F(GalleryStrip, WhatIsOnItsWayForCellsThatAreGoneIsGivenUp) {
    const std::vector<GalleryItem> items = OnDisk(12);
    BusyDecoders decoders(items[0].picPath);
    Open();
    SetItems(items);
    gallery->SelectPic(11, gallery::kCurrentLast);
    EXPECT_EQ(State().visible, (gallery::ItemRange{8, 11}));
    decoders.LetGo();
    EXPECT_TRUE(support::WaitFor([this] { return HasThumb(8) && HasThumb(9) && HasThumb(10); }));
    // What comes last of all.
    std::atomic<bool> last = false;
    toolkit::PictureRequest request;
    request.path = items[0].picPath;
    request.size = {1, 1};
    gallery::DecodeInBackground(
        std::make_shared<gallery::DecodeJob>(request, [&] { last.store(true); }),
        gallery::Urgency::Ahead);
    EXPECT_TRUE(support::WaitFor([&] { return last.load(); }));
    support::RunPendingEvents();
    EXPECT_FALSE(HasThumb(2));
    EXPECT_FALSE(HasThumb(3));
}

TEST_F(GalleryStrip, AListReplacedWhileItsCellsAreDecodedGetsNoneOfThem) {
    const std::vector<GalleryItem> items = OnDisk(8);
    BusyDecoders decoders(items[0].picPath);
    Open();
    SetItems(items);
    SetItems({items[4], items[5], items[6], items[7]});
    decoders.LetGo();
    EXPECT_TRUE(support::WaitFor([this] { return HasThumb(1) && HasThumb(2) && HasThumb(3); }));
    for (int i = 1; i <= 3; ++i) {
        EXPECT_TRUE(support::WaitFor([&] {
            return OnScreen().pixelColor(ThumbMiddle(i)) == ColourOf(i + 4);
        })) << i;
    }
}

TEST_F(GalleryStrip, APaintLooksAtNoFileTheNextLookAtTheStripDoes) {
    Open();
    SetItems(OnDisk(3));
    ASSERT_TRUE(QFile::remove(State().items[1].picPath));
    Pane()->repaint();
    EXPECT_TRUE(State().items[1].fileThere);
    QTest::mouseMove(Pane(), ThumbMiddle(2));
    EXPECT_TRUE(support::WaitFor([this] { return !State().items[1].fileThere; }));
}

TEST_F(GalleryStrip, AJumpIsAnsweredAtOnceAndThePictureBeforeStaysUntilTheNextOneComes) {
    const std::vector<GalleryItem> items = OnDisk(8);
    Open();
    SetItems(items);
    ASSERT_TRUE(
        support::WaitFor([this] { return OnScreen().pixelColor(PictureMiddle()) == ColourOf(0); }));
    BusyDecoders decoders(items[0].picPath);
    QWheelEvent turn(PictureMiddle(), Pane()->mapToGlobal(PictureMiddle()), {}, QPoint(0, -600),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Pane(), &turn);
    EXPECT_EQ(State().currentIndex, 5);
    EXPECT_EQ(gallery->told.back(), 5);
    Pane()->repaint();
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(0)) << "no flicker";
    decoders.LetGo();
    EXPECT_TRUE(
        support::WaitFor([this] { return OnScreen().pixelColor(PictureMiddle()) == ColourOf(5); }));
}

TEST_F(GalleryStrip, AKeyAtTheFirstPictureWaitsForNoThumbnail) {
    const std::vector<GalleryItem> items = OnDisk(12);
    Open();
    BusyDecoders thumbnails(items[0].picPath, gallery::Urgency::Strip);
    SetItems(items);
    for (int i = 0; i < 12; ++i) {
        EXPECT_TRUE(support::WaitFor([&] {
            return OnScreen().pixelColor(PictureMiddle()) == ColourOf(i);
        })) << i;
        QTest::keyClick(Pane(), Qt::Key_Right);
    }
}

TEST_F(GalleryStrip, APictureThatCannotBeDecodedIsNoPictureOnceTheDecodersSaySo) {
    Open();
    SetItems(OnDisk(2));
    ASSERT_FALSE(State().items[1].picSize.isEmpty());
    ASSERT_TRUE(QFile::remove(State().items[1].picPath));
    Pane()->hide();
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_FALSE(State().picRect.isEmpty());
    Pane()->show();
    EXPECT_TRUE(support::WaitFor([this] { return State().picRect.isEmpty(); }));
    EXPECT_TRUE(State().items[1].unreadable);
    EXPECT_TRUE(support::WaitFor([this] { return State().shownIndex == -1; }));
}

TEST_F(GalleryStrip, APageSlidesAtOnceAndItsPicturesComeWhenTheyAreDecoded) {
    const std::vector<GalleryItem> items = OnDisk(12);
    Open();
    SetItems(items);
    EXPECT_TRUE(support::WaitFor([this] { return gallery->ShowsPicture() && HasThumb(3); }));
    BusyDecoders decoders(items[0].picPath);
    gallery->PageStrip(true);
    EXPECT_EQ(clock.Sleeps().size(), 11U) << "the frames of the slide";
    EXPECT_EQ(OnScreen().pixelColor(ThumbMiddle(5)), support::kPaneColour);
    decoders.LetGo();
    for (int i = 4; i <= 7; ++i) {
        EXPECT_TRUE(support::WaitFor([&] {
            return OnScreen().pixelColor(ThumbMiddle(i)) == ColourOf(i);
        })) << i;
    }
}
