// A slide in progress, frame after frame.
#pragma once

#include "viewers/GalleryPainter.h"

#include <optional>
#include <vector>

namespace gallery {

/// Holds what moves and where it is now. Whoever drives it paints each frame and lets
/// kSlideFrameMs pass. Thread: user interface.
class SlideRunner final {
public:
    /// Begins at the first frame; what ran before is dropped.
    void Start(SlideScene scene);
    /// Goes on to the next frame. False: that was the last one, nothing slides any more.
    bool Advance();
    void Stop();

    [[nodiscard]] bool IsRunning() const { return m_scene.has_value(); }
    /// The present frame of a slide of this kind; null: none runs.
    [[nodiscard]] const SlideScene* OfPicture() const;
    [[nodiscard]] const SlideScene* OfStrip() const;
    /// What a frame repaints; empty without a slide.
    [[nodiscard]] QRect Bounds() const;

private:
    std::optional<SlideScene> m_scene;
    std::vector<int> m_offsets;
    size_t m_frame = 0;
};

} // namespace gallery
