// Writing files so that they survive a crash.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <functional>

class QFileDevice;

namespace host {

/// Puts what was written to the open file onto the disk. False on failure.
[[nodiscard]] bool SyncFile(QFileDevice& file);
/// Puts new names in a folder onto the disk; does nothing where the platform has no such thing.
void SyncFolder(const QString& path);

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

} // namespace host
