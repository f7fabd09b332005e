#include "site/transfer/Upload.h"

#include "site/FileKinds.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"

namespace site {

using namespace Qt::StringLiterals;

KX_DATA::UploadResult StoreUpload(const QString& dataFolder, const QString& path) {
    constexpr int kWriterTimeoutMs = 5000;
    if (path.isEmpty()) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, path));
    }
    const DataFolder paths(dataFolder);
    FileStore store(paths.StorePath(), paths.BinPath());
    const StoredFile file = store.Put({path, {}});
    try {
        Database database(paths.DatabasePath(), kWriterTimeoutMs);
        Transaction transaction(database);
        database.Exec(u"INSERT INTO file (uuid, md5, size, kind, ppid, owner)"
                      " VALUES (?, ?, ?, ?, 0, 0)"_s,
                      {file.uuid, file.md5, file.size, static_cast<int>(FileKind::Uploaded)});
        transaction.Commit();
    } catch (...) {
        store.Discard(file.uuid);
        throw;
    }
    store.Settle(file.uuid);
    return {file.size, file.md5, file.uuid};
}

} // namespace site
