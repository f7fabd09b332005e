#include "site/sqlite/Bin.h"

#include "site/blobs/FileStore.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/BinContent.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SearchIndex.h"

#include <QJsonDocument>

namespace site {

using namespace Qt::StringLiterals;

namespace {

ListKind ListOf(BinKind kind) {
    return static_cast<ListKind>(kind);
}

bool IsKnown(BinKind kind) {
    return kind == BinKind::BimPhoto || kind == BinKind::PdfPhoto || kind == BinKind::Issue;
}

ChangeKind ChangeOf(BinKind kind) {
    switch (kind) {
    case BinKind::PdfPhoto:
        return ChangeKind::PdfPhoto;
    case BinKind::Issue:
        return ChangeKind::Issue;
    case BinKind::BimPhoto:
        break;
    }
    return ChangeKind::BimPhoto;
}

std::vector<qint64> Ids(const std::vector<qint32>& picIds) {
    return {picIds.begin(), picIds.end()};
}

} // namespace

bool Bin::MoveToBin(BinKind kind, qint64 objectId, const Projects& projects, const Signature& by,
                    std::vector<QString>& files) {
    BinContent content = TakeContent(m_database, kind, objectId);
    if (content.title.isNull() || !Has(projects, content.ppid)) {
        return false;
    }
    const QString json =
        QString::fromUtf8(QJsonDocument(content.sections).toJson(QJsonDocument::Compact));
    const qint64 binId = m_database.Insert(
        u"INSERT INTO bin (kind, ppid, object_id, title, deleted_by, deleted_at, content)"
        " VALUES (?, ?, ?, ?, ?, ?, ?)"_s,
        {static_cast<int>(kind), content.ppid, objectId, content.title, by.person, by.at, json});
    for (const QString& uuid : content.files) {
        m_database.Exec(u"DELETE FROM file WHERE uuid = ?"_s, {uuid});
        m_database.Exec(u"INSERT INTO bin_file (uuid, bin_id) VALUES (?, ?)"_s, {uuid, binId});
        files.push_back(uuid);
    }
    RemoveSearchRow(m_database, ListOf(kind), objectId);
    // What hangs on the row goes with it by its foreign keys.
    m_database.Exec(u"DELETE FROM %1 WHERE id = ?"_s.arg(ShapeOf(ListOf(kind)).table), {objectId});
    m_database.Log().Note(ChangeOf(kind), content.ppid, objectId, by.person);
    return true;
}

int Bin::Delete(BinKind kind, const std::function<std::vector<qint64>()>& ids,
                const Projects& projects, const Signature& by) {
    std::vector<QString> files;
    int count = 0;
    Transaction transaction(m_database);
    for (const qint64 id : ids()) {
        count += MoveToBin(kind, id, projects, by, files) ? 1 : 0;
    }
    transaction.Commit();
    for (const QString& uuid : files) {
        m_store.MoveToBin(uuid);
    }
    return count;
}

int Bin::DeleteBimPhotos(const Projects& projects, const std::vector<qint32>& picIds,
                         const Signature& by) {
    return Delete(
        BinKind::BimPhoto, [&] { return Ids(picIds); }, projects, by);
}

int Bin::DeletePdfPhotos(qint32 ppid, const std::vector<qint32>& picIds, const Signature& by) {
    return Delete(
        BinKind::PdfPhoto, [&] { return Ids(picIds); }, {ppid}, by);
}

int Bin::DeleteIssues(const Projects& projects, const std::vector<QString>& questionIds,
                      const Signature& by) {
    const auto ids = [&] {
        std::vector<qint64> found;
        for (const QString& questionId : questionIds) {
            const QVariant id =
                m_database.Value(u"SELECT id FROM issue WHERE question_id = ?"_s, {questionId});
            if (id.isValid()) {
                found.push_back(id.toLongLong());
            }
        }
        return found;
    };
    return Delete(BinKind::Issue, ids, projects, by);
}

std::vector<BinEntry> Bin::List() {
    std::vector<BinEntry> entries;
    m_database.ForEach(u"SELECT id, kind, ppid, title, deleted_by, deleted_at FROM bin"
                       " ORDER BY deleted_at DESC, id DESC"_s,
                       {}, [&](const Statement& row) {
                           entries.push_back({row.Int64(0), static_cast<BinKind>(row.Int(1)),
                                              row.Int(2), row.Text(3), row.Text(4), row.Int64(5)});
                       });
    return entries;
}

void Bin::RestoreEntry(qint64 binId, std::vector<QString>& files) {
    QString content;
    QString title;
    BinKind kind = BinKind::BimPhoto;
    qint64 objectId = 0;
    qint32 ppid = 0;
    m_database.ForEach(u"SELECT kind, object_id, content, title, ppid FROM bin WHERE id = ?"_s,
                       {binId}, [&](const Statement& row) {
                           kind = static_cast<BinKind>(row.Int(0));
                           objectId = row.Int64(1);
                           content = row.Text(2);
                           title = row.Text(3);
                           ppid = row.Int(4);
                       });
    if (!IsKnown(kind)) {
        throw DataError(Fault::Newer,
                        u"回收站中的“%1”不是本版本认识的类型，没有恢复，仍在回收站中；"
                        "请升级客户端后再恢复。"_s.arg(title));
    }
    if (!PutContent(m_database, kind, objectId, content)) {
        throw DataError(Fault::Damaged, u"回收站中的“%1”的记录已损坏，没有恢复，仍在回收站中；"
                                        "请从备份恢复数据文件夹。"_s.arg(title));
    }
    if (kind == BinKind::PdfPhoto) {
        RefreshFromCheckpoint(m_database, objectId);
    }
    AddSearchRow(m_database, ListOf(kind), objectId);
    m_database.ForEach(u"SELECT uuid FROM bin_file WHERE bin_id = ?"_s, {binId},
                       [&](const Statement& row) { files.push_back(row.Text(0)); });
    m_database.Exec(u"DELETE FROM bin WHERE id = ?"_s, {binId});
    m_database.Log().Note(ChangeOf(kind), ppid, objectId);
}

int Bin::Restore(const std::vector<qint64>& binIds) {
    std::vector<QString> files;
    int count = 0;
    Transaction transaction(m_database);
    for (const qint64 binId : binIds) {
        if (m_database.Value(u"SELECT 1 FROM bin WHERE id = ?"_s, {binId}).isValid()) {
            RestoreEntry(binId, files);
            ++count;
        }
    }
    transaction.Commit();
    for (const QString& uuid : files) {
        m_store.MoveFromBin(uuid);
    }
    return count;
}

void Bin::Purge(const std::vector<qint64>& binIds) {
    std::vector<QString> files;
    Transaction transaction(m_database);
    for (const qint64 binId : binIds) {
        m_database.ForEach(u"SELECT uuid FROM bin_file WHERE bin_id = ?"_s, {binId},
                           [&](const Statement& row) { files.push_back(row.Text(0)); });
        m_database.Exec(u"DELETE FROM bin WHERE id = ?"_s, {binId});
    }
    transaction.Commit();
    for (const QString& uuid : files) {
        m_store.RemoveFromBin(uuid);
    }
}

void Bin::PurgeOld(qint64 now) {
    std::vector<qint64> old;
    const qint64 limit = now - kBinSeconds;
    m_database.ForEach(u"SELECT id FROM bin WHERE deleted_at < ?"_s, {limit},
                       [&](const Statement& row) { old.push_back(row.Int64(0)); });
    if (!old.empty()) {
        Purge(old);
    }
}

std::vector<QString> Bin::BinnedInStore() {
    std::vector<QString> names;
    m_database.ForEach(u"SELECT uuid FROM bin_file"_s, {}, [&](const Statement& row) {
        if (m_store.Has(row.Text(0))) {
            names.push_back(row.Text(0));
        }
    });
    return names;
}

std::vector<QString> Bin::UnbinnedInBin() {
    std::vector<QString> names;
    for (const QString& name : m_store.NamesInBin()) {
        if (!m_database.Value(u"SELECT 1 FROM bin_file WHERE uuid = ?"_s, {name}).isValid()) {
            names.push_back(name);
        }
    }
    return names;
}

void Bin::Reconcile(SetAside& aside) {
    if (BinnedInStore().empty() && UnbinnedInBin().empty()) {
        return;
    }
    // Once more under the write lock: what another process deletes or restores between two
    // questions about a file would else leave it without a row in either table.
    Transaction transaction(m_database);
    for (const QString& uuid : BinnedInStore()) {
        m_store.MoveToBin(uuid);
    }
    for (const QString& name : UnbinnedInBin()) {
        if (m_database.Value(u"SELECT 1 FROM file WHERE uuid = ?"_s, {name}).isValid()) {
            m_store.MoveFromBin(name);
        } else {
            aside.Take(place::kBin + u'/' + name);
        }
    }
    transaction.Commit();
}

} // namespace site
