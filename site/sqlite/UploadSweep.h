// Files that nothing refers to.
#pragma once

#include <QtGlobal>

namespace site {

class Database;
class FileStore;

/// Time of an upload whose record has ended: the next sweep takes it.
inline constexpr qint64 kEnded = 0;

/// Removes the uploads of before a time, seconds since 1970, with their files.
void SweepUploads(Database& database, FileStore& store, qint64 before);

} // namespace site
