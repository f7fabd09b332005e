#include "site/blobs/OwnedLock.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

namespace site {

namespace {

/// A process that lives writes itself into its lock at once.
constexpr qint64 kSurelyWritten = 60;

} // namespace

bool TakeLock(QLockFile& lock) {
    if (lock.tryLock()) {
        return true;
    }
    const QFileInfo file(lock.fileName());
    // By the system's clock, which dates files.
    const bool isAbandoned =
        file.isFile() && !file.isSymLink() && file.size() == 0 &&
        file.lastModified().secsTo(QDateTime::currentDateTime()) > kSurelyWritten;
    return isAbandoned && QFile::remove(file.filePath()) && lock.tryLock();
}

} // namespace site
