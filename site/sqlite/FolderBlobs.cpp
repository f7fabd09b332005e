#include "site/sqlite/FolderBlobs.h"

#include "site/DataError.h"
#include "site/FileKinds.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/transfer/FetchedFiles.h"
#include "site/transfer/Transfer.h"
#include "site/transfer/TransferSteps.h"

#include <QFileInfo>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBusyTimeoutMs = 5000;

} // namespace

FolderBlobs::FolderBlobs(const DataFolder& dataFolder)
    : m_database(dataFolder.DatabasePath()), m_store(dataFolder.StorePath()),
      m_bin(dataFolder.BinPath()), m_folder(dataFolder),
      m_opening(dataFolder.Db().Log().Opening()) {}

QString FolderBlobs::StoredMd5(const QString& uuid, const Limits& limits) const {
    Database reader(m_database, kBusyTimeoutMs);
    reader.Patient().Set(limits);
    const QVariant md5 = reader.Value(u"SELECT md5 FROM file WHERE uuid = ?"_s, {uuid});
    if (!md5.isValid()) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, u"文件 "_s + uuid));
    }
    return md5.toString();
}

TransferOutcome FolderBlobs::Fetch(const QString& uuid, const QString& localPath,
                                   const TransferTerms& terms) {
    if (IsFetched(uuid, localPath)) {
        return {true, {}};
    }
    try {
        const QString path = FileStore(m_store, m_bin).PathOf(uuid);
        FetchCopy({path, uuid, StoredMd5(uuid, terms.limits)}, localPath, terms);
    } catch (const DataError& error) {
        return {false, error.Text()};
    }
    return {true, {}};
}

bool FolderBlobs::IsFetched(const QString& uuid, const QString& localPath) const {
    return IsKnownWhole(localPath, uuid);
}

qint64 FolderBlobs::SizeOf(const QString& uuid, const Limits& limits) {
    if (limits.stop.stop_requested()) {
        return -1;
    }
    try {
        return QFileInfo(FileStore(m_store, m_bin).PathOf(uuid)).size();
    } catch (const DataError&) {
        return -1;
    }
}

KX_DATA::UploadResult FolderBlobs::Upload(const QString& path, const TransferTerms& terms) {
    if (path.isEmpty()) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, path));
    }
    FileStore store(m_store, m_bin);
    TransferSteps steps(terms, QFileInfo(path).size());
    const StoredFile file = store.Put({path, {}}, [&](qint64 bytes) { steps.Next(bytes); });
    try {
        Database database(m_database, kBusyTimeoutMs);
        database.Log().SetOpening(m_opening);
        steps.End();
        database.Patient().Set(terms.limits);
        Transaction transaction(database);
        database.Exec(u"INSERT INTO file (uuid, md5, size, kind, ppid, owner)"
                      " VALUES (?, ?, ?, ?, 0, 0)"_s,
                      {file.uuid, file.md5, file.size, static_cast<int>(FileKind::Uploaded)});
        database.Exec(u"INSERT INTO upload (uuid, at) VALUES (?, ?)"_s,
                      {file.uuid, m_folder.Now()});
        transaction.Commit();
    } catch (...) {
        store.Discard(file.uuid);
        throw;
    }
    store.Settle(file.uuid);
    return {file.size, file.md5, file.uuid};
}

} // namespace site
