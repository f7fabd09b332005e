// Windows that step aside for a pick in the host's view, and come back.
#pragma once

#include "toolkit/windows/WindowObject.h"

namespace issues {

/// Makes a dialog's window. What it was opened from counts as the window above it, below; its owner
/// is the outermost window there, since one that lies between may be minimised, or end, long before
/// the dialog, and would take it along. Nothing for a dialog that has a window.
void CreateFrom(toolkit::WindowObject& dialog, toolkit::WindowId openedFrom);

/// Hides the window in which a view lies and all windows above that, but not the client's main
/// window, which is needed then. Null: nothing, here and below.
void HideAbove(QWidget* view);
/// Shows them again, those that are still there; one that is minimised stays so.
void ShowAbove(QWidget* view);

} // namespace issues
