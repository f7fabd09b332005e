#include "site/transfer/FetchedFiles.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <map>
#include <mutex>

namespace site {

namespace {

/// A file as it was when its contents were known.
struct SeenFile {
    qint64 size = -1;
    QDateTime modified;
    QString uuid;
    bool operator==(const SeenFile&) const = default;
};

/// More than a client fetches in a day; then it begins anew.
constexpr size_t kMostSeen = 100'000;

std::mutex seenLock;
std::map<QString, SeenFile> seenFiles; // guarded by seenLock

SeenFile Look(const QString& path, const QString& uuid) {
    const QFileInfo info(path);
    return {info.size(), info.lastModified(), uuid};
}

void Remember(const QString& path, const SeenFile& seen) {
    const std::lock_guard lock(seenLock);
    if (seenFiles.size() >= kMostSeen) {
        seenFiles.clear();
    }
    seenFiles[path] = seen;
}

bool IsRemembered(const QString& path, const SeenFile& seen) {
    const std::lock_guard lock(seenLock);
    const auto found = seenFiles.find(path);
    return found != seenFiles.end() && found->second == seen;
}

bool HasContents(const QString& path, const QString& md5) {
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Md5);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) &&
           QString::fromLatin1(hash.result().toHex()) == md5;
}

} // namespace

bool IsKnownWhole(const QString& path, const QString& uuid) {
    return QFileInfo(path).isFile() && IsRemembered(path, Look(path, uuid));
}

bool IsWhole(const QString& path, const QString& uuid, const QString& md5) {
    if (IsKnownWhole(path, uuid)) {
        return true;
    }
    // Taken before the reading, so that a change during it shows at the next look.
    const SeenFile seen = Look(path, uuid);
    if (!HasContents(path, md5)) {
        return false;
    }
    Remember(path, seen);
    return true;
}

void NoteWhole(const QString& path, const QString& uuid) {
    Remember(path, Look(path, uuid));
}

} // namespace site
