#include "host/services/PicPanelTree.h"

#include "toolkit/GbkText.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

KX_DATA::PicMarkItem ItemOf(HostSession& session, const PanelFilter& filter,
                            const PanelPlace& place) {
    const std::map<qint32, KX_DATA::MarkRecord>& marks = session.Marks();
    const std::string project = std::to_string(place.ppid);
    KX_DATA::PicMarkItem item;
    item.positionKey = toolkit::ToGbk(place.positionKey);
    item.itemName = PanelItemName(session, filter, place);
    item.groupId = kPicGroup;
    item.leaves.reserve(place.marks.size());
    for (const PanelMark& counted : place.marks) {
        const auto mark = marks.find(counted.markId);
        item.leaves.push_back({project,
                               {},
                               counted.markId,
                               counted.count,
                               mark != marks.end() ? mark->second.name : QString()});
        item.total += counted.count;
    }
    return item;
}

} // namespace

QString OtherGroupName() {
    return u"其他"_s;
}

QString PanelGroupName(const QString& floor) {
    return floor.isEmpty() ? OtherGroupName() : floor;
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
    for (const PanelFloor& floor : session.Panel()->Photos(filter)) {
        KX_DATA::PicFilterEntry& entry = entries.emplace_back();
        entry.name = PanelGroupName(floor.name);
        entry.id = kPicGroup;
        std::map<qint32, qint32> counts;
        for (const PanelPlace& place : floor.places) {
            for (const PanelMark& mark : place.marks) {
                counts[mark.markId] += mark.count;
                entry.count += mark.count;
            }
        }
        entry.values.assign(counts.begin(), counts.end());
    }
    return entries;
}

std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(HostSession& session, const PanelFilter& filter) {
    std::vector<KX_DATA::PicMarkGroup> groups;
    for (const PanelFloor& floor : session.Panel()->Photos(filter)) {
        KX_DATA::PicMarkGroup& group = groups.emplace_back();
        group.name = toolkit::ToGbk(PanelGroupName(floor.name));
        group.id = kPicGroup;
        group.items.reserve(floor.places.size());
        for (const PanelPlace& place : floor.places) {
            group.items.push_back(ItemOf(session, filter, place));
        }
    }
    return groups;
}

std::string PanelItemName(HostSession& session, const PanelFilter& filter,
                          const PanelPlace& place) {
    // What hangs on no floor ends up in a single item, whose name is then the only one.
    if (filter.ppids.size() < 2 || place.positionKey.isEmpty()) {
        return toolkit::ToGbk(place.posText);
    }
    return toolkit::ToGbk(session.ProjectName(place.ppid) + u' ' + place.posText);
}

} // namespace host
