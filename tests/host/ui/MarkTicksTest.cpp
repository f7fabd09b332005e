#include "host/ui/marks/MarkTicks.h"

#include "host/ui/marks/MarkState.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

/// Floors "1" with marks 1 (2 photos), 2 (3) and "2" with mark 1 (5).
MarkTree TwoFloorTree() {
    return MakeMarkTree({{u"1"_s, 5, {{2, 3}, {1, 2}}, 1}, {u"2"_s, 5, {{1, 5}}, 1}},
                        {{1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FF00}}});
}

std::vector<Qt::CheckState> States(const MarkTicks& ticks, const MarkTree& tree) {
    std::vector<Qt::CheckState> states;
    for (const MarkTreeFloor& floor : tree) {
        states.push_back(ticks.StateOf(floor));
    }
    return states;
}

using AllStates = std::vector<Qt::CheckState>;

TEST(MarkTree, HasFloorsInTheirOrderOthersLastAndMarksByTheirIds) {
    const MarkTree tree =
        MakeMarkTree({{u"其他"_s, 2, {{9, 2}}, 1}, {u"-1"_s, 4, {{2, 1}, {1, 3}}, 1}},
                     {{1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FF00}}});
    ASSERT_EQ(tree.size(), 2U);
    EXPECT_EQ(tree[0].caption, u"-1层"_s);
    EXPECT_EQ(tree[0].marks[0].name, u"质量"_s);
    EXPECT_EQ(tree[0].marks[0].color, 0x0000FF);
    EXPECT_EQ(tree[0].marks[0].count, 3);
    EXPECT_EQ(tree[1].caption, u"其他"_s);
    EXPECT_EQ(tree[1].marks[0].name, u"未知"_s);
    EXPECT_FALSE(tree[1].marks[0].isKnown);
    EXPECT_EQ(CountOf(tree), 6);
    EXPECT_EQ(CountOf({}), 0);
}

TEST(MarkTree, IsFilteredByFloorsAndMarksWhateverTheirCase) {
    const MarkTree tree = TwoFloorTree();
    using Taken = std::vector<std::vector<int>>;
    EXPECT_EQ(FilterMarkTree(tree, QString()), (Taken{{0, 1}, {0}}));
    EXPECT_EQ(FilterMarkTree(tree, u"质"_s), (Taken{{0}, {0}}));
    EXPECT_EQ(FilterMarkTree(tree, u"1层"_s), (Taken{{0, 1}, {}}));
    EXPECT_EQ(FilterMarkTree(tree, u"nothing"_s), (Taken{{}, {}}));
    EXPECT_EQ(FilterMarkTree(MakeMarkTree({{u"B区"_s, 1, {{1, 1}}, 1}}, {}), u"b"_s), (Taken{{0}}));
}

TEST(MarkTicks, AtFirstEverythingIsTickedAlsoWhatComesLater) {
    const MarkTicks ticks;
    EXPECT_EQ(States(ticks, TwoFloorTree()), (AllStates{Qt::Checked, Qt::Checked}));
    EXPECT_TRUE(ticks.IsMarkTicked(u"99"_s, 7));
    EXPECT_TRUE(ticks.IsEntryTicked(u"99"_s, 7, u"q"_s));
    EXPECT_EQ(ticks.TickedCount(TwoFloorTree()), 10);
}

TEST(MarkTicks, AMarkThatIsUntickedLeavesItsFloorBetween) {
    MarkTicks ticks;
    ticks.SetMark(u"1"_s, 2, false);
    ticks.Tidy(TwoFloorTree());
    EXPECT_EQ(States(ticks, TwoFloorTree()), (AllStates{Qt::PartiallyChecked, Qt::Checked}));
    EXPECT_FALSE(ticks.IsMarkTicked(u"1"_s, 2));
    EXPECT_TRUE(ticks.IsMarkTicked(u"1"_s, 1));
    EXPECT_TRUE(ticks.IsMarkTicked(u"1"_s, 3));
    EXPECT_EQ(ticks.TickedCount(TwoFloorTree()), 7);
}

TEST(MarkTicks, AFloorWhoseMarksAreAllUntickedIsUntickedAlsoForMarksThatComeLater) {
    const MarkTree tree = TwoFloorTree();
    MarkTicks ticks;
    ticks.SetMark(u"1"_s, 1, false);
    ticks.SetMark(u"1"_s, 2, false);
    ticks.Tidy(tree);
    EXPECT_EQ(States(ticks, tree), (AllStates{Qt::Unchecked, Qt::Checked}));
    EXPECT_FALSE(ticks.IsMarkTicked(u"1"_s, 3));
    EXPECT_TRUE(ticks.IsMarkTicked(u"3"_s, 1));
    MarkTicks direct;
    direct.SetFloor(u"1"_s, false);
    EXPECT_EQ(ticks, direct);
}

