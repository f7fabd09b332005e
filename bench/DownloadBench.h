// The batch download of the console beside a plain copy of the same files.
#pragma once

#include <QStringList>

namespace bench {

class Report;

/// Files the pictures as photos of a site of their own and downloads them all through the console's
/// way, from an empty cache and again with a full one. Needs no host session, and
/// folder.
void MeasureDownload(const QStringList& pictures, Report& report);

} // namespace bench
