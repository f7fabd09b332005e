#include "host/services/PicPanelTree.h"

#include "site/IPanelCounts.h"
#include "toolkit/GbkText.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Makes items of the places. The session's tables are asked once: each question to them looks
/// whether another client has changed the data.
class ItemMaker {
public:
    ItemMaker(HostSession& session, const site::PanelFilter& filter)
        : m_names(session, filter), m_marks(session.Marks()) {}

    [[nodiscard]] KX_DATA::PicMarkItem ItemOf(const site::PanelPlace& place) const {
        const std::string project = std::to_string(place.ppid);
        KX_DATA::PicMarkItem item;
        item.positionKey = toolkit::ToGbk(place.positionKey);
        item.itemName = m_names.NameOf(place);
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
    std::map<qint32, KX_DATA::MarkRecord> m_marks;
};

} // namespace

QString OtherGroupName() {
    return u"其他"_s;
}

QString PanelGroupName(const QString& floor) {
    return floor.isEmpty() ? OtherGroupName() : floor;
}

site::PanelFilter PanelFilterOf(HostSession& session, qint64 from, qint64 to, quint8 flag,
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

std::vector<KX_DATA::PicFilterEntry> PicFilterEntries(HostSession& session,
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

std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(HostSession& session,
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

PanelItemNames::PanelItemNames(HostSession& session, const site::PanelFilter& filter) {
    if (filter.ppids.size() < 2) {
        return;
    }
    for (const qint32 ppid : filter.ppids) {
        m_prefixes[ppid] = toolkit::ToGbk(session.ProjectName(ppid) + u' ');
    }
}

std::string PanelItemNames::NameOf(const site::PanelPlace& place) const {
    const auto prefix = m_prefixes.find(place.ppid);
    // What hangs on no floor ends up in a single item, whose name is then the only one.
    return prefix == m_prefixes.end() || place.positionKey.isEmpty()
               ? toolkit::ToGbk(place.posText)
               : prefix->second + toolkit::ToGbk(place.posText);
}

} // namespace host
