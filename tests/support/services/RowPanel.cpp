#include "tests/support/services/RowPanel.h"

#include "tests/support/services/RowSearch.h"
#include "toolkit/GbkText.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace support {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kPicGroupId = 1;

/// A row as the panel counts it.
struct Counted {
    qint32 ppid = 0;
    qint32 status = 0;
    QString person;
    qint64 modified = 0;
};

Counted CountedOf(const KX_DATA::BimPicRow& row) {
    return {row.ppid, row.status, row.updaterName.isEmpty() ? row.uploaderName : row.updaterName,
            row.updateStamp != 0 ? row.updateStamp : row.uploadStamp};
}

Counted CountedOf(const KX_DATA::IssueRow& row) {
    return {row.ppid, row.status, row.updaterName.isEmpty() ? row.creatorName : row.updaterName,
            row.updateTime != 0 ? row.updateTime : row.createTime};
}

std::optional<std::size_t> PlaceOf(const PanelScope& scope, qint32 ppid) {
    const auto found = std::find_if(scope.projects.begin(), scope.projects.end(),
                                    [&](const auto& project) { return project.ppid == ppid; });
    if (found == scope.projects.end()) {
        return {};
    }
    return std::size_t(found - scope.projects.begin());
}

template <class Row>
std::vector<Row> RowsWithin(const std::vector<Row>& rows, const PanelScope& scope) {
    std::vector<Row> within;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(within), [&](const Row& row) {
        const Counted counted = CountedOf(row);
        return PlaceOf(scope, counted.ppid) && counted.status == KX_DATA::kStatusShown &&
               (scope.person.isEmpty() || counted.person == scope.person) &&
               (!scope.timed || (counted.modified >= scope.from && counted.modified <= scope.to));
    });
    return within;
}

QString GroupName(const QString& floor) {
    return floor.isEmpty() ? u"其他"_s : floor;
}

using Marks = std::map<qint32, qint32>;                               ///< counts by mark
using Places = std::map<std::tuple<qint32, QString, QString>, Marks>; ///< project, text, key
using Floors = std::map<QString, std::pair<QString, Places>>;         ///< by their order

Floors FloorsOf(const std::vector<KX_DATA::BimPicRow>& rows, const PanelScope& scope) {
    Floors floors;
    for (const KX_DATA::BimPicRow& row : RowsWithin(rows, scope)) {
        auto& [name, places] = floors[FloorOrder(row.floor)];
        name = GroupName(row.floor);
        const QString key = row.floor.isEmpty() ? QString() : row.positionKey;
        ++places[{row.ppid, row.posText, key}][row.markId];
    }
    return floors;
}

KX_DATA::PicMarkItem ItemOf(const Places::value_type& place, const PanelScope& scope,
                            const MarkTable& table) {
    const auto& [ppid, text, key] = place.first;
    const bool named = scope.projects.size() > 1 && !key.isEmpty();
    const QString project = named ? scope.projects[*PlaceOf(scope, ppid)].name + u' ' : QString();
    KX_DATA::PicMarkItem item;
    item.positionKey = toolkit::ToGbk(key);
    item.itemName = toolkit::ToGbk(project + text);
    item.groupId = kPicGroupId;
    for (const auto& [markId, count] : place.second) {
        const auto mark = table.find(markId);
        item.leaves.push_back({std::to_string(ppid),
                               {},
                               markId,
                               count,
                               mark != table.end() ? mark->second.name : QString()});
        item.total += count;
    }
    return item;
}

} // namespace

std::vector<KX_DATA::PicFilterEntry> PanelEntries(const std::vector<KX_DATA::BimPicRow>& rows,
                                                  const PanelScope& scope) {
    std::vector<KX_DATA::PicFilterEntry> entries;
    for (const auto& [order, floor] : FloorsOf(rows, scope)) {
        KX_DATA::PicFilterEntry& entry = entries.emplace_back();
        entry.name = floor.first;
        entry.id = kPicGroupId;
        Marks counts;
        for (const auto& [place, marks] : floor.second) {
            for (const auto& [markId, count] : marks) {
                counts[markId] += count;
                entry.count += count;
            }
        }
        entry.values.assign(counts.begin(), counts.end());
    }
    return entries;
}

