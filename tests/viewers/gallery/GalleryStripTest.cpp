// The strip on the screen: painted from what is there, decoded beside it.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"

#include <QFile>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// Keeps every decoder from its next job until it is let go, or dies.
class BusyDecoders final {
public:
    explicit BusyDecoders(const QString& anyPicture) {
        const unsigned cores = std::thread::hardware_concurrency();
        const int threads = int(std::clamp(cores == 0 ? 1U : cores - 1, 1U, 3U));
        for (int i = 0; i < threads; ++i) {
            toolkit::PictureRequest request;
            request.path = anyPicture;
            request.size = {1, 1};
            gallery::DecodeInBackground(
                std::make_shared<gallery::DecodeJob>(request, [this] { Hold(); }),
                gallery::Urgency::Wanted);
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
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(0)) << "the big one is there";
    for (int i = 1; i <= 3; ++i) {
        EXPECT_FALSE(HasThumb(i)) << i;
        EXPECT_EQ(OnScreen().pixelColor(ThumbMiddle(i)), support::kPaneColour) << i;
    }
    decoders.LetGo();
    EXPECT_TRUE(support::WaitFor([this] { return HasThumb(1) && HasThumb(2) && HasThumb(3); }));
    EXPECT_FALSE(HasThumb(4)) << "nobody sees it";
    for (int i = 1; i <= 3; ++i) {
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

TEST_F(GalleryStrip, APaintThatCannotDecodeThePictureLeavesTheStateToTheEventBehindIt) {
    Open();
    SetItems(OnDisk(2));
    ASSERT_FALSE(State().items[1].picSize.isEmpty());
    ASSERT_TRUE(QFile::remove(State().items[1].picPath));
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(State().shownIndex, -1) << "painted";
    EXPECT_FALSE(State().picRect.isEmpty());
    support::RunPendingEvents();
    EXPECT_TRUE(State().picRect.isEmpty());
    EXPECT_TRUE(State().items[1].unreadable);
}

TEST_F(GalleryStrip, APageSlidesWithItsPicturesInIt) {
    Open();
    SetItems(OnDisk(12));
    EXPECT_TRUE(support::WaitFor([this] { return HasThumb(3); }));
    gallery->PageStrip(true);
    for (int i = 4; i <= 7; ++i) {
        EXPECT_TRUE(HasThumb(i)) << i;
    }
}
