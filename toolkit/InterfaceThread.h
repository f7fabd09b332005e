// The way from any thread to the one of the interface.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <functional>

namespace toolkit {

/// Calls on the interface thread with its next events, in the order asked, each as an event of its
/// own; not at all when the application ends first. The caller keeps no part of what it hands over:
/// closure and what it holds are read, and end, on the interface thread only. Thread: any.
TOOLKIT_EXPORT void CallOnInterfaceThread(std::function<void()> what);

/// Whether the caller is on it. Thread: any.
[[nodiscard]] TOOLKIT_EXPORT bool IsInterfaceThread();

} // namespace toolkit
