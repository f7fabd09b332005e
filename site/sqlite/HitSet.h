// A set of photo or issue ids, one bit each.
#pragma once

#include <QtGlobal>

#include <vector>

namespace site {

/// Ids from `base` on; those below it are never members. Thread: one at a time.
class HitSet final {
public:
    explicit HitSet(qint64 baseId = 0) : m_base(baseId) {}

    void Add(qint64 id);
    [[nodiscard]] bool Has(qint64 id) const {
        const auto bit = static_cast<quint64>(id - m_base);
        return id >= m_base && bit / 64 < m_words.size() &&
               ((m_words[bit / 64] >> (bit % 64)) & 1u) != 0;
    }
    [[nodiscard]] qint64 Count() const;
    /// Keeps what both hold; the bases must be equal.
    void Intersect(const HitSet& other);
    /// In ascending order.
    [[nodiscard]] std::vector<qint64> Ids() const;

private:
    qint64 m_base;
    std::vector<quint64> m_words;
};

} // namespace site
