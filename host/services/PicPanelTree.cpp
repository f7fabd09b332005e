#include "host/services/PicPanelTree.h"

#include "host/session/HostSession.h"
#include "host/session/PanelNames.h"
#include "site/IPanelCounts.h"
#include "toolkit/GbkText.h"

namespace host {

namespace {

/// Makes items of the places.
class ItemMaker {
public:
    ItemMaker(const HostSession& session, const site::PanelFilter& filter)
        : m_names(session, filter), m_marks(session.Tables().Marks()) {}

    [[nodiscard]] KX_DATA::PicMarkItem ItemOf(const site::PanelPlace& place) const {
        const std::string project = std::to_string(place.ppid);
        KX_DATA::PicMarkItem item;
        item.positionKey = toolkit::ToGbk(place.positionKey);
        item.itemName = toolkit::ToGbk(m_names.NameOf(place));
        item.groupId = kPicGroup;
        item.leaves.reserve(place.marks.size());
        for (const site::PanelMark& counted : place.marks) {
            if (counted.count == 0) {
                continue;
            }
            const auto mark = m_marks.find(counted.markId);
            KX_DATA::PicMarkLeaf& leaf = item.leaves.emplace_back();
            leaf.text1 = project;
            leaf.markId = counted.markId;
            leaf.count = counted.count;
            if (mark != m_marks.end()) {
                leaf.markName = mark->second.name;
            }
            item.total += counted.count;
        }
        return item;
    }

private:
    PanelItemNames m_names;
    const std::map<qint32, KX_DATA::MarkRecord>& m_marks;
};

} // namespace

site::PanelFilter PanelFilterOf(const HostSession& session, qint64 from, qint64 to, quint8 flag,
                                const KX_DATA::MarkFilterArg& filterArg) {
    site::PanelFilter filter;
    filter.ppids = filterArg.projectIds;
    if (filter.ppids.empty()) {
        for (const site::ProjectEntry& project : session.OpenProjects()) {
            filter.ppids.push_back(project.ppid);
        }
    }
    filter.person = filterArg.userName;
    filter.timed = flag != 0;
    filter.from = from;
    filter.to = to;
    return filter;
}

std::vector<KX_DATA::PicFilterEntry> PicFilterEntries(const HostSession& session,
                                                      const site::PanelFilter& filter) {
    std::vector<KX_DATA::PicFilterEntry> entries;
    for (const site::PanelFloor& floor : session.Site().PanelCounts().Photos(filter)) {
        if (!site::HasShownPhotos(floor)) {
            continue;
        }
        KX_DATA::PicFilterEntry& entry = entries.emplace_back();
        entry.name = PanelGroupName(floor.name);
        entry.id = kPicGroup;
        std::map<qint32, qint32> counts;
        for (const site::PanelPlace& place : floor.places) {
            for (const site::PanelMark& mark : place.marks) {
                if (mark.count > 0) {
                    counts[mark.markId] += mark.count;
                    entry.count += mark.count;
                }
            }
        }
        entry.values.assign(counts.begin(), counts.end());
    }
    return entries;
}

std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(const HostSession& session,
                                                 const site::PanelFilter& filter) {
    std::vector<KX_DATA::PicMarkGroup> groups;
    const ItemMaker maker(session, filter);
    for (const site::PanelFloor& floor : session.Site().PanelCounts().Photos(filter)) {
        if (!site::HasShownPhotos(floor)) {
            continue;
        }
        KX_DATA::PicMarkGroup& group = groups.emplace_back();
        group.name = toolkit::ToGbk(PanelGroupName(floor.name));
        group.id = kPicGroup;
        group.items.reserve(floor.places.size());
        for (const site::PanelPlace& place : floor.places) {
            if (site::HasShownPhotos(place)) {
                group.items.push_back(maker.ItemOf(place));
            }
        }
    }
    return groups;
}

} // namespace host
