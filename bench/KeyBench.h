// A key pressed the moment the first picture shows, and how long the gallery ever blocks.
#pragma once

#include "bench/GalleryDriver.h"
#include "bench/Report.h"

namespace bench {

/// Opens lists of large photographs and steps at once, beside one bare decode of the file that the
/// step leads to, in the same run: lists opened the first time and again apart. Then the longest
/// event of all that.
void MeasureKeys(WatchedApplication& application, const QStringList& paths, const QString& name,
                 Report& report);

} // namespace bench
