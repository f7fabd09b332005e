// Cells and rows: values, conversions, what out-of-range asks give.
#include "toolkit/grid/GridRow.h"

#include <QDate>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(GridItem, BooleanOfEveryKindOfValue) {
    struct Case {
        QVariant value;
        bool expected;
    };
    const Case cases[] = {{true, true},      {false, false},      {1, true},
                          {0, false},        {-2, true},          {QVariant(), false},
                          {u"true"_s, true}, {u"False"_s, false}, {u"1"_s, true},
                          {u"0"_s, false}};
    for (const Case& each : cases) {
        EXPECT_EQ(CGridItem(each.value).GetBool(), each.expected)
            << each.value.toString().toStdString();
    }
}

TEST(GridItem, ValueThatIsNoBooleanIsAFault) {
    EXPECT_THROW(static_cast<void>(CGridItem(u"显示"_s).GetBool()), BadCellValue);
    EXPECT_THROW(static_cast<void>(CGridItem(u""_s).GetBool()), BadCellValue);
    EXPECT_THROW(static_cast<void>(CGridItem(QDate(2024, 1, 1)).GetBool()), BadCellValue);
}

TEST(GridItem, TextsOfTheKinds) {
    EXPECT_EQ(CGridItem(12).GetText(), u"12"_s);
    EXPECT_EQ(CColorTxtItem(0x0000FF, u"裂缝"_s).GetText(), u"裂缝"_s);
    EXPECT_EQ(CCheckBoxItem(true).GetText(), QString());
    const toolkit::ImageList images;
    const CIconGridItem icon(images, 5, 9, u"定位"_s);
    EXPECT_EQ(icon.GetText(), QString());
    EXPECT_EQ(icon.Command(), 9);
    EXPECT_TRUE(icon.Icon().isNull());
}

TEST(GridRow, EveryCellIsThereAndOthersAreNot) {
    CGridRow row(3);
    EXPECT_EQ(row.GetItemCount(), 3);
    ASSERT_NE(row.GetItem(2), nullptr);
    EXPECT_EQ(row.GetItem(2)->GetText(), QString());
    EXPECT_EQ(row.GetItem(3), nullptr);
    EXPECT_EQ(row.GetItem(-1), nullptr);
    EXPECT_EQ(row.GetRowId(), -1);
}

TEST(GridRow, ItemOutOfRangeIsDropped) {
    CGridRow row(1);
    row.PutItem(1, std::make_unique<CCheckBoxItem>(true));
    row.PutItem(0, nullptr);
    row.SetText(5, 1);
    EXPECT_EQ(row.GetItemCount(), 1);
    EXPECT_EQ(row.GetItem(0)->GetValue(), QVariant());
}

TEST(GridRow, WithoutCells) {
    EXPECT_EQ(CGridRow(0).GetItemCount(), 0);
    EXPECT_EQ(CGridRow(-3).GetItemCount(), 0);
}

} // namespace
