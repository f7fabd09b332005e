// The downloads of a gallery, without a worker and a window.
#include "viewers/DownloadQueue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;
using gallery::Download;
using gallery::DownloadKey;
using gallery::DownloadKind;
using gallery::StripTick;

namespace {

class DownloadQueueRules : public testing::Test {
protected:
    DownloadQueueRules() {
        state.items.resize(6);
        for (int i = 0; i < 6; ++i) {
            GalleryItem& item = state.items[size_t(i)];
            item.picUuid = u"p%1"_s.arg(i);
            item.picPath = u"/p%1.jpg"_s.arg(i);
            item.audioUuid = u"a%1"_s.arg(i);
            item.audioPath = u"/a%1.amr"_s.arg(i);
        }
        extra.uuid = u"x"_s;
        extra.path = u"/x.amr"_s;
    }
    /// Uuids in the order in which they are fetched, each done before the next.
    std::vector<std::string> All() {
        std::vector<std::string> uuids;
        while (const auto next = queue.TakeNext()) {
            uuids.push_back(next->uuid.toStdString());
            queue.MakeRoom();
            queue.Finish(next->key, 0);
        }
        return uuids;
    }
    [[nodiscard]] qint32 PicState(int index) const { return state.items[size_t(index)].picState; }

    gallery::GalleryState state;
    gallery::ExtraAudio extra;
    gallery::DownloadQueue queue{state, extra};
};

} // namespace

TEST_F(DownloadQueueRules, WhatTheUserLooksAtComesFirst) {
    state.visible = {2, 3};
    state.currentIndex = 3;
    EXPECT_EQ(All(), (std::vector<std::string>{"p3", "a3", "p2", "p4", "p5", "p0", "p1", "a0", "a1",
                                               "a2", "a4", "a5"}));
}

TEST_F(DownloadQueueRules, WithoutAVisibleRangeTheListsOwnOrderHoldsPicturesFirst) {
    state.currentIndex = 4;
    state.items.resize(2);
    EXPECT_EQ(All(), (std::vector<std::string>{"p0", "p1", "a0", "a1"}));
}

TEST_F(DownloadQueueRules, OneAtATimeRunsAndTheOthersWait) {
    const auto first = queue.TakeNext();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->uuid, u"p0"_s);
    EXPECT_EQ(first->path, u"/p0.jpg"_s);
    EXPECT_EQ(PicState(0), kDownloading);
    EXPECT_EQ(PicState(1), kWaiting);
    EXPECT_FALSE(queue.TakeNext());
    EXPECT_FALSE(queue.Take({1, DownloadKind::Audio}));
    EXPECT_EQ(state.activeDownloads, 1);
    queue.MakeRoom();
    EXPECT_EQ(state.activeDownloads, 0);
    EXPECT_EQ(PicState(0), kDownloading) << "until it is said what became of it";
    EXPECT_EQ(queue.TakeNext()->uuid, u"p1"_s);
    queue.Finish(first->key, 0);
    EXPECT_EQ(PicState(0), kOnDisk);
    EXPECT_EQ(PicState(1), kDownloading);
}

TEST_F(DownloadQueueRules, AFailureIsNotedAndNotTriedAgain) {
    const auto first = queue.TakeNext();
    queue.MakeRoom();
    queue.Finish(first->key, 32);
    EXPECT_EQ(PicState(0), kDownloadFailedState);
    EXPECT_EQ(queue.TakeNext()->uuid, u"p1"_s);
}

TEST_F(DownloadQueueRules, ResultsGoByKeyWhateverLiesThereNow) {
    queue.Finish({3, DownloadKind::Audio}, 0);
    EXPECT_EQ(state.items[3].audioState, kOnDisk);
    EXPECT_EQ(PicState(3), kWaiting);
    queue.Finish({gallery::kExtraAudio, DownloadKind::Audio}, 31);
    EXPECT_EQ(extra.state, kDownloadFailedState);
    queue.Finish({6, DownloadKind::Picture}, 0);
    queue.Finish({-2, DownloadKind::Picture}, 0);
    for (int i : {0, 1, 2, 4, 5}) {
        EXPECT_EQ(PicState(i), kWaiting) << i;
        EXPECT_EQ(state.items[size_t(i)].audioState, kWaiting) << i;
    }
}

TEST_F(DownloadQueueRules, TheNoteOfTheListIsFetchedByName) {
    const auto note = queue.Take({gallery::kExtraAudio, DownloadKind::Audio});
    ASSERT_TRUE(note);
    EXPECT_EQ(note->uuid, u"x"_s);
    EXPECT_EQ(note->path, u"/x.amr"_s);
    EXPECT_EQ(extra.state, kDownloading);
    queue.MakeRoom();
    const auto audio = queue.Take({2, DownloadKind::Audio});
    EXPECT_EQ(audio->uuid, u"a2"_s);
    EXPECT_EQ(audio->path, u"/a2.amr"_s);
    queue.MakeRoom();
    EXPECT_TRUE(queue.Take({9, DownloadKind::Picture})->uuid.isEmpty()) << "no such item";
}

TEST_F(DownloadQueueRules, ThePercentOfAnItemsNoteIsKeptBySomebodyElse) {
    EXPECT_TRUE(queue.NoteProgress({1, DownloadKind::Picture}, 40));
    EXPECT_EQ(state.items[1].picProgress, 40);
    EXPECT_TRUE(queue.NoteProgress({gallery::kExtraAudio, DownloadKind::Audio}, 50));
    EXPECT_EQ(extra.progress, 50);
    EXPECT_FALSE(queue.NoteProgress({1, DownloadKind::Audio}, 60));
    EXPECT_EQ(state.items[1].audioProgress, 0);
    EXPECT_TRUE(queue.NoteProgress({17, DownloadKind::Picture}, 70)) << "nobody is told";
}

TEST_F(DownloadQueueRules, TheTimerStartsOnceWhileAVisiblePictureIsMissingAndStopsOnce) {
    bool running = false;
    EXPECT_EQ(queue.Tick(running), StripTick::Leave) << "nothing is visible";
    state.visible = {0, 0};
    EXPECT_EQ(queue.Tick(running), StripTick::Start);
    EXPECT_TRUE(running);
    EXPECT_EQ(queue.Tick(running), StripTick::Leave);
    state.items[0].picState = kDownloading;
    EXPECT_EQ(queue.Tick(running), StripTick::Leave);
    state.items[0].picState = kOnDisk;
    EXPECT_EQ(queue.Tick(running), StripTick::Stop);
    EXPECT_FALSE(running);
    EXPECT_EQ(queue.Tick(running), StripTick::Leave);
}
