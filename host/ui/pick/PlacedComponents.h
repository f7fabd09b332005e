// Which components stand where on a floor of the plan.
#pragma once

#include "host/ui/pick/PlanComponent.h"
#include "host/ui/plan/FlagLayout.h"

namespace host {

struct PlacedComponent {
    PlanComponent component;
    int place = kShelf; ///< index of the intersection; kShelf: the floor has none for it
};

/// In the order of the places, the shelf last; at a place in the order in which they came.
[[nodiscard]] std::vector<PlacedComponent> PlaceComponents(std::vector<PlanComponent> components,
                                                           const PlanFloor& floor);
/// How many stand on the shelf.
[[nodiscard]] int ShelfCount(const std::vector<PlacedComponent>& components);
/// Flag numbers of the boxes are indexes into the components.
/// @param first  component that must not be folded; -1: none.
[[nodiscard]] FlagLayout LayoutComponents(const FloorPlanLayout& layout,
                                          const std::vector<PlacedComponent>& components,
                                          int first = -1);
/// What a box says when the mouse rests on it: components, and where they stand.
[[nodiscard]] QString ComponentTip(const PlanFloor& floor,
                                   const std::vector<PlacedComponent>& components,
                                   const FlagBox& box);

} // namespace host
