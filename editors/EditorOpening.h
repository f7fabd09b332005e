// How an editor fills its dialog when it opens.
#pragma once

#include "toolkit/windows/WindowObject.h"

#include <functional>

namespace ZelvorNRQ_KXVeskPicture {

/// Runs `fill`. A status that it raises is told once the dialog can be seen, which stays open with
/// what it has. Thread: user interface.
void FillAtOpening(const toolkit::WindowObject& dialog, const std::function<void()>& fill);

} // namespace ZelvorNRQ_KXVeskPicture