TEST(MarkTicks, TickingAllAgainIsTheSameAsNeverHavingUntickedAnything) {
    const MarkTree tree = TwoFloorTree();
    MarkTicks ticks;
    ticks.SetFloor(u"1"_s, false);
    ticks.SetMark(u"2"_s, 1, false);
    ticks.Tidy(tree);
    EXPECT_FALSE(ticks.IsMarkTicked(u"77"_s, 1));
    for (const QString& floor : {u"1"_s, u"2"_s}) {
        ticks.SetFloor(floor, true);
    }
    ticks.Tidy(tree);
    EXPECT_EQ(ticks, MarkTicks());
}

TEST(MarkTicks, NothingTickedStaysSoForFloorsThatComeLater) {
    MarkTicks ticks;
    ticks.SetAll(false);
    EXPECT_EQ(States(ticks, TwoFloorTree()), (AllStates{Qt::Unchecked, Qt::Unchecked}));
    EXPECT_FALSE(ticks.IsMarkTicked(u"8"_s, 1));
    EXPECT_EQ(ticks.TickedCount(TwoFloorTree()), 0);
    ticks.SetMark(u"2"_s, 1, true);
    ticks.Tidy(TwoFloorTree());
    EXPECT_EQ(States(ticks, TwoFloorTree()), (AllStates{Qt::Unchecked, Qt::Checked}));
}

TEST(MarkTicks, SingleEntriesAreExceptionsOfTheirMark) {
    const MarkTree tree = TwoFloorTree();
    MarkTicks ticks;
    ticks.SetEntry(u"1"_s, 1, u"q1"_s, false);
    EXPECT_FALSE(ticks.IsEntryTicked(u"1"_s, 1, u"q1"_s));
    EXPECT_TRUE(ticks.IsEntryTicked(u"1"_s, 1, u"q2"_s));
    EXPECT_EQ(ticks.StateOf(tree[0], tree[0].marks[0]), Qt::PartiallyChecked);
    EXPECT_EQ(ticks.TickedCount(tree), 9);
    ticks.SetEntry(u"1"_s, 1, u"q2"_s, false);
    ticks.Tidy(tree);
    EXPECT_EQ(ticks.StateOf(tree[0], tree[0].marks[0]), Qt::Unchecked);
    EXPECT_FALSE(ticks.IsEntryTicked(u"1"_s, 1, u"q3"_s));
    ticks.SetEntry(u"1"_s, 1, u"q1"_s, true);
    EXPECT_TRUE(ticks.IsEntryTicked(u"1"_s, 1, u"q1"_s));
    EXPECT_FALSE(ticks.IsEntryTicked(u"1"_s, 1, u"q2"_s));
    ticks.SetEntry(u"1"_s, 1, u"q1"_s, false);
    EXPECT_EQ(ticks.StateOf(tree[0], tree[0].marks[0]), Qt::Unchecked);
}

TEST(MarkTicks, ExceptionsAboutEntriesThatAreGoneAreForgotten) {
    MarkTicks ticks;
    ticks.SetEntry(u"1"_s, 1, u"gone"_s, false);
    ticks.SetEntry(u"1"_s, 1, u"here"_s, false);
    ticks.Forget({{u"1"_s, 1, u"gone"_s}});
    EXPECT_TRUE(ticks.IsEntryTicked(u"1"_s, 1, u"gone"_s));
    EXPECT_FALSE(ticks.IsEntryTicked(u"1"_s, 1, u"here"_s));
    EXPECT_EQ(ticks.Exceptions(), (std::set<MarkEntry>{{u"1"_s, 1, u"here"_s}}));
}

