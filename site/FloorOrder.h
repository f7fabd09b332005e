// The order of floors, numbers by value, then names; and the text of a place on a floor.
#pragma once

#include <QString>

namespace site {

/// A text whose binary order is the order of the floors: no floor, -1, 1, 2, 10, then names.
[[nodiscard]] QString FloorSortKey(const QString& floor);

/// The place behind the floor, as the console shows and sorts it; empty without axes.
[[nodiscard]] QString PositionText(const QString& axisX, const QString& axisY);

} // namespace site
