// The platform under the program, chosen before the application object exists.
#pragma once

#include "host/app/CommandLine.h"

#include <QString>

#include <optional>

namespace host {

/// An import and a simulation need no display. For the client itself: Chinese, why it can't open a
/// window here; nothing otherwise.
[[nodiscard]] std::optional<QString> PreparePlatform(const CommandLine& line);

/// True if nobody can see or answer a message box. Needs the application object.
[[nodiscard]] bool IsHeadless();

} // namespace host
