#include "host/ui/plan/FloorPlanState.h"

namespace host {

FloorPlanState ShowFloor(FloorPlanState state, const FloorPlanModel& model, int floor) {
    if (floor < 0 || floor >= int(model.floors.size()) || floor == state.floor) {
        return state;
    }
    FloorPlanState shown;
    shown.floor = floor;
    return shown;
}

FloorPlanState Hover(FloorPlanState state, int place, int flagBox) {
    state.hovered = flagBox >= 0 ? kNoPlace : place;
    state.hoveredFlag = flagBox;
    return state;
}

FloorPlanState Click(FloorPlanState state, int place) {
    state.cardOpen = place != kNoPlace;
    if (state.cardOpen) {
        state.chosen = place;
    }
    return state;
}

FloorPlanState Step(FloorPlanState state, const FloorPlanModel& model, int dx, int dy) {
    if (state.floor >= int(model.floors.size())) {
        return state;
    }
    state.chosen = NeighbourOf(model.floors[state.floor], state.chosen, dx, dy);
    state.cardOpen = false;
    return state;
}

FloorPlanState Retreat(FloorPlanState state) {
    if (!state.cardOpen) {
        state.chosen = kNoPlace;
    }
    state.cardOpen = false;
    return state;
}

FloorPlanState Locate(const PlanPlace& place) {
    FloorPlanState found;
    found.floor = place.floor;
    found.chosen = place.intersection;
    return found;
}

FloorPlanState ForgetFlags(FloorPlanState state) {
    state.hoveredFlag = -1;
    return state;
}

} // namespace host
