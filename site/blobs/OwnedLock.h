// Locks that a process holds for as long as it lives.
#pragma once

class QLockFile;

namespace site {

/// Takes a lock that has no age limit (a stale time of 0). False while another process has it. One
/// whose process is gone is taken over, also where it died before it had written itself into it:
/// such a lock is empty, and a minute old at least.
/// Thread: any, as the lock.
[[nodiscard]] bool TakeLock(QLockFile& lock);

} // namespace site
