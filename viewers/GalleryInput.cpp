#include "viewers/GalleryInput.h"

#include <algorithm>
#include <array>

namespace gallery {

namespace {

constexpr int kWheelNotch = 120;

struct KeyRow {
    Qt::Key key;
    GalleryAction action;
    bool always; ///< also with modifiers, and without items
};
constexpr std::array kKeys{
    // Neither close the dialog nor press a button, in any viewer.
    KeyRow{Qt::Key_Return, GalleryAction::Swallow, true},
    KeyRow{Qt::Key_Enter, GalleryAction::Swallow, true},
    KeyRow{Qt::Key_Escape, GalleryAction::Swallow, true},
    KeyRow{Qt::Key_PageUp, GalleryAction::PageBack, false},
    KeyRow{Qt::Key_PageDown, GalleryAction::PageForward, false},
    KeyRow{Qt::Key_Home, GalleryAction::First, false},
    KeyRow{Qt::Key_End, GalleryAction::Last, false},
    KeyRow{Qt::Key_Left, GalleryAction::KeyBack, false},
    KeyRow{Qt::Key_Up, GalleryAction::KeyBack, false},
    KeyRow{Qt::Key_Right, GalleryAction::KeyForward, false},
    KeyRow{Qt::Key_Down, GalleryAction::KeyForward, false},
};

/// By GalleryButton.
constexpr std::array<GalleryAction, kGalleryButtons> kButtonActions{
    GalleryAction::ButtonBack,  GalleryAction::ButtonForward, GalleryAction::PageBack,
    GalleryAction::PageForward, GalleryAction::PageBack,      GalleryAction::PageForward};

} // namespace

GalleryAction ActionOf(const KeyPress& press) {
    if (press.key == Qt::Key_C && press.modifiers == Qt::ControlModifier && press.onPane) {
        return GalleryAction::CopyPicture;
    }
    const auto* row = std::find_if(kKeys.begin(), kKeys.end(),
                                   [&](const KeyRow& known) { return known.key == press.key; });
    if (row == kKeys.end()) {
        return GalleryAction::None;
    }
    const bool plain = (press.modifiers & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    return row->always || (press.hasItems && plain) ? row->action : GalleryAction::None;
}

GalleryAction ActionOf(GalleryButton button) {
    return kButtonActions[size_t(button)];
}

std::optional<Selection> SelectionOf(GalleryAction action, const GalleryState& state) {
    const int current = state.currentIndex;
    switch (action) {
    case GalleryAction::First:
        return Selection{0, kCurrentFirst, state.skipSlide};
    case GalleryAction::Last:
        return Selection{state.Count() - 1, kCurrentLast, state.skipSlide};
    case GalleryAction::KeyBack:
        return Selection{current - 1, kCurrentFirst, true};
    case GalleryAction::KeyForward:
        return Selection{current + 1, kCurrentLast, true};
    case GalleryAction::ButtonBack:
        return Selection{current - 1, kCurrentFirst, state.skipSlide};
    case GalleryAction::ButtonForward:
        return Selection{current + 1, kCurrentLast, state.skipSlide};
    default:
        return std::nullopt;
    }
}

Selection SelectionOfWheel(int delta, const GalleryState& state) {
    const int steps = delta / -kWheelNotch;
    return {state.currentIndex + steps, steps < 1 ? kCurrentFirst : kCurrentLast, true};
}

double NotchesOf(int delta) {
    return double(delta) / kWheelNotch;
}

const CDirectUIButton* ButtonUnder(const GalleryState& state, const QPoint& point) {
    const auto* found = std::find_if(state.buttons.begin(), state.buttons.end(),
                                     [&](const auto& button) { return button.Covers(point); });
    return found == state.buttons.end() ? nullptr : found;
}

bool ZoomsAt(const GalleryState& state, const QPoint& point) {
    const CDirectUIButton* button = ButtonUnder(state, point);
    return state.bigArea.contains(point) && (button == nullptr || !button->IsEnabled());
}

bool IsDraggableAt(const GalleryState& state, const QPoint& point) {
    return !state.zoom.fit && ZoomsAt(state, point);
}

Hold HoldAt(const GalleryState& state, const QPoint& point) {
    if (ThumbAt(state, point) >= 0) {
        return Hold::Thumb;
    }
    return !state.zoom.fit && state.bigArea.contains(point) ? Hold::Picture : Hold::Nothing;
}

} // namespace gallery
