// Which flags stand where on a floor of the plan.
#pragma once

#include "host/ui/marks/ShownMarks.h"
#include "host/ui/plan/FloorPlanModel.h"

namespace host {

/// On the shelf stands what no intersection of the floor takes: positions that the model has lost,
/// and everything of what hangs on no floor.
inline constexpr int kShelf = -1;

struct PlacedFlag {
    MarkFlag flag;
    int place = kShelf; ///< index of the intersection
};

/// The flags of one floor in the order of the places, the shelf last.
[[nodiscard]] std::vector<PlacedFlag> PlaceFlags(const ShownMarks& marks, const PlanFloor& floor);
/// The floor on which a flag stands; -1: the plan has none for it.
[[nodiscard]] int FloorOfFlag(const FloorPlanModel& model, const MarkFlag& flag);
/// How many flags stand on the shelf.
[[nodiscard]] int ShelfCount(const std::vector<PlacedFlag>& flags);
/// "3轴 / B轴", or where it was written down to be; empty without either.
[[nodiscard]] QString FlagPlaceCaption(const PlanFloor& floor, const PlacedFlag& flag);

} // namespace host
