// Opening the BIM photo viewer.
#pragma once

#include <QString>

namespace bench {

class Report;
class WatchedApplication;

/// From a row of the console to its photo painted in the viewer, and the opening of a place with a
/// thousand photos; on a site of its own beside `photo`, a large picture file, which is on disk in
/// the cache. Needs a living host session without a folder.
void MeasureViewer(WatchedApplication& application, const QString& photo, Report& report);

} // namespace bench
