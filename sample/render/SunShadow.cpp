#include "sample/render/SunShadow.h"

namespace sample {

void SunShadow::Prepare(const Scene& scene, const ViewFrame& view) {
    const Vec3& color = scene.lighting.sunColor;
    m_hasSun = color.x + color.y + color.z > 0;
    if (m_hasSun) {
        m_frame = MakeSunFrame(scene, view, kReach, kSize);
        m_map.Reset(kSize, kSize, -1e6F);
        ProjectSun(scene, m_frame, m_map);
    }
}

} // namespace sample
