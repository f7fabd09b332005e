// Where the patches of a scene fall: through the camera, and along the sun's rays.
#pragma once

#include "sample/render/DepthBuffer.h"
#include "sample/render/Scene.h"

#include <QSize>

namespace sample {

/// A pinhole camera. A pixel (x, y) looks along forward + (x - centreX) / focal * right
/// - (y - centreY) / focal * up.
struct ViewFrame {
    Vec3 eye;
    Vec3 right;
    Vec3 up;
    Vec3 forward;
    float focal = 1; ///< pixels
    float centreX = 0;
    float centreY = 0;
};

[[nodiscard]] ViewFrame MakeViewFrame(const Camera& camera, QSize size);
/// Draws every patch into the buffer; nearness is 1 / depth, 0 where nothing is.
void ProjectScene(const Scene& scene, const ViewFrame& frame, DepthBuffer& target);

/// The sun's view of the scene: parallel, nearness in metres towards the sun.
struct SunFrame {
    Vec3 right;
    Vec3 up;
    Vec3 toSun;
    float scale = 1; ///< pixels per metre
    float offsetX = 0;
    float offsetY = 0;
};

/// A frame that covers what lies within `reach` metres before the camera.
[[nodiscard]] SunFrame MakeSunFrame(const Scene& scene, const ViewFrame& view, float reach,
                                    int size);
void ProjectSun(const Scene& scene, const SunFrame& frame, DepthBuffer& target);

} // namespace sample
