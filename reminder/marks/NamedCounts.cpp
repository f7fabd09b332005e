#include "reminder/marks/NamedCounts.h"

#include <algorithm>

NamedCounts::NamedCounts(const std::vector<KX_DATA::ShownPicItem>& photos) {
    for (const KX_DATA::ShownPicItem& photo : photos) {
        const std::string_view name = photo.itemName;
        if (!m_runs.empty() && m_runs.back().first == name) {
            ++m_runs.back().second;
            continue;
        }
        m_isSorted = m_isSorted && (m_runs.empty() || m_runs.back().first < name);
        m_runs.emplace_back(name, 1);
    }
    if (m_isSorted) {
        return;
    }
    m_sums.reserve(m_runs.size());
    for (const auto& [name, count] : m_runs) {
        m_sums[name] += count;
    }
}

qint32 NamedCounts::CountOf(std::string_view itemName) {
    if (!m_isSorted) {
        const auto found = m_sums.find(itemName);
        return found == m_sums.end() ? 0 : found->second;
    }
    if (m_next >= m_runs.size() || m_runs[m_next].first != itemName) {
        const auto found = std::lower_bound(
            m_runs.begin(), m_runs.end(), itemName,
            [](const auto& run, std::string_view name) { return run.first < name; });
        m_next = std::size_t(found - m_runs.begin());
        if (found == m_runs.end() || found->first != itemName) {
            return 0;
        }
    }
    return m_runs[m_next++].second;
}
