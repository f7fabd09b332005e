#include "sample/DrawingSheet.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

sample::DrawingOrder Order(quint64 seed) {
    return {seed, u"滨江花园三期"_s, u"首层建筑平面图"_s, u"建施-03"_s, u"2023-05-06"_s};
}

TEST(DrawingSheet, IsASmallPdfOfOneA3Page) {
    const QByteArray pdf = sample::MakeDrawing(Order(1));
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(pdf.count("/MediaBox [0 0 1191"), 1);
    EXPECT_LT(pdf.size(), 200 * 1024);
}

TEST(DrawingSheet, CarriesNoTimeOfItsMaking) {
    const QByteArray pdf = sample::MakeDrawing(Order(1));
    EXPECT_TRUE(pdf.contains("/CreationDate (D:20240101"));
}

TEST(DrawingSheet, OtherSeedsDrawOtherWalls) {
    EXPECT_EQ(sample::MakeDrawing(Order(1)), sample::MakeDrawing(Order(1)));
    EXPECT_NE(sample::MakeDrawing(Order(1)), sample::MakeDrawing(Order(2)));
}

} // namespace
