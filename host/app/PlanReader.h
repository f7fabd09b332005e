// Reads the floor plan of what is open: floors and axes as they are kept, counts from the data.
#pragma once

#include "host/app/PlanAxes.h"
#include "host/ui/plan/FloorPlanModel.h"
#include "site/PanelRecords.h"
#include "site/Records.h"

namespace host {

class HostSession;

/// Floors with their axes, and how many photos there are at each intersection and beside them all,
/// project by project; at the end what hangs on no floor. A floor that only photos name comes
/// behind the others. Without projects there are no floors; where a service fails, what could be
/// read so far.
/// @param photos  of these projects, without limits.
[[nodiscard]] FloorPlanModel ReadFloorPlan(const std::vector<site::ProjectEntry>& projects,
                                           const std::vector<site::PanelFloor>& photos,
                                           PlanAxes& axes);
/// Of what the session has open; the person is told of a fault, and there are no floors then.
[[nodiscard]] FloorPlanModel ReadFloorPlan(HostSession& session, PlanAxes& axes);

} // namespace host
