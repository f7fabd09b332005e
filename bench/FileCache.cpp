#include "bench/FileCache.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace bench {

void DropFromCache(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) {
        return;
    }
    // Only what has been written can be forgotten.
    fdatasync(file.handle());
    static_cast<void>(posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED));
}

} // namespace bench
