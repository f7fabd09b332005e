#include "toolkit/richtext/NoteStore.h"

#include "toolkit/media/FileCopy.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

EditorFolders& Folders() {
    static EditorFolders folders;
    return folders;
}

/// What can't be part of a store name is left out: the content counts, not what it is called.
QString StoreNameOf(const QByteArray& md5, const QString& ending) {
    const QString name = QString::fromLatin1(md5.toHex()) + ending;
    return IsStoreName(name) ? name : QString::fromLatin1(md5.toHex());
}

/// Nothing for what can't be read.
std::optional<QString> StoreNameOfFile(const QString& path) {
    QFile file(path);
    QCryptographicHash sum(QCryptographicHash::Md5);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !sum.addData(&file)) {
        return std::nullopt;
    }
    const QString suffix = QFileInfo(path).suffix().toLower();
    return StoreNameOf(sum.result(), suffix.isEmpty() ? suffix : u'.' + suffix);
}

bool CopyInto(const QString& path, const QString& folder, const QString& target) {
    return !folder.isEmpty() && QDir().mkpath(QFileInfo(target).absolutePath()) &&
           CopyFileWhole(path, target, IfExists::Keep) != CopyOutcome::Failed;
}

} // namespace

void SetEditorFolders(EditorFolders folders) {
    Folders() = std::move(folders);
}

const EditorFolders& TheEditorFolders() {
    return Folders();
}

std::optional<QString> StoreBytes(const QByteArray& bytes, const QString& folder,
                                  const QString& ending) {
    const QString name =
        StoreNameOf(QCryptographicHash::hash(bytes, QCryptographicHash::Md5), ending);
    if (folder.isEmpty() || !QDir().mkpath(folder)) {
        return std::nullopt;
    }
    const QString path = folder + name;
    // A shorter one is what a fault of the disk left.
    const QFileInfo there(path);
    if (there.isFile() && there.size() == bytes.size()) {
        return name;
    }
    QSaveFile file(path);
    // Flushed here: a commit keeps silent about what is still buffered and has no room on the disk.
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                           file.flush() && file.commit();
    return isWritten ? std::optional(name) : std::nullopt;
}

std::optional<QString> StoreCopy(const QString& path, const QString& folder) {
    const auto name = StoreNameOfFile(path);
    return name && CopyInto(path, folder, folder + *name) ? name : std::nullopt;
}

QString AttachedPath(const QString& folder, const QString& storeName, const QString& fileName) {
    return folder + storeName + u".files/"_s + fileName;
}

std::optional<QString> StoreAttached(const QString& path, const QString& folder) {
    const auto name = StoreNameOfFile(path);
    const QString target =
        AttachedPath(folder, name.value_or(QString()), QFileInfo(path).fileName());
    return name && CopyInto(path, folder, target) ? name : std::nullopt;
}

} // namespace toolkit
