// Decoding beside the interface thread.
#include "viewers/Decoders.h"
#include "viewers/PictureCache.h"

#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QDir>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;
using gallery::DecodeJob;

namespace {

class DecodersTest : public testing::Test {
protected:
    ~DecodersTest() override { gallery::JoinDecoders(); }

    QString Picture(const QString& name, const QColor& colour) {
        return folder.Write(name, support::PngBytes(support::OneColour({64, 64}, colour)));
    }
    static toolkit::PictureRequest Request(const QString& path) {
        toolkit::PictureRequest request;
        request.path = path;
        request.size = {16, 16};
        return request;
    }

    support::TempFolder folder;
};

/// Jobs that keep their decoders until this goes.
class HeldJobs final {
public:
    HeldJobs(const QString& picture, gallery::Urgency urgency, unsigned count) : m_count(count) {
        toolkit::PictureRequest request;
        request.path = picture;
        request.size = {16, 16};
        for (unsigned i = 0; i < count; ++i) {
            gallery::DecodeInBackground(std::make_shared<DecodeJob>(request, [this] { Hold(); }),
                                        urgency);
        }
    }
    ~HeldJobs() {
        WaitUntilHeld();
        std::unique_lock lock(m_lock);
        m_free = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_left == m_count; });
    }
    HeldJobs(const HeldJobs&) = delete;
    HeldJobs& operator=(const HeldJobs&) = delete;

    /// Waits until each of them has a decoder to itself.
    void WaitUntilHeld() {
        std::unique_lock lock(m_lock);
        m_changed.wait(lock, [this] { return m_held == m_count; });
    }

private:
    void Hold() {
        std::unique_lock lock(m_lock);
        ++m_held;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_free; });
        ++m_left;
        m_changed.notify_all();
    }

    const unsigned m_count;
    std::mutex m_lock; ///< guards what follows
    std::condition_variable m_changed;
    unsigned m_held = 0;
    unsigned m_left = 0;
    bool m_free = false;
};

unsigned AllDecoders() {
    return gallery::DecoderCount(std::thread::hardware_concurrency());
}

/// Keeps all decoders busy.
class HeldDecoders final {
public:
    explicit HeldDecoders(const support::TempFolder& folder)
        : m_jobs(folder.Write(u"held"_s, support::PngBytes(support::OneColour({4, 4}, Qt::white))),
                 gallery::Urgency::Wanted, AllDecoders()) {
        m_jobs.WaitUntilHeld();
    }

private:
    HeldJobs m_jobs;
};

} // namespace

TEST_F(DecodersTest, WhoAwaitsAPictureHasItDecodedByADecoder) {
    class Watch final : public toolkit::IDecodeWatch {
    public:
        void OnDecode(const toolkit::PictureRequest&) override {
            thread = std::this_thread::get_id();
        }
        std::thread::id thread; ///< set before the job is done, read afterwards
    } watch;
    const auto job = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
    EXPECT_FALSE(job->IsDone());
    EXPECT_TRUE(job->GetIfDone().isNull());
    toolkit::SetDecodeWatch(&watch);
    EXPECT_EQ(gallery::AwaitDecoded(job).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(gallery::AwaitDecoded(job).pixelColor(0, 0), QColor(Qt::red)) << "it is there";
    toolkit::SetDecodeWatch(nullptr);
    EXPECT_TRUE(job->IsDone());
    EXPECT_NE(watch.thread, std::thread::id());
    EXPECT_NE(watch.thread, std::this_thread::get_id());
}

TEST_F(DecodersTest, DecodersDoJobsAndTell) {
    std::atomic<int> told{0};
    std::vector<std::shared_ptr<DecodeJob>> jobs;
    for (int i = 0; i < 20; ++i) {
        jobs.push_back(std::make_shared<DecodeJob>(
            Request(Picture(u"p%1"_s.arg(i), QColor(i * 10, 0, 0))), [&] { ++told; }));
        gallery::DecodeInBackground(jobs.back(), gallery::Urgency::Ahead);
    }
    EXPECT_TRUE(support::WaitFor([&] { return told.load() == 20; }));
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(jobs[size_t(i)]->Await().pixelColor(5, 5), QColor(i * 10, 0, 0));
    }
}

