// Random numbers that are the same on every machine and with every standard library.
#pragma once

#include <QtGlobal>

namespace sample {

/// A small counter-based generator (SplitMix64). Equal seeds give equal sequences everywhere,
/// which the distributions of the standard library don't promise. Roll once in an argument list:
/// the order of arguments is the compiler's (inside braces it is ours).
class Dice final {
public:
    explicit Dice(quint64 seed) : m_state(seed * 0x9E3779B97F4A7C15ULL + 0x1234567ULL) {}

    [[nodiscard]] quint64 Next() {
        m_state += 0x9E3779B97F4A7C15ULL;
        quint64 z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    /// In [0, 1).
    [[nodiscard]] float Unit() { return static_cast<float>(Next() >> 40) / 16777216.0F; }
    /// In [low, high).
    [[nodiscard]] float Between(float low, float high) { return low + (high - low) * Unit(); }
    /// In [0, count); count <= 0 gives 0.
    [[nodiscard]] int Pick(int count) {
        return count > 0 ? static_cast<int>(Next() % static_cast<quint64>(count)) : 0;
    }
    [[nodiscard]] bool Chance(float probability) { return Unit() < probability; }

private:
    quint64 m_state;
};

} // namespace sample
