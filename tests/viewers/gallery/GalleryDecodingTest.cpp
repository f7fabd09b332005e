// Who decodes what, and in which order: never the interface thread, what is wanted first.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/media/PictureFile.h"
#include "viewers/Decoders.h"

#include <QFileInfo>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <gmock/gmock.h>

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using testing::Contains;
using testing::IsEmpty;

namespace {

/// Notes every decoding, by its thread and in its order, and can hold the decoders where they
/// begin.
class DecodeNotes final : public toolkit::IDecodeWatch {
public:
    DecodeNotes() { toolkit::SetDecodeWatch(this); }
    /// Once the decoders have ended.
    ~DecodeNotes() override { toolkit::SetDecodeWatch(nullptr); }
    DecodeNotes(const DecodeNotes&) = delete;
    DecodeNotes& operator=(const DecodeNotes&) = delete;

    void OnDecode(const toolkit::PictureRequest& request) override {
        std::unique_lock lock(m_lock);
        if (std::this_thread::get_id() == m_interface) {
            m_here.push_back(NameOf(request));
            return;
        }
        ++m_held;
        m_changed.wait(lock, [this] { return !m_hold; });
        --m_held;
        m_begun.push_back(NameOf(request));
    }

    /// On the interface thread.
    [[nodiscard]] std::vector<std::string> Here() {
        const std::lock_guard lock(m_lock);
        return m_here;
    }
    /// On decoders, in the order in which they began.
    [[nodiscard]] std::vector<std::string> Begun() {
        const std::lock_guard lock(m_lock);
        return m_begun;
    }
    void Forget() {
        const std::lock_guard lock(m_lock);
        m_begun.clear();
    }
    void Hold() {
        const std::lock_guard lock(m_lock);
        m_hold = true;
    }
    [[nodiscard]] unsigned Held() {
        const std::lock_guard lock(m_lock);
        return m_held;
    }
    void LetGo() {
        const std::lock_guard lock(m_lock);
        m_hold = false;
        m_changed.notify_all();
    }

private:
    /// "d003 big", "d003 thumb".
    static std::string NameOf(const toolkit::PictureRequest& request) {
        const QString name = QFileInfo(request.path).completeBaseName();
        return name.toStdString() + (request.part.isEmpty() ? " big" : " thumb");
    }

    const std::thread::id m_interface = std::this_thread::get_id();
    std::mutex m_lock; ///< guards what follows
    std::condition_variable m_changed;
    bool m_hold = false;
    unsigned m_held = 0;
    std::vector<std::string> m_here;
    std::vector<std::string> m_begun;
};

/// The fixture's end joins the decoders, so the notes live longer.
struct NotesFirst {
    DecodeNotes notes;
};

class GalleryDecoding : protected NotesFirst, public GalleryFixture {
protected:
    ~GalleryDecoding() override { notes.LetGo(); }

