// The page, the kind and the grid itself may go while a service or a question runs.
#include "tests/console/grid/GridFixture.h"
#include "tests/support/WaitFor.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class GridReentryTest : public GridFixture {
protected:
    /// The dialog ends, and its grid with it.
    void EndGrid() {
        paging.reset();
        grid.reset();
        toolkit::UnregisterWindow(windowId);
        window.reset();
    }
};

TEST_F(GridReentryTest, TheGridMayEndWhileItsPageIsFetched) {
    Show(kModeBim, 3);
    host.script.During("QueryBimPics", [this] { EndGrid(); });
    paging->DoFirstPage();
    EXPECT_EQ(grid, nullptr);
    EXPECT_EQ(Log().CountOf("QueryBimPics"), 1);
}

TEST_F(GridReentryTest, TheGridMayEndWhileARowsDeletionIsAsked) {
    Show(kModeBim, 3);
    prompts.ExpectOkCancel(u"确认删除照片 照片1.jpg ？"_s, true);
    prompts.Meanwhile([this] { EndGrid(); });
    ClickCell(0, 16);
    EXPECT_EQ(grid, nullptr);
    EXPECT_THAT(Log().LinesOf({"DeleteBimPics", "QueryBimPics"}),
                ElementsAre("DeleteBimPics(ids=[1])"));
}

TEST_F(GridReentryTest, WhatWasDeletedIsToldEvenIfTheGridIsGone) {
    Show(kModeBim, 3);
    prompts.ExpectOkCancel(u"确认删除照片 照片1.jpg ？"_s, true);
    prompts.Meanwhile([this] { EndGrid(); });
    ClickCell(0, 16);
    EXPECT_EQ(Log().CountOf("RefreshBimMarks"), 1);
}

TEST_F(GridReentryTest, AnotherKindWhileARowsDeletionIsAskedDeletesThePhotoThatWasNamed) {
    Show(kModeBim, 3);
    prompts.ExpectOkCancel(u"确认删除照片 照片1.jpg ？"_s, true);
    prompts.Meanwhile([this] { grid->SetMode(kModeIssue); });
    ClickCell(0, 16);
    EXPECT_THAT(Log().LinesOf({"DeleteBimPics", "QueryBimPics", "QueryIssues", "RefreshBimMarks"}),
                ElementsAre("DeleteBimPics(ids=[1])", "RefreshBimMarks()"));
}

TEST_F(GridReentryTest, AnotherKindWhileAPageIsFetchedLeavesNoRowsOfTheOldKind) {
    Show(kModeBim, 3);
    host.script.During("QueryBimPics", [this] { grid->SetMode(kModeIssue); });
    paging->DoFirstPage();
    EXPECT_EQ(grid->GetRowCount(), 0);
    EXPECT_EQ(grid->GetColumnCaption(3), u"问题主题"_s);
}

TEST_F(GridReentryTest, AFetchWithinAFetchLeavesOneWholePage) {
    Show(kModeBim, 65);
    bool again = true;
    host.script.During("QueryBimPics", [&] {
        if (std::exchange(again, false)) {
            paging->DoPage(2);
        }
    });
    paging->DoFirstPage();
    ASSERT_EQ(grid->GetRowCount(), 30);
    for (int row = 0; row < 30; ++row) {
        EXPECT_EQ(
            Cell(row, 3),
            static_cast<KX_DATA::BimPicRow*>(grid->GetRow(row)->GetData())->fileName.toStdString());
    }
}

TEST_F(GridReentryTest, TheGridMayEndWhileTheStatusIsChanged) {
    Show(kModeBim, 3);
    Check({0});
    host.script.During("SetBimPicsShown", [this] { EndGrid(); });
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(grid, nullptr);
}

TEST_F(GridReentryTest, TheGridMayEndWhileTheCheckedRowsAreDeleted) {
    Show(kModeBim, 3);
    Check({0});
    host.script.During("DeleteBimPics", [this] { EndGrid(); });
    grid->Actions().DeleteChecked();
    EXPECT_EQ(grid, nullptr);
}

TEST_F(GridReentryTest, TheGridMayEndWhileTheHostIsTold) {
    Show(kModeBim, 3);
    Check({0});
    host.script.During("RefreshBimMarks", [this] { EndGrid(); });
    grid->Actions().SetCheckedShown(false);
    EXPECT_EQ(grid, nullptr);
}

TEST_F(GridReentryTest, TheGridMayEndWhileARowIsLookedUp) {
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Show(mode, 3);
        for (const char* operation : {"LocatePicture", "SelectCheckpoint", "LocateIssue"}) {
            host.script.During(operation, [this] { EndGrid(); });
        }
        DoubleClickCell(0, 3);
        support::RunPendingEvents();
        EXPECT_EQ(grid, nullptr) << mode;
    }
}

} // namespace
