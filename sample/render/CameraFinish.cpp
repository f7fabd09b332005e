#include "sample/render/CameraFinish.h"

#include "sample/render/NoiseTile.h"

#include <algorithm>
#include <array>
#include <vector>

namespace sample {

namespace {

constexpr int kGlowStep = 8;

[[nodiscard]] int Channel(quint32 pixel, int shift) {
    return static_cast<int>((pixel >> shift) & 0xFF);
}

[[nodiscard]] int Contrast(quint32 a, quint32 b) {
    return std::abs(Channel(a, 8) - Channel(b, 8));
}

/// Half of the middle pixel, half of its four neighbours.
[[nodiscard]] quint32 Softened(quint32 middle, quint32 up, quint32 down, quint32 left,
                               quint32 right) {
    quint32 result = 0xFF000000U;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int around = Channel(up, shift) + Channel(down, shift) + Channel(left, shift) +
                           Channel(right, shift);
        result |= static_cast<quint32>((Channel(middle, shift) * 4 + around) / 8) << shift;
    }
    return result;
}

} // namespace

void SoftenEdges(QImage& image) {
    const int width = image.width();
    std::vector<quint32> above(width);
    std::vector<quint32> current(width);
    const auto copyRow = [&](int y, std::vector<quint32>& target) {
        const auto* line = reinterpret_cast<const quint32*>(image.constScanLine(y));
        std::copy(line, line + width, target.begin());
    };
    copyRow(0, above);
    for (int y = 1; y + 1 < image.height(); ++y) {
        copyRow(y, current);
        const auto* below = reinterpret_cast<const quint32*>(image.constScanLine(y + 1));
        auto* line = reinterpret_cast<quint32*>(image.scanLine(y));
        for (int x = 1; x + 1 < width; ++x) {
            if (Contrast(current[x - 1], current[x + 1]) + Contrast(above[x], below[x]) > 18) {
                line[x] = Softened(current[x], above[x], below[x], current[x - 1], current[x + 1]);
            }
        }
        above.swap(current);
    }
}

namespace {

void Shake(QImage& image, int pixels) {
    const int width = image.width();
    std::vector<quint32> source(width);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<quint32*>(image.scanLine(y));
        std::copy(line, line + width, source.begin());
        for (int x = 0; x + pixels < width; ++x) {
            std::array<int, 3> sum{};
            for (int tap = 0; tap <= pixels; ++tap) {
                for (int part = 0; part < 3; ++part) {
                    sum[part] += Channel(source[x + tap], part * 8);
                }
            }
            quint32 result = 0xFF000000U;
            for (int part = 0; part < 3; ++part) {
                result |= static_cast<quint32>(sum[part] / (pixels + 1)) << (part * 8);
            }
            line[x] = result;
        }
    }
}

/// Light above white of a small copy of the picture, spread out.
struct GlowMap {
    int width = 0;
    int height = 0;
    std::vector<float> values;

    [[nodiscard]] float At(int x, int y) const {
        const int column = std::min(x / kGlowStep, width - 2);
        const int row = std::min(y / kGlowStep, height - 2);
        const float fx = static_cast<float>(x - column * kGlowStep) / kGlowStep;
        const float fy = static_cast<float>(y - row * kGlowStep) / kGlowStep;
        const float* line = values.data() + static_cast<size_t>(row) * width + column;
        const float top = line[0] + (line[1] - line[0]) * fx;
        const float bottom = line[width] + (line[width + 1] - line[width]) * fx;
        return top + (bottom - top) * fy;
    }
};

/// One box blur along a row or a column.
void Spread(float* values, qsizetype count, qsizetype stride, qsizetype radius,
            std::vector<float>& buffer) {
    buffer.resize(static_cast<size_t>(count));
    float sum = 0;
    for (qsizetype i = -radius; i < count; ++i) {
        if (i + radius < count) {
            sum += values[(i + radius) * stride];
        }
        if (i - radius - 1 >= 0) {
            sum -= values[(i - radius - 1) * stride];
        }
        if (i >= 0) {
            buffer[static_cast<size_t>(i)] = sum / static_cast<float>(2 * radius + 1);
        }
    }
    for (qsizetype i = 0; i < count; ++i) {
        values[i * stride] = buffer[static_cast<size_t>(i)];
    }
}

