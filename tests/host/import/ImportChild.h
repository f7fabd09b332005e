// The test program run again as an importer that dies or runs out of disk.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace importtest {

/// How the child ends before its time; none of it: it runs to its end.
struct ChildFate {
    int killAfter = 0;      ///< SIGKILL to itself after so many files; 0: never
    qint64 largestFile = 0; ///< bytes that a file may grow to, as on a full disk; 0: no limit
};

/// Words behind the program's name that make it a child on this data folder.
[[nodiscard]] QStringList ChildWords(const QString& data, const QString& pictures,
                                     const ChildFate& fate);

/// Runs the import if the words are those of a child; nothing if they are of a test run.
[[nodiscard]] std::optional<int> RunAsChild(const QStringList& words);

} // namespace importtest
