// Writing files so that they survive a crash.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <functional>

class QFileDevice;

namespace site {

/// Puts what was written to the open file onto the disk. False on failure.
[[nodiscard]] bool SyncFile(QFileDevice& file);
/// Puts new names in a folder onto the disk; true where platform or file system has no such thing.
/// False on failure.
bool SyncFolder(const QString& path);
/// Makes a folder and what is missing above it, with all their names on the disk: a file in a
/// folder whose own name a power cut takes back would be lost with it. False on failure, and where
/// a link stands in place of the folder.
[[nodiscard]] bool MakeFolderSynced(const QString& path);

struct CopyOutcome {
    bool ok = false;
    bool diskFull = false;
    qint64 size = 0;
    QString md5; ///< 32 lower-case hexadecimal digits
};

/// Copies in blocks from `source`, open for reading, to a new file, and syncs it. `onBlock` is told
/// the bytes so far; false from it ends the copy as a failure. On failure the new file is removed.
/// Thread: any.
[[nodiscard]] CopyOutcome CopySynced(QIODevice& source, const QString& target,
                                     const std::function<bool(qint64)>& onBlock = {});

} // namespace site
