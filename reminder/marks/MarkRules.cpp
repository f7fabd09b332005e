#include "reminder/marks/MarkRules.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// Leading blanks, sign and digits as a number; 0 without digits, the nearest limit beyond the
/// range.
qint64 LeadingNumber(const QString& text) {
    constexpr qint64 kMost = 0x7FFFFFFF;
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace()) {
        ++at;
    }
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        ++at;
    }
    qint64 number = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at) {
        number = std::min(kMost, number * 10 + (text[at].unicode() - u'0'));
    }
    return negative ? -number : number;
}

KX_DATA::PicMarkItem WithoutLeaves(const KX_DATA::PicMarkItem& item, qint32 groupId) {
    return {item.positionKey, item.itemName, item.text3, item.text4, item.text5, 0, groupId, {}};
}

} // namespace

void FoldOthers(std::vector<KX_DATA::PicMarkGroup>& groups, const std::string& others) {
    const auto found = std::find_if(groups.begin(), groups.end(),
                                    [&](const auto& group) { return group.name == others; });
    if (found == groups.end()) {
        return;
    }
    KX_DATA::PicMarkGroup group = std::move(*found);
    groups.erase(found);
    // An empty one disappears from the panel; required as is.
    if (group.items.empty()) {
        return;
    }
    KX_DATA::PicMarkItem merged = WithoutLeaves(group.items.back(), 0);
    for (KX_DATA::PicMarkItem& item : group.items) {
        std::move(item.leaves.begin(), item.leaves.end(), std::back_inserter(merged.leaves));
    }
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
        for (const auto& [first, second] : source.pairs) {
            entry.values.emplace_back(second, first);
        }
        entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(), [](const auto& first, const auto& second) {
        return LeadingNumber(first.name) < LeadingNumber(second.name);
    });
    return entries;
}
