// What two sequences have in common.
#pragma once

#include <span>
#include <vector>

namespace toolkit {

/// A run of elements that both sequences have.
struct CommonRun {
    int from = 0; ///< in the old sequence
    int to = 0;   ///< in the new one
    int count = 0;

    friend bool operator==(const CommonRun&, const CommonRun&) = default;
};

/// Removals and additions past which the shortest way isn't looked for any more.
inline constexpr int kMostEdits = 1000;

/// The elements that stay on the way from the old sequence to the new one, in order. As many as can
/// be where no more than `mostEdits` others are removed and added: Myers, "An O(ND) Difference
/// Algorithm and Its Variations", Algorithmica 1 (1986). Beyond that, elements that stand once on
/// either side divide the sequences, and parts without such elements have nothing in common.
/// Time and memory are linear in the lengths and quadratic in `mostEdits`. Thread: any.
[[nodiscard]] std::vector<CommonRun> CommonRuns(std::span<const int> from, std::span<const int> to,
                                                int mostEdits = kMostEdits);

} // namespace toolkit
