#include "host/services/ListPresets.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

qint64 SecondOf(const QDate& day, const QTime& time = QTime(0, 0)) {
    return QDateTime(day, time).toSecsSinceEpoch();
}

TEST(ListPresets, AKeySaysAllThatItWasMadeOf) {
    ListPreset preset;
    preset.mark = 0;
    preset.floor = QString();
    preset.state = 2;
    preset.modified = {kBeginOfTime, SecondOf({2026, 11, 16})};
    preset.unfiled = true;
    preset.filed = site::FiledRun{3, 9, u"王强"_s};
    EXPECT_EQ(PresetOfKey(KeyOfPreset(preset)), preset);
    EXPECT_EQ(PresetOfKey(KeyOfPreset({})), ListPreset());
    EXPECT_EQ(PresetOfKey(u"-1"_s), std::nullopt);
}

TEST(ListPresets, NumbersOfMarksStatesAndTimesAreNotEachOthers) {
    const qint64 monday = SecondOf({2026, 11, 16});
    for (const qint32 mark : {0, 1, 4711}) {
        ASSERT_TRUE(PresetOfNumber(NumberOfMark(mark)));
        EXPECT_EQ(PresetOfNumber(NumberOfMark(mark))->mark, mark);
    }
    EXPECT_EQ(PresetOfNumber(NumberOfState(3))->state, 3);
    const auto week = PresetOfNumber(NumberOfWeek(monday + 3600));
    EXPECT_EQ(week->modified, std::pair(monday, SecondOf({2026, 11, 23}) - 1));
    EXPECT_EQ(PresetOfNumber(NumberBefore(monday))->modified, std::pair(kBeginOfTime, monday - 1));
    EXPECT_EQ(PresetOfNumber(NumberFrom(monday))->modified, std::pair(monday, kEndOfTime));
    for (const qint32 none : {-1, 0, 1, 99}) {
        EXPECT_EQ(PresetOfNumber(none), std::nullopt);
    }
}

TEST(ListPresets, AMarkLimitsAFilterAndAnotherOneMakesItEmpty) {
    ListPreset preset;
    preset.mark = 0;
    site::ListFilter filter;
    Limit(filter, preset);
    EXPECT_EQ(filter.markId, 0);
    EXPECT_FALSE(filter.nothing);
    filter.markId = 5;
    Limit(filter, preset);
    EXPECT_TRUE(filter.nothing);
}

TEST(ListPresets, AWeekBeginsOnMondayAndEndsOnSunday) {
    const qint64 sunday = SecondOf({2026, 11, 22}, QTime(23, 59, 59));
    EXPECT_EQ(WeekOf(sunday), SecondOf({2026, 11, 16}));
    EXPECT_EQ(EndOfWeek(WeekOf(sunday)), sunday);
    EXPECT_EQ(WeekOf(sunday + 1), SecondOf({2026, 11, 23}));
}

} // namespace
} // namespace host
