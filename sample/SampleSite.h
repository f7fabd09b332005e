// Makes the sample site of a new data folder.
#pragma once

#include "sample/SampleSize.h"

#include <QString>

#include <functional>

namespace site {
class ISite;
} // namespace site

namespace sample {

/// Called on the calling thread at least ten times a second while the site is being made; false
/// ends it. @param total  pictures and records together. @param what  Chinese, the present step.
using SampleProgress = std::function<bool(int done, int total, const QString& what)>;

/// Makes the site unless the folder has projects already. Pictures are drawn on two worker threads
/// into a folder beside the store, then everything is filed in one transaction: a crash at any
/// moment leaves an empty site, and the next call begins anew. Content is the same every time,
/// save that all dates are counted back from the present. Never throws.
///
/// @param error  Chinese, complete; set only with false, and empty if `progress` ended it.
/// @return       true if the folder has a site now, or for None.
/// Thread: that of the open data folder. Needs the application object, for the lettering.
[[nodiscard]] bool CreateSampleSite(site::ISite& target, SampleSize size,
                                    const SampleProgress& progress, QString& error);

} // namespace sample
