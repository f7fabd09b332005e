#include "site/sqlite/HitSet.h"

#include <algorithm>
#include <bit>

namespace site {

void HitSet::Add(qint64 id) {
    if (id < base) {
        return;
    }
    const auto bit = static_cast<quint64>(id - base);
    if (bit / 64 >= words.size()) {
        words.resize(std::max<size_t>(bit / 64 + 1, words.size() * 2));
    }
    words[bit / 64] |= quint64{1} << (bit % 64);
}

qint64 HitSet::Count() const {
    qint64 count = 0;
    for (const quint64 word : words) {
        count += std::popcount(word);
    }
    return count;
}

void HitSet::Intersect(const HitSet& other) {
    if (words.size() > other.words.size()) {
        words.resize(other.words.size());
    }
    for (size_t i = 0; i < words.size(); ++i) {
        words[i] &= other.words[i];
    }
}

std::vector<qint64> HitSet::Ids() const {
    std::vector<qint64> ids;
    ids.reserve(static_cast<size_t>(Count()));
    for (size_t i = 0; i < words.size(); ++i) {
        for (quint64 rest = words[i]; rest != 0; rest &= rest - 1) {
            ids.push_back(base + static_cast<qint64>(i * 64) + std::countr_zero(rest));
        }
    }
    return ids;
}

} // namespace site
