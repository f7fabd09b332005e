// Marks as the module hands them to a view, for tests.
#pragma once

#include "services/MarkGroups.h"

#include <utility>

namespace hosttest {

/// Leaves as pairs of mark id and count, all of project 7.
[[nodiscard]] inline KX_DATA::PicMarkItem
PhotoItem(const std::string& key, const std::string& name,
          const std::vector<std::pair<qint32, qint32>>& leaves) {
    KX_DATA::PicMarkItem item;
    item.positionKey = key;
    item.itemName = name;
    for (const auto& [markId, count] : leaves) {
        item.leaves.push_back(
            {"7", "", markId, count, markId < 90 ? QStringLiteral("质量") : QString()});
        item.total += count;
    }
    return item;
}

[[nodiscard]] inline KX_DATA::PicMarkGroup PhotoGroup(const std::string& name,
                                                      std::vector<KX_DATA::PicMarkItem> items) {
    return {name, 1, std::move(items)};
}

/// One issue alone in its group, of project 7.
[[nodiscard]] inline KX_DATA::IssueMarkGroup
IssueGroup(const QString& floor, const QString& questionId, const QString& place, qint32 markId) {
    return {floor, 7, 1, {{QStringLiteral("裂缝"), questionId, place, QString(), markId}}};
}

} // namespace hosttest
