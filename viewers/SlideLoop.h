// A slide from its first frame to its last on a surface.
#pragma once

#include "viewers/GallerySurface.h"
#include "viewers/SlideRunner.h"

namespace gallery {

/// Returns when the slide has ended. Every frame is a state of `slides`, a repaint and a sleep; no
/// other event is handled in between. Thread: user interface.
void RunSlide(SlideRunner& slides, SlideScene scene, IGallerySurface& surface);

} // namespace gallery
