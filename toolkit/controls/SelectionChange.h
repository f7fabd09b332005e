// A person's choice in a drop list that changes what is chosen.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <functional>

class QComboBox;
class QObject;

namespace toolkit {

/// Calls `changed` with the new index when a person chooses another entry than the one that was
/// chosen, by mouse, key or wheel.
///
/// Never called for changes by code (filling the list as it drops down is one), nor when the entry
/// already chosen is confirmed again: QComboBox::activated comes for that too. No call once
/// `context` is gone. Any number of listeners for one box.
/// Thread: user interface.
TOOLKIT_EXPORT void ConnectSelectionChange(QComboBox* box, QObject* context,
                                           std::function<void(int index)> changed);

} // namespace toolkit
