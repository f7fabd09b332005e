// The strip's rules worked out a second time, step by step, and compared over many lists.
#include "viewers/DownloadOrder.h"
#include "viewers/GalleryPlaces.h"
#include "viewers/GalleryState.h"
#include "viewers/SlideFrames.h"

#include <gtest/gtest.h>

#include <algorithm>

using gallery::ItemRange;
using gallery::RangeRequest;

namespace {

/// The range by its written steps; the page modes start from `now`.
ItemRange Expected(int mode, int count, int capacity, int current, int shown, ItemRange now) {
    const int visible = std::min(count, capacity);
    int first = 0;
    int last = 0;
    const int half = visible / 2;
    if (mode == 0) {
        first = current;
        last = first + visible - 1;
        if (last > count - 1) {
            last = count - 1;
            first = last - visible + 1;
        }
    } else if (mode == 2) {
        last = current;
        first = last - visible + 1;
        if (first < 0) {
            first = 0;
            last = visible - 1;
        }
    } else if (mode == 3) {
        first = std::max(now.first - visible, 0);
        last = first + visible - 1;
    } else if (mode == 4) {
        last = std::min(now.last + visible, count - 1);
        first = last - visible + 1;
    } else if (visible % 2 == 0 && current <= shown) {
        last = std::min(current + half, count - 1);
        first = std::max(last - visible + 1, 0);
        if (first == 0) {
            last = visible - 1;
        }
    } else {
        first = std::max(current - half, 0);
        last = std::min(first + visible - 1, count - 1);
        if (last == count - 1) {
            first = last - visible + 1;
        }
    }
    return {std::max(first, 0), std::min(last, count - 1)};
}

} // namespace

TEST(StripRange, HoldsItsStepsForEveryListOfUpToTwelve) {
    for (int count = 1; count <= 12; ++count) {
        for (int capacity = 1; capacity <= 7; ++capacity) {
            for (int current = 0; current < count; ++current) {
                for (int shown = -1; shown < count; ++shown) {
                    for (int mode = 0; mode <= 4; ++mode) {
                        for (int first = 0; first + std::min(count, capacity) <= count; ++first) {
                            const ItemRange now{first, first + std::min(count, capacity) - 1};
                            const RangeRequest request{
                                gallery::StripMode(mode), count, capacity, current, shown, now};
                            ASSERT_EQ(gallery::StripRange(request),
                                      Expected(mode, count, capacity, current, shown, now))
                                << mode << ' ' << count << ' ' << capacity << ' ' << current << ' '
                                << shown << ' ' << first;
                        }
                    }
                }
            }
        }
    }
}

TEST(SlideOffsets, HoldTheirStepsForEveryDistance) {
    for (int distance = 10; distance <= 2000; ++distance) {
        const int step = distance / 10;
        std::vector<int> expected;
        int offset = 0;
        while (offset <= distance) {
            expected.push_back(offset);
            offset += step;
            if (offset > distance && offset - distance < step) {
                offset = distance;
            }
        }
        ASSERT_EQ(gallery::SlideOffsets(distance), expected) << distance;
        ASSERT_EQ(gallery::SlideOffsets(distance).back(), distance);
    }
}

TEST(StripSlide, TheOutgoingItemsAreThoseThatTheNewRangeLacks) {
    const gallery::StripShape strip = gallery::ShapeOf(QRect(0, 0, 460, 95));
    for (int saved = 0; saved <= 12; ++saved) {
        for (int now = 0; now <= 12; ++now) {
            const ItemRange from{saved, saved + 3};
            const ItemRange to{now, now + 3};
            std::vector<int> lacking;
            for (int i = from.first; i <= from.last; ++i) {
                if (!to.Contains(i)) {
                    lacking.push_back(i);
                }
            }
            const auto plan = gallery::PlanStripSlide({strip, from, to});
            ASSERT_EQ(plan.has_value(), !lacking.empty()) << saved << ' ' << now;
            if (!plan) {
                continue;
            }
            EXPECT_EQ(plan->outgoing, (ItemRange{lacking.front(), lacking.back()}));
            EXPECT_EQ(plan->slide.forward, saved < now);
            EXPECT_EQ(plan->slide.distance, 100 * int(lacking.size()));
            const int moved =
                saved >= now && 4 - int(lacking.size()) >= 1 ? (4 - int(lacking.size())) * 100 : 0;
            EXPECT_EQ(plan->slide.oldRect.left(), 30 + moved);
            EXPECT_EQ(plan->slide.newRect.left(), 30);
        }
    }
}

TEST(BarThumb, HoldsItsStepsInSinglePrecision) {
    for (const bool horizontal : {true, false}) {
        for (int count = 2; count <= 400; count += 7) {
            for (int pos = 0; pos < count; pos += 3) {
                ThumbBar bar;
                bar.horizontal = horizontal;
                bar.trackRect = horizontal ? QRect(100, 50, 237, 5) : QRect(100, 50, 5, 237);
                bar.maxPos = count - 1;
                bar.pos = pos;
                bar.page = 4;
                const double range = count;
                const int start = int(237.0F * float(pos / range));
                const int length = std::max(int(237.0F * float(4 / range)), 20);
                const QRect expected = horizontal ? QRect(100 + start, 50, length, 5)
                                                  : QRect(100, 50 + start, 5, length);
                ASSERT_EQ(gallery::BarThumb(bar), expected) << count << ' ' << pos;
            }
        }
    }
}

TEST(DownloadOrder, EveryWaitingFileComesOnceAndNothingElse) {
    std::vector<GalleryItem> items(7);
    items[2].picState = kOnDisk;
    items[3].audioState = kNothingToFetch;
    items[4].picState = kDownloadFailedState;
    for (int current = -1; current <= 7; ++current) {
        for (int first = -1; first < 5; ++first) {
            std::vector<GalleryItem> left = items;
            const ItemRange visible = first < 0 ? ItemRange{} : ItemRange{first, first + 2};
            int fetched = 0;
            while (const auto key = gallery::NextDownload(left, visible, current)) {
                qint32& state = key->kind == gallery::DownloadKind::Picture
                                    ? left[size_t(key->index)].picState
                                    : left[size_t(key->index)].audioState;
                ASSERT_EQ(state, kWaiting);
                state = kOnDisk;
                ++fetched;
            }
            EXPECT_EQ(fetched, 5 + 6) << current << ' ' << first;
        }
    }
}
