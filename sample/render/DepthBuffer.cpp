#include "sample/render/DepthBuffer.h"

#include <algorithm>
#include <cmath>

namespace sample {

void DepthBuffer::Reset(int newWidth, int newHeight, float farthest) {
    m_width = newWidth;
    m_height = newHeight;
    const size_t count = static_cast<size_t>(m_width) * m_height;
    m_nearest.assign(count + kPadding, farthest);
    m_ids.assign(count, kNothing);
}

void DepthBuffer::Fill(std::span<const ScreenPoint> polygon, const Nearness& nearness, quint16 id) {
    if (polygon.size() < 3) {
        return;
    }
    const auto [top, bottom] =
        std::minmax_element(polygon.begin(), polygon.end(),
                            [](const ScreenPoint& a, const ScreenPoint& b) { return a.y < b.y; });
    const float lastRow = static_cast<float>(m_height - 1);
    const int firstY = static_cast<int>(std::clamp(std::ceil(top->y - 0.5F), 0.0F, lastRow + 1));
    const int lastY = static_cast<int>(std::clamp(std::ceil(bottom->y - 0.5F) - 1, -1.0F, lastRow));
    for (int y = firstY; y <= lastY; ++y) {
        const float rowCentre = static_cast<float>(y) + 0.5F;
        float left = static_cast<float>(m_width);
        float right = 0;
        for (size_t index = 0; index < polygon.size(); ++index) {
            const ScreenPoint& p = polygon[index];
            const ScreenPoint& q = polygon[(index + 1) % polygon.size()];
            if ((p.y <= rowCentre) == (q.y <= rowCentre)) {
                continue;
            }
            const float x = p.x + (q.x - p.x) * (rowCentre - p.y) / (q.y - p.y);
            left = std::min(left, x);
            right = std::max(right, x);
        }
        const int from = static_cast<int>(std::max(0.0F, std::ceil(left - 0.5F)));
        const int to =
            static_cast<int>(std::min(static_cast<float>(m_width), std::ceil(right - 0.5F)));
        const float rowPart = nearness.b * rowCentre + nearness.c + nearness.a * 0.5F;
        float* nearLine = m_nearest.data() + static_cast<size_t>(y) * m_width;
        quint16* idLine = m_ids.data() + static_cast<size_t>(y) * m_width;
        for (int x = from; x < to; ++x) {
            const float value = rowPart + nearness.a * static_cast<float>(x);
            if (value > nearLine[x]) {
                nearLine[x] = value;
                idLine[x] = id;
            }
        }
    }
}

} // namespace sample
