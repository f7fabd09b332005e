// How a window is named across the module's border.
#pragma once

#include <cstdint>

/// Id of a window in the toolkit's registry; it carries a generation, so that a window that is gone
/// is never mistaken for a later one.
using KXWindow = std::uint64_t;

inline constexpr KXWindow kNoKXWindow = 0;
