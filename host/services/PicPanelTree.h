// The mark panel's list and tree of BIM photos, from the data.
#pragma once

#include "services/MarkGroups.h"
#include "site/PanelFilter.h"

#include <vector>

namespace host {

class HostSession;

/// Id of the second level of the tree. Photos have one level there, and that one has no name.
inline constexpr qint32 kPicGroup = 1;

/// With a flag of 0 all times count. Without projects the open ones do.
[[nodiscard]] site::PanelFilter PanelFilterOf(const HostSession& session, qint64 from, qint64 to,
                                              quint8 flag, const KX_DATA::MarkFilterArg& filterArg);
/// One entry a floor that has shown photos, with pairs of mark and count.
[[nodiscard]] std::vector<KX_DATA::PicFilterEntry>
PicFilterEntries(const HostSession& session, const site::PanelFilter& filter);
/// The shown photos: one group a floor, one item an intersection, one leaf a mark. A leaf's first
/// text is its project id in digits.
[[nodiscard]] std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(const HostSession& session,
                                                               const site::PanelFilter& filter);

} // namespace host
