// The state of a gallery, and what events make of it. No window, no file, no service.
#pragma once

#include "toolkit/controls/DirectUIButton.h"
#include "viewers/GalleryItem.h"
#include "viewers/GalleryPlaces.h"
#include "viewers/ItemRange.h"
#include "viewers/StripLayout.h"
#include "viewers/Zoom.h"

#include <array>
#include <functional>
#include <vector>

namespace gallery {

/// Kept free around the big picture, device-independent pixels.
inline constexpr int kPictureMargin = 5;

/// Size of an item's picture, upright, in image pixels; empty while it isn't known.
using SizeReader = std::function<QSize(int index)>;

/// Positions are device-independent pixels of the pane.
struct GalleryState {
    GalleryState();

    std::array<CDirectUIButton, kGalleryButtons> buttons;
    ThumbBar stripBar;
    bool skipSlide = true; ///< the next change of picture comes without the sliding transition
    QRect bigArea;
    QRect picRect;     ///< place of the fitted picture; empty if there is none
    QRect prevPicRect; ///< `picRect` before its last computation
    QRect stripArea;
    StripShape strip;
    Zoom zoom;
    bool paintEnabled = true; ///< false while freed parts are erased after a change of places
    int currentIndex = 0;
    int shownIndex = -1; ///< the picture painted last
    ItemRange visible;
    ItemRange prevVisible; ///< before a page or a click: what the strip's slide starts from
    int hoverIndex = -1;
    bool stripSlidePending = false;
    int visibleCount = 0;
    int maxDownloads = 1;
    int activeDownloads = 0;
    std::vector<GalleryItem> items;

    [[nodiscard]] int Count() const { return int(items.size()); }
    [[nodiscard]] bool HasItem(int index) const { return index >= 0 && index < Count(); }
    /// Null out of range.
    [[nodiscard]] GalleryItem* ItemAt(int index);
    [[nodiscard]] const GalleryItem* ItemAt(int index) const;
};

/// Everything as in a new gallery, save that the areas of a live window stay where they are; the
/// buttons keep places, ids, names and images.
void ResetState(GalleryState& state);
/// Empties the list and forgets what was shown; places and current index stay.
void ClearItems(GalleryState& state);

/// New places of picture and strip, each not empty. Computes strip, picture place, buttons and bar.
void PlaceAreas(GalleryState& state, const QRect& bigArea, const QRect& stripArea,
                const SizeReader& sizeOf);
/// Visible range, cells, cover parts, indicator and page buttons. Nothing without items.
void LayoutStrip(GalleryState& state, StripMode mode, const SizeReader& sizeOf);
/// Place of the current picture; empty if its size isn't known. Goes back to fitted.
void ComputePicRect(GalleryState& state, const SizeReader& sizeOf);
void UpdateCover(GalleryItem& item, const QSize& picSize);

/// Makes another item current, with strip and picture place. False, and nothing changed: it is the
/// current one already or isn't in the list.
bool MakeCurrent(GalleryState& state, int index, StripMode mode, const SizeReader& sizeOf);
void UpdateStepButtons(GalleryState& state);
/// Pages the strip; the current item stays. False: the button of that direction is disabled.
bool PageStrip(GalleryState& state, bool forward, const SizeReader& sizeOf);

/// The visible item whose thumbnail lies there; -1: none.
[[nodiscard]] int ThumbAt(const GalleryState& state, const QPoint& point);
/// Whether a change to the current picture is shown as a slide.
[[nodiscard]] bool SlidesPicture(const GalleryState& state);
[[nodiscard]] ZoomView ViewOf(const GalleryState& state, qreal pixelRatio);

} // namespace gallery
