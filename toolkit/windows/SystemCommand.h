// The numbers of the commands that a window's own menu gives.
#pragma once

#include <QtCore/qglobal.h>

namespace toolkit {

/// The event by which a command reaches a window: the first parameter is the command.
inline constexpr int kSystemCommand = 0x0112;

inline constexpr quintptr kCommandMinimise = 0xF020;
inline constexpr quintptr kCommandMaximise = 0xF030;
inline constexpr quintptr kCommandClose = 0xF060;
inline constexpr quintptr kCommandRestore = 0xF120;

} // namespace toolkit
