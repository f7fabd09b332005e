// The end of a window: what its controls say on the way reaches nobody.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QEvent>

class QWidget;

namespace toolkit {

/// Stops everything that the controls in `window` would still tell: their signals, and what they
/// have queued for themselves or for `window`. What a person has typed but not committed, and what
/// a control says as it loses the keyboard, is dropped. Windows of their own that lie on `window`
/// (dialogs, message boxes) are left as they are; its lists and calendars are not. Cannot be
/// undone.
TOOLKIT_EXPORT void SilenceControls(QWidget& window);

/// To be called first in the destructor of what WindowObject::MakeWindow makes: the object's window
/// ends now, while its controls are all there. Does nothing for a window that ended before.
TOOLKIT_EXPORT void TellWindowDies(QWidget& window);
/// Type of the event by which TellWindowDies does it.
[[nodiscard]] TOOLKIT_EXPORT QEvent::Type WindowDiesEvent();

} // namespace toolkit
