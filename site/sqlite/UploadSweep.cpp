#include "site/sqlite/UploadSweep.h"

#include "site/FileKinds.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"

namespace site {

using namespace Qt::StringLiterals;

// The file goes first: what a crash leaves is a row, whose turn comes again.
void SweepUploads(Database& database, FileStore& store, qint64 before) {
    const QString oldOnes = u"SELECT uuid FROM upload WHERE at < ?"_s;
    if (!database.Value(oldOnes, {before}).isValid()) {
        return;
    }
    Transaction transaction(database);
    std::vector<QString> uuids;
    database.ForEach(oldOnes, {before},
                     [&](const Statement& row) { uuids.push_back(row.Text(0)); });
    for (const QString& uuid : uuids) {
        store.Remove(uuid);
        database.Exec(u"DELETE FROM file WHERE uuid = ? AND kind = ?"_s,
                      {uuid, static_cast<int>(FileKind::Uploaded)});
        database.Exec(u"DELETE FROM upload WHERE uuid = ?"_s, {uuid});
    }
    transaction.Commit();
}

} // namespace site
