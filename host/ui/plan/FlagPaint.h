// Paints the flags of a floor.
#pragma once

#include "host/ui/plan/FlagLayout.h"

class QPainter;

namespace host {

struct FlagScene {
    const std::vector<PlacedFlag>& flags;
    const FlagLayout& layout;
    int hoveredBox = -1;
    int litBox = -1; ///< the flag that blinks, while it is lit
    QRectF visible;  ///< boxes beyond it aren't painted
};

/// How wide a flag is that shows the whole name of its mark and its count, in the face of the
/// program.
[[nodiscard]] double FlagWidth(const PlacedFlag& flag);
/// What the flags hang on; belongs below the intersections.
void PaintFlagPoles(QPainter& painter, const FlagScene& scene);
/// Photos are plain flags, issues bear an exclamation mark.
void PaintFlags(QPainter& painter, const FlagScene& scene);

} // namespace host
