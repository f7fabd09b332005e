// Check boxes of the rows and of the header.
#include "tests/console/grid/GridFixture.h"

#include <QtTest/QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridChecksTest : public GridFixture {};

TEST_F(GridChecksTest, AClickOnABoxChecksItsRowAndAnotherUnchecksIt) {
    Show(kModeBim, 3);
    EXPECT_FALSE(grid->HasCheckedRow());
    ClickCell(1, 0);
    EXPECT_THAT(Checked(), ElementsAre(1));
    EXPECT_TRUE(grid->HasCheckedRow());
    ClickCell(1, 0);
    EXPECT_THAT(Checked(), IsEmpty());
}

TEST_F(GridChecksTest, SpaceTurnsTheBoxOfTheCurrentRow) {
    Show(kModeBim, 3);
    ClickCell(2, 3);
    QTest::keyClick(&View(), Qt::Key_Space);
    EXPECT_THAT(Checked(), ElementsAre(2));
}

TEST_F(GridChecksTest, TheHeadersBoxChecksAllRowsAndThenNone) {
    Show(kModeBim, 3);
    ClickCell(1, 0);
    ClickHeader(0);
    EXPECT_THAT(Checked(), ElementsAre(0, 1, 2));
    EXPECT_EQ(grid->GetHeaderImage(0), 1);
    EXPECT_TRUE(grid->AllChecked());
    ClickHeader(0);
    EXPECT_THAT(Checked(), IsEmpty());
    EXPECT_EQ(grid->GetHeaderImage(0), 0);
    EXPECT_FALSE(grid->AllChecked());
}

TEST_F(GridChecksTest, OnAnEmptyGridTheHeadersBoxOnlyFlipsItsImage) {
    Show(kModeBim, 0);
    ClickHeader(0);
    EXPECT_EQ(grid->GetHeaderImage(0), 1);
    EXPECT_THAT(Log().Lines(), IsEmpty());
    EXPECT_FALSE(grid->HasCheckedRow());
    ClickHeader(0);
    EXPECT_EQ(grid->GetHeaderImage(0), 0);
}

TEST_F(GridChecksTest, TheHeadersBoxFetchesNothing) {
    Show(kModeBim, 3);
    ClickHeader(0);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(GridChecksTest, AnotherPageDropsAllChecksAndResetsTheHeadersBox) {
    Show(kModeBim, 65);
    ClickHeader(0);
    paging->DoPage(2);
    EXPECT_THAT(Checked(), IsEmpty());
    EXPECT_EQ(grid->GetHeaderImage(0), 0);
    EXPECT_FALSE(grid->AllChecked());
    paging->DoPage(1);
    EXPECT_THAT(Checked(), IsEmpty());
}

TEST_F(GridChecksTest, ThePhotoOfTheFilterStaysCheckedThoughTheHeadersBoxIsNot) {
    Show(kModeBim, 3);
    grid->picFilter.picId = 2;
    paging->DoFirstPage();
    EXPECT_THAT(Checked(), ElementsAre(1));
    EXPECT_FALSE(grid->AllChecked());
}

TEST_F(GridChecksTest, EveryKindHasItsBoxesInTheFirstColumn) {
    for (const ConsoleMode mode : {kModePdf, kModeIssue}) {
        Show(mode, 3);
        ClickHeader(0);
        EXPECT_THAT(Checked(), ElementsAre(0, 1, 2)) << mode;
    }
}

TEST_F(GridChecksTest, AnotherKindEmptiesTheGridAndResetsTheHeadersBox) {
    Show(kModeBim, 3);
    ClickHeader(0);
    grid->SetMode(kModePdf);
    EXPECT_EQ(grid->GetRowCount(), 0);
    EXPECT_EQ(grid->GetHeaderImage(0), 0);
    EXPECT_FALSE(grid->AllChecked());
}

} // namespace