    [[nodiscard]] QImage OnScreen() {
        return Pane()->screen()->grabWindow(Pane()->winId()).toImage();
    }
    /// The picture and every visible thumbnail are there, and nothing more happens.
    void Rest() {
        ASSERT_TRUE(support::WaitFor([this] {
            bool all = gallery->ShowsPicture();
            for (int i = State().visible.first; i <= State().visible.last; ++i) {
                all = all && State().items[size_t(i)].thumbDC != nullptr;
            }
            return all;
        }));
        support::RunPendingEvents();
    }
    /// A job of nobody's.
    std::shared_ptr<gallery::DecodeJob> HandIn(gallery::Urgency urgency) {
        toolkit::PictureRequest request;
        request.path = folder.Path(QStringLiteral("held"));
        request.size = {1, 1};
        auto job = std::make_shared<gallery::DecodeJob>(request);
        gallery::DecodeInBackground(job, urgency);
        return job;
    }
    /// Nothing that is asked for from now on begins before the notes let go.
    void HoldAllDecoders() {
        notes.Hold();
        const unsigned count = gallery::DecoderCount(std::thread::hardware_concurrency());
        for (unsigned i = 0; i < count; ++i) {
            static_cast<void>(HandIn(gallery::Urgency::Wanted));
        }
        ASSERT_TRUE(support::WaitFor([&] { return notes.Held() == count; }));
    }
    /// What was begun, without what held the decoders.
    [[nodiscard]] std::vector<std::string> Begun() {
        std::vector<std::string> begun = notes.Begun();
        std::erase(begun, "held big");
        return begun;
    }
    [[nodiscard]] bool Contained(const std::string& name) {
        const std::vector<std::string> begun = Begun();
        return std::find(begun.begin(), begun.end(), name) != begun.end();
    }
    void ClickButton(gallery::GalleryButton button) {
        QTest::mouseClick(Pane(), Qt::LeftButton, {}, State().buttons[button].rect.center());
    }
    void Wheel(int notches) {
        QWheelEvent turn(PictureMiddle(), Pane()->mapToGlobal(PictureMiddle()), {},
                         QPoint(0, -120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                         false);
        QCoreApplication::sendEvent(Pane(), &turn);
    }
    /// One way through the list for each kind of input, the next as soon as this one is answered or
    /// once all is at rest.
    void WalkAbout(bool resting) {
        const std::vector<std::function<void()>> deeds{
            [this] { ClickButton(gallery::kNextPic); },
            [this] { QTest::keyClick(Pane(), Qt::Key_End); },
            [this] { ClickButton(gallery::kPrevPic); },
            [this] { QTest::keyClick(Pane(), Qt::Key_PageUp); },
            [this] {
                QTest::mouseClick(Pane(), Qt::LeftButton, {}, ThumbMiddle(State().visible.first));
            },
            [this] { QTest::keyClick(Pane(), Qt::Key_Home); },
            [this] { QTest::keyClick(Pane(), Qt::Key_PageDown); },
            [this] { Wheel(7); },
            [this] { QTest::keyClick(Pane(), Qt::Key_Right); },
            [this] { Pane()->resize(640, 480); },
            [this] { QTest::mouseDClick(Pane(), Qt::LeftButton, {}, PictureMiddle()); },
            [this] { QTest::keyClick(Pane(), Qt::Key_Left); },
        };
        for (const auto& deed : deeds) {
            deed();
            if (resting) {
                Rest();
            }
        }
        Rest();
    }
};

} // namespace

TEST_F(GalleryDecoding, TheInterfaceThreadDecodesNothingWhateverIsDone) {
    folder.Write(QStringLiteral("work/DefaultPic.jpg"),
                 support::PngBytes(support::OneColour({300, 200}, Qt::gray)));
    Open();
    SetItems(OnDisk(30));
    WalkAbout(false);
    SetItems(OnDisk(30), 4);
    WalkAbout(true);
    static_cast<void>(Shown());
    EXPECT_THAT(notes.Here(), IsEmpty());
    EXPECT_THAT(notes.Begun(), Contains("d029 big"));
    EXPECT_THAT(notes.Begun(), Contains("DefaultPic thumb"));
}

TEST_F(GalleryDecoding, APictureOfThePaneIsCompleteAndDecodedByTheDecodersToo) {
    Open();
    SetItems(OnDisk(6), 1);
    const QImage taken = Shown();
    EXPECT_EQ(taken.pixelColor(PictureMiddle()), ColourOf(1));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(taken.pixelColor(ThumbMiddle(i)), ColourOf(i)) << i;
    }
    EXPECT_THAT(notes.Here(), IsEmpty());
}

TEST_F(GalleryDecoding, WhatIsWantedBeginsBeforeWhatWasHandedInBeforeItAndThatIsDropped) {
    Open();
    SetItems(OnDisk(30));
    Rest();
    HoldAllDecoders();
    notes.Forget();
    QTest::keyClick(Pane(), Qt::Key_End);
    QTest::keyClick(Pane(), Qt::Key_Left);
    Wheel(-16);
    ASSERT_EQ(State().currentIndex, 12);
    notes.LetGo();
    Rest();
    ASSERT_TRUE(support::WaitFor([this] { return Contained("d011 big"); }));
    EXPECT_EQ(Begun().front(), "d012 big");
    for (const char* dropped : {"d029 big", "d028 big", "d027 big", "d026 thumb", "d029 thumb"}) {
        EXPECT_FALSE(Contained(dropped)) << dropped;
    }
}

