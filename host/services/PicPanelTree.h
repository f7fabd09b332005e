// The mark panel's list and tree of BIM photos, and what of them is ticked, from the data.
#pragma once

#include "host/session/HostSession.h"
#include "site/PanelFilter.h"
#include "site/PanelRecords.h"

#include <map>
#include <string>

namespace host {

/// Group of everything that hangs on no floor.
[[nodiscard]] QString OtherGroupName();
/// Name of a floor's group: the floor's own, or the above.
[[nodiscard]] QString PanelGroupName(const QString& floor);
/// Id of the second level of the tree. Photos have one level there, and that one has no name.
inline constexpr qint32 kPicGroup = 1;

/// With a flag of 0 all times count. Without projects the open ones do.
[[nodiscard]] site::PanelFilter PanelFilterOf(HostSession& session, qint64 from, qint64 to,
                                              quint8 flag, const KX_DATA::MarkFilterArg& filterArg);
/// One entry a floor that has shown photos, with pairs of mark and count.
[[nodiscard]] std::vector<KX_DATA::PicFilterEntry>
PicFilterEntries(HostSession& session, const site::PanelFilter& filter);
/// The shown photos: one group a floor, one item an intersection, one leaf a mark. A leaf's first
/// text is its project id in digits.
[[nodiscard]] std::vector<KX_DATA::PicMarkGroup> PicMarkGroups(HostSession& session,
                                                               const site::PanelFilter& filter);

/// Names the intersections in the tree and in what is ticked, in code page 936: different for each
/// place of a floor, also where several projects are open. Made for one run over the places.
class PanelItemNames final {
public:
    PanelItemNames(HostSession& session, const site::PanelFilter& filter);

    [[nodiscard]] std::string NameOf(const site::PanelPlace& place) const;

private:
    std::map<qint32, std::string> m_prefixes; ///< by project; empty for a single one
};

} // namespace host
