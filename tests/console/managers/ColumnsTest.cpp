// The columns as the grid gets them.
#include "tests/console/managers/ManagerFixture.h"

#include "console/ColumnTable.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class ConsoleColumnsTest : public ManagerFixture {
protected:
    [[nodiscard]] std::vector<int> Hidden() const {
        std::vector<int> columns;
        for (int column = 0; column < grid->GetColumnCount(); ++column) {
            if (!grid->IsColumnVisible(column)) {
                columns.push_back(column);
            }
        }
        return columns;
    }
    std::vector<int> HiddenIn(ConsoleMode mode) {
        Open(mode);
        return Hidden();
    }
};

TEST_F(ConsoleColumnsTest, TheGridHasEveryColumnAsTheTableTellsIt) {
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Open(mode);
        const std::vector<ColumnSpec>& columns = ConsoleColumns(mode);
        ASSERT_EQ(grid->GetColumnCount(), int(columns.size()));
        for (int i = 0; i < int(columns.size()); ++i) {
            const ColumnSpec& column = columns[size_t(i)];
            EXPECT_EQ(grid->GetColumnCaption(i), column.caption) << mode << ' ' << i;
            EXPECT_EQ(grid->GetColumnWidth(i), column.width) << mode << ' ' << i;
            EXPECT_EQ(grid->IsColumnLocked(i), column.locked) << mode << ' ' << i;
            EXPECT_EQ(grid->GetColumnAlign(i).testFlag(Qt::AlignHCenter), column.centred)
                << mode << ' ' << i;
            EXPECT_EQ(grid->sortable.at(i), column.sortable) << mode << ' ' << i;
            EXPECT_TRUE(grid->GetHeaderAlign(i).testFlag(Qt::AlignHCenter)) << mode << ' ' << i;
        }
        EXPECT_EQ(grid->sortable.size(), columns.size());
    }
}

TEST_F(ConsoleColumnsTest, TheHeaderOfTheCheckBoxesShowsAnUncheckedBox) {
    Open(kModeBim);
    EXPECT_EQ(grid->GetHeaderImage(0), 0);
    for (int column = 1; column < grid->GetColumnCount(); ++column) {
        EXPECT_EQ(grid->GetHeaderImage(column), -1) << column;
    }
}

TEST_F(ConsoleColumnsTest, TheProjectIsHiddenWhileOneProjectIsOpen) {
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(4));
    EXPECT_THAT(HiddenIn(kModePdf), ElementsAre(4));
    EXPECT_THAT(HiddenIn(kModeIssue), ElementsAre(4, 8, 15));
}

TEST_F(ConsoleColumnsTest, EachMissingRightHidesItsColumn) {
    host.auth.rights = {22, 38};
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(4, 12));
    EXPECT_THAT(HiddenIn(kModePdf), ElementsAre(4, 13));
    host.auth.rights = {21, 38};
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(4, 16));
    EXPECT_THAT(HiddenIn(kModePdf), ElementsAre(4, 17));
    host.auth.rights = {21, 22};
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(4, 11));
    EXPECT_THAT(HiddenIn(kModePdf), ElementsAre(4, 12));
    host.auth.rights = {};
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(4, 11, 12, 16));
    EXPECT_THAT(HiddenIn(kModeIssue), ElementsAre(4, 8, 15));
}

TEST_F(ConsoleColumnsTest, AWorksetShowsTheProjectAndHidesWhatChanges) {
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}});
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(11, 12, 16));
    EXPECT_THAT(HiddenIn(kModePdf), ElementsAre(12, 13, 17));
    EXPECT_THAT(HiddenIn(kModeIssue), ElementsAre(8, 11, 12, 15, 16));
}

TEST_F(ConsoleColumnsTest, ARightServiceThatFailsHidesLikeAMissingRight) {
    host.script.FailAlways("HasRight");
    EXPECT_THAT(HiddenIn(kModeBim), ElementsAre(4, 11, 12, 16));
}

TEST_F(ConsoleColumnsTest, AnotherKindReplacesAllColumns) {
    Open(kModePdf);
    grid->SetMode(kModeIssue);
    EXPECT_EQ(grid->GetColumnCount(), 17);
    EXPECT_EQ(grid->GetColumnCaption(7), u"问题构件"_s);
    EXPECT_EQ(grid->sortable.size(), 17U);
    EXPECT_THAT(Hidden(), ElementsAre(4, 8, 15));
}

} // namespace
