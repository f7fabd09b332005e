#include "host/services/IssuePanelTree.h"

#include "host/session/HostSession.h"
#include "host/session/PanelNames.h"
#include "site/IPanelCounts.h"

namespace host {

std::vector<KX_DATA::IssueFilterSource> IssueFilterEntries(const HostSession& session,
                                                           const site::PanelFilter& filter) {
    std::vector<KX_DATA::IssueFilterSource> entries;
    std::map<qint32, qint32> counts;
    for (const site::PanelIssueFloor& floor : session.Site().PanelCounts().Issues(filter)) {
        const QString name = PanelGroupName(floor.name);
        // Floors of the same name of several projects follow each other.
        if (entries.empty() || entries.back().name != name) {
            entries.push_back({static_cast<qint32>(entries.size()) + 1, 0, name, {}});
            counts.clear();
        }
        KX_DATA::IssueFilterSource& entry = entries.back();
        for (const site::PanelIssue& issue : floor.issues) {
            ++counts[issue.markId];
        }
        entry.count += static_cast<qint32>(floor.issues.size());
        entry.pairs.clear();
        for (const auto& [markId, count] : counts) {
            entry.pairs.emplace_back(count, markId);
        }
    }
    return entries;
}

std::vector<KX_DATA::IssueMarkGroup> IssueMarkGroups(const HostSession& session,
                                                     const site::PanelFilter& filter) {
    std::vector<KX_DATA::IssueMarkGroup> groups;
    for (const site::PanelIssueFloor& floor : session.Site().PanelCounts().Issues(filter)) {
        KX_DATA::IssueMarkGroup& group = groups.emplace_back();
        group.name = PanelGroupName(floor.name);
        group.id = floor.ppid;
        group.count = static_cast<qint32>(floor.issues.size());
        group.entries.reserve(floor.issues.size());
        for (const site::PanelIssue& issue : floor.issues) {
            group.entries.push_back(
                {issue.theme, issue.questionId, issue.posText, issue.component, issue.markId});
        }
    }
    return groups;
}

} // namespace host
