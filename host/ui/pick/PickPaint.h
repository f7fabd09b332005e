// Paints a floor with the components that can be picked.
#pragma once

#include "host/ui/pick/PickState.h"
#include "host/ui/pick/PlacedComponents.h"

class QPainter;

namespace host {

struct PickScene {
    const PlanFloor* floor;        ///< null: the model has none
    const FloorPlanLayout& layout; ///< of the floor
    const std::vector<PlacedComponent>& components;
    const FlagLayout& boxes;
    const PickState& state;
    QRectF visible;
    bool focused = false;
};

/// Covers all that is visible. A floor without components says what to do.
void PaintPick(QPainter& painter, const PickScene& scene);

} // namespace host
