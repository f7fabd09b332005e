// The counts of the open projects as bars, and what the console lists for each.
#pragma once

#include "host/services/ListPresets.h"
#include "host/ui/statistics/StatisticsChart.h"

#include <QString>

#include <vector>

namespace host {

class HostSession;

/// What a bar stands for.
struct CountedPart {
    QString phrase;       ///< Chinese, before "的照片"
    ListPreset preset;    ///< of BIM photos and issues
    qint32 number = -1;   ///< of drawing photos: the preset number
    qint32 drawingId = 0; ///< and the drawing with which it goes; 0: any
};

struct CountedChart {
    StatisticsChart chart;
    std::vector<CountedPart> parts; ///< one for each bar
};

/// Of all open projects; empty with a hint if there is none. Weeks are the last 26 by the last
/// change, the older ones together. Throws DataError. Thread: user interface.
[[nodiscard]] CountedChart ReadStatistics(HostSession& session, CountedKind kind,
                                          CountedBy grouping);

} // namespace host
