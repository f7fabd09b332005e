// Reads the floor plan of a project through the client's services.
#pragma once

#include "host/ui/plan/FloorPlanModel.h"

#include <map>

namespace host {

/// How many photos there are, by position key.
using PhotoCounts = std::map<QString, qint32>;

/// Floors with their axes, and how many photos there are at each intersection. Without a project
/// (0) there are no floors; where a service fails, what could be read so far.
[[nodiscard]] FloorPlanModel ReadFloorPlan(qint32 ppid, const QString& projectName,
                                           const PhotoCounts& counts);

} // namespace host
