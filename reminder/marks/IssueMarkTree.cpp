#include "reminder/marks/IssueMarkTree.h"

#include <algorithm>
#include <tuple>

namespace {

/// So many entries ahead a ticked key is looked for by where its characters are.
constexpr quint32 kNear = 16;

/// Mostly the very same characters: keys are handed around without copying them.
int CompareKeys(const QString& left, const QString& right) {
    return left.constData() == right.constData() && left.size() == right.size()
               ? 0
               : QString::compare(left, right);
}

} // namespace

/// One entry of the groups, on its way into the order of the keys.
struct IssueMarkTree::Ref {
    quint64 number;
    quint32 group;
    const KX_DATA::IssueMarkEntry* entry;

    bool operator<(const Ref& other) const {
        if (number != other.number) {
            return number < other.number;
        }
        return std::tie(entry->itemKey, group, entry) <
               std::tie(other.entry->itemKey, other.group, other.entry);
    }
};

std::vector<IssueMarkTree::Ref>
IssueMarkTree::SortedRefs(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    KeyPrefix::Finder finder;
    std::vector<Ref> refs;
    for (quint32 group = 0; group < groups.size(); ++group) {
        for (const KX_DATA::IssueMarkEntry& entry : groups[group].entries) {
            refs.push_back({0, group, &entry});
            finder.Add(entry.itemKey);
        }
    }
    m_prefix = finder.Result();
    for (Ref& ref : refs) {
        ref.number = m_prefix.NumberOf(ref.entry->itemKey);
    }
    std::sort(refs.begin(), refs.end());
    return refs;
}

void IssueMarkTree::SetGroups(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    Clear();
    for (const KX_DATA::IssueMarkGroup& group : groups) {
        m_heads.push_back({group.name, group.id, group.count, {}});
    }
    const std::vector<Ref> refs = SortedRefs(groups);
    m_numbers.reserve(refs.size());
    m_entries.reserve(refs.size());
    m_headOf.reserve(refs.size());
    for (const Ref& ref : refs) {
        m_names.insert_or_assign(m_names.end(), ref.entry->itemKey, ref.entry->itemText);
        if (!m_entries.empty() && m_entries.back().itemKey == ref.entry->itemKey) {
            continue;
        }
        m_numbers.push_back(ref.number);
        m_entries.push_back(*ref.entry);
        m_headOf.push_back(ref.group);
    }
    for (const KX_DATA::IssueMarkEntry& entry : m_entries) {
        m_keyTexts.push_back(entry.itemKey.constData());
    }
}

/// A key that has been handed around without copying it is known without a look at its characters,
/// which lie anywhere in memory. The count of entries if it isn't near.
quint32 IssueMarkTree::FindNear(const QString& key, quint32 from) const {
    const auto count = quint32(m_entries.size());
    const quint32 end = from + std::min(kNear, count - from);
    for (quint32 at = from; at < end; ++at) {
        if (m_keyTexts[at] == key.constData() && m_entries[at].itemKey.size() == key.size()) {
            return at;
        }
    }
    return count;
}

/// The first entry that isn't surely less than the key.
quint32 IssueMarkTree::FindBehind(const QString& key, quint32 from) const {
    const auto count = quint32(m_entries.size());
    const quint64 number = m_prefix.NumberOf(key);
    quint32 at = from;
    while (at < count && m_numbers[at] < number) {
        ++at;
    }
    // Keys that begin alike may have the same number.
    while (at + 1 < count && m_numbers[at + 1] == number &&
           CompareKeys(m_entries[at].itemKey, key) < 0) {
        ++at;
    }
    return at;
}

std::vector<IssueMarkTree::Candidate>
IssueMarkTree::Find(const KX_DATA::ShownIssueMarks& selection) const {
    std::vector<Candidate> found;
    found.reserve(std::min(selection.size(), m_entries.size()));
    const auto count = quint32(m_entries.size());
    quint32 at = 0;
    for (const auto& ticked : selection) {
        const QString& key = ticked.first;
        if (const quint32 near = FindNear(key, at); near < count) {
            at = near;
        } else if (m_prefix.Fits(key)) {
            at = FindBehind(key, at);
        } else {
            continue;
        }
        if (at < count) {
            found.push_back({at, &key});
        }
    }
    return found;
}

std::vector<KX_DATA::IssueMarkGroup>
IssueMarkTree::Cut(const KX_DATA::ShownIssueMarks& selection) const {
    const std::vector<Candidate> found = Find(selection);
    std::vector<KX_DATA::IssueMarkGroup> cut;
    cut.reserve(found.size());
    for (const auto& [at, key] : found) {
        const KX_DATA::IssueMarkEntry& entry = m_entries[at];
        if (CompareKeys(entry.itemKey, *key) != 0) {
            continue;
        }
        const KX_DATA::IssueMarkGroup& head = m_heads[m_headOf[at]];
        KX_DATA::IssueMarkGroup& group = cut.emplace_back();
        group.name = head.name;
        group.id = head.id;
        group.count = head.count;
        group.entries.assign(1, entry);
    }
    return cut;
}
