// Plans of setup texts.
#pragma once

#include "host/setup/SetupFile.h"
#include "host/setup/SetupPlan.h"

#include <QStringList>

namespace setuptest {

using namespace Qt::StringLiterals;

inline QStringList TextsOf(const std::vector<host::SetupLineFault>& faults) {
    QStringList texts;
    for (const host::SetupLineFault& fault : faults) {
        texts << TextOf(fault);
    }
    return texts;
}

inline QStringList TextsOf(const std::vector<host::SetupChange>& changes) {
    QStringList texts;
    for (const host::SetupChange& change : changes) {
        texts << TextOf(change);
    }
    return texts;
}

/// Two projects with three floors and four crossings in the first, two marks, two people.
inline site::SetupState SomeState() {
    site::SetupState state;
    state.projects = {{1, u"一期"_s, 1, false}, {2, u"二期"_s, 3, false}};
    state.worksets = {{1, u"全部"_s, {u"一期"_s, u"二期"_s}, false}};
    state.people = {{1, u"王工"_s, {5, 21, 22, 38, site::kRightSetup}, true},
                    {2, u"小李"_s, {7, 21}, true}};
    state.marks = {{4, u"裂缝"_s, 0x0000FF}, {9, u"渗水"_s, 0xFF0000}};
    state.labels = {{1, u"墙面"_s}};
    state.grids = {{u"一期"_s,
                    {{u"1F"_s, u"1F"_s}, {u"2F"_s, u"2F"_s}, {u"3F"_s, u"3F"_s}},
                    {{u"k1"_s, u"1F"_s, u"1"_s, u"A"_s, true},
                     {u"k2"_s, u"1F"_s, u"1"_s, u"B"_s, true},
                     {u"k3"_s, u"2F"_s, u"1"_s, u"A"_s, true},
                     {u"k4"_s, u"2F"_s, u"1"_s, u"B"_s, false}}},
                   {u"二期"_s, {}, {}}};
    return state;
}

inline host::SetupPlan PlanOf(const QString& text, const site::SetupState& state = SomeState()) {
    return host::PlanSetup(host::ReadSetupText(text), state);
}
inline QStringList FaultsIn(const QString& text, const site::SetupState& state = SomeState()) {
    return TextsOf(PlanOf(text, state).faults);
}
/// Of a text without faults.
inline QStringList ChangesIn(const QString& text, const site::SetupState& state = SomeState()) {
    const host::SetupPlan plan = PlanOf(text, state);
    return plan.IsGood() ? TextsOf(plan.changes) : TextsOf(plan.faults);
}

} // namespace setuptest
