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

/// The parts that any plan of a floor has. Slab and axes; only for a floor with intersections.
void PaintPlanSlab(QPainter& painter, const FloorPlanLayout& layout);
/// Names of the axes, those of a place stressed; null: none.
void PaintPlanBubbles(QPainter& painter, const PlanFloor& floor, const FloorPlanLayout& layout,
                      const PlanIntersection* place);
/// In a corner of what is visible, where it stays while the plan scrolls beneath it.
void PaintPlanTitle(QPainter& painter, const QString& caption, const QString& note,
                    const QPointF& corner);
void PaintPlanFocus(QPainter& painter, const QRectF& visible);

} // namespace host
