// Components for tests, on the floors of SmallPlan.
#pragma once

#include "host/ui/pick/PlanComponent.h"

#include <map>

namespace hosttest {

[[nodiscard]] inline host::PlanComponent Component(const QString& handle, const QString& floor,
                                                   const QString& key, const QString& name) {
    return {handle, floor, key, name, QStringLiteral("框架柱"), QStringLiteral("柱"), 7};
}

/// Floor 1: two columns at 1/A, one at 3/B, a stair without an intersection; floor -1: one at 2/A.
/// On no floor: a fence.
[[nodiscard]] inline std::vector<host::PlanComponent> ComponentsOf(const QString& floor) {
    using namespace Qt::StringLiterals;
    const std::map<QString, std::vector<host::PlanComponent>> all = {
        {u"1"_s,
         {Component(u"stair"_s, u"1"_s, {}, u"LT-1"_s),
          Component(u"c1"_s, u"1"_s, u"1:1/A"_s, u"KZ-1"_s),
          Component(u"c2"_s, u"1"_s, u"1:1/A"_s, u"KZ-2"_s),
          Component(u"c3"_s, u"1"_s, u"1:3/B"_s, u"KZ-3"_s)}},
        {u"-1"_s, {Component(u"c4"_s, u"-1"_s, u"-1:2/A"_s, u"KZ-4"_s)}},
        {{}, {Component(u"fence"_s, {}, {}, u"WQ-1"_s)}}};
    const auto found = all.find(floor);
    return found == all.end() ? std::vector<host::PlanComponent>() : found->second;
}

} // namespace hosttest
