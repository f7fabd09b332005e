#include "site/sqlite/HitSet.h"

#include <algorithm>
#include <bit>

namespace site {

void HitSet::Add(qint64 id) {
    if (id < m_base) {
        return;
    }
    const auto bit = static_cast<quint64>(id - m_base);
    if (bit / 64 >= m_words.size()) {
        m_words.resize(std::max<size_t>(bit / 64 + 1, m_words.size() * 2));
    }
    m_words[bit / 64] |= quint64{1} << (bit % 64);
}

qint64 HitSet::Count() const {
    qint64 count = 0;
    for (const quint64 word : m_words) {
        count += std::popcount(word);
    }
    return count;
}

void HitSet::Intersect(const HitSet& other) {
    if (m_words.size() > other.m_words.size()) {
        m_words.resize(other.m_words.size());
    }
    for (size_t i = 0; i < m_words.size(); ++i) {
        m_words[i] &= other.m_words[i];
    }
}

std::vector<qint64> HitSet::Ids() const {
    std::vector<qint64> ids;
    ids.reserve(static_cast<size_t>(Count()));
    for (size_t i = 0; i < m_words.size(); ++i) {
        for (quint64 rest = m_words[i]; rest != 0; rest &= rest - 1) {
            ids.push_back(m_base + static_cast<qint64>(i * 64) + std::countr_zero(rest));
        }
    }
    return ids;
}

} // namespace site
