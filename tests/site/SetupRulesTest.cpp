#include "site/SetupRules.h"

#include <gtest/gtest.h>

namespace site {
namespace {

using namespace Qt::StringLiterals;

SetupState Good() {
    SetupState state;
    state.projects = {{1, u"一"_s, 1, false}};
    state.people = {{1, u"li"_s, {kRightSetup}, true}};
    state.grids = {{u"一"_s, {{u"1"_s, u"1"_s}}, {{{}, u"1"_s, u"1"_s, u"A"_s, true}}}};
    return state;
}

/// The only fault of the good state after a change.
template <typename Change> SetupFault FaultAfter(Change change) {
    SetupState state = Good();
    change(state);
    const auto faults = FaultsOf(state);
    EXPECT_EQ(faults.size(), 1U);
    return faults.empty() ? SetupFault{} : faults.front();
}

TEST(SetupRules, AGoodStateHasNoFaults) {
    EXPECT_TRUE(FaultsOf(Good()).empty());
}

TEST(SetupRules, EmptyLongDoubledAndOddNamesAreTold) {
    const auto label = [](const QString& name) {
        return FaultAfter([&](SetupState& s) { s.labels = {{0, name}}; });
    };
    EXPECT_EQ(label({}).text, u"第 1 个标签名称是空的，请填写。"_s);
    EXPECT_EQ(label({}).list, SetupList::Label);
    EXPECT_TRUE(label(QString(61, u'长')).text.contains(u"最多 60 个字"_s));
    EXPECT_TRUE(label(u" a"_s).text.contains(u"首尾空格"_s));
    EXPECT_TRUE(label(u"a\nb"_s).text.contains(u"控制字符"_s));
    EXPECT_TRUE(FaultsOf([] {
                    SetupState s = Good();
                    s.labels = {{0, QString(60, u'长')}};
                    return s;
                }())
                    .empty());
    const SetupFault doubled = FaultAfter([](SetupState& s) {
        s.labels = {{1, u"a1"_s}, {2, u"b"_s}, {0, u"A1"_s}};
    });
    EXPECT_EQ(doubled.text, u"标签“A1”重复了，名称不能相同。"_s);
    EXPECT_EQ(doubled.at, 2);
}

TEST(SetupRules, NamesOfSignsThatNobodySeesAreTold) {
    const auto faults = [](const QString& name) {
        SetupState state = Good();
        state.labels = {{0, name}};
        return FaultsOf(state).size();
    };
    for (const int sign : {0xFEFF, 0x200B, 0x202E, 0x2066, 0x200F, 0x00AD, 0xD800, 0xDC00}) {
        EXPECT_EQ(faults(QString(QChar(sign))), 1U) << std::hex << sign;
        EXPECT_EQ(faults(u"墙"_s + QChar(sign) + u'面'), 1U) << std::hex << sign;
    }
    EXPECT_EQ(faults(u"👨\u200D👩"_s), 0U);
    EXPECT_EQ(faults(u"می\u200Cروم"_s), 0U);
}

TEST(SetupRules, AWorksetHasProjectsThatThereAre) {
    const auto workset = [](const std::vector<QString>& projects) {
        return FaultAfter([&](SetupState& s) { s.worksets = {{0, u"w"_s, projects, false}}; }).text;
    };
    EXPECT_TRUE(workset({}).contains(u"没有工程"_s));
    EXPECT_TRUE(workset({u"二"_s}).contains(u"“二”不存在"_s));
    EXPECT_TRUE(workset({u"一"_s, u"一"_s}).contains(u"重复"_s));
}

TEST(SetupRules, TradesAndColoursAreInTheirRange) {
    EXPECT_EQ(FaultAfter([](SetupState& s) { s.projects[0].major = 5; }).list, SetupList::Project);
    EXPECT_EQ(FaultAfter([](SetupState& s) { s.projects[0].major = 0; }).list, SetupList::Project);
    EXPECT_EQ(FaultAfter([](SetupState& s) {
                  s.marks = {{0, u"m"_s, 0x1000000}};
              }).list,
              SetupList::Mark);
    EXPECT_EQ(FaultAfter([](SetupState& s) { s.marks = {{0, u"m"_s, -1}}; }).list, SetupList::Mark);
}

TEST(SetupRules, APersonsNameIsWrittenInTheCodePage) {
    EXPECT_TRUE(FaultAfter([](SetupState& s) {
                    s.people.push_back({0, u"😀"_s, {}, true});
                }).text.contains(u"936"_s));
    SetupState state = Good();
    state.people.push_back({0, u"李雷"_s, {}, true});
    EXPECT_TRUE(FaultsOf(state).empty());
}

TEST(SetupRules, CrossingsLieOnAFloorAndHaveBothAxes) {
    const auto crossing = [](const SetupCrossing& one) {
        return FaultAfter([&](SetupState& s) { s.grids[0].crossings.push_back(one); });
    };
    EXPECT_TRUE(crossing({{}, u"9"_s, u"1"_s, u"A"_s, true}).text.contains(u"楼层不存在"_s));
    EXPECT_TRUE(crossing({{}, u"1"_s, u"1"_s, {}, true}).text.contains(u"Y轴是空的"_s));
    EXPECT_TRUE(crossing({{}, u"1"_s, {}, u"A"_s, true}).text.contains(u"X轴是空的"_s));
    const SetupFault doubled = crossing({{}, u"1"_s, u"1"_s, u"a"_s, true});
    EXPECT_EQ(doubled.text, u"交点“1 1/a”重复了。"_s);
    EXPECT_EQ(doubled.at, 1);
    EXPECT_EQ(doubled.project, u"一"_s);
}

TEST(SetupRules, AGridBelongsToAProject) {
    EXPECT_TRUE(FaultAfter([](SetupState& s) {
                    s.grids.push_back({u"二"_s, {}, {}});
                }).text.contains(u"“二”不存在"_s));
    EXPECT_EQ(FaultAfter([](SetupState& s) {
                  s.grids[0].floors.push_back({u"1"_s, {}});
              }).list,
              SetupList::Floor);
}

TEST(SetupRules, AllFaultsAreToldAtOnce) {
    SetupState state = Good();
    state.people.clear();
    state.labels = {{0, {}}, {0, {}}};
    EXPECT_EQ(FaultsOf(state).size(), 3U);
}

TEST(SetupRules, ANewSiteHasNobodyAndMustNotStaySo) {
    SetupState wanted;
    wanted.projects = {{0, u"一期"_s, 1, false}};
    EXPECT_EQ(FaultsOf({}, wanted).size(), 1U);
    EXPECT_EQ(FaultsOf(wanted, wanted).size(), 1U);
}

TEST(SetupRules, WhatWasWrongBeforeIsPassedOverOnce) {
    SetupState seen;
    seen.people = {{1, u"li"_s, {kRightSetup}, true}};
    seen.labels = {{1, u"a"_s}, {2, u"A"_s}};
    SetupState wanted = seen;
    EXPECT_TRUE(FaultsOf(seen, wanted).empty());
    wanted.labels.push_back({0, u"A"_s});
    ASSERT_EQ(FaultsOf(seen, wanted).size(), 1U);
    EXPECT_EQ(FaultsOf(seen, wanted)[0].list, SetupList::Label);
}

TEST(SetupRules, ATidyNameHasNoBlanksAroundAndIsComposed) {
    EXPECT_EQ(TidyName(u"  e\u0301 1 "_s), u"\u00e9 1"_s);
}

} // namespace
} // namespace site
