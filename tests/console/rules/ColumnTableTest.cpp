#include "console/ColumnTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

/// "caption width", then C for centred, L for locked, S for sorting.
std::vector<std::string> Described(ConsoleMode mode) {
    std::vector<std::string> lines;
    for (const ColumnSpec& column : ConsoleColumns(mode)) {
        std::string line = column.caption.toStdString() + ' ' + std::to_string(column.width);
        if (column.centred || column.locked || column.sortable) {
            line += ' ';
        }
        line += column.centred ? "C" : "";
        line += column.locked ? "L" : "";
        line += column.sortable ? "S" : "";
        lines.push_back(line);
    }
    return lines;
}

TEST(ColumnTable, BimPhotosHaveSeventeenColumns) {
    EXPECT_THAT(Described(kModeBim),
                ElementsAre(" 20 L", "序号 35 C", "照片标识 75 S", "照片名称 150 S",
                            "所属工程 150 S", "上传人/更新人 100 S", "上传/更新时间 130 S",
                            "位置 50 S", "标签 60", "整改情况 60 L", "描述 60 S", "状态 50 CLS",
                            "编辑 40 L", "反查 40 L", "预览 40 L", "下载 40 L", "删除 40 L"));
}

TEST(ColumnTable, DrawingPhotosHaveOneColumnMoreForTheDrawing) {
    EXPECT_THAT(Described(kModePdf),
                ElementsAre(" 20 L", "序号 35 C", "标识 75 S", "照片名称 120 S", "所属工程 120 CLS",
                            "图纸 75 CS", "上传人/更新人 90 S", "上传/更新时间 130 S", "位置 60 S",
                            "标签 60 L", "整改情况 60", "描述 50 LS", "状态 45 CLS", "编辑 35 L",
                            "反查 35 L", "预览 35 L", "下载 35 L", "删除 35 L"));
}

TEST(ColumnTable, IssuesHaveSeventeenColumnsOfTheirOwn) {
    EXPECT_THAT(Described(kModeIssue),
                ElementsAre(" 20 L", "序号 35 C", "问题标识 75 S", "问题主题 150 S",
                            "所属工程 150 S", "创建人/更新人 100 S", "上传/更新时间 130 S",
                            "问题构件 110 S", "标签 60", "整改情况 60 S", "描述 60 S",
                            "状态 50 CLS", "编辑 40 L", "反查 40 L", "预览 40 L", "下载 40 L",
                            "删除 40 L"));
}

TEST(ColumnTable, AnUnknownKindHasTheColumnsOfBimPhotos) {
    EXPECT_THAT(Described(kModeNone), ElementsAreArray(Described(kModeBim)));
    EXPECT_THAT(Described(99), ElementsAreArray(Described(kModeBim)));
}

TEST(ColumnTable, StatusStandsBeforeTheIconsOfItsKind) {
    EXPECT_EQ(StatusColumn(kModeBim), 11);
    EXPECT_EQ(StatusColumn(kModePdf), 12);
    EXPECT_EQ(StatusColumn(kModeIssue), 11);
    EXPECT_EQ(FirstIconColumn(kModeBim), 12);
    EXPECT_EQ(FirstIconColumn(kModePdf), 13);
    EXPECT_EQ(FirstIconColumn(kModeIssue), 12);
}

constexpr ColumnRights kAllRights{true, true, true, false};

ColumnRights Without(bool ColumnRights::*right) {
    ColumnRights rights = kAllRights;
    rights.*right = false;
    return rights;
}

ColumnRights InWorkset(ColumnRights rights = kAllRights) {
    rights.worksetMode = true;
    return rights;
}

TEST(HiddenColumns, WithAllRightsOnlyTheProjectOfASingleProjectIsHidden) {
    EXPECT_THAT(HiddenColumns(kModeBim, kAllRights), ElementsAre(4));
    EXPECT_THAT(HiddenColumns(kModePdf, kAllRights), ElementsAre(4));
    EXPECT_THAT(HiddenColumns(kModeIssue, kAllRights), ElementsAre(4, 8, 15));
}

TEST(HiddenColumns, WithoutTheRightToEditTheEditIconIsHidden) {
    EXPECT_THAT(HiddenColumns(kModeBim, Without(&ColumnRights::edit)), ElementsAre(4, 12));
    EXPECT_THAT(HiddenColumns(kModePdf, Without(&ColumnRights::edit)), ElementsAre(4, 13));
}

TEST(HiddenColumns, WithoutTheRightToDeleteTheDeleteIconIsHidden) {
    EXPECT_THAT(HiddenColumns(kModeBim, Without(&ColumnRights::remove)), ElementsAre(4, 16));
    EXPECT_THAT(HiddenColumns(kModePdf, Without(&ColumnRights::remove)), ElementsAre(4, 17));
}

TEST(HiddenColumns, WithoutTheRightToShowAndHideTheStatusIsHidden) {
    EXPECT_THAT(HiddenColumns(kModeBim, Without(&ColumnRights::showHide)), ElementsAre(4, 11));
    EXPECT_THAT(HiddenColumns(kModePdf, Without(&ColumnRights::showHide)), ElementsAre(4, 12));
}

TEST(HiddenColumns, WithoutAnyRightAllThreeAreHidden) {
    EXPECT_THAT(HiddenColumns(kModeBim, {}), ElementsAre(4, 11, 12, 16));
    EXPECT_THAT(HiddenColumns(kModePdf, {}), ElementsAre(4, 12, 13, 17));
}

TEST(HiddenColumns, AWorksetShowsTheProjectAndHidesWhatChanges) {
    EXPECT_THAT(HiddenColumns(kModeBim, InWorkset()), ElementsAre(11, 12, 16));
    EXPECT_THAT(HiddenColumns(kModePdf, InWorkset()), ElementsAre(12, 13, 17));
    EXPECT_THAT(HiddenColumns(kModeIssue, InWorkset()), ElementsAre(8, 11, 12, 15, 16));
}

TEST(HiddenColumns, AColumnHiddenForTwoReasonsIsNamedOnce) {
    EXPECT_THAT(HiddenColumns(kModeBim, InWorkset({})), ElementsAre(11, 12, 16));
}

TEST(HiddenColumns, IssuesAskForNoRights) {
    EXPECT_THAT(HiddenColumns(kModeIssue, {}), ElementsAre(4, 8, 15));
}

std::vector<int> Shares(ConsoleMode mode) {
    std::vector<int> shares;
    for (const ColumnSpec& column : ConsoleColumns(mode)) {
        shares.push_back(column.stretch);
    }
    return shares;
}

TEST(ColumnTable, AWideWindowsRoomGoesToTextsByTheseShares) {
    EXPECT_THAT(Shares(kModeBim), ElementsAre(0, 0, 0, 3, 2, 1, 3, 2, 2, 0, 8, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(Shares(kModePdf),
                ElementsAre(0, 0, 0, 4, 0, 4, 2, 3, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(Shares(kModeIssue), ElementsAre(0, 0, 0, 4, 2, 1, 3, 3, 0, 0, 8, 0, 0, 0, 0, 0, 0));
}

} // namespace
