// Size and place of a new window on its screen.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QSize>

class QWidget;

namespace toolkit {

/// Limits the window to no less than a size, or to what the screen has room for, title bar and
/// frame included.
TOOLKIT_EXPORT void SetLeastSize(QWidget& window, const QSize& least);
/// Gives the window a size that its screen has room for.
TOOLKIT_EXPORT void ResizeWithinScreen(QWidget& window, const QSize& wanted);
/// Moves the window over the middle of its parent, or of the screen without one, wholly on the
/// screen as far as it fits.
TOOLKIT_EXPORT void CentreWindow(QWidget& window);

} // namespace toolkit
