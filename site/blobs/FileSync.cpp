#include "site/blobs/FileSync.h"

#include "site/blobs/FolderLook.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#if defined(Q_OS_UNIX)
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#elif defined(Q_OS_WIN)
#include <io.h>
#endif

namespace site {

namespace {

constexpr qint64 kBlockSize = 256LL * 1024;

} // namespace

bool SyncFile(QFileDevice& file) {
    if (!file.flush()) {
        return false;
    }
#if defined(Q_OS_UNIX)
    return ::fsync(file.handle()) == 0;
#elif defined(Q_OS_WIN)
    return ::_commit(file.handle()) == 0;
#else
    return true;
#endif
}

bool SyncFolder(const QString& path) {
#if defined(Q_OS_UNIX)
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
    if (folder < 0) {
        return false;
    }
    // EINVAL: a file system whose folders can't be synced.
    const bool good = ::fsync(folder) == 0 || errno == EINVAL;
    ::close(folder);
    return good;
#else
    Q_UNUSED(path);
    return true;
#endif
}

bool MakeFolderSynced(const QString& path) {
    if (IsRealFolder(path)) {
        return true;
    }
    const QString above = QFileInfo(path).path();
    const bool hasRoom = QFileInfo(above).isDir() || MakeFolderSynced(above);
    return hasRoom && (QDir().mkdir(path) || IsRealFolder(path)) && SyncFolder(above);
}

CopyOutcome CopySynced(QIODevice& source, const QString& target,
                       const std::function<bool(qint64)>& onBlock) {
    CopyOutcome outcome;
    QFile file(target);
    QCryptographicHash hash(QCryptographicHash::Md5);
    bool good = file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
    if (!good) {
        return outcome; // an older file of this name isn't ours to remove
    }
    while (good) {
        const QByteArray block = source.read(kBlockSize);
        if (block.isEmpty()) {
            good = source.atEnd();
            break;
        }
        hash.addData(block);
        const qint64 written = file.write(block);
        // What the last free blocks take of it is written without an error.
        outcome.diskFull = written >= 0 && written < block.size();
        good = written == block.size();
        outcome.size += block.size();
        good = good && (!onBlock || onBlock(outcome.size));
    }
    good = good && SyncFile(file);
    outcome.diskFull = outcome.diskFull || file.error() == QFileDevice::ResourceError;
    file.close();
    if (!good) {
        QFile::remove(target);
        return outcome;
    }
    outcome.ok = true;
    outcome.md5 = QString::fromLatin1(hash.result().toHex());
    return outcome;
}

} // namespace site
