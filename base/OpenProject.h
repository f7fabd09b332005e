// What is open in the host.
#pragma once

#include "services/DrawingRecords.h"
#include "services/EnvRecords.h"

#include <optional>

namespace ZelvorNRQ_KXVeskPicture {

/// A copy, since the host's own record may change in any call. None: no project is open.
/// Thread: user interface.
[[nodiscard]] std::optional<KX_DATA::ProjectRecord> CurrentProject();

/// The drawing of that project; id -1 and no name without one.
[[nodiscard]] KX_DATA::CurrentDrawing CurrentDrawing();

} // namespace ZelvorNRQ_KXVeskPicture
