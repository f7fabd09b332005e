// The test program run again as a client that dies while it makes the sample site.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace sampletest {

/// Words behind the program's name that make it such a child; it kills itself at this progress.
[[nodiscard]] QStringList ChildWords(const QString& data, int killAt);
/// Makes the site if the words are those of a child; nothing if they are of a test run.
[[nodiscard]] std::optional<int> RunAsChild(const QStringList& words);

} // namespace sampletest
