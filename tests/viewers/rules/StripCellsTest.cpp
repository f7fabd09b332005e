// The strip's cells as they look now.
#include "viewers/StripCells.h"

#include <gtest/gtest.h>

using gallery::CellFrame;

namespace {

gallery::GalleryState State(bool horizontal) {
    gallery::GalleryState state;
    state.items.resize(4);
    state.strip.horizontal = horizontal;
    state.strip.cellWidth = 100;
    state.strip.cellHeight = 80;
    state.currentIndex = 2;
    state.hoverIndex = 1;
    for (int i = 0; i < 4; ++i) {
        state.items[size_t(i)].thumbRect = QRect(10 * i, 5, 94, 74);
        state.items[size_t(i)].picState = i;
    }
    state.items[3].picProgress = 33;
    state.items[3].fileThere = false;
    return state;
}

} // namespace

TEST(StripCells, SayOfEachItemWhatAPaintNeeds) {
    gallery::GalleryState state = State(true);
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    state.items[1].thumbDC = std::make_shared<CKxMemDC>(image);
    const std::vector<gallery::Cell> cells = gallery::CellsOf(state, {1, 3});
    ASSERT_EQ(cells.size(), 3U);
    EXPECT_EQ(cells[0].rect, QRect(10, 5, 94, 74));
    EXPECT_EQ(cells[0].picture, image);
    EXPECT_TRUE(cells[1].picture.isNull());
    EXPECT_EQ(cells[0].frame, CellFrame::Hover);
    EXPECT_EQ(cells[1].frame, CellFrame::Current);
    EXPECT_EQ(cells[2].frame, CellFrame::None);
    EXPECT_EQ(cells[2].state, 3);
    EXPECT_EQ(cells[2].percent, 33);
    EXPECT_TRUE(cells[0].fileThere);
    EXPECT_FALSE(cells[2].fileThere);
    EXPECT_TRUE(gallery::CellsOf(state, {}).empty());
}

TEST(StripCells, TheCurrentOneUnderTheMouseIsCurrent) {
    gallery::GalleryState state = State(true);
    state.hoverIndex = 2;
    EXPECT_EQ(gallery::CellsOf(state, {2, 2}).front().frame, CellFrame::Current);
}

TEST(StripCells, ARowLiesSideBySideFromItsOwnStartOn) {
    gallery::CellRow row = gallery::RowOf(State(true), {1, 3});
    EXPECT_EQ(row.size, QSize(300, 80));
    EXPECT_EQ(row.cells[0].rect, QRect(3, 3, 94, 74));
    EXPECT_EQ(row.cells[2].rect, QRect(203, 3, 94, 74));
    EXPECT_EQ(row.cells[1].frame, CellFrame::Current);
    row = gallery::RowOf(State(false), {1, 3});
    EXPECT_EQ(row.size, QSize(100, 240));
    EXPECT_EQ(row.cells[2].rect, QRect(3, 163, 94, 74));
}