TEST_F(DecodersTest, WhatWasHandedInBeforeIsDecodedOnceForWhoAwaitsIt) {
    for (int round = 0; round < 30; ++round) {
        std::atomic<int> told{0};
        const auto job =
            std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)), [&] { ++told; });
        gallery::DecodeInBackground(job, gallery::Urgency::Ahead);
        EXPECT_EQ(gallery::AwaitDecoded(job).pixelColor(0, 0), QColor(Qt::red));
        gallery::JoinDecoders();
        EXPECT_EQ(told.load(), 1);
    }
}

TEST_F(DecodersTest, WhatDecodersThatEndedLeftUndoneIsDecodedForWhoAwaitsIt) {
    gallery::PictureCache cache;
    const QString path = Picture(u"a"_s, Qt::red);
    {
        const HeldDecoders busy(folder);
        EXPECT_EQ(cache.Want(path, {20, 20}, {}), std::nullopt);
    }
    gallery::JoinDecoders();
    EXPECT_EQ(cache.Await(path, {20, 20}).pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(DecodersTest, AJobThatIsGivenUpHasNoResult) {
    const auto job = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)),
                                                 [] { ADD_FAILURE() << "told"; });
    job->GiveUp();
    gallery::DecodeInBackground(job, gallery::Urgency::Wanted);
    EXPECT_TRUE(job->Await().isNull());
}

TEST_F(DecodersTest, AJobThatSomebodyDoesIsLeftToHimAndEndsWithoutAResultIfGivenUp) {
    // A pipe that nobody writes to keeps the reader where it is.
    const QByteArray pipe = folder.Path(u"pipe"_s).toLocal8Bit();
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    DecodeJob job(Request(QString::fromLocal8Bit(pipe)), [] { ADD_FAILURE() << "told"; });
    std::jthread reader([&] { job.Run(); });
    int writer = -1;
    EXPECT_TRUE(support::WaitFor([&] {
        writer = open(pipe.constData(), O_WRONLY | O_NONBLOCK);
        return writer >= 0;
    }));
    job.GiveUp();
    EXPECT_FALSE(job.IsDone()) << "it ends where it runs";
    close(writer);
    EXPECT_TRUE(job.Await().isNull());
    EXPECT_TRUE(job.IsDone());
}

TEST_F(DecodersTest, DecodersThatWereJoinedStartAgain) {
    for (int round = 0; round < 3; ++round) {
        gallery::JoinDecoders();
        const auto job = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
        gallery::DecodeInBackground(job, gallery::Urgency::Ahead);
        EXPECT_TRUE(support::WaitFor([&] { return job->IsDone(); })) << round;
    }
}

TEST_F(DecodersTest, JoinedDecodersAreGone) {
    const auto threads = [] {
        return QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    };
    gallery::JoinDecoders();
    const qsizetype before = threads();
    const auto job = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
    gallery::DecodeInBackground(job, gallery::Urgency::Ahead);
    EXPECT_EQ(threads(), before + gallery::DecoderCount(std::thread::hardware_concurrency()));
    gallery::JoinDecoders();
    EXPECT_TRUE(support::WaitFor([&] { return threads() == before; }, std::chrono::seconds(3)));
}

TEST_F(DecodersTest, ThereIsADecoderForEachCoreButTheFirstAndOneForWhatIsWanted) {
    EXPECT_EQ(gallery::DecoderCount(0), 2U) << "nobody knows how many cores there are";
    EXPECT_EQ(gallery::DecoderCount(1), 2U);
    EXPECT_EQ(gallery::DecoderCount(2), 2U);
    EXPECT_EQ(gallery::DecoderCount(3), 3U);
    EXPECT_EQ(gallery::DecoderCount(4), 4U);
    EXPECT_EQ(gallery::DecoderCount(5), 4U);
    EXPECT_EQ(gallery::DecoderCount(64), 4U);
}

TEST_F(DecodersTest, AWantedPictureWaitsForNoThumbnail) {
    HeldJobs thumbnails(Picture(u"t"_s, Qt::green), gallery::Urgency::Strip, AllDecoders() - 1);
    thumbnails.WaitUntilHeld();
    const auto thumbnail = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
    gallery::DecodeInBackground(thumbnail, gallery::Urgency::Strip);
    for (const auto urgency : {gallery::Urgency::Wanted, gallery::Urgency::Ahead}) {
        const auto job = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
        gallery::DecodeInBackground(job, urgency);
        EXPECT_TRUE(support::WaitFor([&] { return job->IsDone(); }));
    }
    EXPECT_FALSE(thumbnail->IsDone()) << "the last decoder isn't for thumbnails";
}

