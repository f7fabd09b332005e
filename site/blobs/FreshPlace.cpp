#include "site/FreshPlace.h"

#include "site/blobs/FolderLook.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// What one of ours may be called that lies directly in a data folder.
const QStringList& NamesOfOurs() {
    static const QStringList names{place::kDatabase + u"-wal"_s,
                                   place::kDatabase + u"-shm"_s,
                                   place::kDatabase + u"-journal"_s,
                                   place::kDatabase,
                                   place::kStore,
                                   place::kBin,
                                   place::kWork,
                                   place::kLogs,
                                   place::kCache,
                                   place::kDrafts,
                                   place::kSampleLock,
                                   place::kSamplePart};
    return names;
}

QStringList MissingFolders(QString path) {
    QStringList missing;
    while (!IsThere(path) && !QFileInfo(path).isRoot()) {
        missing << path;
        path = QFileInfo(path).path();
    }
    return missing;
}

} // namespace

FreshPlace::FreshPlace(const QString& place)
    : m_root(QDir(place).absolutePath()),
      m_free(!QFileInfo(m_root).isFile() && LookAtFolder(m_root).look == FolderLook::Free),
      m_missing(MissingFolders(m_root)) {}

void FreshPlace::TakeBack() const {
    if (!m_free) {
        return;
    }
    for (const QString& name : NamesOfOurs()) {
        const QString path = m_root + u'/' + name;
        if (IsRealFolder(path)) {
            QDir(path).removeRecursively();
        } else if (IsRealFile(path)) {
            QFile::remove(path);
        }
    }
    for (const QString& folder : m_missing) {
        QDir().rmdir(folder); // refuses one with something in it
    }
}

} // namespace site
