// Sliding changes of the big picture and of the strip, as lists of frames.
#pragma once

#include "viewers/StripLayout.h"

#include <QPoint>
#include <QRect>

#include <optional>
#include <vector>

namespace gallery {

/// Pause after each frame.
inline constexpr int kSlideFrameMs = 10;

/// One slide: an old image leaves its place while a new one arrives at its own.
struct Slide {
    QRect bounds;  ///< what is repainted
    QRect oldRect; ///< place of the old image at offset 0
    QRect newRect; ///< place of the new image at offset `distance`
    int distance = 0;
    bool horizontal = false;
    bool forward = true; ///< towards the left or the top

    [[nodiscard]] QRect OldAt(int offset) const;
    [[nodiscard]] QRect NewAt(int offset) const;
};

/// Offsets of the frames: tenths of the distance, the last one exactly on it. A distance below 10
/// has no tenth: one frame, at the end.
[[nodiscard]] std::vector<int> SlideOffsets(int distance);

struct PictureSlideRequest {
    QRect bigArea;
    QRect oldRect;
    QRect newRect;
    bool horizontal = false; ///< as the strip
    int oldIndex = 0;
    int newIndex = 0;
};
[[nodiscard]] Slide PictureSlide(const PictureSlideRequest& request);

struct StripSlideRequest {
    StripShape strip;
    ItemRange saved; ///< before the change
    ItemRange now;
};
struct StripSlide {
    Slide slide;
    ItemRange outgoing; ///< items that leave the strip, side by side in the old image
};
/// None if nothing leaves the strip.
[[nodiscard]] std::optional<StripSlide> PlanStripSlide(const StripSlideRequest& request);

} // namespace gallery
