// Sorting by header clicks.
#include "console/SortKeys.h"
#include "tests/console/grid/GridFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridSortTest : public GridFixture {};

TEST_F(GridSortTest, TheFirstClickSortsAscendingTheSecondDescendingTheThirdAscending) {
    Show(kModeBim, 3);
    ClickHeader(3);
    EXPECT_EQ(LastSort(kModeBim), "pic_name asc");
    ClickHeader(3);
    EXPECT_EQ(LastSort(kModeBim), "pic_name desc");
    ClickHeader(3);
    EXPECT_EQ(LastSort(kModeBim), "pic_name asc");
}

TEST_F(GridSortTest, AnotherColumnBeginsAscendingAgain) {
    Show(kModeBim, 3);
    ClickHeader(3);
    ClickHeader(2);
    EXPECT_EQ(LastSort(kModeBim), "marker_id asc");
    ClickHeader(3);
    EXPECT_EQ(LastSort(kModeBim), "pic_name asc");
}

TEST_F(GridSortTest, TheSortedColumnAloneHasAState) {
    Show(kModeBim, 3);
    ClickHeader(3);
    EXPECT_EQ(grid->GetColumnState(3), 1);
    ClickHeader(3);
    EXPECT_EQ(grid->GetColumnState(3), -1);
    ClickHeader(2);
    EXPECT_EQ(grid->GetColumnState(2), 1);
    EXPECT_EQ(grid->GetColumnState(3), 0);
}

TEST_F(GridSortTest, SortingGoesToTheFirstPage) {
    Show(kModeBim, 65);
    paging->DoPage(3);
    Log().Clear();
    ClickHeader(3);
    EXPECT_THAT(Log().LinesOf({"QueryBimPics"}),
                ElementsAre("QueryBimPics(page=1,size=30,sort=pic_name asc)"));
    EXPECT_EQ(grid->GetCurrentPage(), 1);
}

TEST_F(GridSortTest, PagesKeepTheSortOfTheUser) {
    Show(kModeBim, 65);
    ClickHeader(3);
    paging->DoPage(2);
    EXPECT_EQ(LastSort(kModeBim), "pic_name asc");
}

TEST_F(GridSortTest, EveryVisibleSortableColumnSortsByItsFieldAndNoOtherDoes) {
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}}); // shows the project
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Show(mode, 3);
        for (int column = 1; column < grid->GetColumnCount(); ++column) {
            if (!grid->IsColumnVisible(column)) {
                continue;
            }
            Log().Clear();
            ClickHeader(column);
            if (!grid->sortable.at(column)) {
                EXPECT_THAT(Log().LinesOf({"Dialog"}), IsEmpty()) << mode << ' ' << column;
                continue;
            }
            EXPECT_EQ(LastSort(mode), SortField(mode, column).toStdString() + " asc")
                << mode << ' ' << column;
        }
    }
}

TEST_F(GridSortTest, TheStatusColumnSortsWhereItIsShown) {
    Show(kModeBim, 3);
    ClickHeader(11);
    EXPECT_EQ(LastSort(kModeBim), "pic_status asc");
    Show(kModePdf, 3);
    ClickHeader(12);
    EXPECT_EQ(LastSort(kModePdf), "pic_status asc");
    Show(kModeIssue, 3);
    ClickHeader(11);
    EXPECT_EQ(LastSort(kModeIssue), "status asc");
}

TEST_F(GridSortTest, AColumnThatDoesNotSortChangesNeitherSortNorPage) {
    Show(kModeBim, 65);
    ClickHeader(3);
    paging->DoPage(2);
    Log().Clear();
    for (const int column : {1, 8, 9, 12, 13, 14, 15, 16}) {
        ClickHeader(column);
    }
    EXPECT_THAT(Log().Lines(), IsEmpty());
    EXPECT_EQ(grid->SortFieldName(), u"pic_name"_s);
    EXPECT_EQ(grid->SortOrder(), u"asc"_s);
    EXPECT_EQ(grid->GetCurrentPage(), 2);
    EXPECT_EQ(grid->GetColumnState(3), 1);
}

TEST_F(GridSortTest, LabelsAndRectificationOfDrawingPhotosDoNotSortThoughTheyHaveKeys) {
    Show(kModePdf, 3);
    ClickHeader(9);
    ClickHeader(10);
    EXPECT_THAT(Log().Lines(), IsEmpty());
    EXPECT_EQ(SortField(kModePdf, 9), u"rectifyStatus"_s);
}

TEST_F(GridSortTest, AColumnThatTheMapLacksIsEnteredAsNotSortable) {
    Show(kModeBim, 3);
    grid->sortable.erase(3);
    ClickHeader(3);
    EXPECT_THAT(Log().Lines(), IsEmpty());
    ASSERT_TRUE(grid->sortable.contains(3));
    EXPECT_FALSE(grid->sortable.at(3));
}

TEST_F(GridSortTest, AnotherKindRestoresTheDefaultSortAndForgetsTheStates) {
    Show(kModeBim, 3);
    ClickHeader(3);
    FillService(host, kModeIssue, 3);
    ChangeKind(kModeIssue);
    EXPECT_EQ(LastSort(kModeIssue), "modifytime desc");
    EXPECT_EQ(grid->GetColumnState(3), 0);
    ChangeKind(kModeBim);
    EXPECT_EQ(LastSort(kModeBim), "last_modifytime desc");
    EXPECT_EQ(grid->GetColumnState(3), 0);
}

TEST_F(GridSortTest, TheSameKindAgainRestoresTheDefaultSortToo) {
    Show(kModeBim, 3);
    ClickHeader(3);
    grid->SetMode(kModeBim);
    EXPECT_EQ(grid->SortFieldName(), u"last_modifytime"_s);
    EXPECT_EQ(grid->SortOrder(), u"desc"_s);
}

TEST_F(GridSortTest, ANewManagerOfTheSameKindKeepsTheSort) {
    Show(kModeBim, 3);
    ClickHeader(3);
    grid->CreateManager(kModeBim);
    EXPECT_EQ(grid->SortFieldName(), u"pic_name"_s);
    EXPECT_EQ(grid->GetColumnState(3), 1);
    EXPECT_EQ(grid->GetRowCount(), 0);
}

} // namespace
