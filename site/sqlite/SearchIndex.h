// Keeps the search tables in step with the rows that they speak of.
#pragma once

#include "site/sqlite/ListShape.h"

namespace site {

class Database;

/// The row id in a search table: the project above, the id below.
[[nodiscard]] inline qint64 SearchRowId(qint32 ppid, qint64 id) {
    return (static_cast<qint64>(ppid) << 32) | id;
}

/// Adds the words of a row that has just been written; within the row's transaction.
void AddSearchRow(Database& database, ListKind kind, qint64 id);
/// Takes them out again; the row must still be as it was when its words were added.
void RemoveSearchRow(Database& database, ListKind kind, qint64 id);

} // namespace site
