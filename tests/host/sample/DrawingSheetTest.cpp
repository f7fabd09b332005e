#include "host/sample/DrawingSheet.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

host::DrawingOrder Order(quint64 seed) {
    return {seed, u"滨江花园三期"_s, u"首层建筑平面图"_s, u"建施-03"_s, u"2023-05-06"_s};
}

TEST(DrawingSheet, IsASmallPdfOfOneA3Page) {
    const QByteArray pdf = host::MakeDrawing(Order(1));
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(pdf.count("/MediaBox [0 0 1191"), 1);
    EXPECT_LT(pdf.size(), 200 * 1024);
}

TEST(DrawingSheet, CarriesNoTimeOfItsMaking) {
    const QByteArray pdf = host::MakeDrawing(Order(1));
    EXPECT_TRUE(pdf.contains("/CreationDate (D:20240101"));
}

TEST(DrawingSheet, OtherSeedsDrawOtherWalls) {
    EXPECT_EQ(host::MakeDrawing(Order(1)), host::MakeDrawing(Order(1)));
    EXPECT_NE(host::MakeDrawing(Order(1)), host::MakeDrawing(Order(2)));
}

} // namespace
