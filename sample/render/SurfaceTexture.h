// Colours of the building materials.
#pragma once

#include "sample/render/Scene.h"

namespace sample {

/// A place on a surface. u and v run along the patch in metres, anchored in the world, so that
/// neighbouring patches of one wall continue each other.
struct SurfacePoint {
    float u = 0;
    float v = 0;
    float footprint = 0; ///< metres across which one pixel sees
};

/// Linear colour of the material at a place, 0 to 1, without light. Thread: any.
[[nodiscard]] Vec3 SurfaceColor(Surface surface, const Vec3& tint, const SurfacePoint& point);

} // namespace sample
