// The lists of a setup that stand on no project's grid.
#pragma once

namespace host {

class PlanDesk;

/// In this order: worksets name projects.
void PlanProjects(PlanDesk& desk);
void PlanWorksets(PlanDesk& desk);
void PlanPeople(PlanDesk& desk);
void PlanMarks(PlanDesk& desk);
void PlanLabels(PlanDesk& desk);

} // namespace host
