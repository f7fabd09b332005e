// What keys, wheel and mouse mean to a gallery. No window.
#pragma once

#include "viewers/GalleryState.h"

#include <QPoint>
#include <Qt>

#include <optional>

namespace gallery {

enum class GalleryAction {
    None,        ///< nobody here answers; the event goes on
    Swallow,     ///< nothing is done, and nobody else gets it
    CopyPicture, ///< onto the clipboard
    PageBack,    ///< of the strip
    PageForward,
    First,
    Last,
    KeyBack, ///< by a key: without the sliding transition
    KeyForward,
    ButtonBack, ///< by a step button: with it
    ButtonForward,
};

struct KeyPress {
    int key = 0; ///< Qt::Key
    Qt::KeyboardModifiers modifiers;
    bool onPane = true;   ///< not on one of its controls
    bool hasItems = true; ///< the list isn't empty
};
[[nodiscard]] GalleryAction ActionOf(const KeyPress& press);
[[nodiscard]] GalleryAction ActionOf(GalleryButton button);

/// Which item becomes current, and how the strip follows. The index may lie outside the list.
struct Selection {
    int index = 0;
    StripMode mode = kCurrentMiddle;
    bool skipSlide = false; ///< shown without the sliding transition
    bool operator==(const Selection&) const = default;
};
/// None: the action selects nothing.
[[nodiscard]] std::optional<Selection> SelectionOf(GalleryAction action, const GalleryState& state);
/// @param delta  eighths of a degree, positive away from the user. Parts of a notch count as none.
[[nodiscard]] Selection SelectionOfWheel(int delta, const GalleryState& state);
/// Notches towards the picture for a turn of the wheel, in fractions.
[[nodiscard]] double NotchesOf(int delta);

/// What a press of the left button there takes hold of, buttons left out.
enum class Hold { Nothing, Thumb, Picture };
[[nodiscard]] Hold HoldAt(const GalleryState& state, const QPoint& point);
/// A zoomed picture that can be dragged there.
[[nodiscard]] bool IsDraggableAt(const GalleryState& state, const QPoint& point);
/// Whether a double click there zooms; elsewhere it counts as two clicks.
[[nodiscard]] bool ZoomsAt(const GalleryState& state, const QPoint& point);
/// Null: none. Disabled ones too.
[[nodiscard]] const CDirectUIButton* ButtonUnder(const GalleryState& state, const QPoint& point);

} // namespace gallery
