#include "host/ui/marks/ShownMarks.h"

#include "host/ui/plan/FloorFlags.h"
#include "tests/host/ui/FloorPlanSamples.h"
#include "tests/host/ui/MarkSamples.h"

#include <gtest/gtest.h>

#include <functional>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using hosttest::IssueGroup;
using hosttest::PhotoGroup;
using hosttest::PhotoItem;

QString Utf8(const std::string& bytes) {
    return QString::fromStdString(bytes);
}

std::string ToUtf8(const QString& text) {
    return text.toStdString();
}

/// A code page that lacks everything beyond the first 128 characters but "其他".
std::string ToPoorPage(const QString& text) {
    std::string bytes;
    for (const QChar letter : text) {
        bytes += letter.unicode() < 128 ? char(letter.unicode()) : '?';
    }
    return text == u"其他"_s ? ToUtf8(text) : bytes;
}

class Marks : public testing::Test {
protected:
    Marks() {
        marks.SetMarkTable({{1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FF00}}});
        marks.SetPhotos({PhotoGroup("1", {PhotoItem("1:2/B", "2/B", {{1, 5}, {2, 3}}),
                                          PhotoItem("1:gone", "9/Z", {{99, 4}})}),
                         PhotoGroup("2", {PhotoItem("2:1/A", "1/A", {{1, 1}})}),
                         PhotoGroup("其他", {PhotoItem("", "", {{1, 2}, {2, 6}, {1, 3}})})});
        marks.SetIssues({IssueGroup(u"1"_s, u"q1"_s, u"2-B轴"_s, 1),
                         IssueGroup(u"1"_s, u"q2"_s, u"2-B轴"_s, 1),
                         IssueGroup(u"1"_s, u"q3"_s, u"楼梯间"_s, 2),
                         IssueGroup(u"其他"_s, u"q4"_s, QString(), 2)});
    }

    ShownMarks marks{{Utf8, ToUtf8}};
};

TEST_F(Marks, AFloorHasAFlagForEachMarkAtEachPlacePhotosFirst) {
    const auto flags = marks.FlagsOf(u"1"_s, 7);
    ASSERT_EQ(flags.size(), 5U);
    EXPECT_EQ(flags[0].positionKey, u"1:2/B"_s);
    EXPECT_EQ(flags[0].markId, 1);
    EXPECT_EQ(flags[0].color, 0x0000FF);
    EXPECT_EQ(flags[0].count, 5);
    EXPECT_EQ(flags[0].ppid, 7);
    EXPECT_EQ(flags[0].floor, u"1"_s);
    EXPECT_EQ(flags[1].markId, 2);
    EXPECT_EQ(flags[3].kind, MarkKind::Issues);
    EXPECT_EQ(flags[3].count, 2);
    ASSERT_EQ(flags[3].issues.size(), 2U);
    EXPECT_EQ(flags[3].issues[1].questionId, u"q2"_s);
    EXPECT_EQ(flags[3].name, u"质量"_s);
    EXPECT_TRUE(marks.FlagsOf(u"5"_s, 7).empty());
}

TEST_F(Marks, AMarkThatTheTableDoesNotKnowIsGreyAndNamedByItsNumber) {
    const MarkFlag flag = marks.FlagsOf(u"1"_s, 7)[2];
    EXPECT_EQ(flag.markId, 99);
    EXPECT_EQ(flag.color, 0x9E9E9E);
    EXPECT_EQ(FlagName(flag), u"未知"_s);
}

TEST_F(Marks, OnNoFloorEachMarkHasOneFlagWhateverItsPlaces) {
    const auto flags = marks.FlagsOf(QString(), 0);
    ASSERT_EQ(flags.size(), 3U);
    EXPECT_EQ(flags[0].count, 5);
    EXPECT_EQ(flags[1].count, 6);
    EXPECT_EQ(flags[2].issues[0].questionId, u"q4"_s);
}

TEST(MarksInAPoorCodePage, AFloorWhoseNameItLacksHasItsFlags) {
    ShownMarks marks{{Utf8, ToPoorPage}};
    marks.SetPhotos({PhotoGroup("?1", {PhotoItem("?1:2/B", "2/B", {{1, 5}})})});
    const auto flags = marks.FlagsOf(u"ñ1"_s, 0);
    ASSERT_EQ(flags.size(), 1U);
    EXPECT_EQ(flags[0].floor, u"ñ1"_s);
    EXPECT_TRUE(marks.FindPhoto(u"ñ1:2/B"_s, 1));
    EXPECT_FALSE(marks.FindPhoto(u"ñ1:2/C"_s, 1));
}

TEST_F(Marks, AFloorOfAnotherProjectHasItsOwnFlags) {
    EXPECT_TRUE(marks.FlagsOf(u"1"_s, 8).empty());
    EXPECT_EQ(marks.FlagsOf(u"1"_s, 0).size(), 5U);
}

