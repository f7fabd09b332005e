// Which places the sun reaches.
#pragma once

#include "sample/render/DepthBuffer.h"
#include "sample/render/Projection.h"

namespace sample {

/// The scene seen from the sun. Without a sun nothing is lit.
class SunShadow final {
public:
    void Prepare(const Scene& scene, const ViewFrame& view);
    [[nodiscard]] bool HasSun() const { return m_hasSun; }
    [[nodiscard]] const SunFrame& Frame() const { return m_frame; }

    /// 1 lit to 0 in the shadow, blurred over a pixel of the map. @param x,y  place on the map.
    /// @param height  metres towards the sun. Places off the map are lit.
    [[nodiscard]] float Lit(float x, float y, float height) const {
        if (x < 1 || y < 1 || x >= kSize - 2 || y >= kSize - 2) {
            return 1;
        }
        const float here = height + kTolerance;
        const int column = static_cast<int>(x - 0.5F);
        const int row = static_cast<int>(y - 0.5F);
        const float fx = x - 0.5F - static_cast<float>(column);
        const float fy = y - 0.5F - static_cast<float>(row);
        const float* line0 = m_map.NearRow(row) + column;
        const float* line1 = m_map.NearRow(row + 1) + column;
        const float top = (line0[0] > here ? 0 : 1 - fx) + (line0[1] > here ? 0 : fx);
        const float bottom = (line1[0] > here ? 0 : 1 - fx) + (line1[1] > here ? 0 : fx);
        return top * (1 - fy) + bottom * fy;
    }

private:
    static constexpr int kSize = 1536;
    static constexpr float kReach = 45;
    static constexpr float kTolerance = 0.07F; // a surface must not shade itself

    bool m_hasSun = false;
    SunFrame m_frame;
    DepthBuffer m_map;
};

} // namespace sample
