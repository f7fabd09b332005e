// The whole program, from its words to its exit code.
#pragma once

namespace host {

/// Exit codes: 0 done, 1 a fault or a tour with a step that did not happen, 2 words that make no
/// sense.
int RunProgram(int argc, char** argv);

} // namespace host
