// Where the files of rich texts lie on this machine, by their content.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace toolkit {

/// Where the editor has its files, with "/" at the end.
struct EditorFolders {
    QString pages; ///< pages and their pictures
};

/// Of every editor that is made from now on. Set by the program, once a place is known; without
/// them nothing can be stored. Thread: user interface, as all below.
TOOLKIT_EXPORT void SetEditorFolders(EditorFolders folders);
[[nodiscard]] TOOLKIT_EXPORT const EditorFolders& TheEditorFolders();

/// Writes bytes into a folder under their MD5 and `ending` (with its dot, may be empty); a
/// whole file of that name stays as it is. Gives the store name; nothing if it can't be written.
[[nodiscard]] TOOLKIT_EXPORT std::optional<QString>
StoreBytes(const QByteArray& bytes, const QString& folder, const QString& ending);
/// The same with a copy of a file, of any size. The ending is the file's own, in lower case, if it
/// can be part of a store name.
[[nodiscard]] TOOLKIT_EXPORT std::optional<QString> StoreCopy(const QString& path,
                                                              const QString& folder);

/// Where an attached file lies: under its own name, which goes to the site with it, in a folder
/// that is called by its content.
[[nodiscard]] TOOLKIT_EXPORT QString AttachedPath(const QString& folder, const QString& storeName,
                                                  const QString& fileName);
/// As StoreCopy, but there. The only copy of it.
[[nodiscard]] TOOLKIT_EXPORT std::optional<QString> StoreAttached(const QString& path,
                                                                  const QString& folder);

} // namespace toolkit
