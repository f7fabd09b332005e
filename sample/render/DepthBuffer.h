// The nearest patch of each pixel.
#pragma once

#include <QtGlobal>

#include <span>
#include <vector>

namespace sample {

/// A corner on the buffer's plane, pixels from the top left.
struct ScreenPoint {
    float x = 0;
    float y = 0;
};

/// Nearness as a linear function of the pixel: a * x + b * y + c, larger is nearer.
struct Nearness {
    float a = 0;
    float b = 0;
    float c = 0;
};

/// Depth and patch number for each pixel; reused from picture to picture.
class DepthBuffer final {
public:
    static constexpr quint16 kNothing = 0xFFFF;
    /// Depths that may be read behind the end of the last row.
    static constexpr size_t kPadding = 8;

    /// Empties the buffer: no patch anywhere, nearness `farthest`.
    void Reset(int newWidth, int newHeight, float farthest);
    /// Fills a convex polygon where it is nearer than what is there.
    void Fill(std::span<const ScreenPoint> polygon, const Nearness& nearness, quint16 id);

    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] const float* NearRow(int y) const {
        return m_nearest.data() + static_cast<size_t>(y) * m_width;
    }
    [[nodiscard]] const quint16* IdRow(int y) const {
        return m_ids.data() + static_cast<size_t>(y) * m_width;
    }

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<float> m_nearest;
    std::vector<quint16> m_ids;
};

} // namespace sample
