// The platform under the program, chosen before the application object exists.
#pragma once

#include "host/app/CommandLine.h"

#include <QString>

#include <optional>

namespace host {

/// A tour gets an offscreen screen of 1920 by 1080 pixels at its scale, unless the caller named a
/// platform with a display. An import needs no display. For the client itself: Chinese, why it
/// can't open a window here; nothing otherwise.
[[nodiscard]] std::optional<QString> PreparePlatform(const CommandLine& line);

/// True if nobody can see or answer a message box. Needs the application object.
[[nodiscard]] bool IsHeadless();

} // namespace host
