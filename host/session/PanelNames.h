// How the mark panel names floors and places, in its lists and in what is ticked.
#pragma once

#include "site/PanelFilter.h"
#include "site/PanelRecords.h"

#include <QString>

#include <map>

namespace host {

class HostSession;

/// Group of everything that hangs on no floor.
[[nodiscard]] QString OtherGroupName();
/// Name of a floor's group: the floor's own, or the above.
[[nodiscard]] QString PanelGroupName(const QString& floor);

/// Names the intersections: different for each place of a floor, also where several projects are
/// open. Made for one run over the places.
class PanelItemNames final {
public:
    PanelItemNames(const HostSession& session, const site::PanelFilter& filter);

    [[nodiscard]] QString NameOf(const site::PanelPlace& place) const;

private:
    std::map<qint32, QString> m_prefixes; ///< by project; empty for a single one
};

} // namespace host