TEST_F(DecodersTest, NoThumbnailBeginsWhileAWantedPictureIsDecoded) {
    const auto thumbnail = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
    {
        HeldJobs wanted(Picture(u"b"_s, Qt::green), gallery::Urgency::Wanted, AllDecoders() - 1);
        wanted.WaitUntilHeld();
        gallery::DecodeInBackground(thumbnail, gallery::Urgency::Strip);
        // The decoder that is left goes on with all else.
        for (int i = 0; i < 20; ++i) {
            const auto job = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
            gallery::DecodeInBackground(job, gallery::Urgency::Ahead);
            EXPECT_TRUE(support::WaitFor([&] { return job->IsDone(); }));
        }
        EXPECT_FALSE(thumbnail->IsDone());
    }
    EXPECT_TRUE(support::WaitFor([&] { return thumbnail->IsDone(); }));
}

TEST_F(DecodersTest, WhatLiesAheadComesBeforeThumbnails) {
    const auto thumbnail = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
    std::optional<HeldJobs> ahead;
    {
        const HeldDecoders busy(folder);
        gallery::DecodeInBackground(thumbnail, gallery::Urgency::Strip);
        ahead.emplace(Picture(u"b"_s, Qt::green), gallery::Urgency::Ahead, AllDecoders());
    }
    ahead->WaitUntilHeld();
    EXPECT_FALSE(thumbnail->IsDone());
    ahead.reset();
    EXPECT_TRUE(support::WaitFor([&] { return thumbnail->IsDone(); }));
}

TEST_F(DecodersTest, TheCacheTellsWhenAWantedPictureIsThereAndKnowsWhatIsOnItsWay) {
    gallery::PictureCache cache;
    std::atomic<int> told{0};
    const auto tell = [&] { ++told; };
    const QString path = Picture(u"a"_s, Qt::red);
    const QString bad = folder.Write(u"bad"_s, "no picture");
    {
        const HeldDecoders busy(folder);
        cache.Prepare(path, {20, 20}, tell);
        EXPECT_TRUE(cache.IsOnItsWay(path));
        EXPECT_EQ(cache.Want(path, {20, 20}, tell), std::nullopt);
        EXPECT_EQ(cache.Want(path, {20, 20}, tell), std::nullopt) << "asked for twice";
        EXPECT_EQ(cache.Want(bad, {20, 20}, tell), std::nullopt);
    }
    EXPECT_TRUE(support::WaitFor([&] { return told.load() == 2; })) << "once for each";
    EXPECT_FALSE(cache.IsOnItsWay(path));
    const std::optional<QImage> image = cache.Want(path, {20, 20}, tell);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixelColor(0, 0), QColor(Qt::red));
    const std::optional<QImage> none = cache.Want(bad, {20, 20}, tell);
    ASSERT_TRUE(none) << "it was tried";
    EXPECT_TRUE(none->isNull());
    gallery::JoinDecoders();
    EXPECT_EQ(told.load(), 2);
}

TEST_F(DecodersTest, TheCacheKeepsAFewAndPreparesTheNext) {
    gallery::PictureCache cache;
    const QString first = Picture(u"a"_s, Qt::red);
    const QString next = Picture(u"b"_s, Qt::blue);
    EXPECT_EQ(cache.Await(first, {20, 20}).size(), QSize(20, 20));
    EXPECT_TRUE(cache.Find(next).isNull());
    cache.Prepare(next, {20, 20});
    EXPECT_TRUE(support::WaitFor([&] { return !cache.Find(next).isNull(); }));
    for (int i = 0; i < 4; ++i) {
        (void)cache.Await(Picture(u"c%1"_s.arg(i), Qt::green), {20, 20});
    }
    EXPECT_TRUE(cache.Find(first).isNull()) << "the oldest goes first";
}

TEST_F(DecodersTest, TheCacheHoldsFewerOfLargerPictures) {
    gallery::PictureCache cache;
    const QSize large(3000, 2000);
    for (int i = 0; i < 3; ++i) {
        (void)cache.Await(Picture(u"c%1"_s.arg(i), Qt::green), large);
    }
    EXPECT_TRUE(cache.Find(folder.Path(u"c0"_s)).isNull());
    EXPECT_FALSE(cache.Find(folder.Path(u"c1"_s)).isNull());
    EXPECT_FALSE(cache.Find(folder.Path(u"c2"_s)).isNull());
}

