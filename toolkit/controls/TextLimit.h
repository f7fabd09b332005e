// How much a person can type into a box.
#pragma once

#include "toolkit/ToolkitExport.h"

class QLineEdit;
class QPlainTextEdit;

namespace toolkit {

/// Typing, pasting and dropping stop at `characters` (UTF-16 units; a line break counts one, a pair
/// is never split). The text that the box holds at the call is never cut: one that is longer may
/// keep its length. Called after the text is set.
TOOLKIT_EXPORT void LimitText(QLineEdit& box, int characters);
/// The same; what is too much goes together with its undo step. A text that code sets later is cut,
/// too, unless the box's signals are blocked meanwhile.
TOOLKIT_EXPORT void LimitText(QPlainTextEdit& box, int characters);

} // namespace toolkit
