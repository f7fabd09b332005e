#include "site/sqlite/Bin.h"

#include "site/blobs/FileStore.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/BinContent.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/Drawings.h"
#include "site/sqlite/RichTexts.h"
#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SetupTables.h"
#include "site/sqlite/UploadSweep.h"

#include <QJsonDocument>

#include <algorithm>
#include <iterator>
#include <set>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// Whether it stands in one of the console's lists, whose kinds have the same numbers.
bool IsListed(BinKind kind) {
    return kind == BinKind::BimPhoto || kind == BinKind::PdfPhoto || kind == BinKind::Issue;
}

ListKind ListOf(BinKind kind) {
    return static_cast<ListKind>(kind);
}

bool IsKnown(BinKind kind) {
    return IsListed(kind) || kind == BinKind::Checkpoint || kind == BinKind::Drawing ||
           kind == BinKind::IssuePic;
}

/// What can't come back since what it lay on is gone.
QString OrphanText(BinKind kind, const QString& title) {
    if (kind == BinKind::IssuePic) {
        return u"“%1”所属的问题已不存在，没有恢复，仍在回收站中；请先恢复问题。"_s.arg(title);
    }
    return kind == BinKind::Checkpoint
               ? u"“%1”所在的图纸已不存在，没有恢复，仍在回收站中；请先恢复图纸。"_s.arg(title)
               : u"“%1”所在的检查点已不存在，没有恢复，仍在回收站中；请先恢复检查点。"_s.arg(title);
}

ChangeKind ChangeOf(BinKind kind) {
    switch (kind) {
    case BinKind::PdfPhoto:
        return ChangeKind::PdfPhoto;
    case BinKind::Issue:
    case BinKind::IssuePic:
        return ChangeKind::Issue;
    case BinKind::Checkpoint:
        return ChangeKind::Checkpoint;
    case BinKind::Drawing:
        return ChangeKind::Drawing;
    case BinKind::BimPhoto:
        break;
    }
    return ChangeKind::BimPhoto;
}

std::vector<qint64> Ids(const std::vector<qint32>& picIds) {
    return {picIds.begin(), picIds.end()};
}

} // namespace

void Bin::RequireNothingOn(BinKind kind, qint64 objectId, const QString& title) {
    const auto require = [&](const QString& sql, const QString& sentence) {
        const int count = m_database.Value(sql, {objectId}).toInt();
        if (count > 0) {
            throw DataError(Fault::Refused, sentence.arg(title, QString::number(count)));
        }
    };
    if (kind == BinKind::Checkpoint) {
        require(u"SELECT count(*) FROM pdf_photo WHERE checkpoint_id = ?"_s,
                u"“%1”上还有 %2 张照片，没有删除；请先把照片移到别的检查点，或删除照片。"_s);
    } else if (kind == BinKind::Drawing) {
        require(u"SELECT count(*) FROM checkpoint WHERE drawing_id = ?"_s,
                u"图纸“%1”上还有 %2 个检查点，没有删除；请先删除检查点。"_s);
    }
}

bool Bin::Take(BinKind kind, qint64 objectId, const Projects& projects, const Signature& by,
               BinTaken& taken) {
    BinContent content = TakeContent(m_database, kind, objectId);
    if (content.title.isNull() || !Has(projects, content.ppid)) {
        return false;
    }
    RequireNothingOn(kind, objectId, content.title);
    const QString json =
        QString::fromUtf8(QJsonDocument(content.sections).toJson(QJsonDocument::Compact));
    const qint64 binId = m_database.Insert(
        u"INSERT INTO bin (kind, ppid, object_id, title, deleted_by, deleted_at, content)"
        " VALUES (?, ?, ?, ?, ?, ?, ?)"_s,
        {static_cast<int>(kind), content.ppid, objectId, content.title, by.person, by.at, json});
    taken.entries.push_back({binId, kind, content.ppid, content.title, by.person, by.at});
    for (const QString& uuid : content.files) {
        m_database.Exec(u"DELETE FROM file WHERE uuid = ?"_s, {uuid});
        m_database.Exec(u"INSERT INTO bin_file (uuid, bin_id) VALUES (?, ?)"_s, {uuid, binId});
        taken.files.push_back(uuid);
    }
    if (IsListed(kind)) {
        RemoveSearchRow(m_database, ListOf(kind), objectId);
    }
    // What hangs on the row goes with it by its foreign keys.
    m_database.Exec(u"DELETE FROM %1 WHERE id = ?"_s.arg(TableOf(kind)), {objectId});
    m_database.Log().Note(ChangeOf(kind), content.ppid, content.changed, by.person);
    return true;
}

void Bin::Finish(const BinTaken& taken, std::vector<BinEntry>* made) {
    // First: it is committed, whatever becomes of the files, which the next opening puts right.
    if (made != nullptr) {
        made->insert(made->end(), taken.entries.begin(), taken.entries.end());
    }
    for (const QString& uuid : taken.files) {
        m_store.MoveToBin(uuid);
    }
}

int Bin::Delete(BinKind kind, const std::function<std::vector<qint64>()>& ids,
                const Projects& projects, const Signature& by, std::vector<BinEntry>* made) {
    BinTaken taken;
    Transaction transaction(m_database);
    for (const qint64 id : ids()) {
        (void)Take(kind, id, projects, by, taken);
    }
    transaction.Commit();
    Finish(taken, made);
    return static_cast<int>(taken.entries.size());
}

int Bin::DeleteBimPhotos(const Projects& projects, const std::vector<qint32>& picIds,
                         const Signature& by, std::vector<BinEntry>* made) {
    return Delete(
        BinKind::BimPhoto, [&] { return Ids(picIds); }, projects, by, made);
}

