// How much of the surrounding light reaches a place: corners and gaps are darker.
#pragma once

#include "sample/render/DepthBuffer.h"
#include "sample/render/Projection.h"

#include <algorithm>
#include <vector>

namespace sample {

/// One value for each 5 x 5 pixels, found from the depths around it.
class Occlusion final {
public:
    void Find(const Scene& scene, const ViewFrame& view, const DepthBuffer& depth);

    /// 1 open to 0.25 in the narrowest corner. @param x,y  pixel of the picture.
    [[nodiscard]] float At(int x, int y) const {
        const int column = std::min(x / kStep, m_width - 2);
        const int row = std::min(y / kStep, m_height - 2);
        const float fx = static_cast<float>(x - column * kStep) / kStep;
        const float fy = static_cast<float>(y - row * kStep) / kStep;
        const float* line = m_open.data() + static_cast<size_t>(row) * m_width + column;
        const float top = line[0] + (line[1] - line[0]) * fx;
        const float bottom = line[m_width] + (line[m_width + 1] - line[m_width]) * fx;
        return top + (bottom - top) * fy;
    }

private:
    [[nodiscard]] float OpenAt(const Patch& patch, int x, int y) const;
    [[nodiscard]] Vec3 PointAt(int x, int y) const;

    static constexpr int kStep = 5;

    const ViewFrame* m_view = nullptr;
    const DepthBuffer* m_depth = nullptr;
    int m_width = 0;
    int m_height = 0;
    std::vector<float> m_open;
};

} // namespace sample
