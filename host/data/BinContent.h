// What the bin keeps of an object: its rows, table by table, as JSON.
#pragma once

#include "host/data/Bin.h"

#include <QJsonArray>

namespace host {

struct BinContent {
    QString title; ///< null: there is no such object
    qint32 ppid = 0;
    QJsonArray sections;        ///< {"table", "rows"} in the order in which they are put back
    std::vector<QString> files; ///< uuids that have a row in the table of files
};

/// Reads an object whole; changes nothing.
[[nodiscard]] BinContent TakeContent(Database& database, BinKind kind, qint64 objectId);
/// Inserts the rows again; throws kRefused if what they hang on is gone.
void PutContent(Database& database, const QJsonArray& sections);
/// Mark, drawing and number of a drawing photo are those that its checkpoint has now.
void RefreshFromCheckpoint(Database& database, qint64 photoId);

} // namespace host
