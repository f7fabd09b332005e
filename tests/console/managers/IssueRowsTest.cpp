// Rows of issues.
#include "tests/console/managers/ManagerFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class IssueRowsTest : public ManagerFixture {
protected:
    void Show(const KX_DATA::IssueRow& issue) {
        Open(kModeIssue);
        host.questions.issues = {issue};
        Fetch();
        ASSERT_EQ(grid->GetRowCount(), 1);
    }
};

TEST_F(IssueRowsTest, EveryCellSaysWhatTheRecordHolds) {
    Show(Issue(7));
    std::vector<std::string> cells;
    for (int column = 1; column <= 11; ++column) {
        cells.push_back(Cell(0, column));
    }
    EXPECT_THAT(cells, ElementsAre("1", "进度", "问题7", "示例工程", "zhang / li",
                                   "2026-03-05 12:00 / 2026-03-05 13:00", "2层 B-7 KZ-7", "",
                                   "已整改", "描述7", "显示"));
    EXPECT_EQ(Row(0).GetItemCount(), 17);
}

TEST_F(IssueRowsTest, NoRowIsEverChecked) {
    Open(kModeIssue, 2);
    grid->picFilter.picId = 1;
    Fetch();
    EXPECT_FALSE(Item(0, 0).GetBool());
    EXPECT_FALSE(Item(1, 0).GetBool());
}

TEST_F(IssueRowsTest, EqualTimesShowTheCreatorAloneThoughNamesDiffer) {
    KX_DATA::IssueRow issue = Issue(1);
    issue.updateTime = issue.createTime;
    Show(issue);
    EXPECT_EQ(Cell(0, 5), "zhang");
    EXPECT_EQ(Cell(0, 6), "2026-03-05 12:00");
}

TEST_F(IssueRowsTest, DifferentTimesWithoutAnUpdaterShowNothingBehindTheSeparator) {
    KX_DATA::IssueRow issue = Issue(1);
    issue.updaterName.clear();
    Show(issue);
    EXPECT_EQ(Cell(0, 5), "zhang / ");
}

TEST_F(IssueRowsTest, WithoutAPositionFloorAndComponentAreASingleBlankApart) {
    KX_DATA::IssueRow issue = Issue(1);
    issue.posInfo.clear();
    Show(issue);
    EXPECT_EQ(Cell(0, 7), "2层 KZ-1");
}

TEST_F(IssueRowsTest, AMarkThatTheTableLacksLeavesItsCellEmpty) {
    KX_DATA::IssueRow issue = Issue(1);
    issue.markId = 4;
    Show(issue);
    EXPECT_EQ(Cell(0, 2), "");
    EXPECT_EQ(Cell(0, 3), "问题1");
}

TEST_F(IssueRowsTest, AnyStatusButZeroReadsHidden) {
    KX_DATA::IssueRow issue = Issue(1);
    issue.status = 1;
    Show(issue);
    EXPECT_EQ(Cell(0, 11), "隐藏");
}

TEST_F(IssueRowsTest, NoIconIsDisabledAndTheDownloadColumnIsHidden) {
    KX_DATA::IssueRow issue = Issue(1);
    issue.floor.clear();
    Show(issue);
    for (int column = 12; column <= 16; ++column) {
        EXPECT_TRUE(Item(0, column).IsEnabled()) << column;
    }
    EXPECT_FALSE(grid->IsColumnVisible(15));
    EXPECT_EQ(grid->GetColumnCaption(15), u"下载"_s);
}

TEST_F(IssueRowsTest, IssuesHaveNoPhotoToSelect) {
    Open(kModeIssue, 1);
    Fetch();
    EXPECT_EQ(Manager().GetRowPicId(Row(0)), KX_DATA::kNoPic);
}

TEST_F(IssueRowsTest, EveryIssueIsInView) {
    Open(kModeIssue, 1);
    Fetch();
    EXPECT_TRUE(Manager().IsRowInView(Row(0)));
}

TEST_F(IssueRowsTest, RowsCountOverThePages) {
    Open(kModeIssue, 31);
    Fetch(2);
    ASSERT_EQ(grid->GetRowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "31");
    EXPECT_EQ(Cell(0, 3), "问题31");
}

} // namespace
