#include "host/data/Upload.h"

#include "host/data/DataFolder.h"
#include "host/data/Database.h"
#include "host/data/FileKinds.h"
#include "host/data/FileStore.h"

namespace host {

using namespace Qt::StringLiterals;

KX_DATA::UploadResult StoreUpload(const QString& dataFolder, const QString& path) {
    constexpr int kWriterTimeoutMs = 5000;
    if (path.isEmpty()) {
        throw DataError(Fault::kMissing, FaultText(Fault::kMissing, path));
    }
    const DataFolder paths(dataFolder);
    FileStore store(paths.StorePath(), paths.BinPath());
    const StoredFile file = store.Put({path, {}});
    try {
        Database database(paths.DatabasePath(), kWriterTimeoutMs);
        Transaction transaction(database);
        database.Exec(u"INSERT INTO file (uuid, md5, size, kind, ppid, owner)"
                      " VALUES (?, ?, ?, ?, 0, 0)"_s,
                      {file.uuid, file.md5, file.size, static_cast<int>(FileKind::kUploaded)});
        transaction.Commit();
    } catch (...) {
        store.Discard(file.uuid);
        throw;
    }
    store.Settle(file.uuid);
    return {file.size, file.md5, file.uuid};
}

} // namespace host
