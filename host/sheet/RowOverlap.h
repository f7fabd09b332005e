// Which page of a list begins at a row, or a few rows before it.
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>

namespace host {

/// A page as it is asked for: it begins with row (page - 1) * size, counted from 0.
struct RowPage {
    qint64 page = 1; ///< from 1
    qint64 size = 0;

    [[nodiscard]] qint64 Begin() const { return (page - 1) * size; }
};

/// A page that holds row `first` (from 0) and the row behind it, with as few rows before it as a
/// size of once to twice the portion allows; page one, as long as it has to be, where no other
/// does.
/// @param portion  at least 2.
[[nodiscard]] inline RowPage PageFrom(qint64 first, qint64 portion) {
    if (first < portion) {
        return {1, std::max<qint64>(first, 0) + portion};
    }
    RowPage best{1, first + portion};
    qint64 least = std::numeric_limits<qint64>::max();
    for (qint64 before = (first + 2 * portion - 1) / (2 * portion); before <= first / portion;
         ++before) {
        const qint64 size = first / before;
        const qint64 ahead = first - before * size;
        if (ahead < least && size - ahead > 1) {
            least = ahead;
            best = {before + 1, size};
        }
    }
    return best;
}

} // namespace host
