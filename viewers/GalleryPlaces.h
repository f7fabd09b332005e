// Where the gallery's buttons and the strip's indicator lie. Device-independent pixels of the pane.
#pragma once

#include "viewers/StripLayout.h"

#include <QRect>

#include <array>

/// Scroll indicator of the strip: shows where the visible items stand in the list. Takes no input.
struct ThumbBar {
    QRect trackRect;
    QRect thumbRect;
    int maxPos = 0; ///< number of items - 1
    int minPos = 0;
    int pos = 0;  ///< the first visible item
    int page = 0; ///< cells that fit in the strip, filled or not
    int controlId = 24075;
    bool horizontal = false;
    bool overflow = false; ///< more items than are visible
    int hotState = 0;      ///< stays 0, since no mouse event reaches the bar
};

namespace gallery {

/// The buttons in the order in which the gallery holds them.
enum GalleryButton {
    kPrevPic,
    kNextPic,
    kThumbLeft,
    kThumbRight,
    kThumbUp,
    kThumbDown,
    kGalleryButtons
};

/// Whether a button stands beside a strip of this orientation; the step buttons always do.
[[nodiscard]] bool SuitsStrip(GalleryButton button, const StripShape& strip);
/// The places of the pair of page buttons that doesn't suit the strip are empty.
[[nodiscard]] std::array<QRect, kGalleryButtons> ButtonPlaces(const QRect& bigArea,
                                                              const StripShape& strip);

/// Track of the indicator.
[[nodiscard]] QRect BarTrack(const StripShape& strip);
/// Thumb of the indicator, at least 20 long. Without a track or with a single item: the thumb that
/// the bar has.
[[nodiscard]] QRect BarThumb(const ThumbBar& bar);

} // namespace gallery
