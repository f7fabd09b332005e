#include "reminder/NamedCounts.h"

#include <algorithm>

NamedCounts::NamedCounts(const std::vector<KX_DATA::ShownPicItem>& photos) {
    for (const KX_DATA::ShownPicItem& photo : photos) {
        const std::string_view name = photo.itemName;
        if (!runs.empty() && runs.back().first == name) {
            ++runs.back().second;
            continue;
        }
        isSorted = isSorted && (runs.empty() || runs.back().first < name);
        runs.emplace_back(name, 1);
    }
    if (isSorted)
        return;
    sums.reserve(runs.size());
    for (const auto& [name, count] : runs)
        sums[name] += count;
}

qint32 NamedCounts::CountOf(std::string_view itemName) {
    if (!isSorted) {
        const auto found = sums.find(itemName);
        return found == sums.end() ? 0 : found->second;
    }
    if (next >= runs.size() || runs[next].first != itemName) {
        const auto found = std::lower_bound(
            runs.begin(), runs.end(), itemName,
            [](const auto& run, std::string_view name) { return run.first < name; });
        next = std::size_t(found - runs.begin());
        if (found == runs.end() || found->first != itemName)
            return 0;
    }
    return runs[next++].second;
}
