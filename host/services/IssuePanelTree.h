// The mark panel's list and tree of issues, from the data.
#pragma once

#include "services/MarkGroups.h"
#include "site/PanelFilter.h"

#include <vector>

namespace host {

class HostSession;

/// One entry a floor, with pairs of count and mark.
[[nodiscard]] std::vector<KX_DATA::IssueFilterSource>
IssueFilterEntries(const HostSession& session, const site::PanelFilter& filter);
/// One group a floor and project, whose id is the project's, with an entry for each issue: theme,
/// question id, place on the floor, component, mark id.
[[nodiscard]] std::vector<KX_DATA::IssueMarkGroup> IssueMarkGroups(const HostSession& session,
                                                                   const site::PanelFilter& filter);

} // namespace host
