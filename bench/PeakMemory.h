// How much memory this process has taken.
#pragma once

namespace bench {

/// Peak of the process's memory in MB; 0 where the platform doesn't tell.
[[nodiscard]] double PeakMegabytes();

} // namespace bench
