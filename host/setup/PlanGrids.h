// Floors, crossings and drawings of the projects of a setup.
#pragma once

#include "host/setup/SetupPlan.h"

namespace host {

class PlanDesk;

/// The projects are planned.
void PlanGrids(PlanDesk& desk);
void PlanDrawings(PlanDesk& desk, const KnownDrawings& drawings);

} // namespace host
