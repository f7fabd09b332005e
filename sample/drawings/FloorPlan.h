// What stands on a floor: walls, doors, windows, rooms, and what a trade adds.
#pragma once

#include "sample/drawings/DrawingSheet.h"

class QPainter;

namespace sample {

class SheetGrid;

/// In the units of the sheet. Stairs and lifts lie in the same bays on every floor of a grid.
void DrawFloorPlan(QPainter& painter, const SheetGrid& grid, const DrawingOrder& order);

} // namespace sample
