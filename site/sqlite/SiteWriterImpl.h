// What the operations of SiteWriter share: one transaction each, and the files that wait for it.
#pragma once

#include "site/FileKinds.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/PhotoFactTable.h"
#include "site/sqlite/SiteWriter.h"

#include <initializer_list>
#include <memory>
#include <vector>

namespace site {

using namespace Qt::StringLiterals;

/// Throws Missing for what isn't there, or not in the project that was named.
inline void RequireKnown(bool known, const QString& name) {
    if (!known) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, name));
    }
}

/// Files that are on the disk before their rows are.
class SiteWriter::Impl {
public:
    explicit Impl(DataFolder& dataFolder) : db(dataFolder.Db()), store(dataFolder.Store()) {}
    ~Impl() { Undo(); }

    /// Runs `work` as a transaction; its files stay only if it is committed.
    template <typename Work> auto Change(Work work) {
        try {
            Transaction transaction(db);
            auto result = work();
            transaction.Commit();
            if (!batch) {
                SettleAll();
            }
            return result;
        } catch (...) {
            if (!batch) {
                DiscardAll();
            }
            throw;
        }
    }

    /// Stores before the transaction begins: no lock is held while a big file is written.
    [[nodiscard]] StoredFile Put(const FileSource& source) {
        // A file without bytes is no file, but a path is a file however small it is.
        if (source.path.isEmpty() && source.bytes.isEmpty()) {
            return {};
        }
        try {
            StoredFile file = store.Put(source);
            waiting.push_back(file.uuid);
            return file;
        } catch (...) {
            // The picture of a photo whose note can't be stored goes too.
            if (!batch) {
                DiscardAll();
            }
            throw;
        }
    }

    void RequireCheckpoint(qint32 ppid, qint32 checkpointId) {
        RequireKnown(Find(u"SELECT d.ppid FROM checkpoint c JOIN drawing d ON d.id = c.drawing_id"
                          " WHERE c.id = ?"_s,
                          {checkpointId}) == ppid,
                     u"检查点"_s);
    }

    void InsertFile(const StoredFile& file, FileKind kind, qint32 ppid, qint64 owner) {
        if (!file.uuid.isEmpty()) {
            db.Exec(u"INSERT INTO file (uuid, md5, size, kind, ppid, owner)"
                    " VALUES (?, ?, ?, ?, ?, ?)"_s,
                    {file.uuid, file.md5, file.size, static_cast<int>(kind), ppid, owner});
        }
    }

    void InsertLabels(const NewBimPhoto& photo, qint64 id) {
        for (const qint32 label : photo.labelIds) {
            db.Exec(u"INSERT INTO bim_label (label_id, ppid, photo_id) VALUES (?, ?, ?)"
                    " ON CONFLICT DO NOTHING"_s,
                    {label, photo.ppid, id});
        }
    }

    void Note(ChangeKind kind, qint32 ppid, qint64 id, const QString& person = {}) {
        db.Log().Note(kind, ppid, id, person);
    }

    void SettleAll() {
        for (const QString& uuid : waiting) {
            store.Settle(uuid);
        }
        waiting.clear();
    }

    void DiscardAll() {
        for (const QString& uuid : waiting) {
            store.Discard(uuid);
        }
        waiting.clear();
    }

    void Undo() {
        batch.reset();
        DiscardAll();
    }

    /// Files that were stored and come into no row.
    void Drop(std::initializer_list<QString> uuids) {
        for (const QString& uuid : uuids) {
            if (std::erase(waiting, uuid) > 0) {
                store.Discard(uuid);
            }
        }
    }

    [[nodiscard]] qint32 Find(const QString& sql, const QVariantList& values) {
        return db.Value(sql, values).toInt();
    }

    /// By the MD5 of its picture or of what that was made of. The owners of originals are photos of
    /// both kinds.
    [[nodiscard]] qint32 FindPhoto(const QString& table, FileKind picture, qint32 ppid,
                                   const QString& md5) {
        return Find(u"SELECT f.owner FROM file f JOIN %1 p ON p.id = f.owner WHERE f.md5 = ?"
                    " AND f.kind IN (?, ?) AND f.ppid = ?"_s.arg(table),
                    {md5, static_cast<int>(picture), static_cast<int>(FileKind::Original), ppid});
    }

    /// Before anything is stored.
    static void RequireFacts(const PhotoFacts& facts, const QString& fileName) {
        if (!PhotoFactTable::IsSound(facts)) {
            throw DataError(Fault::Refused,
                            u"照片“%1”的位置或方向不是有效的数值，没有保存。"_s.arg(fileName));
        }
    }

    /// Facts and original of a photo that was filed in this transaction.
    template <typename Photo>
    void NoteFacts(const Photo& photo, qint32 ppid, qint64 id, const StoredFile& original) {
        InsertFile(original, FileKind::Original, ppid, id);
        PhotoFactTable::Note(db, ppid, id, photo.facts,
                             original.uuid.isEmpty() ? QString() : photo.originalName,
                             original.uuid);
    }

    Database& db;
    FileStore& store;
    std::unique_ptr<Transaction> batch;
    std::vector<QString> waiting;
};

} // namespace site
