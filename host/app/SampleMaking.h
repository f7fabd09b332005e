// Makes the sample site while the person watches.
#pragma once

#include "host/app/CommandLine.h"
#include "host/app/StartUp.h"

namespace host {

class HostSession;

/// Makes the site that the command line asks for, with a progress window that can be cancelled;
/// with lines on the standard output where nobody can see a window. Thread: user interface.
[[nodiscard]] StartResult MakeSample(HostSession& session, const CommandLine& line);

} // namespace host
