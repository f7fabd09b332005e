#include "toolkit/compare/LinePairs.h"

#include <algorithm>

namespace toolkit {

namespace {

/// Less in common is chance.
constexpr double kAlike = 0.4;
/// Every line of a part is held against every other.
constexpr int kPart = 32;
constexpr qsizetype kLooked = 400;

/// Characters and pairs of neighbours, sorted.
using Traits = std::vector<quint32>;

Traits TraitsOf(const NoteLine& line) {
    Traits traits;
    quint32 before = 0;
    const qsizetype end = std::min(line.text.size(), kLooked);
    traits.reserve(std::size_t(end) * 2);
    for (qsizetype i = 0; i < end; ++i) {
        const QChar sign = line.text[i];
        if (sign.isSpace() || sign == u'|' || sign == QChar::ObjectReplacementCharacter) {
            continue;
        }
        const quint32 now = sign.unicode();
        traits.push_back(now);
        if (before != 0) {
            traits.push_back(before << 16 | now);
        }
        before = now;
    }
    for (const QString& name : line.pictures) {
        traits.push_back(quint32(qHash(name)) | 0x8000'0000U);
    }
    std::sort(traits.begin(), traits.end());
    return traits;
}

/// Twice what is common by the sum of both (Dice's coefficient).
double Likeness(const Traits& one, const Traits& other) {
    if (one.empty() || other.empty()) {
        return 0;
    }
    const double sum = double(one.size() + other.size());
    if (2 * double(std::min(one.size(), other.size())) < kAlike * sum) {
        return 0;
    }
    std::size_t common = 0;
    const quint32* a = one.data();
    const quint32* b = other.data();
    const quint32* const aEnd = a + one.size();
    const quint32* const bEnd = b + other.size();
    while (a != aEnd && b != bEnd) {
        if (*a < *b) {
            ++a;
        } else if (*b < *a) {
            ++b;
        } else {
            ++common;
            ++a;
            ++b;
        }
    }
    return 2 * double(common) / sum;
}

std::vector<Traits> TraitsOfAll(std::span<const NoteLine> lines) {
    std::vector<Traits> all;
    all.reserve(lines.size());
    for (const NoteLine& line : lines) {
        all.push_back(TraitsOf(line));
    }
    return all;
}

/// best[i][j]: the greatest sum for the lines from i and from j on.
class PairTable {
public:
    PairTable(std::span<const NoteLine> removed, std::span<const NoteLine> added)
        : m_rows(int(removed.size())), m_columns(int(added.size())),
          m_best(std::size_t(m_rows + 1) * std::size_t(m_columns + 1), 0.0), m_likeness(m_best) {
        const std::vector<Traits> gone = TraitsOfAll(removed);
        const std::vector<Traits> come = TraitsOfAll(added);
        for (int i = m_rows - 1; i >= 0; --i) {
            for (int j = m_columns - 1; j >= 0; --j) {
                const double likeness = Likeness(gone[i], come[j]);
                m_likeness[At(i, j)] = likeness;
                const double without = std::max(m_best[At(i + 1, j)], m_best[At(i, j + 1)]);
                const double with = likeness < kAlike ? 0 : likeness + m_best[At(i + 1, j + 1)];
                m_best[At(i, j)] = std::max(without, with);
            }
        }
    }

    void Take(int firstRemoved, int firstAdded, std::vector<std::pair<int, int>>& pairs) const {
        for (int i = 0, j = 0; i < m_rows && j < m_columns;) {
            const double likeness = m_likeness[At(i, j)];
            if (likeness >= kAlike && m_best[At(i, j)] == likeness + m_best[At(i + 1, j + 1)]) {
                pairs.emplace_back(firstRemoved + i++, firstAdded + j++);
            } else if (m_best[At(i + 1, j)] >= m_best[At(i, j + 1)]) {
                ++i;
            } else {
                ++j;
            }
        }
    }

private:
    [[nodiscard]] std::size_t At(int i, int j) const {
        return std::size_t(i) * std::size_t(m_columns + 1) + std::size_t(j);
    }

    const int m_rows;
    const int m_columns;
    std::vector<double> m_best;
    std::vector<double> m_likeness;
};

} // namespace

double LikenessOf(const NoteLine& one, const NoteLine& other) {
    return Likeness(TraitsOf(one), TraitsOf(other));
}

std::vector<std::pair<int, int>> PairLines(std::span<const NoteLine> removed,
                                           std::span<const NoteLine> added) {
    std::vector<std::pair<int, int>> pairs;
    const std::size_t most = std::max(removed.size(), added.size());
    const std::size_t parts = (most + kPart - 1) / kPart;
    for (std::size_t part = 0; part < parts; ++part) {
        const std::size_t from = removed.size() * part / parts;
        const std::size_t to = added.size() * part / parts;
        const PairTable table(removed.subspan(from, removed.size() * (part + 1) / parts - from),
                              added.subspan(to, added.size() * (part + 1) / parts - to));
        table.Take(int(from), int(to), pairs);
    }
    return pairs;
}

} // namespace toolkit