TEST(MarkTicks, ExceptionsThatAreNotListedDontCountAndStay) {
    MarkTicks ticks;
    for (const QString& key : {u"a"_s, u"b"_s, u"c"_s}) {
        ticks.SetEntry(u"1"_s, 1, key, false);
    }
    // The days leave two other issues of the mark.
    ticks.SetUnlisted(ticks.Exceptions());
    const MarkTree tree = TwoFloorTree();
    EXPECT_EQ(ticks.StateOf(tree[0], tree[0].marks[0]), Qt::Checked);
    EXPECT_EQ(ticks.TickedCount(tree), 10);
    ticks.Tidy(tree);
    EXPECT_FALSE(ticks.IsEntryTicked(u"1"_s, 1, u"b"_s));
    EXPECT_EQ(MarkTicks::FromJson(ticks.ToJson()).Exceptions().size(), 3U);
    // All days again.
    ticks.SetUnlisted({});
    EXPECT_EQ(ticks.TickedCount(MakeMarkTree({{u"1"_s, 5, {{1, 5}}, 1}}, {})), 2);
}

TEST(MarkTicks, UntickingAllThatIsListedLeavesUntickedWhatIsNot) {
    MarkTicks ticks;
    ticks.SetEntry(u"1"_s, 1, u"away"_s, false);
    ticks.SetUnlisted(ticks.Exceptions());
    ticks.SetEntry(u"1"_s, 1, u"q1"_s, false);
    ticks.SetEntry(u"1"_s, 1, u"q2"_s, false);
    ticks.Tidy(TwoFloorTree());
    EXPECT_FALSE(ticks.IsMarkTicked(u"1"_s, 1));
    EXPECT_FALSE(ticks.IsEntryTicked(u"1"_s, 1, u"away"_s));
    ticks.SetEntry(u"1"_s, 1, u"away"_s, true);
    EXPECT_TRUE(ticks.IsEntryTicked(u"1"_s, 1, u"away"_s));
}

TEST(MarkTicks, TidyingKeepsRulesAboutWhatIsNotListed) {
    MarkTicks ticks;
    ticks.SetFloor(u"3"_s, false);
    ticks.SetMark(u"1"_s, 9, false);
    ticks.SetMark(u"1"_s, 1, false);
    ticks.SetMark(u"1"_s, 1, true);
    // The days leave neither floor 3 nor mark 9.
    ticks.Tidy(TwoFloorTree());
    EXPECT_EQ(States(ticks, TwoFloorTree()), (AllStates{Qt::Checked, Qt::Checked}));
    EXPECT_FALSE(ticks.IsMarkTicked(u"3"_s, 1));
    EXPECT_FALSE(ticks.IsMarkTicked(u"1"_s, 9));
    ticks.SetAll(true);
    EXPECT_EQ(ticks, MarkTicks());
}

TEST(MarkTicks, AReloadChangesNoTick) {
    MarkTicks ticks;
    ticks.SetFloor(u"2"_s, false);
    // The last photo of floor 2 has gone and comes back.
    const MarkTree without = MakeMarkTree({{u"1"_s, 1, {{1, 1}}, 1}}, {});
    EXPECT_EQ(ticks.StateOf(without[0]), Qt::Checked);
    EXPECT_EQ(States(ticks, TwoFloorTree()), (AllStates{Qt::Checked, Qt::Unchecked}));
}

TEST(MarkTicks, ComeBackFromTheirTextAsTheyWere) {
    MarkTicks ticks;
    ticks.SetFloor(u"-1"_s, false);
    ticks.SetMark(u"其他"_s, 7, false);
    ticks.SetEntry(u"2"_s, 1, u"q\"1"_s, false);
    MarkState state;
    state.photos.ticks = ticks;
    state.photos.days = {true, QDate(2024, 1, 2), QDate(2024, 3, 4)};
    state.issues.shown = false;
    EXPECT_EQ(MarkStateFrom(ToText(state)), state);
}

TEST(MarkState, ATextThatMakesNoSenseIsTheStateOfANewProject) {
    for (const QString& text : {QString(), u"{"_s, u"[1]"_s, u"{\"photos\":7}"_s}) {
        EXPECT_EQ(MarkStateFrom(text), MarkState()) << qPrintable(text);
    }
    const MarkState wrongDays = MarkStateFrom(
        u"{\"photos\":{\"limited\":true,\"from\":\"2024-05-01\",\"to\":\"2024-04-01\"}}"_s);
    EXPECT_FALSE(wrongDays.photos.days.limited);
}

TEST(MarkState, DaysCountFromTheFirstToTheLastMoment) {
    const auto [from, to] = SecondsOf({true, QDate(2024, 1, 2), QDate(2024, 1, 2)});
    EXPECT_EQ(to - from, 24 * 3600 - 1);
    EXPECT_EQ(QDateTime::fromSecsSinceEpoch(from).time(), QTime(0, 0));
}

} // namespace
} // namespace host
