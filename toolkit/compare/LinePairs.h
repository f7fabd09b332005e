// Which of the lines that went became which of those that came.
#pragma once

#include "toolkit/compare/NoteLines.h"

#include <span>
#include <utility>
#include <vector>

namespace toolkit {

/// 0 for lines without a character in common, 1 for those that have the same ones in the same
/// neighbourhoods; what stands between the cells of rows doesn't count. Only the beginning of a
/// long line is looked at.
[[nodiscard]] double LikenessOf(const NoteLine& one, const NoteLine& other);

/// Pairs (removed, added) of alike lines in rising order on both sides, with the greatest sum of
/// likenesses. Many lines are divided evenly first, and pairs are found within the parts.
[[nodiscard]] std::vector<std::pair<int, int>> PairLines(std::span<const NoteLine> removed,
                                                         std::span<const NoteLine> added);

} // namespace toolkit