TEST_F(Marks, AKindThatIsNotDisplayedHasNoFlagsAndCannotBeFound) {
    marks.Show(MarkKind::Photos, false);
    EXPECT_EQ(marks.FlagsOf(u"1"_s, 7).size(), 2U);
    EXPECT_FALSE(marks.FindPhoto(u"1:2/B"_s, 1));
    EXPECT_TRUE(marks.FindIssue(u"q1"_s));
    marks.Show(MarkKind::Photos, true);
    marks.Show(MarkKind::Issues, false);
    EXPECT_FALSE(marks.IsShown(MarkKind::Issues));
    EXPECT_EQ(marks.FlagsOf(u"1"_s, 7).size(), 3U);
    EXPECT_TRUE(marks.FindPhoto(u"1:2/B"_s, 1));
    EXPECT_FALSE(marks.FindIssue(u"q1"_s));
}

TEST_F(Marks, OnlyWhatIsAmongThemIsFound) {
    EXPECT_EQ(marks.FindPhoto(u"2:1/A"_s, 1)->floor, u"2"_s);
    EXPECT_FALSE(marks.FindPhoto(u"2:1/A"_s, 2));
    EXPECT_FALSE(marks.FindPhoto(u"elsewhere"_s, 1));
    EXPECT_TRUE(marks.FindPhoto(QString(), 2)->floor.isEmpty());
    EXPECT_FALSE(marks.FindPhoto(QString(), 99));
    EXPECT_EQ(marks.FindIssue(u"q3"_s)->placeText, u"楼梯间"_s);
    EXPECT_FALSE(marks.FindIssue(u"q9"_s));
}

TEST_F(Marks, NewMarksReplaceTheOldOnes) {
    marks.SetPhotos({});
    marks.SetIssues({});
    EXPECT_TRUE(marks.FlagsOf(u"1"_s, 7).empty());
    EXPECT_FALSE(marks.FindIssue(u"q1"_s));
}

TEST_F(Marks, IssuesThatAreTheSameAreNoNews) {
    const std::vector<KX_DATA::IssueMarkGroup> groups{IssueGroup(u"1"_s, u"q1"_s, u"2-B轴"_s, 1),
                                                      IssueGroup(u"2"_s, u"q2"_s, u"2-B轴"_s, 1)};
    EXPECT_TRUE(marks.SetIssues(groups));
    EXPECT_FALSE(marks.SetIssues(groups));
    for (const auto& change : std::vector<std::function<void(KX_DATA::IssueMarkGroup&)>>{
             [](auto& group) { group.name = u"3"_s; }, [](auto& group) { group.id = 9; },
             [](auto& group) { group.entries[0].itemText += u'x'; },
             [](auto& group) { group.entries[0].itemKey += u'x'; },
             [](auto& group) { group.entries[0].text3 += u'x'; },
             [](auto& group) { group.entries[0].text4 += u'x'; },
             [](auto& group) { group.entries[0].value += 1; },
             [](auto& group) { group.entries.clear(); }}) {
        auto changed = groups;
        change(changed[1]);
        EXPECT_TRUE(marks.SetIssues(changed));
        EXPECT_TRUE(marks.SetIssues(groups));
    }
    EXPECT_TRUE(marks.SetIssues({groups[0]}));
}

TEST_F(Marks, FlagsStandAtTheirIntersectionsAndOthersOnTheShelf) {
    PlanFloor floor = hosttest::SmallPlan().floors[1];
    floor.ppid = 7;
    const auto flags = PlaceFlags(marks, floor);
    ASSERT_EQ(flags.size(), 5U);
    const int place = FindPlace({u"x"_s, {floor}}, u"1:2/B"_s)->intersection;
    EXPECT_EQ(flags[0].place, place);
    EXPECT_EQ(flags[1].place, place);
    EXPECT_EQ(flags[2].place, place);
    EXPECT_EQ(flags[2].flag.kind, MarkKind::Issues);
    EXPECT_EQ(flags[3].place, kShelf);
    EXPECT_EQ(flags[3].flag.placeText, u"9/Z"_s);
    EXPECT_EQ(flags[4].place, kShelf);
    EXPECT_EQ(ShelfCount(flags), 2);
}

TEST_F(Marks, AFlagsFloorIsThatOfItsKeyOrOfItsName) {
    const FloorPlanModel model = hosttest::SmallPlan();
    EXPECT_EQ(FloorOfFlag(model, *marks.FindPhoto(u"1:2/B"_s, 1)), 1);
    EXPECT_EQ(FloorOfFlag(model, *marks.FindPhoto(u"1:gone"_s, 99)), 1);
    EXPECT_EQ(FloorOfFlag(model, *marks.FindPhoto(u"2:1/A"_s, 1)), -1);
    EXPECT_EQ(FloorOfFlag(model, *marks.FindPhoto(QString(), 1)), -1);
    EXPECT_EQ(FloorOfFlag(model, *marks.FindIssue(u"q3"_s)), 1);
}

} // namespace
} // namespace host
