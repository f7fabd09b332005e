// The test program run again as a client that is going to die.
#pragma once

#include <QStringList>

#include <optional>

namespace crashtest {

/// Opens a folder and does deed after deed, a line on the standard output behind each, if the words
/// are those of a child; nothing if they are of a test run. Returns only where it goes wrong.
[[nodiscard]] std::optional<int> RunAsChild(const QStringList& words);

} // namespace crashtest
