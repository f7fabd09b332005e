// Keeps the search tables in step with the rows that they speak of.
#pragma once

#include "site/sqlite/ListShape.h"

#include <set>
#include <vector>

namespace site {

class Database;

/// The row id in a search table: the project above, the id below.
[[nodiscard]] inline qint64 SearchRowId(qint32 ppid, qint64 id) {
    return (static_cast<qint64>(ppid) << 32) | id;
}

/// Adds the words of a row that has just been written; within the row's transaction.
void AddSearchRow(Database& database, ListKind kind, qint64 id);
/// Takes them out again, before the row is removed. Where its texts aren't those that were added (a
/// program that knows nothing of the search table has changed them), the old words may stay behind,
/// of a row that is gone; or the table refuses, and is filled anew from all rows: some seconds
/// where there are very many.
void RemoveSearchRow(Database& database, ListKind kind, qint64 id);
/// The same before the row is changed, when old words that stay would find it: they are looked for
/// in all of the table if the present ones aren't those that were added. Of a text that was only
/// cut short that isn't noticed. Asks once more than RemoveSearchRow, which is much for very many
/// rows.
void RemoveSearchRowForEdit(Database& database, ListKind kind, qint64 id);

/// Those of the rows of which the table has other words than the ones that they say now: to be
/// removed for an edit, the rest as for a removal. For many rows, before the first of them is
/// changed: a table that is asked between two changes writes out the first one each time.
[[nodiscard]] std::set<qint64> RowsWithOtherWords(Database& database, ListKind kind,
                                                  const std::vector<qint64>& ids);

} // namespace site
