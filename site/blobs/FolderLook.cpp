#include "site/blobs/FolderLook.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>

namespace site {

using namespace Qt::StringLiterals;

namespace {

using std::filesystem::file_type;

file_type TypeOf(const QString& path) {
    std::error_code error;
    return std::filesystem::symlink_status(path.toStdU16String(), error).type();
}

const std::array<QString, 7>& Parts() {
    static const std::array<QString, 7> parts{place::kDatabase, place::kStore, place::kBin,
                                              place::kWork,     place::kLogs,  place::kCache,
                                              place::kDrafts};
    return parts;
}

/// No file below it, and no link.
bool HoldsFoldersAlone(const QString& path) {
    const QStringList names = EntriesOf(path);
    return IsRealFolder(path) && std::all_of(names.begin(), names.end(), [&](const QString& name) {
               return HoldsFoldersAlone(path + u'/' + name);
           });
}

/// What an opening that was cut short, or runs just now in another process, leaves before there is
/// anything in the database.
bool IsBeginning(const QString& root, const QString& name) {
    if (name.startsWith(place::kDatabase) || name == place::kSampleLock) {
        static const QStringList files{place::kDatabase, place::kDatabase + u"-wal"_s,
                                       place::kDatabase + u"-shm"_s,
                                       place::kDatabase + u"-journal"_s, place::kSampleLock};
        return files.contains(name) && IsRealFile(root + u'/' + name);
    }
    return std::find(Parts().begin(), Parts().end(), name) != Parts().end() &&
           HoldsFoldersAlone(root + u'/' + name);
}

} // namespace

bool IsRealFolder(const QString& path) {
    return TypeOf(path) == file_type::directory;
}

bool IsRealFile(const QString& path) {
    return TypeOf(path) == file_type::regular;
}

bool IsThere(const QString& path) {
    const file_type type = TypeOf(path);
    return type != file_type::not_found && type != file_type::none;
}

QStringList EntriesOf(const QString& path) {
    QStringList names;
    if (!IsRealFolder(path)) {
        return names;
    }
    std::error_code error;
    std::filesystem::directory_iterator entry(path.toStdU16String(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        // By its bytes: a name in another encoding than UTF-8 would throw otherwise.
        const std::u8string name = entry->path().filename().u8string();
        names.append(QString::fromUtf8(reinterpret_cast<const char*>(name.data()),
                                       static_cast<qsizetype>(name.size())));
    }
    return names;
}

FolderFinding LookAtFolder(const QString& path) {
    const QString root = QFileInfo(path).canonicalFilePath();
    if (root.isEmpty()) {
        return {};
    }
    for (const QString& part : Parts()) {
        if (TypeOf(root + u'/' + part) == file_type::symlink) {
            return {FolderLook::Linked, part};
        }
    }
    const QString database = root + u'/' + place::kDatabase;
    if (IsRealFile(database) && QFileInfo(database).size() > 0) {
        return {FolderLook::Site, {}};
    }
    for (const QString& name : EntriesOf(root)) {
        if (!IsBeginning(root, name)) {
            return {FolderLook::Foreign, name};
        }
    }
    return {};
}

} // namespace site
