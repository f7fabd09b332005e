#include "sample/render/Occlusion.h"

#include <array>

namespace sample {

namespace {

constexpr std::array<ScreenPoint, 8> kRing{{{1, 0.2F},
                                            {0.6F, 0.75F},
                                            {-0.2F, 1},
                                            {-0.75F, 0.6F},
                                            {-1, -0.2F},
                                            {-0.6F, -0.75F},
                                            {0.2F, -1},
                                            {0.75F, -0.6F}}};

} // namespace

/// In the camera's frame: right, up, forward.
Vec3 Occlusion::PointAt(int x, int y) const {
    const Vec3 ray{(static_cast<float>(x) - m_view->centreX) / m_view->focal,
                   (m_view->centreY - static_cast<float>(y)) / m_view->focal, 1};
    return ray * (1 / m_depth->NearRow(y)[x]);
}

float Occlusion::OpenAt(const Patch& patch, int x, int y) const {
    const Vec3 here = PointAt(x, y);
    const Vec3 flat = Normalized(Cross(patch.edgeU, patch.edgeV));
    Vec3 normal{Dot(flat, m_view->right), Dot(flat, m_view->up), Dot(flat, m_view->forward)};
    if (Dot(normal, here) > 0) {
        normal = normal * -1;
    }
    float covered = 0;
    for (size_t tap = 0; tap < kRing.size(); ++tap) {
        // Two radii in turn: contact shadows and the broad darkening of corners.
        const float radius = (tap & 1 ? 0.55F : 0.16F) * m_view->focal / here.z;
        const int sx = x + static_cast<int>(kRing[tap].x * radius);
        const int sy = y + static_cast<int>(kRing[tap].y * radius);
        if (sx < 0 || sy < 0 || sx >= m_depth->Width() || sy >= m_depth->Height() ||
            m_depth->IdRow(sy)[sx] == DepthBuffer::kNothing) {
            continue;
        }
        const Vec3 toward = PointAt(sx, sy) - here;
        const float distance = Length(toward) + 0.001F;
        const float rise = std::max(0.0F, Dot(normal, toward) / distance - 0.08F);
        covered += rise / (1 + 1.5F * distance * distance);
    }
    return std::max(0.25F, 1 - 1.3F * covered / static_cast<float>(kRing.size()));
}

void Occlusion::Find(const Scene& scene, const ViewFrame& frame, const DepthBuffer& buffer) {
    m_view = &frame;
    m_depth = &buffer;
    m_width = (buffer.Width() + kStep - 1) / kStep;
    m_height = (buffer.Height() + kStep - 1) / kStep;
    m_open.assign(static_cast<size_t>(m_width) * m_height, 1.0F);
    for (int row = 0; row < m_height; ++row) {
        for (int column = 0; column < m_width; ++column) {
            const int x = column * kStep;
            const int y = row * kStep;
            const quint16 id = buffer.IdRow(y)[x];
            if (id != DepthBuffer::kNothing) {
                m_open[static_cast<size_t>(row) * m_width + column] =
                    OpenAt(scene.patches[id], x, y);
            }
        }
    }
}

} // namespace sample
