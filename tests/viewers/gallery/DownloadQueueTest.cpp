// The gallery's queue on real worker threads and scripted transfers.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/DownloadWorker.h"

#include <QDir>
#include <QTimer>
#include <gmock/gmock.h>

#include <condition_variable>
#include <mutex>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// Holds the transfers of one operation until it is opened, or dies.
class Gate final {
public:
    Gate(support::Script& script, const std::string& operation)
        : m_script(script), m_operation(operation) {
        script.During(operation, [this] {
            std::unique_lock lock(m_lock);
            ++m_waiting;
            m_open.wait(lock, [this] { return m_isOpen; });
        });
    }
    ~Gate() {
        Open();
        m_script.During(m_operation, nullptr);
    }
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    void Open() {
        {
            const std::lock_guard lock(m_lock);
            m_isOpen = true;
        }
        m_open.notify_all();
    }
    [[nodiscard]] bool IsReached() {
        const std::lock_guard lock(m_lock);
        return m_waiting > 0;
    }

private:
    support::Script& m_script;
    const std::string m_operation;
    std::mutex m_lock;
    std::condition_variable m_open;
    bool m_isOpen = false;
    int m_waiting = 0;
};

class DownloadQueue : public GalleryFixture {
protected:
    [[nodiscard]] bool WaitForState(int index, qint32 state) {
        return support::WaitFor(
            [=, this] { return State().items.at(size_t(index)).picState == state; });
    }
};

} // namespace

TEST_F(DownloadQueue, TenPicturesWithNotesComeInTheirOrderTheFirstBeingItemZeros) {
    Open();
    SetItems(InStore(10), 5);
    EXPECT_EQ(State().visible, (gallery::ItemRange{3, 6}));
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_THAT(Started(), ElementsAre("p0", "p5", "a5", "p3", "p4", "p6", "p7", "p8", "p9", "p1",
                                       "p2", "a0", "a1", "a2", "a3", "a4", "a6", "a7", "a8", "a9"));
    for (const GalleryItem& item : State().items) {
        EXPECT_EQ(item.picState, kOnDisk);
        EXPECT_EQ(item.audioState, kOnDisk);
    }
    EXPECT_EQ(State().activeDownloads, 0);
}

TEST_F(DownloadQueue, OneDownloadRunsAtATime) {
    Gate gate(host.script, "GetDownloadState");
    Open();
    SetItems(InStore(3, false));
    ASSERT_TRUE(support::WaitFor([&] { return gate.IsReached(); }));
    EXPECT_EQ(State().activeDownloads, 1);
    EXPECT_EQ(State().items[0].picState, kDownloading);
    EXPECT_EQ(State().items[1].picState, kWaiting);
    EXPECT_THAT(Started(), ElementsAre("p0"));
    gate.Open();
    EXPECT_TRUE(WaitForDownloads());
}

TEST_F(DownloadQueue, WhatIsOnDiskIsNeverFetched) {
    Open();
    auto items = InStore(3, false);
    folder.Write(u"cache/p1.jpg"_s, support::PngBytes(support::OneColour({9, 9}, Qt::red)));
    SetItems(items);
    EXPECT_EQ(State().items[1].picState, kOnDisk);
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_THAT(Started(), ElementsAre("p0", "p2"));
}

TEST_F(DownloadQueue, TheEndOfTheCurrentDownloadBringsThePictureByItself) {
    Gate gate(host.script, "StartDownload");
    Open();
    SetItems(InStore(1, false));
    ASSERT_TRUE(support::WaitFor([&] { return gate.IsReached(); }));
    EXPECT_TRUE(State().picRect.isEmpty());
    EXPECT_NE(PixelAt(PictureMiddle() - QPoint(0, 40)), ColourOf(0));
    gate.Open();
    ASSERT_TRUE(WaitForState(0, kOnDisk));
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
    EXPECT_EQ(State().shownIndex, 0);
    EXPECT_EQ(PixelAt(ThumbMiddle(0)), ColourOf(0));
}

TEST_F(DownloadQueue, EachDownloadIsLoggedAtItsStart) {
    Open();
    SetItems(InStore(1));
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_TRUE(
        ModuleLog().contains(u"[开始]下载照片,UUID=p0,Path="_s + folder.Path(u"cache/p0.jpg"_s)));
    EXPECT_TRUE(ModuleLog().contains(u"[开始]下载照片,UUID=a0,Path="_s));
}

TEST_F(DownloadQueue, AFailureGivesItsStateALogLineAndTheNextDownload) {
    Open();
    auto items = InStore(3, false);
    host.files.stored.erase(u"p0"_s);
    SetItems(items);
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_EQ(State().items[0].picState, kDownloadFailedState);
    EXPECT_EQ(State().items[2].picState, kOnDisk);
    EXPECT_TRUE(ModuleLog().contains(u"下载照片失败,UUID=p0, 信息=scripted failure"_s));
    EXPECT_TRUE(State().picRect.isEmpty());
}

