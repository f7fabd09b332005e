#include "reminder/MarkRules.h"

#include <QHashFunctions>

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace {

/// Leading blanks, sign and digits as a number; 0 without digits, the nearest limit beyond the
/// range.
qint64 LeadingNumber(const QString& text) {
    constexpr qint64 kMost = 0x7FFFFFFF;
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        ++at;
    qint64 number = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at)
        number = std::min(kMost, number * 10 + (text[at].unicode() - u'0'));
    return negative ? -number : number;
}

/// How many photos of a leaf are ticked; empty: the leaf isn't.
std::optional<qint32> ShownCount(const KX_DATA::PicMarkLeaf& leaf, const std::string& itemName,
                                 const GroupSelection& selected) {
    if (selected.takeAll)
        return leaf.count;
    const auto mark = selected.marks->find(leaf.markId);
    if (mark == selected.marks->end())
        return std::nullopt;
    if (mark->second.empty())
        return leaf.count;
    const auto count = std::count_if(mark->second.begin(), mark->second.end(),
                                     [&](const auto& shown) { return shown.itemName == itemName; });
    return count == 0 ? std::nullopt : std::optional(qint32(count));
}

KX_DATA::PicMarkItem WithoutLeaves(const KX_DATA::PicMarkItem& item, qint32 groupId) {
    return {item.positionKey, item.itemName, item.text3, item.text4, item.text5, 0, groupId, {}};
}

KX_DATA::PicMarkItem CutItem(const KX_DATA::PicMarkItem& item, qint32 groupId,
                             const GroupSelection& selected) {
    KX_DATA::PicMarkItem cut = WithoutLeaves(item, groupId);
    if (selected.takeAll)
        cut.leaves.reserve(item.leaves.size());
    for (const KX_DATA::PicMarkLeaf& leaf : item.leaves) {
        const std::optional<qint32> count = ShownCount(leaf, item.itemName, selected);
        if (!count)
            continue;
        cut.leaves.push_back(leaf);
        cut.leaves.back().count = *count;
        cut.total += *count;
    }
    return cut;
}

} // namespace

void FoldOthers(std::vector<KX_DATA::PicMarkGroup>& groups, const std::string& others) {
    const auto found = std::find_if(groups.begin(), groups.end(),
                                    [&](const auto& group) { return group.name == others; });
    if (found == groups.end())
        return;
    KX_DATA::PicMarkGroup group = std::move(*found);
    groups.erase(found);
    // An empty one disappears from the panel; required as is.
    if (group.items.empty())
        return;
    KX_DATA::PicMarkItem merged = WithoutLeaves(group.items.back(), 0);
    for (KX_DATA::PicMarkItem& item : group.items)
        std::move(item.leaves.begin(), item.leaves.end(), std::back_inserter(merged.leaves));
    group.items.clear();
    group.items.push_back(std::move(merged));
    groups.push_back(std::move(group));
}

std::vector<KX_DATA::PicFilterEntry>
IssueFilterList(const std::vector<KX_DATA::IssueFilterSource>& sources) {
    std::vector<KX_DATA::PicFilterEntry> entries;
    entries.reserve(sources.size());
    for (const KX_DATA::IssueFilterSource& source : sources) {
        KX_DATA::PicFilterEntry entry{source.name, source.count, {}, source.id};
        for (const auto& [first, second] : source.pairs)
            entry.values.emplace_back(second, first);
        entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(), [](const auto& first, const auto& second) {
        return LeadingNumber(first.name) < LeadingNumber(second.name);
    });
    return entries;
}

std::map<QString, QString> IssueNames(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    std::map<QString, QString> names;
    for (const KX_DATA::IssueMarkGroup& group : groups)
        for (const KX_DATA::IssueMarkEntry& entry : group.entries)
            names[entry.itemKey] = entry.itemText;
    return names;
}

bool SelectGroup(const KX_DATA::ShownPicMarks& selection, const std::string& floor,
                 const QString& secondLevel, GroupSelection& selected) {
    const auto inner = selection.find(floor);
    if (inner == selection.end())
        return false;
    selected.takeAll = inner->second.empty();
    selected.marks = nullptr;
    const auto marks = inner->second.find(secondLevel);
    if (marks == inner->second.end())
        return selected.takeAll;
    selected.takeAll = marks->second.empty();
    selected.marks = &marks->second;
    return true;
}

KX_DATA::PicMarkGroup CutGroup(const KX_DATA::PicMarkGroup& group, const GroupSelection& selected) {
    KX_DATA::PicMarkGroup cut{group.name, group.id, {}};
    if (selected.takeAll)
        cut.items.reserve(group.items.size());
    for (const KX_DATA::PicMarkItem& item : group.items) {
        KX_DATA::PicMarkItem kept = CutItem(item, group.id, selected);
        if (!kept.leaves.empty())
            cut.items.push_back(std::move(kept));
    }
    return cut;
}

std::vector<KX_DATA::IssueMarkGroup>
CutIssueGroups(const std::vector<KX_DATA::IssueMarkGroup>& groups,
               const KX_DATA::ShownIssueMarks& selection) {
    struct Place {
        const KX_DATA::IssueMarkGroup* group;
        const KX_DATA::IssueMarkEntry* entry;
    };
    std::unordered_map<QString, Place> places;
    for (const KX_DATA::IssueMarkGroup& group : groups)
        for (const KX_DATA::IssueMarkEntry& entry : group.entries)
            places.try_emplace(entry.itemKey, Place{&group, &entry});
    std::vector<KX_DATA::IssueMarkGroup> cut;
    for (const auto& ticked : selection) {
        const auto place = places.find(ticked.first);
        if (place == places.end())
            continue;
        const KX_DATA::IssueMarkGroup& group = *place->second.group;
        cut.push_back({group.name, group.id, group.count, {*place->second.entry}});
    }
    return cut;
}
