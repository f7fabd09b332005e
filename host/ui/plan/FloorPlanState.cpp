#include "host/ui/plan/FloorPlanState.h"

namespace host {

FloorPlanState ShowFloor(FloorPlanState state, const FloorPlanModel& model, int floor) {
    if (floor < 0 || floor >= int(model.floors.size()) || floor == state.floor)
        return state;
    return FloorPlanState{floor, kNoPlace, kNoPlace, false};
}

FloorPlanState Hover(FloorPlanState state, int place) {
    state.hovered = place;
    return state;
}

FloorPlanState Click(FloorPlanState state, int place) {
    state.cardOpen = place != kNoPlace;
    if (state.cardOpen)
        state.chosen = place;
    return state;
}

FloorPlanState Step(FloorPlanState state, const FloorPlanModel& model, int dx, int dy) {
    if (state.floor >= int(model.floors.size()))
        return state;
    state.chosen = NeighbourOf(model.floors[state.floor], state.chosen, dx, dy);
    state.cardOpen = false;
    return state;
}

FloorPlanState Retreat(FloorPlanState state) {
    if (!state.cardOpen)
        state.chosen = kNoPlace;
    state.cardOpen = false;
    return state;
}

FloorPlanState Locate(FloorPlanState state, const PlanPlace& place) {
    state.floor = place.floor;
    state.hovered = kNoPlace;
    state.chosen = place.intersection;
    state.cardOpen = false;
    return state;
}

} // namespace host
