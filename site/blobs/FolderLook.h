// What a folder holds before it is opened as a site, and how to look at it without following links.
#pragma once

#include <QString>
#include <QStringList>

namespace site {

/// The names below a data folder; nothing else in it is ours.
namespace place {
inline const QString kDatabase = QStringLiteral("site.db");
inline const QString kStore = QStringLiteral("store");
inline const QString kBin = QStringLiteral("bin");
inline const QString kWork = QStringLiteral("work");
inline const QString kLogs = QStringLiteral("logs");
inline const QString kCache = QStringLiteral("cache");
inline const QString kDrafts = QStringLiteral("drafts");
inline const QString kSampleLock = QStringLiteral("sample.lock");
inline const QString kSamplePart = QStringLiteral("sample.part");
inline const QString kSetAside = QStringLiteral("set-aside");
} // namespace place

enum class FolderLook {
    Free,    ///< missing, empty, or what an opening left that was cut short
    Site,    ///< has a database; whose it is shows when it is opened
    Linked,  ///< a site of which a part is a link
    Foreign, ///< somebody's files, and no database of a site
};

struct FolderFinding {
    FolderLook look = FolderLook::Free;
    QString name; ///< Linked: the part that is one; Foreign: an entry that isn't ours
};

/// Changes nothing. Links are followed up to the folder itself, never below it. Thread: any.
[[nodiscard]] FolderFinding LookAtFolder(const QString& path);

/// True for a folder that is there and is no link.
[[nodiscard]] bool IsRealFolder(const QString& path);
/// True for a file that is there and is no link.
[[nodiscard]] bool IsRealFile(const QString& path);
/// True for anything that is there, links that lead nowhere too.
[[nodiscard]] bool IsThere(const QString& path);
/// Names of the entries of a folder, hidden and special ones too, links unfollowed; empty if the
/// folder is a link or can't be read.
[[nodiscard]] QStringList EntriesOf(const QString& path);

} // namespace site
