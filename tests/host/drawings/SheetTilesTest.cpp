#include "host/drawings/SheetTiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace host {
namespace {

constexpr QSizeF kA0(2384, 3370);

QImage Square(int bytes = kTileSide * kTileSide * 4) {
    return {kTileSide, bytes / kTileSide / 4, QImage::Format_RGB32};
}

TEST(SheetTiles, ALevelIsAsSharpAsTheScreenAndNotMuchSharper) {
    constexpr int kSteps = 108; // from 0.02 to 30
    for (int step = 0; step < kSteps; ++step) {
        const double scale = 0.02 * std::pow(1.07, step);
        const double sharp = LevelScale(LevelFor(scale));
        EXPECT_GE(sharp * 1.021, scale) << scale;
        EXPECT_LT(sharp, scale * std::sqrt(2) * 1.001) << scale;
    }
    EXPECT_EQ(LevelFor(1), 0);
    EXPECT_EQ(LevelFor(2), 2);
    EXPECT_EQ(LevelFor(1e-9), kCoarsestLevel);
    EXPECT_EQ(LevelFor(1e9), kFinestLevel);
}

TEST(SheetTiles, SquaresCoverTheSheetWithoutGapOrOverlap) {
    for (const int level : {-5, 0, 3}) {
        const QRect all = TilesUnder(QRectF(QPointF(), kA0), kA0, level);
        double area = 0;
        for (int row = all.top(); row <= all.bottom(); ++row) {
            for (int column = all.left(); column <= all.right(); ++column) {
                const QRectF tile = TileArea({0, level, column, row}, kA0);
                EXPECT_FALSE(tile.isEmpty());
                area += tile.width() * tile.height();
                EXPECT_EQ(TilesUnder(QRectF(tile.center(), QSizeF(0.01, 0.01)), kA0, level),
                          QRect(column, row, 1, 1));
            }
        }
        EXPECT_NEAR(area, kA0.width() * kA0.height(), 1);
        EXPECT_NEAR(TileArea({0, level, all.right(), all.bottom()}, kA0).right(), kA0.width(),
                    1e-6);
    }
}

TEST(SheetTiles, BesideTheSheetThereAreNone) {
    EXPECT_TRUE(TilesUnder({-50, -50, 40, 40}, kA0, 0).isEmpty());
    EXPECT_TRUE(TilesUnder({3000, 10, 40, 40}, kA0, 0).isEmpty());
    EXPECT_EQ(TilesUnder({-50, -50, 60, 60}, kA0, 0), QRect(0, 0, 1, 1));
}

TEST(SheetTiles, APageOfAPointHasASquareToo) {
    EXPECT_EQ(LevelSize({1, 1}, kCoarsestLevel), QSize(1, 1));
    EXPECT_EQ(TilesUnder({0, 0, 1, 1}, {1, 1}, kCoarsestLevel), QRect(0, 0, 1, 1));
}

TEST(SheetTiles, WhatIsMissingNearestToTheMiddleIsRenderedFirstAndNotTooMuchAtOnce) {
    const SheetWish wish{0, 0, QRect(0, 0, 10, 10), {8.5, 8.5}};
    std::set<std::pair<int, int>> there;
    const auto isThere = [&](const TileKey& key) { return there.contains({key.column, key.row}); };
    const auto first = NextTiles(wish, isThere);
    ASSERT_TRUE(first.has_value());
    EXPECT_TRUE(first->contains(8, 8));
    int rounds = 0;
    for (auto next = first; next; next = NextTiles(wish, isThere)) {
        ASSERT_LT(++rounds, 50);
        EXPECT_LE(next->width() * next->height(), 28);
        EXPECT_TRUE(wish.tiles.contains(*next));
        for (int row = next->top(); row <= next->bottom(); ++row) {
            for (int column = next->left(); column <= next->right(); ++column) {
                there.insert({column, row});
            }
        }
    }
    EXPECT_EQ(there.size(), 100U);
    EXPECT_FALSE(NextTiles({0, 0, QRect(), {}}, isThere).has_value());
}

TEST(SheetTiles, ARequestEndsWithThePage) {
    const QSize full = LevelSize(kA0, 0);
    const RenderRequest request = RequestFor(2, 0, QRect(3, 5, 2, 2), kA0);
    EXPECT_EQ(request.page, 2);
    EXPECT_EQ(request.full, full);
    EXPECT_EQ(request.clip.topLeft(), QPoint(1536, 2560));
    EXPECT_EQ(request.clip.right(), full.width() - 1);
    EXPECT_EQ(request.clip.bottom(), full.height() - 1);
}

TEST(TileCache, WhatWasLookedAtLongestAgoGoesFirst) {
    const qint64 one = Square().sizeInBytes();
    TileCache cache(3 * one);
    for (int column = 0; column < 3; ++column) {
        cache.Put({0, 0, column, 0}, Square());
    }
    cache.Touch({0, 0, 0, 0});
    cache.Put({0, 0, 3, 0}, Square());
    EXPECT_NE(cache.Find({0, 0, 0, 0}), nullptr);
    EXPECT_EQ(cache.Find({0, 0, 1, 0}), nullptr);
    EXPECT_EQ(cache.Bytes(), 3 * one);
    cache.Put({0, 0, 3, 0}, Square(1024 * 512));
    EXPECT_EQ(cache.Bytes(), 2 * one + qint64(1024) * 512) << "once, in its new size";
    cache.Clear();
    EXPECT_EQ(cache.Bytes(), 0);
    EXPECT_TRUE(cache.KeysOf(0).empty());
}

TEST(TileCache, TheSquaresOfOneScreenAreHeldWhateverTheBound) {
    TileCache cache(1);
    cache.KeepAtLeast(2);
    for (int column = 0; column < 3; ++column) {
        cache.Put({0, 0, column, 0}, Square());
    }
    EXPECT_EQ(cache.KeysOf(0).size(), 2U);
}

TEST(TileCache, SquaresOfAPageComeCoarserOnesFirst) {
    TileCache cache(100'000'000);
    for (const TileKey& key : {TileKey{1, 2, 0, 0}, TileKey{1, -3, 0, 0}, TileKey{0, 0, 0, 0},
                               TileKey{2, -9, 0, 0}, TileKey{1, 0, 5, 5}}) {
        cache.Put(key, Square());
    }
    EXPECT_EQ(cache.KeysOf(1), (std::vector<TileKey>{{1, -3, 0, 0}, {1, 0, 5, 5}, {1, 2, 0, 0}}));
}

} // namespace
} // namespace host
