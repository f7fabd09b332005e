// How long the client takes from its start to a painted console.
#pragma once

#include <QString>

namespace bench {

/// The process's part of the measurement: opens the client on the sample site, which it makes if
/// the folder has none, and its console.
/// @param spawned  when the parent started this process, milliseconds since 1970.
/// @return         0; prints the milliseconds to the painted main window and to the painted
/// console.
int RunStartProbe(const QString& folder, qint64 spawned);

/// Medians of several fresh processes after one that doesn't count, milliseconds; negative if a
/// process failed.
struct StartTimes {
    double mainWindow = -1;
    double console = -1;
};
[[nodiscard]] StartTimes MeasureStart(const QString& folder);

} // namespace bench
