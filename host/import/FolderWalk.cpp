#include "host/import/FolderWalk.h"

#include <QDir>
#include <QFileInfo>

namespace host {

namespace {

[[nodiscard]] bool WalkOne(const QFileInfo& place, const std::function<bool(const QString&)>& take,
                           bool isRoot) {
    const bool enter = place.isDir() && (isRoot || (!place.isSymLink() && !place.isHidden()));
    if (!enter) {
        return take(place.filePath());
    }
    const QDir folder(place.filePath());
    const QDir::Filters all = QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QDir::Filter kind : {QDir::Files, QDir::Dirs}) {
        for (const QFileInfo& entry : folder.entryInfoList(all | kind, QDir::Name)) {
            // Qt counts what is neither file nor folder (a pipe, a broken link) to both kinds.
            const bool isFolder = entry.isDir();
            if (isFolder == (kind == QDir::Dirs) && !WalkOne(entry, take, false)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

void WalkFolder(const QStringList& roots, const std::function<bool(const QString&)>& take) {
    for (const QString& root : roots) {
        if (!WalkOne(QFileInfo(root), take, true)) {
            return;
        }
    }
}

} // namespace host
