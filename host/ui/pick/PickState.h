// What is picked of the plan's components; events are functions from state to state.
#pragma once

#include "host/ui/pick/PlanComponent.h"

namespace host {

struct PickState {
    int floor = 0;
    int hovered = -1;                  ///< box under the mouse
    int cursor = -1;                   ///< box that the keys mean
    int front = -1;                    ///< component that isn't folded into the rest of its place
    std::vector<PlanComponent> picked; ///< in the order of picking, of any floor
};

[[nodiscard]] bool IsPicked(const PickState& state, const PlanComponent& component);
/// A click: this one instead of what was picked.
[[nodiscard]] PickState PickOnly(PickState state, const PlanComponent& component);
/// A click with Ctrl: this one too, or no longer.
[[nodiscard]] PickState TogglePick(PickState state, const PlanComponent& component);
/// Another floor: what is picked stays. An index that is no floor changes nothing.
[[nodiscard]] PickState PickOnFloor(PickState state, int floor, int floors);
/// "未选构件", "已选：KZ-1 框架柱（3层）", "已选 2 个构件：KZ-1、KL-2".
[[nodiscard]] QString PickedText(const PickState& state);

} // namespace host
