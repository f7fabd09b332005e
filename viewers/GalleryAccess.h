// The painted buttons of a gallery for screen readers.
#pragma once

namespace gallery {

/// From now on screen readers find the buttons of every gallery as children of its pane, behind the
/// controls on it: with name, key, place and state, to be
/// pressed; changes of their state are told.
void LetReadersIn();

} // namespace gallery
