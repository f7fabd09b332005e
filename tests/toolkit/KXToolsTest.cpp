#include "toolkit/KXTools.h"

#include "toolkit/Clock.h"

#include <QDateTime>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

qint64 At(int hour, int minute, int second) {
    return QDateTime(QDate(2026, 3, 5), QTime(hour, minute, second)).toSecsSinceEpoch();
}

} // namespace

TEST(KXTools, StartOfTheDayIsMidnightOfThatDay) {
    qint64 time = At(17, 45, 3);
    KXTools::Set0Hour0Minute0Second(time);
    EXPECT_EQ(time, At(0, 0, 0));
}

TEST(KXTools, EndOfTheDayIsItsLastSecond) {
    qint64 time = At(0, 0, 0);
    KXTools::Set23Hour59Minute59Second(time);
    EXPECT_EQ(time, At(23, 59, 59));
}

TEST(KXTools, TimesPrintInLocalForm) {
    EXPECT_EQ(KXTools::MinuteText(At(7, 5, 9)), u"2026-03-05 07:05"_s);
    EXPECT_EQ(KXTools::SecondText(At(7, 5, 9)), u"2026-03-05 07:05:09"_s);
}

TEST(KXTools, ATimeFarBeyondOursStillPrints) {
    const QDateTime far(QDate(12345, 6, 7), QTime(8, 9, 1));
    EXPECT_EQ(KXTools::SecondText(far.toSecsSinceEpoch()), u"12345-06-07 08:09:01"_s);
}

TEST(KXTools, ARecordsTimeIsShownToTheSecondAndNoTimeNotAtAll) {
    EXPECT_EQ(KXTools::timeToCString(At(7, 5, 9)), u"2026-03-05 07:05:09"_s);
    EXPECT_EQ(KXTools::timeToCString(0), QString());
}

TEST(Clock, UnlessReplacedItTellsTheSystemsTime) {
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    const qint64 now = toolkit::Clock().NowSeconds();
    EXPECT_LE(before, now);
    EXPECT_LE(now, QDateTime::currentSecsSinceEpoch());
}
