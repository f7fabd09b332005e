#include "host/ui/statistics/StatisticsChart.h"

#include <QDate>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(StatisticsTexts, SharesHaveOneDecimalAndOfNothingThereIsNone) {
    EXPECT_EQ(ShareText(1, 8), u"12.5%"_s);
    EXPECT_EQ(ShareText(3, 3), u"100.0%"_s);
    EXPECT_EQ(ShareText(0, 0), u"0%"_s);
}

TEST(StatisticsTexts, PhotosAndIssuesHaveTheirWords) {
    EXPECT_EQ(CountText(CountedKind::BimPhotos, 12), u"照片 12 张"_s);
    EXPECT_EQ(CountText(CountedKind::PdfPhotos, 12), u"照片 12 张"_s);
    EXPECT_EQ(CountText(CountedKind::Issues, 3), u"问题 3 个"_s);
}

TEST(StatisticsTexts, DrawingPhotosHaveDrawingsInsteadOfFloors) {
    EXPECT_EQ(NameOf(CountedBy::Place, CountedKind::BimPhotos), u"按楼层"_s);
    EXPECT_EQ(NameOf(CountedBy::Place, CountedKind::Issues), u"按楼层"_s);
    EXPECT_EQ(NameOf(CountedBy::Place, CountedKind::PdfPhotos), u"按图纸"_s);
}

TEST(StatisticsTexts, AWeekGoesFromMondayToSunday) {
    const QDate today(2026, 11, 23);
    EXPECT_EQ(WeekName({2026, 11, 16}, today), u"11月16日–22日"_s);
    EXPECT_EQ(WeekName({2026, 11, 30}, today), u"11月30日–12月6日"_s);
    EXPECT_EQ(WeekName({2025, 12, 29}, today), u"2025年12月29日–1月4日"_s);
}

} // namespace
} // namespace host
