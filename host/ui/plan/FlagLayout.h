// Where the flags of a floor lie in the pane.
#pragma once

#include "host/ui/plan/FloorFlags.h"
#include "host/ui/plan/FloorPlanLayout.h"

#include <QLineF>

namespace host {

/// One flag, or the rest of a place that has too many.
struct FlagBox {
    QRectF rect;
    int place = kShelf;
    int flag = -1;         ///< index into the floor's flags; -1: the rest
    std::vector<int> rest; ///< indexes of the flags that "+n" stands for
};

struct FlagLayout {
    std::vector<FlagBox> boxes;
    std::vector<QLineF> poles; ///< beside the flags of each place, from top to bottom
    std::vector<QLineF> stubs; ///< from the middle of each such place to its pole
};

/// Flags stand in a column beside their intersection, on the shelf in lines. None overlap; what a
/// bay has no room for is folded into one box.
///
/// @param layout  of the floor whose flags these are, in the order of their places.
/// @param first   index of a flag that must not be folded; -1: none.
/// Thread: any. Touches no window.
[[nodiscard]] FlagLayout LayoutFlags(const FloorPlanLayout& layout,
                                     const std::vector<PlacedFlag>& flags, int first = -1);

/// The same for anything that stands at places.
/// @param places  the place of each thing, kShelf or an intersection, in the order of the places.
[[nodiscard]] FlagLayout LayoutAtPlaces(const FloorPlanLayout& layout,
                                        const std::vector<int>& places, int first = -1);

/// Index of the box under a point; -1: none.
[[nodiscard]] int BoxAt(const FlagLayout& layout, const QPointF& point);
/// Index of the box in which a flag is, alone or folded; -1: none.
[[nodiscard]] int BoxOf(const FlagLayout& layout, int flag);

/// The box next to `from` in the direction (dx, dy), dy upwards; `from` itself where there is none,
/// the first one for -1. -1 without boxes.
[[nodiscard]] int NextBox(const FlagLayout& layout, int from, int dx, int dy);

/// What a box says when the mouse rests on it: mark, place, how many; themes of its issues.
[[nodiscard]] QString FlagTip(const PlanFloor& floor, const std::vector<PlacedFlag>& flags,
                              const FlagBox& box);

} // namespace host
