// The walk through the client.
#pragma once

#include "host/app/CommandLine.h"

#include <functional>

namespace tour {

/// Walks through the client on a temporary data folder with the small sample site, unless the
/// command line names a folder; pictures go to the tour's folder, what is done to the standard
/// output. At scale 1 a short walk at scale 2 follows, in a process of its own.
///
/// @param runClient  opens the client and returns when it is closed.
/// @return           exit code: 0 if every step happened.
[[nodiscard]] int RunTour(const host::CommandLine& line,
                          const std::function<int(const host::CommandLine&)>& runClient);

} // namespace tour
