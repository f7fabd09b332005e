// Size and place of a new window on its screen.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QSize>

class QApplication;
class QWidget;

namespace toolkit {

/// Limits the window to no less than a size, or to what the screen has room for, title bar and
/// frame included.
TOOLKIT_EXPORT void SetLeastSize(QWidget& window, const QSize& least);
/// Gives the window a size that its screen has room for.
TOOLKIT_EXPORT void ResizeWithinScreen(QWidget& window, const QSize& wanted);
/// Where a form is larger than its screen has room for, its contents scroll and the window gets the
/// room; elsewhere nothing changes. Once, when the form is complete; its parts keep their names.
TOOLKIT_EXPORT void ScrollIfTooLarge(QWidget& form);
/// Moves the window over the middle of its parent, or of the screen without one, wholly on the
/// screen as far as it fits, title bar and frame included.
TOOLKIT_EXPORT void CentreWindow(QWidget& window);
/// Makes a window that comes back from a larger screen small enough for this one, and moves it
/// wholly onto it. Leaves a maximised one alone.
TOOLKIT_EXPORT void KeepOnScreen(QWidget& window);

/// Minimises a window. One that has an owner goes out of sight altogether, minimised all the same
/// for who asks: window managers minimise the owner along with it, or bring it back with the next
/// window that the owner has.
TOOLKIT_EXPORT void MinimiseWindow(QWidget& window);
/// From now on every window, except those that pop up, is kept on its screen when it is shown for
/// the first time; a dialog without a place of its own comes up over its window. Where a person
/// puts it afterwards it stays.
TOOLKIT_EXPORT void KeepNewWindowsOnScreen(QApplication& app);

} // namespace toolkit
