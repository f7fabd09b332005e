#include "sample/render/NoiseTile.h"

#include "sample/Dice.h"

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

constexpr quint64 kNoiseSeed = 20231107;

/// Smooth noise with `cells` bumps along the tile, added to field with the given weight.
void AddOctave(std::vector<float>& field, int cells, float weight, Dice& dice) {
    std::vector<float> knots(static_cast<size_t>(cells) * cells);
    for (float& knot : knots) {
        knot = dice.Between(-1, 1);
    }
    const int size = NoiseTile::kSize;
    const float step = static_cast<float>(cells) / static_cast<float>(size);
    const auto knot = [&](int x, int y) {
        return knots[static_cast<size_t>(y % cells) * cells + x % cells];
    };
    for (int y = 0; y < size; ++y) {
        const float gy = static_cast<float>(y) * step;
        const int y0 = static_cast<int>(gy);
        const float ty = gy - static_cast<float>(y0);
        const float sy = ty * ty * (3 - 2 * ty);
        for (int x = 0; x < size; ++x) {
            const float gx = static_cast<float>(x) * step;
            const int x0 = static_cast<int>(gx);
            const float tx = gx - static_cast<float>(x0);
            const float sx = tx * tx * (3 - 2 * tx);
            const float top = std::lerp(knot(x0, y0), knot(x0 + 1, y0), sx);
            const float bottom = std::lerp(knot(x0, y0 + 1), knot(x0 + 1, y0 + 1), sx);
            field[static_cast<size_t>(y) * size + x] += weight * std::lerp(top, bottom, sy);
        }
    }
}

std::vector<qint8> Quantised(const std::vector<float>& field, float gain) {
    std::vector<qint8> result(field.size());
    std::transform(field.begin(), field.end(), result.begin(), [gain](float value) {
        return static_cast<qint8>(std::clamp(std::lround(value * gain * 127), -127L, 127L));
    });
    return result;
}

std::vector<float> Halved(const std::vector<float>& field, int size) {
    const int half = size / 2;
    std::vector<float> result(static_cast<size_t>(half) * half);
    for (int y = 0; y < half; ++y) {
        for (int x = 0; x < half; ++x) {
            const size_t at = 2 * (static_cast<size_t>(y) * size + static_cast<size_t>(x));
            result[static_cast<size_t>(y) * half + x] =
                (field[at] + field[at + 1] + field[at + size] + field[at + size + 1]) / 4;
        }
    }
    return result;
}

} // namespace

NoiseTile::NoiseTile() {
    Dice dice(kNoiseSeed);
    const size_t count = static_cast<size_t>(kSize) * kSize;
    std::vector<float> soft(count);
    float weight = 0.6F;
    for (int cells = 4; cells <= 128; cells *= 2) {
        AddOctave(soft, cells, weight, dice);
        weight *= 0.55F;
    }
    m_clouds = Quantised(soft, 1.0F);

    std::vector<float> sharp(count);
    AddOctave(sharp, 64, 0.35F, dice);
    AddOctave(sharp, 128, 0.35F, dice);
    AddOctave(sharp, 256, 0.4F, dice);
    AddOctave(sharp, 512, 0.4F, dice);
    for (size_t level = 0; level < m_grain.size(); ++level) {
        m_grain[level] = Quantised(sharp, 1.0F);
        sharp = Halved(sharp, kSize >> level);
    }

    // Two octaves: a sensor's noise has passed through demosaicing, single pixels don't stand out.
    std::vector<float> fine(count);
    AddOctave(fine, 512, 0.5F, dice);
    AddOctave(fine, 256, 0.5F, dice);
    m_sensor = Quantised(fine, 1.0F);
}

} // namespace sample
