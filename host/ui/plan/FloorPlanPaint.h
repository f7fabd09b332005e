// Paints one floor: slab, axes with their bubbles, intersections with their photo counts, flags.
#pragma once

#include "host/ui/plan/FlagPaint.h"
#include "host/ui/plan/FloorPlanLayout.h"
#include "host/ui/plan/FloorPlanState.h"

class QPainter;

namespace host {

struct FloorPlanScene {
    const FloorPlanModel& model;
    const FloorPlanState& state;
    const FloorPlanLayout& layout; ///< of the state's floor
    const FlagScene& flags;        ///< of that floor; its visible area is that of the plan
    bool focused = false;          ///< the pane has the keyboard
};

/// Covers all that is visible. A model without floors becomes a sentence that says why it is empty.
void PaintFloorPlan(QPainter& painter, const FloorPlanScene& scene);

} // namespace host