TEST_F(DownloadQueue, AnEmptyUuidFailsWithoutATransfer) {
    Open();
    auto items = InStore(1, false);
    items[0].picUuid.clear();
    SetItems(items);
    ASSERT_TRUE(WaitForState(0, kDownloadFailedState));
    EXPECT_EQ(Log().CountOf("StartDownload"), 0);
}

TEST_F(DownloadQueue, WrongBytesAreAPictureThatCantBeShown) {
    Open();
    auto items = InStore(1, false);
    host.files.stored[u"p0"_s] = "not a picture";
    SetItems(items);
    ASSERT_TRUE(WaitForState(0, kOnDisk));
    (void)Shown();
    EXPECT_TRUE(State().picRect.isEmpty());
    EXPECT_EQ(State().shownIndex, -1);
}

TEST_F(DownloadQueue, TheStripRepaintsWhileAVisiblePictureIsMissingAndAfterTheLast) {
    Open();
    SetItems(InStore(2, false));
    ASSERT_TRUE(WaitForDownloads());
    // The timer runs on: what it repaints shows a picture that nobody was told of.
    EXPECT_TRUE(support::WaitFor([this] { return State().items[1].thumbDC != nullptr; }));
    gallery->timersTold.clear();
    EXPECT_TRUE(support::WaitFor([this] { return gallery->timersTold.size() >= 2; }));
    EXPECT_EQ(gallery->timersTold.front(), gallery::kStripTimer);
    // The next list clears the process's flag.
    SetItems(OnDisk(1));
}

TEST_F(DownloadQueue, OfTwoGalleriesThatWaitAtOnceOnlyTheFirstRepaintsItsStrip) {
    Gate gate(host.script, "GetDownloadState");
    Open();
    SetItems(InStore(2, false));
    support::FolderGallery second;
    second.Create(toolkit::kNoWindow);
    second.Widget()->resize(500, 400);
    second.Widget()->show();
    auto others = InStore(2, false);
    for (GalleryItem& item : others) {
        item.picPath += u".other"_s;
    }
    second.SetPicItems(others);
    // An end that belongs to no item of either list has the queues go on.
    for (const toolkit::WindowId window : {gallery->Id(), second.Id()}) {
        toolkit::PostWindowEvent(window, gallery::kDownloadDone, 0, 0,
                                 std::make_unique<gallery::KeyPayload>(
                                     gallery::DownloadKey{99, gallery::DownloadKind::Picture}));
    }
    ASSERT_TRUE(support::WaitFor([this] { return gallery->timersTold.size() >= 3; }));
    EXPECT_TRUE(second.timersTold.empty()) << "one flag for the whole process";
    EXPECT_EQ(State().activeDownloads, 1);
    EXPECT_EQ(second.State().activeDownloads, 1) << "each has a queue of its own";
    gate.Open();
    ASSERT_TRUE(WaitForDownloads());
    ASSERT_TRUE(support::WaitFor([&] { return second.State().items[1].picState == kOnDisk; }));
    // The next list clears the process's flag.
    SetItems(OnDisk(1));
}

TEST_F(DownloadQueue, AnEmptyListStartsNeitherThreadNorTimer) {
    Open();
    SetItems({});
    EXPECT_EQ(State().activeDownloads, 0);
    EXPECT_EQ(Log().CountOf("StartDownload"), 0);
    // Longer than the strip's timer by a timer of the same kind.
    int rounds = 0;
    QTimer control;
    QObject::connect(&control, &QTimer::timeout, [&] { ++rounds; });
    control.start(100);
    EXPECT_TRUE(support::WaitFor([&] { return rounds == 3; }));
    EXPECT_TRUE(gallery->timersTold.empty());
}

TEST_F(DownloadQueue, PercentsReachTheItemAndOfNotesTheSubclass) {
    Open();
    SetItems(OnDisk(2));
    const auto post = [this](int index, gallery::DownloadKind kind, int percent) {
        toolkit::PostWindowEvent(
            gallery->Id(), gallery::kDownloadProgress, 0, quintptr(percent),
            std::make_unique<gallery::KeyPayload>(gallery::DownloadKey{index, kind}));
    };
    post(1, gallery::DownloadKind::Picture, 42);
    post(1, gallery::DownloadKind::Audio, 17);
    post(gallery::kExtraAudio, gallery::DownloadKind::Audio, 63);
    post(9, gallery::DownloadKind::Picture, 5);
    toolkit::DeliverPostedEvents();
    EXPECT_EQ(State().items[1].picProgress, 42);
    EXPECT_EQ(State().items[1].audioProgress, 0);
    EXPECT_THAT(gallery->audioTold, ElementsAre(17));
    EXPECT_EQ(gallery->extraAudio.progress, 63);
}

