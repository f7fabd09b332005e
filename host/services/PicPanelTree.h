// The mark panel's list and tree of BIM photos, from counts of the database.
#pragma once

#include "host/data/HostSession.h"
#include "host/data/PicPanel.h"

namespace host {

/// Group of everything that hangs on no floor.
[[nodiscard]] QString OtherGroupName();
/// Id and display name of the second level of the tree: there is one for photos.
inline constexpr qint32 kPicGroup = 1;
[[nodiscard]] QString GroupNameOf(qint32 groupId);

/// With a flag of 0 all times count. Without projects the open ones do.
[[nodiscard]] PanelFilter PanelFilterOf(HostSession& session, qint64 from, qint64 to, quint8 flag,
                                        const KX_DATA::MarkFilterArg& filterArg);
/// One entry a floor, with pairs of mark and count.
[[nodiscard]] std::vector<KX_DATA::PicFilterEntry> PicFilterEntries(HostSession& session,
                                                                    const PanelFilter& filter);
/// One group a floor, one item an intersection, one leaf a mark.
[[nodiscard]] std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(HostSession& session,
                                                               const PanelFilter& filter);

} // namespace host