[[nodiscard]] GlowMap FindGlow(const QImage& image) {
    GlowMap map;
    map.width = (image.width() + kGlowStep - 1) / kGlowStep + 1;
    map.height = (image.height() + kGlowStep - 1) / kGlowStep + 1;
    map.values.resize(static_cast<size_t>(map.width) * map.height);
    for (int row = 0; row < map.height; ++row) {
        const int y = std::min(row * kGlowStep, image.height() - 1);
        const auto* line = reinterpret_cast<const quint32*>(image.constScanLine(y));
        for (int column = 0; column < map.width; ++column) {
            const quint32 pixel = line[std::min(column * kGlowStep, image.width() - 1)];
            map.values[static_cast<size_t>(row) * map.width + column] =
                static_cast<float>(std::max(0, Channel(pixel, 8) - 200)) * (255.0F / 55);
        }
    }
    std::vector<float> buffer;
    const int radius = std::max(2, map.width / 24);
    for (int pass = 0; pass < 2; ++pass) {
        for (int row = 0; row < map.height; ++row) {
            Spread(map.values.data() + static_cast<size_t>(row) * map.width, map.width, 1, radius,
                   buffer);
        }
        for (int column = 0; column < map.width; ++column) {
            Spread(map.values.data() + column, map.height, map.width, radius, buffer);
        }
    }
    return map;
}

/// Fixed-point gain of a pixel: 256 is one.
[[nodiscard]] quint32 Exposed(quint32 pixel, const std::array<int, 3>& gains, int lift, int grain,
                              int tint) {
    quint32 result = 0xFF000000U;
    for (int part = 0; part < 3; ++part) {
        const int colored = grain + (part == 0 ? tint : part == 2 ? -tint : 0);
        const int value = ((Channel(pixel, part * 8) * gains[part]) >> 8) + lift + colored;
        result |= static_cast<quint32>(std::clamp(value, 0, 255)) << (part * 8);
    }
    return result;
}

void ExposeRow(QImage& image, int y, const GlowMap& glow, const FinishSettings& settings) {
    const int width = image.width();
    const float cx = static_cast<float>(width) / 2;
    const float cy = static_cast<float>(image.height()) / 2;
    const float dy = (static_cast<float>(y) - cy) / (cx + cy);
    const int shift = static_cast<int>(settings.seed & 0xFFF);
    const qint8* grainRow = NoiseTile::Get().SensorRow(y + shift);
    const qint8* tintRow = NoiseTile::Get().SensorRow(y / 2 + 3 * shift);
    const int amplitude = static_cast<int>(settings.noise * 256 / 127);
    auto* line = reinterpret_cast<quint32*>(image.scanLine(y));
    std::array<int, 3> gains{};
    int lift = 0;
    for (int x = 0; x < width; ++x) {
        if (x % kGlowStep == 0) {
            const float dx = (static_cast<float>(x) - cx) / (cx + cy);
            const float fall = 256 * (1 - settings.vignette * 2 * (dx * dx + dy * dy));
            gains = {static_cast<int>(fall * settings.blue),
                     static_cast<int>(fall * settings.green),
                     static_cast<int>(fall * settings.red)};
            lift = static_cast<int>(glow.At(x, y) * settings.glow);
        }
        const int grain = (grainRow[(x + shift) & (NoiseTile::kSize - 1)] * amplitude) >> 8;
        const int tint = (tintRow[(x / 2 + shift) & (NoiseTile::kSize - 1)] * amplitude) >> 9;
        line[x] = Exposed(line[x], gains, lift, grain, tint);
    }
}

} // namespace

void FinishPicture(QImage& image, const FinishSettings& settings) {
    if (image.width() < 2 * kGlowStep || image.height() < 2 * kGlowStep) {
        return;
    }
    SoftenEdges(image);
    if (settings.shake > 0) {
        Shake(image, settings.shake);
    }
    const GlowMap glow = FindGlow(image);
    for (int y = 0; y < image.height(); ++y) {
        ExposeRow(image, y, glow, settings);
    }
}

} // namespace sample