int Bin::DeletePdfPhotos(qint32 ppid, const std::vector<qint32>& picIds, const Signature& by,
                         std::vector<BinEntry>* made) {
    return Delete(
        BinKind::PdfPhoto, [&] { return Ids(picIds); }, {ppid}, by, made);
}

int Bin::DeleteIssues(const Projects& projects, const std::vector<QString>& questionIds,
                      const Signature& by, std::vector<BinEntry>* made) {
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
    return Delete(BinKind::Issue, ids, projects, by, made);
}

bool Bin::DeleteCheckpoint(const Projects& projects, qint32 checkpointId, const Signature& by,
                           std::vector<BinEntry>* made) {
    const auto ids = [&] { return std::vector<qint64>{checkpointId}; };
    return Delete(BinKind::Checkpoint, ids, projects, by, made) == 1;
}

bool Bin::DeleteDrawing(const Projects& projects, qint32 drawingId, const Signature& by,
                        std::vector<BinEntry>* made) {
    const auto ids = [&] { return std::vector<qint64>{drawingId}; };
    return Delete(BinKind::Drawing, ids, projects, by, made) == 1;
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
    bool isPut = false;
    try {
        isPut = PutContent(m_database, kind, objectId, content);
    } catch (const DataError& error) {
        if (error.GetFault() != Fault::Refused ||
            (kind != BinKind::PdfPhoto && kind != BinKind::Checkpoint &&
             kind != BinKind::IssuePic)) {
            throw;
        }
        throw DataError(Fault::Refused, OrphanText(kind, title), QString::fromUtf8(error.what()));
    }
    if (!isPut) {
        throw DataError(Fault::Damaged, u"回收站中的“%1”的记录已损坏，没有恢复，仍在回收站中；"
                                        "请从备份恢复数据文件夹。"_s.arg(title));
    }
    RefreshPlace(m_database, kind, objectId);
    if (kind == BinKind::PdfPhoto) {
        RefreshFromCheckpoint(m_database, objectId);
    } else if (kind == BinKind::Drawing) {
        RequireDrawingName(m_database, ppid, title, static_cast<qint32>(objectId));
    }
    if (IsListed(kind)) {
        AddSearchRow(m_database, ListOf(kind), objectId);
    }
    m_database.ForEach(u"SELECT uuid FROM bin_file WHERE bin_id = ?"_s, {binId},
                       [&](const Statement& row) { files.push_back(row.Text(0)); });
    m_database.Exec(u"DELETE FROM bin WHERE id = ?"_s, {binId});
    if (kind == BinKind::IssuePic) {
        // The id of the record that the feed tells of.
        objectId = m_database.Value(u"SELECT issue_id FROM issue_pic WHERE id = ?"_s, {objectId})
                       .toLongLong();
    }
    m_database.Log().Note(ChangeOf(kind), ppid, objectId);
}

std::vector<qint64> Bin::InOrderOfRestoring(const std::vector<qint64>& binIds) {
    std::set<std::pair<int, qint64>> ordered;
    for (const qint64 binId : binIds) {
        const QVariant kind = m_database.Value(u"SELECT kind FROM bin WHERE id = ?"_s, {binId});
        if (kind.isValid()) {
            // What lies on nothing first: the numbers of drawings, checkpoints and issues are
            // higher than those of what lies on them, save that of an issue's picture.
            const int number = kind.toInt();
            ordered.emplace(number == static_cast<int>(BinKind::IssuePic) ? 0 : -number, binId);
        }
    }
    std::vector<qint64> ids;
    std::transform(ordered.begin(), ordered.end(), std::back_inserter(ids),
                   [](const auto& entry) { return entry.second; });
    return ids;
}

int Bin::Restore(const std::vector<qint64>& binIds, std::vector<qint64>* restored) {
    std::vector<QString> files;
    Transaction transaction(m_database);
    const std::vector<qint64> present = InOrderOfRestoring(binIds);
    for (const qint64 binId : present) {
        RestoreEntry(binId, files);
    }
    transaction.Commit();
    if (restored != nullptr) {
        restored->insert(restored->end(), present.begin(), present.end());
    }
    for (const QString& uuid : files) {
        m_store.MoveFromBin(uuid);
    }
    return static_cast<int>(present.size());
}

void Bin::Purge(const std::vector<qint64>& binIds) {
    std::vector<QString> files;
    bool hadCheckpoint = false;
    Transaction transaction(m_database);
    for (const qint64 binId : binIds) {
        m_database.ForEach(u"SELECT uuid FROM bin_file WHERE bin_id = ?"_s, {binId},
                           [&](const Statement& row) { files.push_back(row.Text(0)); });
        hadCheckpoint = EndWithCheckpoint(binId) || hadCheckpoint;
        m_database.Exec(u"DELETE FROM bin WHERE id = ?"_s, {binId});
    }
    transaction.Commit();
    for (const QString& uuid : files) {
        m_store.RemoveFromBin(uuid);
    }
    if (hadCheckpoint) {
        SweepEnded();
    }
}

bool Bin::EndWithCheckpoint(qint64 binId) {
    bool isCheckpoint = false;
    m_database.ForEach(u"SELECT ppid, object_id FROM bin WHERE id = ? AND kind = ?"_s,
                       {binId, static_cast<int>(BinKind::Checkpoint)}, [&](const Statement& row) {
                           EndRichText(m_database, row.Int(0), row.Int64(1));
                           isCheckpoint = true;
                       });
    return isCheckpoint;
}

void Bin::SweepEnded() {
    try {
        SweepUploads(m_database, m_store, kEnded + 1);
    } catch (const DataError&) {
        return; // what was asked for is done; the next opening sweeps too
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
