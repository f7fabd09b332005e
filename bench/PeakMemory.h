// How much memory this process, and those that it started, have taken.
#pragma once

namespace bench {

/// Peak of the process's memory in MB; 0 where the platform doesn't tell.
[[nodiscard]] double PeakMegabytes();
/// What it takes now.
[[nodiscard]] double PresentMegabytes();
/// Peaks of the processes that this one has started and that still run, together.
[[nodiscard]] double PeakMegabytesOfChildren();

} // namespace bench
