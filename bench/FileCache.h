// The operating system's memory of files.
#pragma once

#include <QString>

namespace bench {

/// Makes the system forget what it has read of a file, so that the next reader goes to the disk.
/// What stands below the system (a host of virtual machines) may still remember.
void DropFromCache(const QString& path);

} // namespace bench
