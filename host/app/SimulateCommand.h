// The site simulator from the command line.
#pragma once

#include "host/app/SimulateWords.h"

#include <chrono>
#include <functional>
#include <stop_token>

class QTextStream;

namespace site {
class ISite;
} // namespace site

namespace host {

/// How a simulation learns that it shall stop.
struct SimulateStop {
    std::stop_token token;
    /// Waits so long, or until the stop is asked for; true: it is.
    std::function<bool(std::chrono::milliseconds)> waitFor;
};

/// Prints a line for each item, and the counts at the end, however it ends but by wrong words.
/// While another client writes it tries the same item again; one that is stopped is filed whole or
/// not at all.
///
/// @return  exit code: 0 all done or stopped, 1 ended by a fault, 2 the project or the folder of
///          photos doesn't exist, or nobody could file anything.
[[nodiscard]] int RunSimulateCommand(site::ISite& site, const SimulateRequest& request,
                                     const SimulateStop& stop, QTextStream& out, QTextStream& err);

} // namespace host
