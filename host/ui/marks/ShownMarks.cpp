#include "host/ui/marks/ShownMarks.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kUnknownColor = 0x9E9E9E;

/// The client's own tree names the group of no floor so.
const QString kNoFloor = u"其他"_s;

QString FloorOfGroup(const QString& name) {
    return name == kNoFloor ? QString() : name;
}

/// The client's own tree has the project in the first text of a leaf.
qint32 ProjectOf(const KX_DATA::PicMarkLeaf& leaf) {
    qint32 ppid = 0;
    std::from_chars(leaf.text1.data(), leaf.text1.data() + leaf.text1.size(), ppid);
    return ppid;
}

bool IsWanted(qint32 ppid, qint32 wanted) {
    return wanted == 0 || ppid == 0 || ppid == wanted;
}

bool AreSameEntries(const KX_DATA::IssueMarkEntry& one, const KX_DATA::IssueMarkEntry& other) {
    return std::tie(one.itemText, one.itemKey, one.text3, one.text4, one.value) ==
           std::tie(other.itemText, other.itemKey, other.text3, other.text4, other.value);
}

bool AreSame(const KX_DATA::IssueMarkGroup& one, const KX_DATA::IssueMarkGroup& other) {
    return std::tie(one.name, one.id, one.count) == std::tie(other.name, other.id, other.count) &&
           std::equal(one.entries.begin(), one.entries.end(), other.entries.begin(),
                      other.entries.end(), AreSameEntries);
}

} // namespace

bool IsSameFlag(const MarkFlag& one, const MarkFlag& other) {
    return one.kind == other.kind && one.markId == other.markId && one.ppid == other.ppid &&
           one.floor == other.floor && one.positionKey == other.positionKey &&
           one.placeText == other.placeText;
}

QString UnknownMarkName() {
    return u"未知"_s;
}

QString FlagName(const MarkFlag& flag) {
    return flag.name.isEmpty() ? UnknownMarkName() : flag.name;
}

void ShownMarks::SetPhotos(const std::vector<KX_DATA::PicMarkGroup>& groups) {
    m_photos = groups;
}

bool ShownMarks::SetIssues(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    if (std::equal(groups.begin(), groups.end(), m_issueGroups.begin(), m_issueGroups.end(),
                   AreSame)) {
        return false;
    }
    m_issueGroups = groups;
    m_issues.clear();
    // A ticked issue comes alone in its group, so one floor comes in very many of them.
    std::map<std::pair<QString, qint32>, std::size_t> floors;
    for (const KX_DATA::IssueMarkGroup& group : groups) {
        const auto [found, isNew] =
            floors.try_emplace({FloorOfGroup(group.name), group.id}, m_issues.size());
        if (isNew) {
            m_issues.push_back({found->first.first, group.id, {}});
        }
        auto& entries = m_issues[found->second].entries;
        entries.insert(entries.end(), group.entries.begin(), group.entries.end());
    }
    return true;
}

void ShownMarks::Show(MarkKind kind, bool on) {
    (kind == MarkKind::Photos ? m_showPhotos : m_showIssues) = on;
}

bool ShownMarks::IsShown(MarkKind kind) const {
    return kind == MarkKind::Photos ? m_showPhotos : m_showIssues;
}

MarkFlag ShownMarks::FlagOf(const QString& floor, const KX_DATA::PicMarkItem& item,
                            const KX_DATA::PicMarkLeaf& leaf) const {
    const auto mark = m_marks.find(leaf.markId);
    MarkFlag flag;
    flag.markId = leaf.markId;
    flag.name = leaf.markName;
    flag.color = mark == m_marks.end() ? kUnknownColor : mark->second.color;
    flag.count = leaf.count;
    flag.ppid = ProjectOf(leaf);
    flag.floor = floor;
    flag.positionKey = m_codePage.read(item.positionKey);
    flag.placeText = m_codePage.read(item.itemName);
    const auto behind = m_hidden.find(
        {flag.ppid, floor, floor.isEmpty() ? QString() : flag.positionKey, flag.markId});
    flag.hidden = behind == m_hidden.end() ? 0 : behind->second;
    return flag;
}

