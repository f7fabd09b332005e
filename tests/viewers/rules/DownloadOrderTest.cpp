#include "viewers/DownloadOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using gallery::DownloadKey;
using gallery::DownloadKind;
using gallery::ItemRange;
using gallery::NextDownload;

namespace {

std::vector<GalleryItem> Waiting(int count) {
    return std::vector<GalleryItem>(size_t(count));
}

/// Takes one download after the other; "p3" is item 3's picture, "a3" its note.
std::vector<std::string> Drain(std::vector<GalleryItem> items, const ItemRange& visible,
                               int current) {
    std::vector<std::string> order;
    while (const auto key = NextDownload(items, visible, current)) {
        GalleryItem& item = items[size_t(key->index)];
        const bool picture = key->kind == DownloadKind::Picture;
        (picture ? item.picState : item.audioState) = kDownloading;
        order.push_back((picture ? "p" : "a") + std::to_string(key->index));
    }
    return order;
}

} // namespace

TEST(DownloadOrder, WithoutAVisibleRangeTheListGoesInItsOwnOrderPicturesFirst) {
    EXPECT_THAT(Drain(Waiting(3), {}, 2), testing::ElementsAre("p0", "p1", "p2", "a0", "a1", "a2"));
}

TEST(DownloadOrder, CurrentThenVisibleThenBehindThenBeforeThenNotes) {
    EXPECT_THAT(Drain(Waiting(10), {3, 6}, 5),
                testing::ElementsAre("p5", "a5", "p3", "p4", "p6", "p7", "p8", "p9", "p0", "p1",
                                     "p2", "a0", "a1", "a2", "a3", "a4", "a6", "a7", "a8", "a9"));
}

TEST(DownloadOrder, OnlyWhatWaitsIsOffered) {
    std::vector<GalleryItem> items = Waiting(4);
    items[0].picState = kOnDisk;
    items[1].picState = kDownloadFailedState;
    items[2].picState = kDownloading;
    for (GalleryItem& item : items) {
        item.audioState = kNothingToFetch;
    }
    EXPECT_THAT(Drain(items, {0, 3}, 0), testing::ElementsAre("p3"));
}

TEST(DownloadOrder, ARangeWithAnEndOutsideTheListIsLeftOut) {
    EXPECT_THAT(Drain(Waiting(2), {0, 5}, 7), testing::ElementsAre("p0", "a0", "a1"));
    EXPECT_EQ(NextDownload({}, {}, 0), std::nullopt);
    EXPECT_EQ(NextDownload({}, {0, 3}, 0), std::nullopt);
}

TEST(VisiblePending, OnlyVisiblePicturesThatAreStillToComeCount) {
    std::vector<GalleryItem> items = Waiting(4);
    for (GalleryItem& item : items) {
        item.picState = kOnDisk;
    }
    EXPECT_FALSE(gallery::AnyVisiblePending(items, {0, 3}));
    items[3].picState = kDownloading;
    EXPECT_TRUE(gallery::AnyVisiblePending(items, {0, 3}));
    EXPECT_FALSE(gallery::AnyVisiblePending(items, {0, 2}));
    items[1].picState = kWaiting;
    EXPECT_TRUE(gallery::AnyVisiblePending(items, {0, 2}));
    EXPECT_FALSE(gallery::AnyVisiblePending(items, {}));
}

TEST(PercentOf, IsTruncatedAndHoldsForTheLargestFiles) {
    EXPECT_EQ(gallery::PercentOf(0, 7), 0);
    EXPECT_EQ(gallery::PercentOf(2, 3), 66);
    EXPECT_EQ(gallery::PercentOf(7, 7), 100);
    EXPECT_EQ(gallery::PercentOf(21'474'837, 42'949'674), 50);
    EXPECT_EQ(gallery::PercentOf(1'500'000'000, 2'000'000'000), 75);
    EXPECT_EQ(gallery::PercentOf(2'147'483'647, 2'147'483'647), 100);
}
