// What of the floor plan is shown, hovered and chosen; events are functions from state to state.
#pragma once

#include "host/ui/plan/FloorPlanModel.h"

namespace host {

inline constexpr int kNoPlace = -1;

struct FloorPlanState {
    int floor = 0;
    int hovered = kNoPlace; ///< intersection under the mouse
    int hoveredFlag = -1;   ///< box of flags under the mouse; an intersection below it isn't
    int chosen = kNoPlace;  ///< intersection that the person clicked or that was looked up
    bool cardOpen = false;  ///< the card with what can be done at the chosen intersection

    bool operator==(const FloorPlanState&) const = default;
};

/// Another floor: nothing on it is chosen yet. An index that is no floor changes nothing.
[[nodiscard]] FloorPlanState ShowFloor(FloorPlanState state, const FloorPlanModel& model,
                                       int floor);
[[nodiscard]] FloorPlanState Hover(FloorPlanState state, int place, int flagBox = -1);
/// A click: on an intersection it chooses it and opens its card, beside one it closes the card.
[[nodiscard]] FloorPlanState Click(FloorPlanState state, int place);
/// An arrow key: moves the choice, without a card.
[[nodiscard]] FloorPlanState Step(FloorPlanState state, const FloorPlanModel& model, int dx,
                                  int dy);
/// Escape: first the card goes, then the choice.
[[nodiscard]] FloorPlanState Retreat(FloorPlanState state);
/// A lookup from elsewhere: brings up the floor and chooses the intersection.
[[nodiscard]] FloorPlanState Locate(const PlanPlace& place);
/// The flags of the floor are others now.
[[nodiscard]] FloorPlanState ForgetFlags(FloorPlanState state);

} // namespace host
