// A seamless tile of noise at several resolutions, for textures and sensor noise.
#pragma once

#include <QtGlobal>

#include <array>
#include <vector>

namespace sample {

/// Two fields of 512 x 512 values, made once per process from a fixed seed. Read-only after
/// that. Thread: any.
class NoiseTile final {
public:
    static constexpr int kSize = 512;

    [[nodiscard]] static const NoiseTile& Get() {
        static const NoiseTile tile;
        return tile;
    }

    /// Clouds: smooth on the scale of the tile, -1 to 1; one unit of u or v is one tile.
    [[nodiscard]] float Cloud(float u, float v) const { return Sample(m_clouds, kSize, u, v); }
    /// Grain of a surface, -1 to 1. @param level 0 sharp to 4 soft: one per halving of the size.
    [[nodiscard]] float Grain(float u, float v, int level) const {
        return Sample(m_grain[static_cast<size_t>(level)], kSize >> level, u, v);
    }
    /// The same without blending neighbours.
    [[nodiscard]] float CoarseGrain(float u, float v, int level) const {
        const int size = kSize >> level;
        const int column = static_cast<int>((u + 64.0F) * static_cast<float>(size)) & (size - 1);
        const int row = static_cast<int>((v + 64.0F) * static_cast<float>(size)) & (size - 1);
        return static_cast<float>(m_grain[static_cast<size_t>(level)][row * size + column]) *
               (1.0F / 127.0F);
    }
    /// One row of sensor noise, kSize values; row and column wrap around by & (kSize - 1).
    [[nodiscard]] const qint8* SensorRow(int row) const {
        return m_sensor.data() + static_cast<size_t>(row & (kSize - 1)) * kSize;
    }

private:
    NoiseTile();
    [[nodiscard]] static float Sample(const std::vector<qint8>& field, int size, float u, float v);

    std::vector<qint8> m_clouds;
    std::array<std::vector<qint8>, 5> m_grain;
    std::vector<qint8> m_sensor;
};

inline float NoiseTile::Sample(const std::vector<qint8>& field, int size, float u, float v) {
    // Whole numbers of 1/256 texel: conversions between float and int are what costs here. The
    // offset keeps the truncation a floor for every coordinate that a scene has.
    const float scale = static_cast<float>(size) * 256;
    const int x = static_cast<int>((u + 64.0F) * scale);
    const int y = static_cast<int>((v + 64.0F) * scale);
    const int fx = x & 255;
    const int fy = y & 255;
    const int mask = size - 1;
    const qint8* line0 = field.data() + static_cast<ptrdiff_t>((y >> 8) & mask) * size;
    const qint8* line1 = field.data() + static_cast<ptrdiff_t>(((y >> 8) + 1) & mask) * size;
    const int c0 = (x >> 8) & mask;
    const int c1 = (c0 + 1) & mask;
    const int top = line0[c0] * 256 + fx * (line0[c1] - line0[c0]);
    const int bottom = line1[c0] * 256 + fx * (line1[c1] - line1[c0]);
    return static_cast<float>(top * 256 + fy * (bottom - top)) * (1.0F / (127 * 65536));
}

} // namespace sample
