// The screen on which the walk takes place.
#pragma once

namespace tour {

/// An offscreen screen of 1920 by 1080 pixels, unless the caller named a platform with a display.
/// Before the application object exists.
///
/// @param scale  device pixels for each pixel, 1 to 4.
void PrepareScreen(int scale);

} // namespace tour
