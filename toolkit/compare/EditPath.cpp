#include "toolkit/compare/EditPath.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace toolkit {

namespace {

/// A part of both sequences: [from, fromEnd) and [to, toEnd).
struct Stretch {
    int from = 0;
    int fromEnd = 0;
    int to = 0;
    int toEnd = 0;
    int depth = 0; ///< how often it was divided already
};

/// One after the other; those that touch become one.
void AddRun(std::vector<CommonRun>& runs, const CommonRun& run) {
    if (run.count == 0) {
        return;
    }
    if (!runs.empty() && runs.back().from + runs.back().count == run.from &&
        runs.back().to + runs.back().count == run.to) {
        runs.back().count += run.count;
    } else {
        runs.push_back(run);
    }
}

class PathFinder {
public:
    PathFinder(std::span<const int> from, std::span<const int> to, int mostEdits)
        : m_from(from), m_to(to), m_mostEdits(mostEdits) {}

    void Find(Stretch stretch) {
        const CommonRun head = TakeHead(stretch);
        const CommonRun tail = TakeTail(stretch);
        AddRun(runs, head);
        if (stretch.from < stretch.fromEnd && stretch.to < stretch.toEnd &&
            !FindShortest(stretch)) {
            Divide(stretch);
        }
        AddRun(runs, tail);
    }

    std::vector<CommonRun> runs;

private:
    CommonRun TakeHead(Stretch& stretch) const {
        CommonRun run{stretch.from, stretch.to, 0};
        while (stretch.from < stretch.fromEnd && stretch.to < stretch.toEnd &&
               m_from[stretch.from] == m_to[stretch.to]) {
            ++stretch.from;
            ++stretch.to;
            ++run.count;
        }
        return run;
    }
    CommonRun TakeTail(Stretch& stretch) const {
        int count = 0;
        while (stretch.from < stretch.fromEnd && stretch.to < stretch.toEnd &&
               m_from[stretch.fromEnd - 1] == m_to[stretch.toEnd - 1]) {
            --stretch.fromEnd;
            --stretch.toEnd;
            ++count;
        }
        return {stretch.fromEnd, stretch.toEnd, count};
    }

    /// The greedy search of the paper: how far each diagonal is reached with d edits. False: not
    /// within the bound; nothing was added.
    bool FindShortest(const Stretch& stretch) {
        const int rows = stretch.fromEnd - stretch.from;
        const int columns = stretch.toEnd - stretch.to;
        const int bound = std::min(rows + columns, m_mostEdits);
        std::vector<int> reached(2 * std::size_t(bound) + 3, 0);
        const int middle = bound + 1;
        // What was reached with d - 1 edits, for d = 0, 1, ...: diagonals -d to d.
        std::vector<std::vector<int>> steps;
        for (int d = 0; d <= bound; ++d) {
            steps.emplace_back(reached.begin() + (middle - d), reached.begin() + (middle + d + 1));
            for (int k = -d; k <= d; k += 2) {
                const bool isAddition =
                    k == -d || (k != d && reached[middle + k - 1] < reached[middle + k + 1]);
                int x = isAddition ? reached[middle + k + 1] : reached[middle + k - 1] + 1;
                while (x < rows && x - k < columns &&
                       m_from[stretch.from + x] == m_to[stretch.to + x - k]) {
                    ++x;
                }
                reached[middle + k] = x;
                if (x >= rows && x - k >= columns) {
                    TraceBack(stretch, steps);
                    return true;
                }
            }
        }
        return false;
    }

    void TraceBack(const Stretch& stretch, const std::vector<std::vector<int>>& steps) {
        std::vector<CommonRun> backwards;
        int x = stretch.fromEnd - stretch.from;
        int y = stretch.toEnd - stretch.to;
        for (int d = int(steps.size()) - 1; d > 0; --d) {
            const auto before = [&](int k) { return steps[d][k + d]; };
            const int k = x - y;
            const bool isAddition = k == -d || (k != d && before(k - 1) < before(k + 1));
            const int cameFrom = isAddition ? k + 1 : k - 1;
            const int start = isAddition ? before(cameFrom) : before(cameFrom) + 1;
            backwards.push_back({stretch.from + start, stretch.to + start - k, x - start});
            x = before(cameFrom);
            y = x - cameFrom;
        }
        backwards.push_back({stretch.from, stretch.to, x});
        for (auto run = backwards.rbegin(); run != backwards.rend(); ++run) {
            AddRun(runs, *run);
        }
    }

    /// By the longest rising chain of the elements that stand once on either side.
    void Divide(const Stretch& stretch) {
        constexpr int kDeepest = 6;
        if (stretch.depth >= kDeepest) {
            return;
        }
        Stretch part = stretch;
        ++part.depth;
        for (const CommonRun& anchor : Anchors(stretch)) {
            part.fromEnd = anchor.from;
            part.toEnd = anchor.to;
            Find(part);
            AddRun(runs, anchor);
            part.from = anchor.from + 1;
            part.to = anchor.to + 1;
        }
        if (part.from > stretch.from || part.to > stretch.to) {
            part.fromEnd = stretch.fromEnd;
            part.toEnd = stretch.toEnd;
            Find(part);
        }
    }

    [[nodiscard]] std::vector<CommonRun> Anchors(const Stretch& stretch) const {
        struct Places {
            int from = -1;
            int to = -1;
            bool isOnce = true;
        };
        std::unordered_map<int, Places> places;
        for (int i = stretch.from; i < stretch.fromEnd; ++i) {
            Places& at = places[m_from[i]];
            at.isOnce = at.isOnce && at.from < 0;
            at.from = i;
        }
        for (int i = stretch.to; i < stretch.toEnd; ++i) {
            Places& at = places[m_to[i]];
            at.isOnce = at.isOnce && at.to < 0;
            at.to = i;
        }
        std::vector<CommonRun> once;
        for (int i = stretch.from; i < stretch.fromEnd; ++i) {
            const Places& at = places[m_from[i]];
            if (at.isOnce && at.from >= 0 && at.to >= 0) {
                once.push_back({at.from, at.to, 1});
            }
        }
        return LongestRising(once);
    }

    /// Of anchors in the old order those that are in the new order too, as many as can be.
    static std::vector<CommonRun> LongestRising(const std::vector<CommonRun>& anchors) {
        std::vector<int> ends; // of the chains of length 1, 2, ..., the lowest each
        std::vector<int> before(anchors.size(), -1);
        for (int i = 0; i < int(anchors.size()); ++i) {
            const auto at = std::lower_bound(ends.begin(), ends.end(), anchors[i].to,
                                             [&](int end, int to) { return anchors[end].to < to; });
            before[i] = at == ends.begin() ? -1 : *(at - 1);
            if (at == ends.end()) {
                ends.push_back(i);
            } else {
                *at = i;
            }
        }
        std::vector<CommonRun> chain;
        for (int i = ends.empty() ? -1 : ends.back(); i >= 0; i = before[i]) {
            chain.push_back(anchors[i]);
        }
        std::reverse(chain.begin(), chain.end());
        return chain;
    }

    const std::span<const int> m_from;
    const std::span<const int> m_to;
    const int m_mostEdits;
};

} // namespace

std::vector<CommonRun> CommonRuns(std::span<const int> from, std::span<const int> to,
                                  int mostEdits) {
    PathFinder finder(from, to, mostEdits);
    finder.Find({0, int(from.size()), 0, int(to.size()), 0});
    return std::move(finder.runs);
}

} // namespace toolkit
