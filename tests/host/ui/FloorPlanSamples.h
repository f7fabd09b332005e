// Floor plans for tests.
#pragma once

#include "host/ui/plan/FloorPlanModel.h"

namespace hosttest {

/// Floors "-1" and "1", each with the axes 1 to 3 and A, B; key "floor:x/y". On floor 1 the
/// intersection 2/B has five photos, all others none.
[[nodiscard]] inline host::FloorPlanModel SmallPlan() {
    using namespace Qt::StringLiterals;
    host::FloorPlanModel model;
    model.projectName = u"示例工程"_s;
    for (const QString& floor : {u"-1"_s, u"1"_s}) {
        host::PlanFloorBuilder builder(floor);
        for (const QString& x : {u"1"_s, u"2"_s, u"3"_s}) {
            for (const QString& y : {u"A"_s, u"B"_s}) {
                const bool isFull = floor == u"1"_s && x == u"2"_s && y == u"B"_s;
                builder.Add(x, y, u"%1:%2/%3"_s.arg(floor, x, y), {isFull ? 5 : 0, 0});
            }
        }
        model.floors.push_back(builder.Finish());
    }
    return model;
}

} // namespace hosttest
