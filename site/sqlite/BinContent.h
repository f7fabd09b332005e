// What the bin keeps of an object: its rows, table by table, as JSON.
#pragma once

#include "site/sqlite/Bin.h"

#include <QJsonArray>

namespace site {

struct BinContent {
    QString title; ///< null: there is no such object
    qint32 ppid = 0;
    qint64 changed = 0;         ///< id of the record of which the feed tells
    QJsonArray sections;        ///< {"table", "rows"} in the order in which they are put back
    std::vector<QString> files; ///< uuids that have a row in the table of files
};

/// The table of the object itself.
[[nodiscard]] QString TableOf(BinKind kind);
/// Reads an object whole; changes nothing.
[[nodiscard]] BinContent TakeContent(Database& database, BinKind kind, qint64 objectId);
/// Inserts the rows again from the text of an entry; throws kRefused if what they hang on is gone.
/// False, perhaps after some insertions, for a text that isn't of such an object: other tables or
/// columns, no row of its own, names of files that are none. Nothing of the text reaches a
/// statement unchecked.
[[nodiscard]] bool PutContent(Database& database, BinKind kind, qint64 objectId,
                              const QString& text);
/// Mark, drawing and number of a drawing photo are those that its checkpoint has now.
void RefreshFromCheckpoint(Database& database, qint64 photoId);

} // namespace site
