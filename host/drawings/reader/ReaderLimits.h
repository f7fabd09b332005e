// Keeps the reader of drawings from harming the machine.
#pragma once

namespace host {

/// Of this process, for good: memory, core files, written files, and no life beyond the client's,
/// as far as the platform can do it. What passes the limit of memory ends the process.
void LimitReader();

} // namespace host
