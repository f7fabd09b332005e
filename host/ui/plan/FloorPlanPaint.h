// Paints one floor: slab, axes with their bubbles, intersections with their photo counts.
#pragma once

#include "host/ui/plan/FloorPlanLayout.h"
#include "host/ui/plan/FloorPlanState.h"

class QPainter;

namespace host {

struct FloorPlanScene {
    const FloorPlanModel& model;
    const FloorPlanState& state;
    const FloorPlanLayout& layout; ///< of the state's floor
    QSizeF pane;
    bool focused = false; ///< the pane has the keyboard
};

/// Covers the whole pane. A model without floors becomes a sentence that says why it is empty.
void PaintFloorPlan(QPainter& painter, const FloorPlanScene& scene);

} // namespace host
