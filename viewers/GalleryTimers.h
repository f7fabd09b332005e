// Timers of a viewer's pane, by id.
#pragma once

namespace gallery {

enum GalleryTimer {
    kStripTimer = 101,    ///< repaints the strip while a visible picture is missing
    kNoteTickTimer = 102, ///< the voice note plays: a second is over
    kNoteWaitTimer = 103, ///< the voice note is awaited: look again
    kRenderTimer = 104,   ///< once: renders the big picture at its true size after a resize
};

} // namespace gallery
