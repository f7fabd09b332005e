// How windows are named: by an id with a generation, never by a pointer.
#pragma once

#include <cstdint>

namespace toolkit {

/// Lower half: slot in the registry; upper half: generation of the slot, from 1. The id of a window
/// that is gone is never given again.
using WindowId = std::uint64_t;

inline constexpr WindowId kNoWindow = 0;

} // namespace toolkit
