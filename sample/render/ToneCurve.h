// Linear light to the values of a display.
#pragma once

#include "sample/render/Vec3.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cmath>

namespace sample {

/// A film-like curve: a shoulder so that highlights don't clip hard, and some contrast. Read-only
/// after its making. Thread: any.
class ToneCurve final {
public:
    static constexpr int kCount = 4096;
    static constexpr float kRange = 6; ///< light above this is white
    static constexpr float kToIndex = static_cast<float>(kCount) / kRange;
    static constexpr float kSaturation = 1.1F;

    [[nodiscard]] static const ToneCurve& Get() {
        static const ToneCurve curve;
        return curve;
    }

    /// @param index  light * kToIndex, within 0 to kCount - 1.
    [[nodiscard]] quint32 At(int index) const { return m_table[static_cast<size_t>(index)]; }
    /// A pixel of Format_RGB32.
    [[nodiscard]] quint32 Pixel(const Vec3& light) const {
        const float grey = Grey(light.x, light.y, light.z);
        return 0xFF000000U | (At(Index(grey + light.x * kSaturation)) << 16) |
               (At(Index(grey + light.y * kSaturation)) << 8) |
               At(Index(grey + light.z * kSaturation));
    }
    /// What is added to each channel so that colours stand out by kSaturation.
    [[nodiscard]] static float Grey(float red, float green, float blue) {
        return (red + 2 * green + blue) * (0.25F * (1 - kSaturation));
    }
    [[nodiscard]] static int Index(float light) {
        return static_cast<int>(
            std::max(0.0F, std::min(light * kToIndex, static_cast<float>(kCount - 1))));
    }

private:
    ToneCurve() {
        constexpr float kContrast = 0.65F;
        for (size_t index = 0; index < m_table.size(); ++index) {
            const float x = static_cast<float>(index) / kToIndex;
            const float mapped = x * (1 + x / 9.0F) / (1 + x);
            const float soft = std::min(1.0F, std::sqrt(mapped * 1.25F));
            const float crisp = soft * soft * (3 - 2 * soft);
            m_table[index] = static_cast<quint8>(255.0F * (soft + kContrast * (crisp - soft)));
        }
    }

    std::array<quint8, kCount> m_table{};
};

} // namespace sample
