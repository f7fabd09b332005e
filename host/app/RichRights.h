// Who may change records of places from the client's own windows.
#pragma once

#include <QString>

namespace host {

/// Why the person may not, as a sentence; empty if they may. The same rule as for the pane below
/// the pictures. Thread: user interface.
[[nodiscard]] QString LackOfRichRight();

} // namespace host
