#include "console/SortKeys.h"

#include "console/ColumnTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

std::vector<std::string> Fields(ConsoleMode mode, int count) {
    std::vector<std::string> fields;
    for (int column = 0; column < count; ++column) {
        fields.push_back(SortField(mode, column).toStdString());
    }
    return fields;
}

TEST(SortKeys, BimPhotosSortByTheseFields) {
    EXPECT_THAT(Fields(kModeBim, 12),
                ElementsAre("last_modifytime", "last_modifytime", "marker_id", "pic_name", "ppid",
                            "last_modifyuser", "last_modifytime", "floor,axis_symbol",
                            "floor,axis_symbol", "rectifyStatus", "pic_describe", "pic_status"));
}

TEST(SortKeys, DrawingPhotosSortByTheseFields) {
    EXPECT_THAT(Fields(kModePdf, 13),
                ElementsAre("last_modifytime", "last_modifytime", "marker_id", "pic_name", "ppid",
                            "pdfdrawings_name", "last_modifyuser", "last_modifytime", "checkpt_num",
                            "rectifyStatus", "pic_describe", "pic_describe", "pic_status"));
}

TEST(SortKeys, IssuesSortByTheseFields) {
    EXPECT_THAT(Fields(kModeIssue, 12),
                ElementsAre("modifytime", "modifytime", "markerId", "theme", "ppid", "modifyuser",
                            "modifytime", "floor,posinfo,compname", "modifytime", "rectifyStatus",
                            "describe", "status"));
}

TEST(SortKeys, AColumnThatTheTableLacksSortsByTheKindsDefault) {
    for (const int column : {-1, 12, 13, 100, INT_MIN, INT_MAX}) {
        EXPECT_EQ(SortField(kModeBim, column), u"last_modifytime"_s) << column;
        EXPECT_EQ(SortField(kModeIssue, column), u"modifytime"_s) << column;
    }
    EXPECT_EQ(SortField(kModePdf, 13), u"last_modifytime"_s);
}

TEST(SortKeys, TheDefaultIsTheTimeOfTheLastChange) {
    EXPECT_EQ(DefaultSortField(kModeBim), u"last_modifytime"_s);
    EXPECT_EQ(DefaultSortField(kModePdf), u"last_modifytime"_s);
    EXPECT_EQ(DefaultSortField(kModeIssue), u"modifytime"_s);
    EXPECT_EQ(DefaultSortField(kModeNone), u"last_modifytime"_s);
}

TEST(SortKeys, TheseColumnsSort) {
    const auto sortable = [](ConsoleMode mode) {
        std::vector<int> columns;
        for (int i = 0; i < int(ConsoleColumns(mode).size()); ++i) {
            if (ConsoleColumns(mode)[size_t(i)].sortable) {
                columns.push_back(i);
            }
        }
        return columns;
    };
    EXPECT_THAT(sortable(kModeBim), ElementsAre(2, 3, 4, 5, 6, 7, 10, 11));
    EXPECT_THAT(sortable(kModePdf), ElementsAre(2, 3, 4, 5, 6, 7, 8, 11, 12));
    EXPECT_THAT(sortable(kModeIssue), ElementsAre(2, 3, 4, 5, 6, 7, 9, 10, 11));
}

TEST(SortKeys, FirstClickSortsAscending) {
    EXPECT_EQ(SortOrderAfter(0), u"asc"_s);
}

TEST(SortKeys, AClickOnAnAscendingColumnSortsDescendingAndBack) {
    EXPECT_EQ(SortOrderAfter(ColumnStateOf(u"asc"_s)), u"desc"_s);
    EXPECT_EQ(SortOrderAfter(ColumnStateOf(u"desc"_s)), u"asc"_s);
}

TEST(SortKeys, AColumnsStateTellsItsOrder) {
    EXPECT_EQ(ColumnStateOf(u"asc"_s), 1);
    EXPECT_EQ(ColumnStateOf(u"desc"_s), -1);
}

} // namespace