std::vector<KX_DATA::PicMarkGroup> PanelGroups(const std::vector<KX_DATA::BimPicRow>& rows,
                                               const PanelScope& scope, const MarkTable& marks) {
    std::vector<KX_DATA::PicMarkGroup> groups;
    for (const auto& [order, floor] : FloorsOf(rows, scope)) {
        KX_DATA::PicMarkGroup& group = groups.emplace_back();
        group.name = toolkit::ToGbk(floor.first);
        group.id = kPicGroupId;
        for (const Places::value_type& place : floor.second) {
            group.items.push_back(ItemOf(place, scope, marks));
        }
    }
    return groups;
}

std::vector<qint32> PanelPhotos(const std::vector<KX_DATA::BimPicRow>& rows,
                                const PanelScope& scope, qint32 markId) {
    std::vector<std::pair<qint64, qint32>> found;
    for (const KX_DATA::BimPicRow& row : RowsWithin(rows, scope)) {
        if (row.markId == markId) {
            found.emplace_back(CountedOf(row).modified, row.picId);
        }
    }
    std::sort(found.begin(), found.end(), std::greater<>());
    std::vector<qint32> picIds;
    for (const auto& [modified, picId] : found) {
        picIds.push_back(picId);
    }
    return picIds;
}

std::vector<KX_DATA::IssueMarkGroup> PanelGroups(const std::vector<KX_DATA::IssueRow>& rows,
                                                 const PanelScope& scope) {
    std::map<std::pair<QString, std::size_t>, KX_DATA::IssueMarkGroup> floors;
    for (const KX_DATA::IssueRow& row : RowsWithin(rows, scope)) {
        auto& group = floors[{FloorOrder(row.floor), *PlaceOf(scope, row.ppid)}];
        group.name = GroupName(row.floor);
        group.id = row.ppid;
        ++group.count;
        group.entries.push_back({row.theme, row.questionId, row.posInfo, row.compName, row.markId});
    }
    std::vector<KX_DATA::IssueMarkGroup> groups;
    for (auto& [order, group] : floors) {
        std::stable_sort(
            group.entries.begin(), group.entries.end(),
            [](const auto& one, const auto& other) { return one.text3 < other.text3; });
        groups.push_back(std::move(group));
    }
    return groups;
}

std::vector<KX_DATA::IssueFilterSource> PanelEntries(const std::vector<KX_DATA::IssueRow>& rows,
                                                     const PanelScope& scope) {
    std::vector<KX_DATA::IssueFilterSource> entries;
    Marks counts;
    for (const KX_DATA::IssueMarkGroup& group : PanelGroups(rows, scope)) {
        // Floors of the same name of several projects are one line.
        if (entries.empty() || entries.back().name != group.name) {
            entries.push_back({qint32(entries.size()) + 1, 0, group.name, {}});
            counts.clear();
        }
        for (const KX_DATA::IssueMarkEntry& issue : group.entries) {
            ++counts[issue.value];
        }
        KX_DATA::IssueFilterSource& entry = entries.back();
        entry.count += group.count;
        entry.pairs.clear();
        for (const auto& [markId, count] : counts) {
            entry.pairs.emplace_back(count, markId);
        }
    }
    return entries;
}

std::vector<KX_DATA::LabelEntry> EachOnce(std::vector<KX_DATA::LabelEntry> labels) {
    std::map<std::pair<int, QString>, QString> names;
    for (const KX_DATA::LabelEntry& label : labels) {
        names[{label.labelId.toInt(), label.labelId}] = label.labelName;
    }
    labels.clear();
    for (const auto& [id, name] : names) {
        labels.push_back({id.second, name});
    }
    return labels;
}

} // namespace support
