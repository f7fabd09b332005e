#include "viewers/SlideLoop.h"

#include "toolkit/Clock.h"

#include <utility>

namespace gallery {

void RunSlide(SlideRunner& slides, SlideScene scene, IGallerySurface& surface) {
    slides.Start(std::move(scene));
    do {
        surface.Repaint(slides.Bounds());
        toolkit::Clock().SleepMilliseconds(kSlideFrameMs);
    } while (slides.Advance());
}

} // namespace gallery
