#include "sample/render/SunShadow.h"

namespace sample {

void SunShadow::Prepare(const Scene& scene, const ViewFrame& view) {
    const Vec3& color = scene.lighting.sunColor;
    hasSun = color.x + color.y + color.z > 0;
    if (hasSun) {
        frame = MakeSunFrame(scene, view, kReach, kSize);
        map.Reset(kSize, kSize, -1e6F);
        ProjectSun(scene, frame, map);
    }
}

} // namespace sample