TEST_F(DownloadQueue, AFinishedCurrentPictureIsRenderedFromItsNewFile) {
    Open();
    SetItems(OnDisk(2));
    ASSERT_EQ(PixelAt(PictureMiddle()), ColourOf(0));
    ASSERT_TRUE(QFile::remove(State().items[0].picPath));
    ASSERT_TRUE(QFile::copy(State().items[1].picPath, State().items[0].picPath));
    toolkit::PostWindowEvent(gallery->Id(), gallery::kDownloadDone, 0, 0,
                             std::make_unique<gallery::KeyPayload>(
                                 gallery::DownloadKey{0, gallery::DownloadKind::Picture}));
    toolkit::DeliverPostedEvents();
    EXPECT_EQ(PixelAt(PictureMiddle()), ColourOf(1));
}

TEST_F(DownloadQueue, AFinishedNoteIsToldToTheSubclass) {
    Open();
    SetItems(InStore(1));
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_THAT(gallery->audioTold, ElementsAre(1));
}

TEST_F(DownloadQueue, TheListsOwnNoteIsFetchedOnRequest) {
    Open();
    host.files.stored[u"extra"_s] = "#!AMR\n";
    gallery->extraAudio.uuid = u"extra"_s;
    gallery->extraAudio.path = folder.Path(u"cache/extra.amr"_s);
    gallery->StartDownload(gallery::kExtraAudio, gallery::DownloadKind::Audio);
    EXPECT_EQ(gallery->extraAudio.state, kDownloading);
    EXPECT_TRUE(support::WaitFor([this] { return gallery->extraAudio.state == kOnDisk; }));
    EXPECT_EQ(folder.Read(u"cache/extra.amr"_s), "#!AMR\n");
}

TEST_F(DownloadQueue, ACloseDuringADownloadDropsItsEnd) {
    Gate gate(host.script, "GetDownloadState");
    Open();
    SetItems(InStore(3));
    ASSERT_TRUE(support::WaitFor([&] { return gate.IsReached(); }));
    gallery->Destroy();
    Open();
    gate.Open();
    gallery::JoinDownloadWorkers();
    support::RunPendingEvents();
    EXPECT_EQ(State().activeDownloads, 0);
    EXPECT_TRUE(State().items.empty());
}

TEST_F(DownloadQueue, AListReplacedDuringADownloadGetsTheEndAtThatPlace) {
    Gate gate(host.script, "GetDownloadState");
    Open();
    SetItems(InStore(3, false));
    ASSERT_TRUE(support::WaitFor([&] { return gate.IsReached(); }));
    auto other = InStore(2, false);
    other[0].picPath = folder.Path(u"cache/other.jpg"_s);
    SetItems(other);
    EXPECT_EQ(State().activeDownloads, 1);
    gate.Open();
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_EQ(State().activeDownloads, 0);
    EXPECT_EQ(State().items[0].picState, kOnDisk);
}

TEST_F(DownloadQueue, AListReplacedByAShorterOneTakesNoHarm) {
    Gate gate(host.script, "GetDownloadState");
    Open();
    SetItems(InStore(3, false), 2);
    ASSERT_TRUE(support::WaitFor([&] { return gate.IsReached(); }));
    SetItems({});
    gate.Open();
    EXPECT_TRUE(support::WaitFor([this] { return State().activeDownloads == 0; }));
}

TEST_F(DownloadQueue, AMissingCacheFolderIsMade) {
    Open();
    ASSERT_FALSE(QDir(folder.Path(u"cache"_s)).exists());
    SetItems(InStore(1, false));
    ASSERT_TRUE(WaitForState(0, kOnDisk));
    EXPECT_TRUE(QDir(folder.Path(u"cache"_s)).exists());
}

TEST_F(DownloadQueue, GalleriesThatComeAndGoDuringDownloadsTakeNoHarm) {
    const std::vector<GalleryItem> items = InStore(4);
    for (int round = 0; round < 20; ++round) {
        Open(round % 2 == 0);
        SetItems(items, round % 4);
        if (round % 3 == 0) {
            support::RunPendingEvents();
        }
        gallery->Destroy();
        QDir(folder.Path(u"cache"_s)).removeRecursively();
    }
    gallery::JoinDownloadWorkers();
    support::RunPendingEvents();
    EXPECT_EQ(State().activeDownloads, 0);
}

TEST_F(DownloadQueue, EachDownloadNamesTheServerThatTheClientKnows) {
    Open();
    SetItems(InStore(1));
    ASSERT_TRUE(WaitForDownloads());
    EXPECT_THAT(Log().LinesOf({"StartDownload"}),
                testing::ElementsAre("StartDownload(uuid=p0,kind=2,server=1.0)",
                                     "StartDownload(uuid=a0,kind=2,server=1.0)"));
}
