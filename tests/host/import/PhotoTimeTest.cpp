#include "host/import/PhotoTime.h"

#include "tests/host/import/TestPictures.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace {

using importtest::ExifText;
using importtest::Picture;
using importtest::WithExif;

std::optional<qint64> TimeOf(const ExifText& text) {
    return host::ExifTime(WithExif(Picture("jpeg", 1), text));
}

qint64 Utc(int year, int month, int day, int hour, int minute, int second) {
    return QDateTime({year, month, day}, {hour, minute, second}, Qt::UTC).toSecsSinceEpoch();
}

TEST(PhotoTime, WithAnOffsetTheMomentIsTheSameEverywhere) {
    EXPECT_EQ(TimeOf({"2024:03:12 14:25:36", "+05:30", {}, {}, 0}), Utc(2024, 3, 12, 8, 55, 36));
    EXPECT_EQ(TimeOf({"2024:03:12 14:25:36", "-03:00", {}, {}, 0}), Utc(2024, 3, 12, 17, 25, 36));
}

TEST(PhotoTime, WithoutAnOffsetItIsTheTimeOfThisMachine) {
    const QDateTime local({2024, 3, 12}, {14, 25, 36});
    EXPECT_EQ(TimeOf({"2024:03:12 14:25:36", {}, {}, {}, 0}), local.toSecsSinceEpoch());
}

TEST(PhotoTime, AnUnreadableOffsetCountsAsNone) {
    const QDateTime local({2024, 3, 12}, {14, 25, 36});
    for (const char* offset : {"   :  ", "+8", "+99:00", "+08:00:00"}) {
        EXPECT_EQ(TimeOf({"2024:03:12 14:25:36", offset, {}, {}, 0}), local.toSecsSinceEpoch())
            << offset;
    }
}

TEST(PhotoTime, TheTimeOfDigitisingStandsInForThatOfTheExposure) {
    EXPECT_EQ(TimeOf({{}, {}, "2023:07:01 09:00:00", "+00:00", 0}), Utc(2023, 7, 1, 9, 0, 0));
    EXPECT_EQ(TimeOf({"0000:00:00 00:00:00", {}, "2023:07:01 09:00:00", "+00:00", 0}),
              Utc(2023, 7, 1, 9, 0, 0));
}

TEST(PhotoTime, TimesThatCannotBeAreNone) {
    for (const char* text : {"0000:00:00 00:00:00", "2024:02:30 10:00:00", "1969:01:01 00:00:00",
                             "2024-03-12 14:25:36", "yesterday", "    :  :     :  :  "}) {
        EXPECT_EQ(TimeOf({text, "+00:00", {}, {}, 0}), std::nullopt) << text;
    }
}

TEST(PhotoTime, APictureWithoutABlockHasNoTime) {
    EXPECT_EQ(host::ExifTime(Picture("jpeg", 1)), std::nullopt);
    EXPECT_EQ(host::ExifTime({}), std::nullopt);
}

TEST(PhotoTime, ABrokenBlockHasNoTimeAndDoesNoHarm) {
    const QByteArray whole = WithExif(Picture("jpeg", 1), {"2024:03:12 14:25:36", {}, {}, {}, 6});
    for (qsizetype at = 2; at < 120; ++at) {
        QByteArray broken = whole;
        broken[at] = '\xFF';
        (void)host::ExifTime(broken);
        (void)host::ExifTime(whole.left(at));
    }
    EXPECT_EQ(host::ExifTime(whole.left(60)), std::nullopt);
}

} // namespace
