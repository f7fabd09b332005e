// Reads the floor plan of a project through the client's services.
#pragma once

#include "host/ui/plan/FloorPlanModel.h"

#include <map>

namespace host {

/// How many photos there are, by position key.
using PhotoCounts = std::map<QString, qint32>;

struct PlanProject {
    qint32 ppid = 0;
    QString name;
    PhotoCounts counts;
    int withoutFloor = 0; ///< photos
};

/// Floors with their axes, and how many photos there are at each intersection, project by project;
/// at the end what hangs on no floor. Without projects there are no floors; where a service fails,
/// what could be read so far.
[[nodiscard]] FloorPlanModel ReadFloorPlan(const std::vector<PlanProject>& projects);

} // namespace host
