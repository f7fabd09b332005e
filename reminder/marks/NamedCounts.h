// How many ticked photos of a mark there are at each intersection.
#pragma once

#include "services/MarkGroups.h"

#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// Counts records by the name of their item. Names are borrowed: the photos must outlive the
/// counts. Cheapest if the photos come sorted by name and are asked for in that order.
/// Thread: one at a time.
class NamedCounts final {
public:
    explicit NamedCounts(const std::vector<KX_DATA::ShownPicItem>& photos);

    [[nodiscard]] bool IsEmpty() const { return m_runs.empty(); }
    /// 0 for a name that no photo has.
    [[nodiscard]] qint32 CountOf(std::string_view itemName);

private:
    /// Photos of the same name behind each other; each name once if `isSorted`.
    std::vector<std::pair<std::string_view, qint32>> m_runs;
    bool m_isSorted = true;
    std::size_t m_next = 0; ///< run behind the one that was asked for at last
    std::unordered_map<std::string_view, qint32> m_sums; ///< only if not sorted
};
