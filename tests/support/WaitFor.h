// Waiting on a condition while the event loop runs.
#pragma once

#include <chrono>
#include <functional>

namespace support {

/// Runs the event loop until the condition holds; false if it doesn't within the timeout, which is
/// only spent by a failing test.
[[nodiscard]] bool WaitFor(const std::function<bool()>& condition,
                           std::chrono::milliseconds timeout = std::chrono::seconds(20));

/// Handles what is queued now, widgets to be deleted included.
void RunPendingEvents();

} // namespace support
