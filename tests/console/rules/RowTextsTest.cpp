#include "console/RowTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// 2026-03-05 12:00:00 in the tests' zone.
constexpr qint64 kNoon = 1772683200;

TEST(PairText, BothNamesStandWhereTheyDiffer) {
    EXPECT_EQ(PairText(u"zhang"_s, u"li"_s), u"zhang / li"_s);
}

TEST(PairText, OneNameStandsAlone) {
    EXPECT_EQ(PairText(u"zhang"_s, u"zhang"_s), u"zhang"_s);
    EXPECT_EQ(PairText(u"zhang"_s, QString()), u"zhang"_s);
}

TEST(PairText, AMissingFirstNameLeavesTheSeparator) {
    EXPECT_EQ(PairText(QString(), u"li"_s), u" / li"_s);
    EXPECT_EQ(PairText(QString(), QString()), QString());
}

TEST(LabelText, EveryLabelIsFollowedByOneBlank) {
    EXPECT_EQ(LabelText(std::vector<QString>{u"裂缝"_s, u"渗漏"_s}), u"裂缝 渗漏 "_s);
    EXPECT_EQ(LabelText(std::vector<QString>{u"裂缝"_s}), u"裂缝 "_s);
    EXPECT_EQ(LabelText(std::vector<QString>{}), QString());
}

TEST(LabelText, LabelsWithIdsAreNamedInTheSameWay) {
    EXPECT_EQ(LabelText(std::vector<KX_DATA::LabelEntry>{{u"1"_s, u"裂缝"_s}, {u"2"_s, u"渗漏"_s}}),
              u"裂缝 渗漏 "_s);
    EXPECT_EQ(LabelText(std::vector<KX_DATA::LabelEntry>{}), QString());
}

TEST(BimPositionText, FloorStandsBeforeThePosition) {
    KX_DATA::BimPicRow row;
    row.floor = u"-1"_s;
    row.posText = u"A-3"_s;
    EXPECT_EQ(BimPositionText(row), u"-1层A-3"_s);
    row.posText.clear();
    EXPECT_EQ(BimPositionText(row), u"-1层"_s);
}

TEST(BimPositionText, WithoutAFloorThereIsNoPosition) {
    KX_DATA::BimPicRow row;
    row.posText = u"A-3"_s;
    EXPECT_EQ(BimPositionText(row), QString());
}

TEST(CheckpointText, EveryNumberIsFormattedAlike) {
    EXPECT_EQ(CheckpointText(7), u"检查点7"_s);
    EXPECT_EQ(CheckpointText(0), u"检查点0"_s);
    EXPECT_EQ(CheckpointText(-2), u"检查点-2"_s);
}

TEST(StatusText, OnlyZeroIsShown) {
    EXPECT_EQ(StatusText(0), u"显示"_s);
    EXPECT_EQ(StatusText(1), u"隐藏"_s);
    EXPECT_EQ(StatusText(11), u"隐藏"_s);
    EXPECT_EQ(StatusText(-1), u"隐藏"_s);
}

TEST(RunningNumber, CountsOverThePages) {
    EXPECT_EQ(RunningNumber(1, 0), 1);
    EXPECT_EQ(RunningNumber(1, 29), 30);
    EXPECT_EQ(RunningNumber(2, 0), 31);
    EXPECT_EQ(RunningNumber(1000, 29), 30000);
}

KX_DATA::IssueRow Issue(qint64 created, qint64 updated) {
    KX_DATA::IssueRow row;
    row.creatorName = u"zhang"_s;
    row.updaterName = u"li"_s;
    row.createTime = created;
    row.updateTime = updated;
    return row;
}

TEST(IssuePairs, EqualTimesShowTheCreatorAloneWhateverTheNames) {
    const IssuePairTexts texts = IssuePairs(Issue(kNoon, kNoon));
    EXPECT_EQ(texts.people, u"zhang"_s);
    EXPECT_EQ(texts.times, u"2026-03-05 12:00"_s);
}

TEST(IssuePairs, DifferentTimesShowBothPeopleAndBothTimes) {
    const IssuePairTexts texts = IssuePairs(Issue(kNoon, kNoon + 3660));
    EXPECT_EQ(texts.people, u"zhang / li"_s);
    EXPECT_EQ(texts.times, u"2026-03-05 12:00 / 2026-03-05 13:01"_s);
}

TEST(IssuePairs, DifferentTimesShowTheSeparatorAlsoWithoutAnUpdater) {
    KX_DATA::IssueRow row = Issue(kNoon, kNoon + 60);
    row.updaterName.clear();
    EXPECT_EQ(IssuePairs(row).people, u"zhang / "_s);
}

TEST(IssuePairs, TimesOfTheSameMinuteStillCountAsDifferent) {
    const IssuePairTexts texts = IssuePairs(Issue(kNoon, kNoon + 1));
    EXPECT_EQ(texts.people, u"zhang / li"_s);
    EXPECT_EQ(texts.times, u"2026-03-05 12:00 / 2026-03-05 12:00"_s);
}

KX_DATA::IssueRow At(const QString& floor, const QString& posInfo, const QString& compName) {
    KX_DATA::IssueRow row;
    row.floor = floor;
    row.posInfo = posInfo;
    row.compName = compName;
    return row;
}

TEST(IssueComponentText, FloorPositionAndComponentStandInOneLine) {
    EXPECT_EQ(IssueComponentText(At(u"3"_s, u"B-2"_s, u"KZ-1"_s)), u"3层 B-2 KZ-1"_s);
}

TEST(IssueComponentText, WithoutAPositionASingleBlankStandsBetween) {
    EXPECT_EQ(IssueComponentText(At(u"3"_s, QString(), u"KZ-1"_s)), u"3层 KZ-1"_s);
}

TEST(IssueComponentText, MissingPartsKeepTheirSeparators) {
    EXPECT_EQ(IssueComponentText(At(QString(), QString(), QString())), u"层 "_s);
}

TEST(LocateText, NamesFloorMarkAndPhoto) {
    EXPECT_EQ(LocateText(u"F1"_s, 2, 37), u"F1-2-37"_s);
    EXPECT_EQ(LocateText(u"-1"_s, -3, 0), u"-1--3-0"_s);
    EXPECT_EQ(LocateText(QString(), 0, -1), u"-0--1"_s);
}

TEST(LocateText, AFloorThatLooksLikeAPlaceholderStaysAsItIs) {
    EXPECT_EQ(LocateText(u"%d%1"_s, 2, 37), u"%d%1-2-37"_s);
}

} // namespace
