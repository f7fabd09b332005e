// The drawing view on a large sheet.
#pragma once

class QString;

namespace bench {

class Report;
class WatchedApplication;

/// Opening, zooming and panning beside the PDF library alone, and memory.
void MeasureSheet(WatchedApplication& application, const QString& path, Report& report);

/// In a process of its own: the same walk, then what it took. Exit code.
[[nodiscard]] int ProbeSheetMemory(WatchedApplication& application, const QString& path);

} // namespace bench
