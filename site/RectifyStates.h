// The states of a rectification: numbers in the database, names on the screen.
#pragma once

#include <QString>

#include <vector>

namespace site {

inline constexpr qint32 kStateOpen = 0;
inline constexpr qint32 kStateInProgress = 1;
inline constexpr qint32 kStateDone = 2;
inline constexpr qint32 kStateNotNeeded = 3;
inline constexpr qint32 kStateCount = 4;
inline constexpr qint32 kStateUnknown = -1;

/// "全部" first, then the states in the order of their numbers.
[[nodiscard]] std::vector<QString> StateNames();
/// Empty for a number that is no state.
[[nodiscard]] QString StateName(qint32 state);
/// kStateUnknown for a text that is no state's name, "全部" included.
[[nodiscard]] qint32 StateFromName(const QString& name);

} // namespace site
