// Pictures of a rectification on their way into the site.
#pragma once

#include <QStringList>

namespace bench {

class Report;
class WatchedApplication;

/// Uploads photographs by the rectification's page while keys are pressed in it, beside a bare
/// decode, encode, checksum and copies of the same files. False: they can't be uploaded.
[[nodiscard]] bool MeasureUpload(WatchedApplication& application, const QStringList& photos,
                                 Report& report);

} // namespace bench
