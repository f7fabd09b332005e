// Which texts may name a stored file.
#pragma once

#include <QString>

namespace site {

/// 1 to 64 ASCII letters, digits, "_" and "-": nothing that a file system reads as more than a
/// name.
[[nodiscard]] bool IsStoreName(const QString& uuid);
/// True for the form that NewStoreName gives: what else a file is called, no store named it.
[[nodiscard]] bool IsGivenName(const QString& uuid);
/// A new name that no stored file has.
[[nodiscard]] QString NewStoreName();
/// A file name as people give it: no separators, drive letters, control characters, not "." or
/// "..".
[[nodiscard]] bool IsPlainFileName(const QString& name);

} // namespace site
