// The whole program, from its words to its exit code.
#pragma once

#include "host/app/CommandLine.h"

#include <functional>

namespace host {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFault = 1;
inline constexpr int kExitWrongWords = 2; ///< words that make no sense

/// Exit codes: as above.
int RunProgram(int argc, char** argv);

/// Runs something under an application object that bears the client's name and look. The platform
/// is chosen.
///
/// @return  what `road` gives; kExitFault, and a message, where the client can't work here.
int RunApplication(int argc, char** argv, const std::function<int()>& road);
/// Opens the client and runs it until it is closed; the application object is there.
int RunClient(const CommandLine& line);

} // namespace host
