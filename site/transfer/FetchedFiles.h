// Which files of the cache are known to be whole.
#pragma once

#include <QString>

namespace site {

/// True if the file was seen to be this stored file and nobody has changed it since. Stored files
/// never change under their uuid, so nothing else needs to be asked. Thread: any, as below.
[[nodiscard]] bool IsKnownWhole(const QString& path, const QString& uuid);

/// True if the file is known to be whole or turns out to be, which reads all of it. A damaged,
/// changed or missing file gives false.
/// @param md5  of the stored file, 32 lower-case hexadecimal digits.
[[nodiscard]] bool IsWhole(const QString& path, const QString& uuid, const QString& md5);

/// The stored file was just written there.
void NoteWhole(const QString& path, const QString& uuid);

} // namespace site
