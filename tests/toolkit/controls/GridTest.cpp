// The grid with real mouse and key events.
#include "tests/toolkit/controls/SampleGrid.h"

#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct GridFixture : ::testing::Test {
    SampleGrid grid;
    std::unique_ptr<SampleWindow> window;

    void Open(int rows) {
        grid.AddColumns();
        window = std::make_unique<SampleWindow>(grid);
        grid.Fill(rows);
    }
    void Click(int row, int column) {
        QTest::mouseClick(grid.View()->viewport(), Qt::LeftButton, {}, grid.CellCenter(row, column));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(grid.View(), key, modifiers);
    }
};

TEST_F(GridFixture, IconClickSelectsTheRowAndGivesItsCommand) {
    Open(5);
    Click(2, SampleGrid::kEdit);
    EXPECT_THAT(grid.iconCalls, ElementsAre(SampleGrid::IconCall{7, 2}));
    ASSERT_NE(grid.GetCurSel(), nullptr);
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 2);
}

TEST_F(GridFixture, DisabledIconDoesNotFire) {
    Open(5);
    Click(1, SampleGrid::kLocate);
    EXPECT_THAT(grid.iconCalls, IsEmpty());
    Click(2, SampleGrid::kLocate);
    EXPECT_THAT(grid.iconCalls, ElementsAre(SampleGrid::IconCall{8, 2}));
}

} // namespace
