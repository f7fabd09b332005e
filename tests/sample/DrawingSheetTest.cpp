#include "sample/drawings/DrawingSheet.h"

#include "sample/drawings/SheetGrid.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace Qt::StringLiterals;
using sample::SheetTrade;

sample::DrawingOrder Order(quint64 seed, SheetTrade trade = SheetTrade::Building) {
    return {seed, u"滨江花园三期"_s, u"首层建筑平面图"_s, u"建施-03"_s, u"2023-05-06"_s, trade};
}

TEST(DrawingSheet, IsAModestPdfOfOneA1PageWithoutAPicture) {
    for (const SheetTrade trade : {SheetTrade::Building, SheetTrade::Structure,
                                   SheetTrade::Plumbing, SheetTrade::Electrical}) {
        const QByteArray pdf = sample::MakeDrawing(Order(1, trade));
        EXPECT_TRUE(pdf.startsWith("%PDF-"));
        EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
        EXPECT_EQ(pdf.count("/MediaBox [0 0 2384"), 1);
        EXPECT_EQ(pdf.count("/Subtype /Image"), 0);
        EXPECT_LT(pdf.size(), 200 * 1024);
    }
}

TEST(DrawingSheet, CarriesNoTimeOfItsMaking) {
    const QByteArray pdf = sample::MakeDrawing(Order(1));
    EXPECT_TRUE(pdf.contains("/CreationDate (D:20240101"));
}

TEST(DrawingSheet, EqualOrdersAreEqualFilesAndOtherSeedsTradesAndGridsOthers) {
    const QByteArray one = sample::MakeDrawing(Order(1));
    EXPECT_EQ(one, sample::MakeDrawing(Order(1)));
    EXPECT_NE(one, sample::MakeDrawing(Order(2)));
    EXPECT_NE(one, sample::MakeDrawing(Order(1, SheetTrade::Plumbing)));
    sample::DrawingOrder fewer = Order(1);
    fewer.columns = 7;
    EXPECT_NE(one, sample::MakeDrawing(fewer));
}

TEST(DrawingSheet, TheSmallestGridIsDrawnToo) {
    sample::DrawingOrder order = Order(1, SheetTrade::Electrical);
    order.columns = order.rows = 2;
    EXPECT_TRUE(sample::MakeDrawing(order).startsWith("%PDF-"));
}

TEST(SheetGrid, AxesLieInTheMiddleOfTheSheetWithRoomAroundThem) {
    for (const auto& [columns, rows] : {std::pair(9, 6), {7, 4}, {2, 2}}) {
        const QRectF outline = sample::SheetGrid(columns, rows).Outline();
        EXPECT_DOUBLE_EQ(outline.left(), sample::kSheetWidth - outline.right());
        EXPECT_GT(outline.left(), 600);
        EXPECT_GT(outline.top(), 500);
        EXPECT_LT(outline.bottom(), sample::kSheetHeight - 1000) << "the title block";
        EXPECT_DOUBLE_EQ(outline.width(), (columns - 1) * sample::kSheetBay);
    }
}

TEST(SheetGrid, RowsGoUpAndColumnsToTheRight) {
    const sample::SheetGrid grid(9, 6);
    EXPECT_EQ(grid.At(0, 5), grid.Outline().topLeft());
    EXPECT_EQ(grid.At(8, 0), grid.Outline().bottomRight());
    EXPECT_EQ(grid.Bay(0, 0).bottomLeft(), grid.At(0, 0));
    EXPECT_EQ(sample::SheetGrid::Thousandths({sample::kSheetWidth, sample::kSheetHeight / 2}),
              QPoint(1000, 500));
}

} // namespace
