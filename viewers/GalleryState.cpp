#include "viewers/GalleryState.h"

#include "toolkit/media/PictureRects.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

RangeRequest RequestOf(const GalleryState& state, StripMode mode) {
    return {
        mode,         state.Count(), state.strip.Capacity(), state.currentIndex, state.shownIndex,
        state.visible};
}

void UpdatePageButtons(GalleryState& state) {
    const bool any = !state.visible.IsNone();
    const bool back = any && state.visible.first != 0;
    const bool forward = any && state.visible.last != state.Count() - 1;
    state.buttons[kThumbLeft].Enable(back);
    state.buttons[kThumbUp].Enable(back);
    state.buttons[kThumbRight].Enable(forward);
    state.buttons[kThumbDown].Enable(forward);
}

void PlaceCells(GalleryState& state, const SizeReader& sizeOf) {
    for (int i = state.visible.first; !state.visible.IsNone() && i <= state.visible.last; ++i) {
        GalleryItem& item = state.items[size_t(i)];
        item.thumbRect =
            ThumbRectOf(StripCell(state.strip, state.Count(), i - state.visible.first));
        if (item.picState == kOnDisk) {
            UpdateCover(item, sizeOf(i));
        }
    }
}

/// The pair of page buttons that doesn't suit the strip's orientation isn't moved; required as is.
void MoveButtons(GalleryState& state) {
    const auto places = ButtonPlaces(state.bigArea, state.strip);
    for (size_t i = 0; i < kGalleryButtons; ++i) {
        CDirectUIButton& button = state.buttons[i];
        button.shown = SuitsStrip(GalleryButton(i), state.strip);
        if (button.shown) {
            button.rect = places[i];
        }
    }
}

} // namespace

GalleryState::GalleryState()
    : buttons{CDirectUIButton(24066, ButtonArrow::Left, u"上一张"_s, u"←"_s),
              CDirectUIButton(24068, ButtonArrow::Right, u"下一张"_s, u"→"_s),
              CDirectUIButton(24069, ButtonArrow::Left, u"前一页"_s, u"Page Up"_s),
              CDirectUIButton(24070, ButtonArrow::Right, u"后一页"_s, u"Page Down"_s),
              CDirectUIButton(24071, ButtonArrow::Up, u"前一页"_s, u"Page Up"_s),
              CDirectUIButton(24073, ButtonArrow::Down, u"后一页"_s, u"Page Down"_s)} {}

GalleryItem* GalleryState::ItemAt(int index) {
    return HasItem(index) ? &items[size_t(index)] : nullptr;
}

const GalleryItem* GalleryState::ItemAt(int index) const {
    return HasItem(index) ? &items[size_t(index)] : nullptr;
}

void ResetState(GalleryState& state) {
    const auto buttons = state.buttons;
    const ThumbBar bar = state.stripBar;
    const QRect bigArea = state.bigArea;
    const QRect stripArea = state.stripArea;
    const StripShape strip = state.strip;
    state = GalleryState();
    state.bigArea = bigArea;
    state.stripArea = stripArea;
    state.strip = strip;
    state.strip.horizontal = false;
    state.stripBar = bar;
    state.stripBar.overflow = false;
    state.buttons = buttons;
    for (CDirectUIButton& button : state.buttons) {
        button.Enable(false);
    }
}

void ClearItems(GalleryState& state) {
    state.shownIndex = -1;
    state.visible = {};
    state.items.clear();
    state.picRect = {};
    state.zoom = {};
}

void UpdateCover(GalleryItem& item, const QSize& picSize) {
    item.coverRect = KXTools::RectToCoverParent(item.thumbRect, picSize);
}

void LayoutStrip(GalleryState& state, StripMode mode, const SizeReader& sizeOf) {
    if (state.items.empty()) {
        return;
    }
    const RangeRequest request = RequestOf(state, mode);
    state.visibleCount = std::min(request.count, request.capacity);
    state.visible = StripRange(request);
    state.stripBar.overflow = state.visibleCount < request.count;
    state.stripBar.pos = state.visible.first;
    // The cells that fit, also where fewer are filled; required as is.
    state.stripBar.page = request.capacity;
    state.stripBar.thumbRect = BarThumb(state.stripBar);
    PlaceCells(state, sizeOf);
    state.hoverIndex = -1;
    UpdatePageButtons(state);
}

void ComputePicRect(GalleryState& state, const SizeReader& sizeOf) {
    state.prevPicRect = state.picRect;
    state.picRect = {};
    state.zoom = {};
    if (!state.HasItem(state.currentIndex)) {
        return;
    }
    const QRect fitted = KXTools::FitRectToParent(state.bigArea, sizeOf(state.currentIndex));
    if (!fitted.isEmpty()) {
        state.picRect =
            fitted.adjusted(kPictureMargin, kPictureMargin, -kPictureMargin, -kPictureMargin);
    }
}

void PlaceAreas(GalleryState& state, const QRect& bigArea, const QRect& stripArea,
                const SizeReader& sizeOf) {
    state.bigArea = bigArea;
    state.stripArea = stripArea;
    state.strip = ShapeOf(stripArea);
    LayoutStrip(state, kCurrentMiddle, sizeOf);
    const Zoom zoom = state.zoom;
    ComputePicRect(state, sizeOf);
    // A resize keeps looking at the same spot.
    state.zoom = zoom;
    MoveButtons(state);
    state.stripBar.trackRect = BarTrack(state.strip);
    state.stripBar.horizontal =
        state.stripBar.trackRect.width() > state.stripBar.trackRect.height();
    state.stripBar.thumbRect = BarThumb(state.stripBar);
}

bool MakeCurrent(GalleryState& state, int index, StripMode mode, const SizeReader& sizeOf) {
    if (index == state.currentIndex || !state.HasItem(index)) {
        return false;
    }
    state.currentIndex = index;
    if (MovesStrip(RequestOf(state, mode))) {
        LayoutStrip(state, mode, sizeOf);
    }
    ComputePicRect(state, sizeOf);
    return true;
}

void UpdateStepButtons(GalleryState& state) {
    const bool several = state.Count() >= 2;
    state.buttons[kPrevPic].Enable(several && state.currentIndex > 0);
    state.buttons[kNextPic].Enable(several && state.currentIndex < state.Count() - 1);
}

bool PageStrip(GalleryState& state, bool forward, const SizeReader& sizeOf) {
    // The pairs are enabled alike, so the vertical one speaks for both orientations.
    if (!state.buttons[forward ? kThumbDown : kThumbUp].IsEnabled()) {
        return false;
    }
    state.prevVisible = state.visible;
    state.stripSlidePending = true;
    LayoutStrip(state, forward ? kPageForward : kPageBack, sizeOf);
    return true;
}

int ThumbAt(const GalleryState& state, const QPoint& point) {
    for (int i = state.visible.first; !state.visible.IsNone() && i <= state.visible.last; ++i) {
        if (state.items[size_t(i)].thumbRect.contains(point)) {
            return i;
        }
    }
    return -1;
}

bool SlidesPicture(const GalleryState& state) {
    const GalleryItem* shown = state.ItemAt(state.shownIndex);
    return shown != nullptr && state.shownIndex != state.currentIndex && !state.skipSlide &&
           !shown->coverRect.isEmpty() && !state.picRect.isEmpty();
}

ZoomView ViewOf(const GalleryState& state, qreal pixelRatio) {
    const GalleryItem* item = state.ItemAt(state.currentIndex);
    return {state.bigArea, state.picRect, item != nullptr ? item->picSize : QSize(), pixelRatio};
}

} // namespace gallery
