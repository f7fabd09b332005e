#include "host/services/PicPanelTree.h"

#include "toolkit/GbkText.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

QString OtherGroupName() {
    return u"其他"_s;
}

QString GroupNameOf(qint32 groupId) {
    return groupId == kPicGroup ? u"照片"_s : QString();
}

PanelFilter PanelFilterOf(HostSession& session, qint64 from, qint64 to, quint8 flag,
                          const KX_DATA::MarkFilterArg& filterArg) {
    PanelFilter filter;
    filter.ppids = filterArg.projectIds;
    if (filter.ppids.empty()) {
        for (const ProjectEntry& project : session.OpenProjects()) {
            filter.ppids.push_back(project.ppid);
        }
    }
    filter.person = filterArg.userName;
    filter.timed = flag != 0;
    filter.from = from;
    filter.to = to;
    return filter;
}

std::vector<KX_DATA::PicFilterEntry> PicFilterEntries(HostSession& session,
                                                      const PanelFilter& filter) {
    std::vector<KX_DATA::PicFilterEntry> entries;
    for (const PanelCount& count : PicPanel(session.Folder()->Db()).Counts(filter)) {
        const QString name = count.floor.isEmpty() ? OtherGroupName() : count.floor;
        if (entries.empty() || entries.back().name != name) {
            KX_DATA::PicFilterEntry entry;
            entry.name = name;
            entry.id = kPicGroup;
            entries.push_back(entry);
        }
        KX_DATA::PicFilterEntry& entry = entries.back();
        entry.count += count.count;
        const auto known =
            std::find_if(entry.values.begin(), entry.values.end(),
                         [&](const auto& pair) { return pair.first == count.markId; });
        if (known != entry.values.end()) {
            known->second += count.count;
        } else {
            entry.values.emplace_back(count.markId, count.count);
        }
    }
    return entries;
}

std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(HostSession& session, const PanelFilter& filter) {
    std::vector<KX_DATA::PicMarkGroup> groups;
    const std::map<qint32, KX_DATA::MarkRecord> marks = session.Marks();
    for (const PanelCount& count : PicPanel(session.Folder()->Db()).Counts(filter)) {
        const std::string name =
            toolkit::ToGbk(count.floor.isEmpty() ? OtherGroupName() : count.floor);
        if (groups.empty() || groups.back().name != name) {
            groups.push_back({name, kPicGroup, {}});
        }
        std::vector<KX_DATA::PicMarkItem>& items = groups.back().items;
        const std::string key = toolkit::ToGbk(count.positionKey);
        if (items.empty() || items.back().positionKey != key) {
            KX_DATA::PicMarkItem item;
            item.positionKey = key;
            item.itemName = toolkit::ToGbk(count.posText);
            item.groupId = kPicGroup;
            items.push_back(item);
        }
        KX_DATA::PicMarkLeaf leaf;
        leaf.markId = count.markId;
        leaf.count = count.count;
        const auto mark = marks.find(count.markId);
        leaf.markName = mark != marks.end() ? mark->second.name : QString();
        items.back().leaves.push_back(leaf);
        items.back().total += count.count;
    }
    return groups;
}

} // namespace host