TEST_F(GalleryDecoding, AStepWithASlideIsAnsweredAtOnceAndSlidesWhenItsPictureComes) {
    Open();
    SetItems(OnDisk(30));
    Rest();
    notes.Hold();
    QTest::keyClick(Pane(), Qt::Key_End);
    EXPECT_EQ(State().currentIndex, 29);
    EXPECT_EQ(gallery->told.back(), 29);
    EXPECT_EQ(State().shownIndex, 29);
    EXPECT_TRUE(clock.Sleeps().empty()) << "nothing slides yet";
    EXPECT_FALSE(gallery->ShowsPicture());
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(0)) << "no flicker";
    notes.LetGo();
    Rest();
    EXPECT_EQ(clock.Sleeps().size(), 12U) << "the frames of the slide";
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(29));
}

TEST_F(GalleryDecoding, AStepByKeyTakesTheSlideFromTheOneThatWaits) {
    Open();
    SetItems(OnDisk(30));
    Rest();
    notes.Hold();
    QTest::keyClick(Pane(), Qt::Key_End);
    QTest::keyClick(Pane(), Qt::Key_Left);
    notes.LetGo();
    Rest();
    EXPECT_TRUE(clock.Sleeps().empty());
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(28));
}

TEST_F(GalleryDecoding, WhatIsSeenSlidesOutWhereThePictureBeforeNeverCame) {
    Open();
    SetItems(OnDisk(30));
    Rest();
    notes.Hold();
    Wheel(20);
    QTest::keyClick(Pane(), Qt::Key_End);
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(0));
    notes.LetGo();
    Rest();
    EXPECT_FALSE(clock.Sleeps().empty());
    EXPECT_EQ(OnScreen().pixelColor(PictureMiddle()), ColourOf(29));
}

TEST_F(GalleryDecoding, ASlideThatWaitsEndsWithTheSizeTheFitAndThePictureOfThePane) {
    Open();
    const auto slept = [this](const std::function<void()>& meanwhile) {
        SetItems(OnDisk(30));
        Rest();
        const size_t before = clock.Sleeps().size();
        notes.Hold();
        QTest::keyClick(Pane(), Qt::Key_End);
        meanwhile();
        notes.LetGo();
        Rest();
        gallery->SetCurrentIndex(0);
        return clock.Sleeps().size() - before;
    };
    EXPECT_GT(slept([] {}), 9U);
    EXPECT_EQ(slept([this] {
                  Pane()->resize(520, 420);
                  support::RunPendingEvents();
              }),
              0U);
    EXPECT_EQ(slept([this] { QTest::mouseDClick(Pane(), Qt::LeftButton, {}, PictureMiddle()); }),
              0U);
    EXPECT_EQ(slept([this] {
                  notes.LetGo();
                  static_cast<void>(Shown());
              }),
              0U);
}

TEST_F(GalleryDecoding, AJumpHasTheDecodersToItselfAndLooksAheadWhenItShows) {
    Open();
    SetItems(OnDisk(30));
    Rest();
    HoldAllDecoders();
    notes.Forget();
    Wheel(12);
    const auto behind = HandIn(gallery::Urgency::Ahead);
    notes.LetGo();
    // No event is handled until this is done: the picture can't show.
    static_cast<void>(behind->Await());
    EXPECT_TRUE(Contained("d012 big"));
    EXPECT_FALSE(Contained("d013 big"));
    Rest();
    EXPECT_TRUE(support::WaitFor([this] { return Contained("d013 big"); }));
}

TEST_F(GalleryDecoding, TheFirstPictureHasTheDecodersToItselfAndLooksAheadWhenItShows) {
    Open();
    HoldAllDecoders();
    SetItems(OnDisk(30));
    const auto behind = HandIn(gallery::Urgency::Ahead);
    notes.LetGo();
    // No event is handled until this is done: the picture can't show.
    static_cast<void>(behind->Await());
    EXPECT_TRUE(Contained("d000 big"));
    EXPECT_FALSE(Contained("d001 big"));
    Rest();
    EXPECT_TRUE(support::WaitFor([this] { return Contained("d001 big"); }));
}

TEST_F(GalleryDecoding, AStepLooksAheadBesideItsPicture) {
    Open();
    SetItems(OnDisk(30));
    Rest();
    HoldAllDecoders();
    notes.Forget();
    QTest::keyClick(Pane(), Qt::Key_Right);
    QTest::keyClick(Pane(), Qt::Key_Right);
    const auto behind = HandIn(gallery::Urgency::Ahead);
    notes.LetGo();
    static_cast<void>(behind->Await());
    EXPECT_TRUE(Contained("d003 big"));
}
