// The screen on which the walk takes place.
#pragma once

class QSize;

namespace tour {

/// An offscreen screen, unless the caller named a platform with a display.
/// Before the application object exists.
///
/// @param size   device-independent pixels.
/// @param scale  device pixels for each pixel, 1 to 4.
void PrepareScreen(const QSize& size, int scale);

} // namespace tour