TEST_F(DecodersTest, AReplacedFileIsDecodedAnew) {
    gallery::PictureCache cache;
    const QString path = Picture(u"a"_s, Qt::red);
    EXPECT_EQ(cache.Await(path, {8, 8}).pixelColor(0, 0), QColor(Qt::red));
    folder.Write(u"a"_s, support::PngBytes(support::OneColour({65, 64}, Qt::blue)));
    EXPECT_TRUE(cache.Find(path).isNull());
    EXPECT_EQ(cache.Await(path, {8, 8}).pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(DecodersTest, WhatIsPreparedForOthersIsGivenUpAndWhatIsDoneStays) {
    gallery::PictureCache cache;
    const QString kept = Picture(u"a"_s, Qt::red);
    const QString done = Picture(u"b"_s, Qt::green);
    const QString other = Picture(u"c"_s, Qt::blue);
    (void)cache.Await(done, {20, 20});
    {
        const HeldDecoders busy(folder);
        cache.Prepare(other, {20, 20});
        cache.Prepare(kept, {20, 20});
        cache.GiveUpOthers(kept);
    }
    EXPECT_TRUE(support::WaitFor([&] { return !cache.Find(kept).isNull(); }));
    gallery::JoinDecoders();
    EXPECT_TRUE(cache.Find(other).isNull()) << "it was handed in before the other";
    EXPECT_FALSE(cache.Find(done).isNull());
}

TEST_F(DecodersTest, AClearedCacheHasItsJobsGivenUp) {
    const auto last = std::make_shared<DecodeJob>(Request(Picture(u"last"_s, Qt::red)));
    const QString path = Picture(u"a"_s, Qt::blue);
    gallery::PictureCache cache;
    {
        const HeldDecoders busy(folder);
        cache.Prepare(path, {20, 20});
        cache.Clear();
        gallery::DecodeInBackground(last, gallery::Urgency::Ahead);
    }
    EXPECT_TRUE(support::WaitFor([&] { return last->IsDone(); }));
    EXPECT_TRUE(cache.Find(path).isNull());
}

TEST_F(DecodersTest, WhatIsWantedIsDecodedBeforeWhatMayBe) {
    const auto ahead = std::make_shared<DecodeJob>(Request(Picture(u"a"_s, Qt::red)));
    std::optional<HeldJobs> wanted;
    {
        const HeldDecoders busy(folder);
        gallery::DecodeInBackground(ahead, gallery::Urgency::Ahead);
        wanted.emplace(Picture(u"b"_s, Qt::green), gallery::Urgency::Wanted, AllDecoders());
    }
    wanted->WaitUntilHeld();
    EXPECT_FALSE(ahead->IsDone());
    wanted.reset();
    EXPECT_TRUE(support::WaitFor([&] { return ahead->IsDone(); }));
}

TEST_F(DecodersTest, TheCacheKeepsFourSmallPicturesAndTheOneAskedForLastLongest) {
    gallery::PictureCache cache;
    QStringList paths;
    for (int i = 0; i < 5; ++i) {
        paths << Picture(u"c%1"_s.arg(i), Qt::green);
    }
    for (int i = 0; i < 4; ++i) {
        (void)cache.Await(paths[i], {20, 20});
    }
    EXPECT_FALSE(cache.Find(paths[0]).isNull()) << "four have room";
    (void)cache.Await(paths[0], {20, 20});
    (void)cache.Await(paths[4], {20, 20});
    EXPECT_FALSE(cache.Find(paths[0]).isNull()) << "asked for again";
    EXPECT_TRUE(cache.Find(paths[1]).isNull());
    cache.Clear();
    EXPECT_TRUE(cache.Find(paths[4]).isNull());
}

TEST_F(DecodersTest, TheCacheCountsFourBytesForAPixel) {
    const auto kept = [this](const QSize& size) {
        gallery::PictureCache cache;
        for (int i = 0; i < 3; ++i) {
            (void)cache.Await(Picture(u"c%1"_s.arg(i), Qt::green), size);
        }
        return !cache.Find(folder.Path(u"c0"_s)).isNull();
    };
    EXPECT_FALSE(kept({2000, 1700})) << "40.8 million bytes";
    EXPECT_TRUE(kept({2000, 1650})) << "39.6 million bytes";
}