MarkFlag ShownMarks::FlagOf(const IssueFloor& floor, const KX_DATA::IssueMarkEntry& entry) const {
    const auto mark = m_marks.find(entry.value);
    MarkFlag flag;
    flag.kind = MarkKind::Issues;
    flag.markId = entry.value;
    flag.name = mark == m_marks.end() ? QString() : mark->second.name;
    flag.color = mark == m_marks.end() ? kUnknownColor : mark->second.color;
    flag.ppid = floor.ppid;
    flag.floor = floor.name;
    flag.placeText = entry.text3;
    return flag;
}

void ShownMarks::AddPhotos(const QString& floor, qint32 ppid, std::vector<MarkFlag>& flags) const {
    const std::string name = m_codePage.write(floor.isEmpty() ? kNoFloor : floor);
    for (const KX_DATA::PicMarkGroup& group : m_photos) {
        if (group.name != name) {
            continue;
        }
        for (const KX_DATA::PicMarkItem& item : group.items) {
            AddItem(floor, item, ppid, flags);
        }
    }
}

void ShownMarks::AddItem(const QString& floor, const KX_DATA::PicMarkItem& item, qint32 ppid,
                         std::vector<MarkFlag>& flags) const {
    const std::size_t first = flags.size();
    for (const KX_DATA::PicMarkLeaf& leaf : item.leaves) {
        if (!IsWanted(ProjectOf(leaf), ppid)) {
            continue;
        }
        const MarkFlag flag = FlagOf(floor, item, leaf);
        // What hangs on no floor comes with a leaf for each of its places.
        const auto same = std::find_if(flags.begin() + qsizetype(first), flags.end(),
                                       [&](const auto& one) { return IsSameFlag(one, flag); });
        if (same == flags.end()) {
            flags.push_back(flag);
        } else {
            same->count += flag.count;
        }
    }
}

void ShownMarks::AddIssues(const IssueFloor& floor, std::vector<MarkFlag>& flags) const {
    std::map<std::pair<QString, qint32>, std::size_t> known;
    for (const KX_DATA::IssueMarkEntry& entry : floor.entries) {
        const auto [found, isNew] = known.try_emplace({entry.text3, entry.value}, flags.size());
        if (isNew) {
            flags.push_back(FlagOf(floor, entry));
        }
        MarkFlag& flag = flags[found->second];
        flag.issues.push_back({entry.itemKey, entry.itemText});
        ++flag.count;
    }
}

std::vector<MarkFlag> ShownMarks::FlagsOf(const QString& floor, qint32 ppid) const {
    std::vector<MarkFlag> flags;
    if (m_showPhotos) {
        AddPhotos(floor, ppid, flags);
    }
    for (const IssueFloor& one : m_issues) {
        if (m_showIssues && one.name == floor && IsWanted(one.ppid, ppid)) {
            AddIssues(one, flags);
        }
    }
    return flags;
}

std::optional<MarkFlag> ShownMarks::FindPhoto(const QString& positionKey, qint32 markId) const {
    const std::string noFloor = m_codePage.write(kNoFloor);
    const std::string key = m_codePage.write(positionKey);
    for (const KX_DATA::PicMarkGroup& group : m_photos) {
        const bool hasFloor = group.name != noFloor;
        // On no floor no item has a key of its own that counts.
        if (!m_showPhotos || hasFloor == positionKey.isEmpty()) {
            continue;
        }
        for (const KX_DATA::PicMarkItem& item : group.items) {
            if (hasFloor && item.positionKey != key) {
                continue;
            }
            for (const KX_DATA::PicMarkLeaf& leaf : item.leaves) {
                if (leaf.markId == markId) {
                    return FlagOf(FloorOfGroup(m_codePage.read(group.name)), item, leaf);
                }
            }
        }
    }
    return std::nullopt;
}

std::optional<MarkFlag> ShownMarks::FindIssue(const QString& questionId) const {
    for (const IssueFloor& floor : m_issues) {
        for (const KX_DATA::IssueMarkEntry& entry : floor.entries) {
            if (m_showIssues && entry.itemKey == questionId) {
                return FlagOf(floor, entry);
            }
        }
    }
    return std::nullopt;
}

} // namespace host
