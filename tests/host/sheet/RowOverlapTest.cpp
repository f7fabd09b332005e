#include "host/sheet/RowOverlap.h"

#include <gtest/gtest.h>

namespace {

using host::PageFrom;
using host::RowPage;

TEST(RowOverlap, AListBeginsWithItsFirstPage) {
    EXPECT_EQ(PageFrom(-1, 1000).Begin(), 0);
    EXPECT_EQ(PageFrom(-1, 1000).size, 1000);
    EXPECT_EQ(PageFrom(0, 1000).Begin(), 0);
    EXPECT_EQ(PageFrom(999, 1000).Begin(), 0);
    EXPECT_EQ(PageFrom(999, 1000).size, 1999);
}

TEST(RowOverlap, APageHoldsTheRowAndTheNext) {
    for (const qint64 portion : {2, 3, 7, 1000}) {
        for (qint64 first = 0; first < 5000; first += 1 + first / 50) {
            const RowPage page = PageFrom(first, portion);
            EXPECT_GE(page.page, 1);
            EXPECT_LE(page.Begin(), first);
            EXPECT_GT(page.Begin() + page.size, first + 1);
            EXPECT_GE(page.size, portion);
            EXPECT_TRUE(page.size <= 2 * portion || page.page == 1);
        }
    }
}

TEST(RowOverlap, FarIntoAListHardlyARowIsReadTwice) {
    qint64 ahead = 0;
    for (qint64 first = 100'000; first < 1'000'000; first += 9'973) {
        ahead = std::max(ahead, first - PageFrom(first, 1000).Begin());
    }
    EXPECT_LE(ahead, 20);
}

} // namespace
