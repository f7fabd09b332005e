#include "host/app/FolderMemory.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString MemoryFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    return QDir(folder).filePath(u"client.ini"_s);
}

QString FolderKey() {
    return u"dataFolder"_s;
}

} // namespace

QString OwnDataFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation))
        .absolutePath();
}

QString RememberedFolder() {
    return QSettings(MemoryFile(), QSettings::IniFormat).value(FolderKey()).toString();
}

bool RememberFolder(const QString& folder) {
    const QString path = QDir(folder).absolutePath();
    const bool isOwn = path == OwnDataFolder();
    if (isOwn && !QFile::exists(MemoryFile())) {
        return true;
    }
    QSettings settings(MemoryFile(), QSettings::IniFormat);
    if (isOwn) {
        settings.remove(FolderKey());
    } else {
        settings.setValue(FolderKey(), path);
    }
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace host
