#include "site/sqlite/SiteWriter.h"

#include "site/FloorOrder.h"
#include "site/LastChange.h"
#include "site/StoreName.h"
#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SiteWriterImpl.h"

namespace site {

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

} // namespace site
