// The walk through the client.
#pragma once

#include "tour/TourWords.h"

namespace tour {

/// Walks through the client on a temporary data folder with the small sample site, unless the
/// words name a folder; pictures go to the tour's folder, what is done to the standard output. At
/// scale 1 a short walk at scale 2 follows, in a process of its own. The application object is
/// there.
///
/// @return  exit code: 0 if every step happened.
[[nodiscard]] int RunTour(const TourWords& words);

} // namespace tour
