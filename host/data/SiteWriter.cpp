#include "host/data/SiteWriter.h"

#include "host/data/DataFolder.h"
#include "host/data/Database.h"
#include "host/data/FileKinds.h"
#include "host/data/FileStore.h"
#include "host/data/FloorOrder.h"
#include "host/data/LastChange.h"
#include "host/data/SearchIndex.h"
#include "host/data/StoreName.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

// A file without bytes is no file, but a path is a file however small it is.
bool IsGiven(const FileSource& source) {
    return !source.path.isEmpty() || !source.bytes.isEmpty();
}

} // namespace

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
        if (!IsGiven(source)) {
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

    void InsertFile(const StoredFile& file, FileKind kind, qint32 ppid, qint64 owner) {
        if (!file.uuid.isEmpty()) {
            db.Exec(u"INSERT INTO file (uuid, md5, size, kind, ppid, owner)"
                    " VALUES (?, ?, ?, ?, ?, ?)"_s,
                    {file.uuid, file.md5, file.size, static_cast<int>(kind), ppid, owner});
        }
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

    [[nodiscard]] qint32 Find(const QString& sql, const QVariantList& values) {
        return db.Value(sql, values).toInt();
    }

    Database& db;
    FileStore& store;
    std::unique_ptr<Transaction> batch;
    std::vector<QString> waiting;
};

SiteWriter::SiteWriter(DataFolder& dataFolder) : impl(std::make_unique<Impl>(dataFolder)) {}

SiteWriter::~SiteWriter() = default;

void SiteWriter::BeginBatch() {
    impl->batch = std::make_unique<Transaction>(impl->db);
}

void SiteWriter::CommitBatch() {
    if (impl->batch) {
        impl->batch->Commit();
        impl->batch.reset();
        impl->SettleAll();
    }
}

qint32 SiteWriter::FilePhoto(const NewBimPhoto& photo, const FileSource& picture,
                             const FileSource& voice) {
    if (!IsPlainFileName(photo.fileName)) {
        throw DataError(Fault::kBadName, FaultText(Fault::kBadName, photo.fileName.left(80)));
    }
    const StoredFile file = impl->Put(picture);
    const StoredFile note = impl->Put(voice);
    const LastChange last(photo.uploader, photo.uploadTime, photo.updater, photo.updateTime);
    return impl->Change([&] {
        QString floor;
        QString axisX;
        QString axisY;
        impl->db.ForEach(u"SELECT floor, axis_x, axis_y FROM position WHERE position_key = ?"_s,
                         {photo.positionKey}, [&](const Statement& row) {
                             floor = row.Text(0);
                             axisX = row.Text(1);
                             axisY = row.Text(2);
                         });
        const qint64 id = impl->db.Insert(
            u"INSERT INTO bim_photo (ppid, name, description, floor, floor_sort, axis_x, axis_y,"
            " pos_text, position_key, mark_id, file_uuid, audio_uuid, state, status, uploader,"
            " uploaded, updater, updated, modifier, modified) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
            " ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
            {photo.ppid,
             photo.fileName,
             photo.description,
             floor,
             FloorSortKey(floor),
             axisX,
             axisY,
             PositionText(axisX, axisY),
             photo.positionKey,
             photo.markId,
             file.uuid,
             note.uuid,
             photo.state,
             photo.status,
             photo.uploader,
             photo.uploadTime,
             photo.updater,
             photo.updateTime,
             last.person,
             last.time});
        for (const qint32 label : photo.labelIds) {
            impl->db.Exec(
                u"INSERT INTO bim_label (label_id, ppid, photo_id) VALUES (?, ?, ?) ON CONFLICT DO NOTHING"_s,
                {label, photo.ppid, id});
        }
        impl->InsertFile(file, FileKind::kBimPhoto, photo.ppid, id);
        impl->InsertFile(note, FileKind::kPhotoVoice, photo.ppid, id);
        AddSearchRow(impl->db, ListKind::kBimPhotos, id);
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::FilePdfPhoto(const NewPdfPhoto& photo, const FileSource& picture) {
    if (!IsPlainFileName(photo.fileName)) {
        throw DataError(Fault::kBadName, FaultText(Fault::kBadName, photo.fileName.left(80)));
    }
    const StoredFile file = impl->Put(picture);
    const LastChange last(photo.uploader, photo.uploadTime, photo.updater, photo.updateTime);
    return impl->Change([&] {
        const qint32 ppid = impl->Find(u"SELECT d.ppid FROM checkpoint c JOIN drawing d"
                                       " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                                       {photo.checkpointId});
        const qint64 id = impl->db.Insert(
            u"INSERT INTO pdf_photo (ppid, checkpoint_id, drawing_id, drawing_name, checkpoint_no,"
            " name, description, mark_id, file_uuid, state, status, uploader, uploaded, updater,"
            " updated, modifier, modified) SELECT d.ppid, c.id, d.id, d.name, c.number, ?, ?,"
            " c.mark_id, ?, ?, ?, ?, ?, ?, ?, ?, ? FROM checkpoint c JOIN drawing d ON d.id = c.drawing_id WHERE c.id = ?"_s,
            {photo.fileName, photo.description, file.uuid, photo.state, photo.status,
             photo.uploader, photo.uploadTime, photo.updater, photo.updateTime, last.person,
             last.time, photo.checkpointId});
        if (ppid == 0) {
            throw DataError(Fault::kMissing, FaultText(Fault::kMissing, u"检查点"_s));
        }
        impl->InsertFile(file, FileKind::kPdfPhoto, ppid, id);
        AddSearchRow(impl->db, ListKind::kPdfPhotos, id);
        return static_cast<qint32>(id);
    });
}

void SiteWriter::SetCheckpointVoice(qint32 checkpointId, const FileSource& voice) {
    const StoredFile note = impl->Put(voice);
    impl->Change([&] {
        impl->db.Exec(u"UPDATE checkpoint SET audio_uuid = ? WHERE id = ?"_s,
                      {note.uuid, checkpointId});
        const qint32 ppid = impl->Find(u"SELECT d.ppid FROM checkpoint c JOIN drawing d"
                                       " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                                       {checkpointId});
        impl->InsertFile(note, FileKind::kCheckpointVoice, ppid, checkpointId);
        return true;
    });
}

QString SiteWriter::FileIssue(const NewIssue& issue, const FileSource& voice) {
    const StoredFile note = impl->Put(voice);
    const LastChange last(issue.creator, issue.createTime, issue.updater, issue.updateTime);
    const QString questionId = issue.questionId.isEmpty() ? NewStoreName() : issue.questionId;
    return impl->Change([&] {
        const qint64 id = impl->db.Insert(
            u"INSERT INTO issue (question_id, ppid, theme, description, floor, floor_sort, "
            u"pos_info,"
            " component_name, component_sub_name, component_handle, mark_id, qr_code, voice_uuid,"
            " state, status, creator, created, updater, updated, modifier, modified) VALUES (?, ?, "
            "?, ?,"
            " ?, ?, ?, ?, ?, ?, ?, '', ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
            {questionId,
             issue.ppid,
             issue.theme,
             issue.description,
             issue.floor,
             FloorSortKey(issue.floor),
             issue.posInfo,
             issue.componentName,
             issue.componentSubName,
             issue.componentHandle,
             issue.markId,
             note.uuid,
             issue.state,
             issue.status,
             issue.creator,
             issue.createTime,
             issue.updater,
             issue.updateTime,
             last.person,
             last.time});
        if (!issue.rectifier.isEmpty()) {
            impl->db.Exec(u"INSERT INTO rectification (issue_id, text, rectifier, voice_uuid)"
                          " VALUES (?, ?, ?, '')"_s,
                          {id, issue.rectifyText, issue.rectifier});
        }
        impl->InsertFile(note, FileKind::kIssueVoice, issue.ppid, id);
        AddSearchRow(impl->db, ListKind::kIssues, id);
        return questionId;
    });
}

QString SiteWriter::FileIssuePic(const NewIssuePic& pic, const FileSource& picture,
                                 const FileSource& thumb) {
    const StoredFile file = impl->Put(picture);
    const StoredFile small = impl->Put(thumb);
    return impl->Change([&] {
        qint64 issueId = 0;
        qint32 ppid = 0;
        impl->db.ForEach(u"SELECT id, ppid FROM issue WHERE question_id = ?"_s, {pic.questionId},
                         [&](const Statement& row) {
                             issueId = row.Int64(0);
                             ppid = row.Int(1);
                         });
        const QString picId = NewStoreName();
        impl->db.Exec(u"INSERT INTO issue_pic (pic_id, issue_id, rectification, name, uploader,"
                      " uploaded, file_uuid, thumb_uuid) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s,
                      {picId, issueId, pic.rectification ? 1 : 0, pic.fileName, pic.uploader,
                       pic.uploadTime, file.uuid, small.uuid.isEmpty() ? file.uuid : small.uuid});
        impl->InsertFile(file, FileKind::kIssuePic, ppid, issueId);
        impl->InsertFile(small, FileKind::kThumb, ppid, issueId);
        return picId;
    });
}

qint32 SiteWriter::AddDrawing(qint32 ppid, const QString& name, const FileSource& source) {
    const StoredFile file = impl->Put(source);
    return impl->Change([&] {
        const qint64 id =
            impl->db.Insert(u"INSERT INTO drawing (ppid, name, file_uuid) VALUES (?, ?, ?)"_s,
                            {ppid, name, file.uuid});
        impl->InsertFile(file, FileKind::kDrawing, ppid, id);
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::AddCheckpoint(const NewCheckpoint& checkpoint) {
    return impl->Change([&] {
        const qint64 id = impl->db.Insert(
            u"INSERT INTO checkpoint (drawing_id, number, description, remark, mark_id, x, y,"
            " updated, audio_uuid) VALUES (?, ?, ?, ?, ?, ?, ?, ?, '')"_s,
            {checkpoint.drawingId, checkpoint.number, checkpoint.description, checkpoint.remark,
             checkpoint.markId, checkpoint.x, checkpoint.y, checkpoint.updateTime});
        for (const qint32 label : checkpoint.labelIds) {
            impl->db.Exec(u"INSERT INTO checkpoint_label (label_id, checkpoint_id)"
                          " VALUES (?, ?) ON CONFLICT DO NOTHING"_s,
                          {label, id});
        }
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::AddProject(const QString& name, qint32 major) {
    return impl->Change([&] {
        const qint32 known = FindProject(name);
        return known != 0
                   ? known
                   : static_cast<qint32>(impl->db.Insert(
                         u"INSERT INTO project (name, major) VALUES (?, ?)"_s, {name, major}));
    });
}

qint32 SiteWriter::AddWorkset(const QString& name, const std::vector<qint32>& ppids) {
    return impl->Change([&] {
        impl->db.Exec(u"DELETE FROM workset WHERE name = ?"_s, {name});
        const qint64 id = impl->db.Insert(u"INSERT INTO workset (name) VALUES (?)"_s, {name});
        qint32 place = 0;
        for (const qint32 ppid : ppids) {
            impl->db.Exec(u"INSERT INTO workset_project (workset_id, ppid, place)"
                          " VALUES (?, ?, ?)"_s,
                          {id, ppid, place++});
        }
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::AddUser(const QString& name, const std::vector<qint32>& rights) {
    return impl->Change([&] {
        qint64 id = FindUser(name);
        if (id == 0) {
            id = impl->db.Insert(u"INSERT INTO person (name) VALUES (?)"_s, {name});
        }
        impl->db.Exec(u"DELETE FROM person_right WHERE person_id = ?"_s, {id});
        for (const qint32 right : rights) {
            impl->db.Exec(u"INSERT INTO person_right (person_id, number) VALUES (?, ?)"_s,
                          {id, right});
        }
        return static_cast<qint32>(id);
    });
}

void SiteWriter::AddMark(qint32 markId, const QString& name, qint32 color) {
    impl->Change([&] {
        return impl->db.Exec(u"INSERT INTO mark (id, name, color) VALUES (?, ?, ?) ON CONFLICT (id)"
                             " DO UPDATE SET name = excluded.name, color = excluded.color"_s,
                             {markId, name, color});
    });
}

qint32 SiteWriter::AddLabel(const QString& name) {
    return impl->Change([&] {
        const qint32 known = impl->Find(u"SELECT id FROM label WHERE name = ?"_s, {name});
        return known != 0 ? known
                          : static_cast<qint32>(
                                impl->db.Insert(u"INSERT INTO label (name) VALUES (?)"_s, {name}));
    });
}

void SiteWriter::AddFloor(qint32 ppid, const QString& floor) {
    impl->Change([&] {
        return impl->db.Exec(
            u"INSERT INTO floor (ppid, name, sort_key) VALUES (?, ?, ?) ON CONFLICT DO NOTHING"_s,
            {ppid, floor, FloorSortKey(floor)});
    });
}

QString SiteWriter::AddPosition(const NewPosition& position) {
    const QString key = position.positionKey.isEmpty() ? NewStoreName() : position.positionKey;
    return impl->Change([&] {
        AddFloor(position.ppid, position.floor);
        impl->db.Exec(u"INSERT INTO position (position_key, ppid, floor, axis_x, axis_y, valid)"
                      " VALUES (?, ?, ?, ?, ?, ?)"_s,
                      {key, position.ppid, position.floor, position.axisX, position.axisY,
                       position.valid ? 1 : 0});
        return key;
    });
}

void SiteWriter::SetSetting(const QString& key, const QString& value) {
    impl->Change([&] {
        return impl->db.Exec(u"INSERT INTO setting (key, value) VALUES (?, ?) ON CONFLICT (key) DO "
                             u"UPDATE SET value ="
                             " excluded.value"_s,
                             {key, value});
    });
}

qint32 SiteWriter::FindProject(const QString& name) {
    return impl->Find(u"SELECT ppid FROM project WHERE name = ?"_s, {name});
}

qint32 SiteWriter::FindUser(const QString& name) {
    return impl->Find(u"SELECT id FROM person WHERE name = ?"_s, {name});
}

qint32 SiteWriter::FindMark(const QString& name) {
    return impl->Find(u"SELECT id FROM mark WHERE name = ?"_s, {name});
}

QString SiteWriter::FindPosition(qint32 ppid, const QString& floor, const QString& axisX,
                                 const QString& axisY) {
    return impl->db
        .Value(u"SELECT position_key FROM position WHERE ppid = ? AND floor = ? AND axis_x = ?"
               " AND axis_y = ?"_s,
               {ppid, floor, axisX, axisY})
        .toString();
}

qint32 SiteWriter::FindPhotoByMd5(qint32 ppid, const QString& md5) {
    return impl->Find(u"SELECT owner FROM file WHERE md5 = ? AND kind = ? AND ppid = ?"_s,
                      {md5, static_cast<int>(FileKind::kBimPhoto), ppid});
}

qint32 SiteWriter::FindPdfPhotoByMd5(qint32 ppid, const QString& md5) {
    return impl->Find(u"SELECT owner FROM file WHERE md5 = ? AND kind = ? AND ppid = ?"_s,
                      {md5, static_cast<int>(FileKind::kPdfPhoto), ppid});
}

bool SiteWriter::IsEmpty() {
    return !impl->db.Value(u"SELECT 1 FROM project LIMIT 1"_s).isValid();
}

} // namespace host
