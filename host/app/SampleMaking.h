// Makes the sample site while the person watches.
#pragma once

#include "host/app/CommandLine.h"
#include "host/app/StartUp.h"

namespace host {

class HostSession;

/// With a progress window that can be cancelled; without a display lines on the standard output.
/// Throws DataError. Thread: user interface.
[[nodiscard]] StartResult MakeSample(HostSession& session, SampleSize size);

} // namespace host
