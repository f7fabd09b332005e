#include "site/sqlite/SiteWriter.h"

#include "site/FloorOrder.h"
#include "site/LastChange.h"
#include "site/StoreName.h"
#include "site/sqlite/Drawings.h"
#include "site/sqlite/FilingTable.h"
#include "site/sqlite/IssueLog.h"
#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SetupTables.h"
#include "site/sqlite/SiteWriterImpl.h"

namespace site {

namespace {

/// Pictures that come with an issue are part of its raising.
void NoteLatePic(Database& database, qint64 issueId, const NewIssuePic& pic) {
    const qint64 raised =
        database.Value(u"SELECT created FROM issue WHERE id = ?"_s, {issueId}).toLongLong();
    if (pic.uploadTime > raised) {
        const IssueDeed deed =
            pic.rectification ? IssueDeed::RectifyPicsAdded : IssueDeed::PicsAdded;
        NoteDeed(database, issueId, {pic.uploader, pic.uploadTime},
                 {0, {}, deed, {}, pic.fileName, 1});
    }
}

} // namespace

SiteWriter::SiteWriter(DataFolder& dataFolder) : m_impl(std::make_unique<Impl>(dataFolder)) {}

SiteWriter::~SiteWriter() = default;

void SiteWriter::BeginBatch() {
    m_impl->batch = std::make_unique<Transaction>(m_impl->db);
}

void SiteWriter::CommitBatch() {
    if (m_impl->batch) {
        m_impl->batch->Commit();
        m_impl->batch.reset();
        m_impl->SettleAll();
    }
}

qint32 SiteWriter::FilePhoto(const NewBimPhoto& photo, const FileSource& picture,
                             const FileSource& voice) {
    if (!IsPlainFileName(photo.fileName)) {
        throw DataError(Fault::BadName, FaultText(Fault::BadName, photo.fileName.left(80)));
    }
    Impl::RequireFacts(photo.facts, photo.fileName);
    const StoredFile file = m_impl->Put(picture);
    const StoredFile note = m_impl->Put(voice);
    const StoredFile original = m_impl->Put(photo.original);
    const LastChange last(photo.uploader, photo.uploadTime, photo.updater, photo.updateTime);
    return m_impl->Change([&] {
        if (!photo.onceMd5.isEmpty() && FindPhotoByMd5(photo.ppid, photo.onceMd5) != 0) {
            m_impl->Drop({file.uuid, note.uuid, original.uuid});
            return 0;
        }
        QString floor;
        QString axisX;
        QString axisY;
        m_impl->db.ForEach(u"SELECT floor, axis_x, axis_y FROM position WHERE position_key = ?"_s,
                           {photo.positionKey}, [&](const Statement& row) {
                               floor = row.Text(0);
                               axisX = row.Text(1);
                               axisY = row.Text(2);
                           });
        const qint64 id = m_impl->db.Insert(
            u"INSERT INTO bim_photo (ppid, name, description, floor, floor_sort, axis_x, axis_y,"
            " pos_text, position_key, mark_id, file_uuid, audio_uuid, state, status, uploader,"
            " uploaded, updater, updated, modifier, modified) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
            " ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
            {photo.ppid,
             photo.fileName,
             photo.description,
             floor,
             SortKeyOfFloor(m_impl->db, photo.ppid, floor),
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
        m_impl->InsertLabels(photo, id);
        m_impl->InsertFile(file, FileKind::BimPhoto, photo.ppid, id);
        m_impl->InsertFile(note, FileKind::PhotoVoice, photo.ppid, id);
        m_impl->NoteFacts(photo, photo.ppid, id, original);
        AddSearchRow(m_impl->db, ListKind::BimPhotos, id);
        FilingTable::Note(m_impl->db, ChangeKind::BimPhoto, photo.ppid, id);
        m_impl->Note(ChangeKind::BimPhoto, photo.ppid, id, last.person);
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::FilePdfPhoto(qint32 ppid, const NewPdfPhoto& photo, const FileSource& picture) {
    if (!IsPlainFileName(photo.fileName)) {
        throw DataError(Fault::BadName, FaultText(Fault::BadName, photo.fileName.left(80)));
    }
    Impl::RequireFacts(photo.facts, photo.fileName);
    const StoredFile file = m_impl->Put(picture);
    const StoredFile original = m_impl->Put(photo.original);
    const LastChange last(photo.uploader, photo.uploadTime, photo.updater, photo.updateTime);
    return m_impl->Change([&] {
        m_impl->RequireCheckpoint(ppid, photo.checkpointId);
        if (!photo.onceMd5.isEmpty() && FindPdfPhotoByMd5(ppid, photo.onceMd5) != 0) {
            m_impl->Drop({file.uuid, original.uuid});
            return 0;
        }
        const qint64 id = m_impl->db.Insert(
            u"INSERT INTO pdf_photo (ppid, checkpoint_id, drawing_id, drawing_name, checkpoint_no,"
            " name, description, mark_id, file_uuid, state, status, uploader, uploaded, updater,"
            " updated, modifier, modified) SELECT d.ppid, c.id, d.id, d.name, c.number, ?, ?,"
            " c.mark_id, ?, ?, ?, ?, ?, ?, ?, ?, ? FROM checkpoint c"
            " JOIN drawing d ON d.id = c.drawing_id WHERE c.id = ?"_s,
            {photo.fileName, photo.description, file.uuid, photo.state, photo.status,
             photo.uploader, photo.uploadTime, photo.updater, photo.updateTime, last.person,
             last.time, photo.checkpointId});
        m_impl->InsertFile(file, FileKind::PdfPhoto, ppid, id);
        m_impl->NoteFacts(photo, ppid, id, original);
        AddSearchRow(m_impl->db, ListKind::PdfPhotos, id);
        m_impl->Note(ChangeKind::PdfPhoto, ppid, id, last.person);
        return static_cast<qint32>(id);
    });
}

void SiteWriter::SetCheckpointVoice(qint32 ppid, qint32 checkpointId, const FileSource& voice) {
    const StoredFile note = m_impl->Put(voice);
    m_impl->Change([&] {
        m_impl->RequireCheckpoint(ppid, checkpointId);
        m_impl->db.Exec(u"UPDATE checkpoint SET audio_uuid = ? WHERE id = ?"_s,
                        {note.uuid, checkpointId});
        m_impl->InsertFile(note, FileKind::CheckpointVoice, ppid, checkpointId);
        m_impl->Note(ChangeKind::Checkpoint, ppid, checkpointId);
        return true;
    });
}

QString SiteWriter::FileIssue(const NewIssue& issue, const FileSource& voice,
                              const FileSource& rectifyVoice) {
    const StoredFile note = m_impl->Put(voice);
    const StoredFile remedy = m_impl->Put(issue.rectifier.isEmpty() ? FileSource{} : rectifyVoice);
    const LastChange last(issue.creator, issue.createTime, issue.updater, issue.updateTime);
    const QString questionId = issue.questionId.isEmpty() ? NewStoreName() : issue.questionId;
    return m_impl->Change([&] {
        const qint64 id = m_impl->db.Insert(
            u"INSERT INTO issue (question_id, ppid, theme, description, floor, floor_sort, "
            u"pos_info,"
            " component_name, component_sub_name, component_handle, mark_id, qr_code, voice_uuid,"
            " state, status, creator, created, updater, updated, modifier, modified) VALUES (?, ?, "
            "?, ?,"
            " ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
            {questionId,
             issue.ppid,
             issue.theme,
             issue.description,
             issue.floor,
             SortKeyOfFloor(m_impl->db, issue.ppid, issue.floor),
             issue.posInfo,
             issue.componentName,
             issue.componentSubName,
             issue.componentHandle,
             issue.markId,
             issue.qrCode,
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
            m_impl->db.Exec(u"INSERT INTO rectification (issue_id, text, rectifier, voice_uuid)"
                            " VALUES (?, ?, ?, ?)"_s,
                            {id, issue.rectifyText, issue.rectifier, remedy.uuid});
        }
        m_impl->InsertFile(note, FileKind::IssueVoice, issue.ppid, id);
        m_impl->InsertFile(remedy, FileKind::IssueVoice, issue.ppid, id);
        AddSearchRow(m_impl->db, ListKind::Issues, id);
        FilingTable::Note(m_impl->db, ChangeKind::Issue, issue.ppid, id);
        m_impl->Note(ChangeKind::Issue, issue.ppid, id, last.person);
        return questionId;
    });
}

QString SiteWriter::FileIssuePic(qint32 ppid, const NewIssuePic& pic, const FileSource& picture,
                                 const FileSource& thumb) {
    const StoredFile file = m_impl->Put(picture);
    const StoredFile small = m_impl->Put(thumb);
    return m_impl->Change([&] {
        const qint64 issueId = m_impl->Find(
            u"SELECT id FROM issue WHERE question_id = ? AND ppid = ?"_s, {pic.questionId, ppid});
        RequireKnown(issueId != 0, u"问题"_s);
        const QString picId = NewStoreName();
        m_impl->db.Exec(u"INSERT INTO issue_pic (id, pic_id, issue_id, rectification, name,"
                        " uploader, uploaded, file_uuid, thumb_uuid) VALUES (?, ?, ?, ?, ?, ?, ?,"
                        " ?, ?)"_s,
                        {NextIdOf(m_impl->db, u"issue_pic"_s), picId, issueId,
                         pic.rectification ? 1 : 0, pic.fileName, pic.uploader, pic.uploadTime,
                         file.uuid, small.uuid.isEmpty() ? file.uuid : small.uuid});
        NoteLatePic(m_impl->db, issueId, pic);
        m_impl->InsertFile(file, FileKind::IssuePic, ppid, issueId);
        m_impl->InsertFile(small, FileKind::Thumb, ppid, issueId);
        m_impl->Note(ChangeKind::Issue, ppid, issueId, pic.uploader);
        return picId;
    });
}

} // namespace site
