// The viewer on a checkpoint with very many pictures and comments.
#pragma once

#include <QStringList>

namespace bench {

class Report;
class WatchedApplication;

/// Opening beside the bare queries and a bare decode; where the time goes. False after a line that
/// says why nothing was measured. StartTracing must have been called.
[[nodiscard]] bool MeasureCheckpoint(WatchedApplication& application, const QStringList& photos,
                                     Report& report);

} // namespace bench
