// Widths of columns as numbers.
#include "toolkit/grid/GridColumnLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using toolkit::LayoutGridColumns;

TEST(GridColumnLayout, FreeRoomGoesToColumnsByTheirShares) {
    EXPECT_THAT(LayoutGridColumns({{20, 0}, {50, 1}, {60, 3}}, 330), ElementsAre(20, 100, 210));
}

TEST(GridColumnLayout, NoPixelIsLostToRounding) {
    const std::vector<int> widths = LayoutGridColumns({{10, 1}, {10, 1}, {10, 1}}, 50);
    EXPECT_EQ(widths[0] + widths[1] + widths[2], 50);
}

TEST(GridColumnLayout, TooLittleRoomLeavesTheLeastWidths) {
    EXPECT_THAT(LayoutGridColumns({{100, 1}, {100, 2}}, 150), ElementsAre(100, 100));
    EXPECT_THAT(LayoutGridColumns({{100, 1}}, 0), ElementsAre(100));
    EXPECT_THAT(LayoutGridColumns({{100, 1}}, -5), ElementsAre(100));
}

TEST(GridColumnLayout, HiddenColumnsTakeNoRoomAndKeepTheirWidth) {
    EXPECT_THAT(LayoutGridColumns({{100, 1, false}, {100, 1, true}}, 150), ElementsAre(100, 150));
}

TEST(GridColumnLayout, NobodyTakesTheRoomIfNoneHasAShare) {
    EXPECT_THAT(LayoutGridColumns({{20, 0}, {30, 0}}, 500), ElementsAre(20, 30));
}

TEST(GridColumnLayout, NoColumns) {
    EXPECT_THAT(LayoutGridColumns({}, 500), IsEmpty());
}

} // namespace
