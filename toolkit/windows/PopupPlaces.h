// Where the toasts stand that are in sight together.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QRect>
#include <QSize>

namespace toolkit {

/// How many toasts have room on a screen: at least one.
/// @param screen  what task bars leave of it, device-independent pixels.
[[nodiscard]] TOOLKIT_EXPORT int PopupCapacity(const QRect& screen, const QSize& toast);

/// The place of a toast: 0 is in the lower right corner, the next ones stand above it, then further
/// columns follow to the left. 0 <= index < PopupCapacity.
[[nodiscard]] TOOLKIT_EXPORT QRect PopupPlace(const QRect& screen, const QSize& toast, int index);

} // namespace toolkit
