#include "site/sqlite/PdfPhotos.h"

#include "site/LastChange.h"
#include "site/RectifyStates.h"
#include "site/TimeText.h"
#include "site/sqlite/BinContent.h"
#include "site/sqlite/Catalogue.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/IdChunks.h"
#include "site/sqlite/ListQuery.h"
#include "site/sqlite/SearchIndex.h"

#include <unordered_map>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString& PdfRowSql() {
    static const QString sql =
        u"SELECT p.id, p.file_uuid, p.checkpoint_id, p.checkpoint_no, p.description, p.mark_id,"
        " p.drawing_id, p.drawing_name, p.name, p.status, p.updater, p.updated, p.uploader,"
        " p.uploaded, c.audio_uuid, p.state, p.ppid FROM pdf_photo p JOIN checkpoint c"
        " ON c.id = p.checkpoint_id WHERE p.id IN ("_s +
        IdMarks() + u")"_s;
    return sql;
}

KX_DATA::PdfPicRecord PdfRowOf(const Statement& read) {
    KX_DATA::PdfPicRecord row;
    row.picId = read.Int(0);
    row.text1 = read.Text(1);
    // The record's names are crossed: its drawing is the point, its checkpoint the drawing.
    row.drawingId = read.Int(2);
    row.checkpointNo = read.Int(3);
    row.description = read.Text(4);
    row.markId = read.Int(5);
    row.checkpointId = read.Int(6);
    row.drawingName = read.Text(7);
    row.fileName = read.Text(8);
    row.status = read.Int(9);
    row.updaterName = read.Text(10);
    row.updateTime = TimeText(read.Int64(11));
    row.uploaderName = read.Text(12);
    row.uploadTime = TimeText(read.Int64(13));
    row.text2 = read.Text(14);
    row.rectifyText = StateName(read.Int(15));
    row.ppid = read.Int(16);
    return row;
}

} // namespace

Page<KX_DATA::PdfPicRecord> PdfPhotos::PageOf(const ListFilter& filter, const PageAsked& asked) {
    const ReadScope snapshot(m_database);
    const ListPage page = m_lists.Fetch(ListKind::PdfPhotos, filter, asked);
    return {page.total, Rows(page.ids)};
}

std::vector<KX_DATA::PdfPicRecord> PdfPhotos::Rows(const std::vector<qint64>& ids) {
    std::vector<KX_DATA::PdfPicRecord> rows = RowsInOrder(m_database, PdfRowSql(), ids, PdfRowOf);
    AddLabels(rows);
    return rows;
}

void PdfPhotos::AddLabels(std::vector<KX_DATA::PdfPicRecord>& rows) {
    static const QString sql =
        u"SELECT p.id, l.id, l.name FROM pdf_photo p JOIN checkpoint_label c"
        " ON c.checkpoint_id = p.checkpoint_id JOIN label l ON l.id = c.label_id"
        " WHERE p.id IN (%1) ORDER BY l.id"_s.arg(IdMarks());
    std::vector<qint64> ids;
    std::unordered_map<qint64, KX_DATA::PdfPicRecord*> byId;
    for (KX_DATA::PdfPicRecord& row : rows) {
        ids.push_back(row.picId);
        byId[row.picId] = &row;
    }
    ForEachOfIds(m_database, sql, ids, [&](const Statement& read) {
        byId[read.Int64(0)]->labels.push_back({read.Text(1), read.Text(2)});
    });
}

std::optional<Revision> PdfPhotos::Detail(qint32 ppid, qint32 picId,
                                          KX_DATA::PdfPicDetail& detail) {
    const ReadScope snapshot(m_database);
    std::optional<Revision> found;
    m_database.ForEach(u"SELECT drawing_id, revision FROM pdf_photo WHERE id = ? AND ppid = ?"_s,
                       {picId, ppid}, [&](const Statement& read) {
                           detail = {};
                           detail.drawingId = read.Int(0);
                           found = Revision{read.Int64(1)};
                       });
    return found;
}

std::optional<Revision> PdfPhotos::PicDetail(qint32 ppid, qint32 picId,
                                             KX_DATA::CheckpointPicDetail& detail) {
    const ReadScope snapshot(m_database);
    std::optional<Revision> found;
    m_database.ForEach(u"SELECT name, description, uploader, uploaded, modifier, modified, revision"
                       " FROM pdf_photo WHERE id = ? AND ppid = ?"_s,
                       {picId, ppid}, [&](const Statement& read) {
                           found = Revision{read.Int64(6)};
                           detail = {};
                           detail.name = read.Text(0);
                           detail.description = read.Text(1);
                           detail.uploader = read.Text(2);
                           detail.uploadTime = TimeText(read.Int64(3));
                           detail.updater = read.Text(4);
                           detail.updateTime = TimeText(read.Int64(5));
                       });
    return found;
}

int PdfPhotos::SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status,
                         std::vector<NamedPhoto>* changed) {
    int count = 0;
    std::vector<NamedPhoto> others;
    Transaction transaction(m_database);
    for (const qint32 picId : picIds) {
        m_database.ForEach(
            u"SELECT name FROM pdf_photo WHERE id = ? AND ppid = ? AND status <> ?"_s,
            {picId, ppid, status}, [&](const Statement& read) {
                others.push_back({picId, read.Text(0)});
            });
        count += m_database.Exec(u"UPDATE pdf_photo SET status = ? WHERE id = ? AND ppid = ?"_s,
                                 {status, picId, ppid});
        m_database.Log().Note(ChangeKind::PdfPhoto, ppid, picId);
    }
    transaction.Commit();
    if (changed != nullptr) {
        changed->insert(changed->end(), others.begin(), others.end());
    }
    return count;
}

Saved PdfPhotos::Update(qint32 ppid, const KX_DATA::PdfPicUpdate& update, const Signature& by,
                        std::optional<Revision> seen) {
    Transaction transaction(m_database);
    QString author;
    std::optional<Revision> present;
    m_database.ForEach(u"SELECT uploader, revision FROM pdf_photo WHERE id = ? AND ppid = ?"_s,
                       {update.picId, ppid}, [&](const Statement& read) {
                           author = read.Text(0);
                           present = Revision{read.Int64(1)};
                       });
    if (!present) {
        return Saved::Gone;
    }
    if (seen && seen != present) {
        return Saved::ChangedMeanwhile;
    }
    const LastChange last(author, by.at, by.person, by.at);
    RemoveSearchRowForEdit(m_database, ListKind::PdfPhotos, update.picId);
    if (update.pointId > 0) {
        if (!StateOf({ppid}, update.pointId)) {
            throw DataError(Fault::Missing, u"所选的检查点已不存在，请重新选择插入点。"_s);
        }
        m_database.Exec(u"UPDATE pdf_photo SET checkpoint_id = ? WHERE id = ?"_s,
                        {update.pointId, update.picId});
        RefreshFromCheckpoint(m_database, update.picId);
    }
    m_database.Exec(u"UPDATE pdf_photo SET description = ?, name = ?,"
                    " status = CASE WHEN ? IN (0, 1) THEN ? ELSE status END, updater = ?,"
                    " updated = ?, modifier = ?, modified = ? WHERE id = ?"_s,
                    {update.description, update.fileName, update.status, update.status, by.person,
                     by.at, last.person, last.time, update.picId});
    AddSearchRow(m_database, ListKind::PdfPhotos, update.picId);
    m_database.Log().Note(ChangeKind::PdfPhoto, ppid, update.picId, by.person);
    transaction.Commit();
    return Saved::Yes;
}

qint32 PdfPhotos::ProjectOf(const Projects& projects, qint32 checkpointId, qint32 picId) {
    const qint32 ppid =
        m_database
            .Value(u"SELECT ppid FROM pdf_photo WHERE id = ? AND checkpoint_id = ?"_s,
                   {picId, checkpointId})
            .toInt();
    return Has(projects, ppid) ? ppid : 0;
}

std::optional<PdfPhotos::CheckpointState> PdfPhotos::StateOf(const Projects& projects,
                                                             qint32 checkpointId) {
    std::optional<CheckpointState> state;
    m_database.ForEach(u"SELECT d.ppid, c.revision FROM checkpoint c JOIN drawing d"
                       " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                       {checkpointId}, [&](const Statement& read) {
                           if (Has(projects, read.Int(0))) {
                               state = CheckpointState{read.Int(0), Revision{read.Int64(1)}};
                           }
                       });
    return state;
}

std::optional<Revision> PdfPhotos::Checkpoint(const Projects& projects, qint32 checkpointId,
                                              KX_DATA::DrawingRecord& record) {
    const ReadScope snapshot(m_database);
    const std::optional<CheckpointState> present = StateOf(projects, checkpointId);
    if (!present) {
        return std::nullopt;
    }
    m_database.ForEach(
        u"SELECT c.remark, c.number, c.description, coalesce(m.color, ?), m.name, c.x, c.y,"
        " c.updated, c.audio_uuid FROM checkpoint c LEFT JOIN mark m"
        " ON m.id = c.mark_id WHERE c.id = ?"_s,
        {kNoMarkColor, checkpointId}, [&](const Statement& read) {
            record = {};
            record.remark = read.Text(0);
            record.checkpointNo = read.Int(1);
            record.description = read.Text(2);
            record.markColor = read.Int(3);
            record.markName = read.Text(4);
            record.position = {read.Int64(5), read.Int64(6)};
            record.updateTime = TimeText(read.Int64(7));
            record.audioUuid = read.Text(8);
        });
    AddParts(checkpointId, record);
    return present->revision;
}

void PdfPhotos::AddParts(qint32 checkpointId, KX_DATA::DrawingRecord& record) {
    m_database.ForEach(u"SELECT l.id, l.name FROM checkpoint_label c JOIN label l"
                       " ON l.id = c.label_id WHERE c.checkpoint_id = ? ORDER BY l.id"_s,
                       {checkpointId}, [&](const Statement& read) {
                           record.labels.emplace_back(read.Text(0), read.Text(1));
                       });
    m_database.ForEach(u"SELECT id, file_uuid FROM pdf_photo WHERE checkpoint_id = ? AND status = 0"
                       " ORDER BY id"_s,
                       {checkpointId}, [&](const Statement& read) {
                           KX_DATA::DrawingPicRef pic;
                           pic.picId = read.Int(0);
                           pic.uuid = read.Text(1);
                           record.pics.push_back(pic);
                       });
}

void PdfPhotos::SetMark(qint32 checkpointId, qint32 markId) {
    if (markId <= 0) {
        return; // an editor in which no mark is selected
    }
    m_database.Exec(u"UPDATE checkpoint SET mark_id = ? WHERE id = ?"_s, {markId, checkpointId});
    // A photo whose mark stays is no other than before.
    m_database.Exec(u"UPDATE pdf_photo SET mark_id = ? WHERE checkpoint_id = ? AND mark_id <> ?"_s,
                    {markId, checkpointId, markId});
}

Saved PdfPhotos::UpdateCheckpoint(const Projects& projects, const KX_DATA::CheckpointEdit& edit,
                                  const Signature& by, std::optional<Revision> seen) {
    Transaction transaction(m_database);
    const std::optional<CheckpointState> last = StateOf(projects, edit.checkpointId);
    if (!last) {
        return Saved::Gone;
    }
    if (seen && *seen != last->revision) {
        return Saved::ChangedMeanwhile;
    }
    m_database.Exec(
        u"UPDATE checkpoint SET x = ?, y = ?, description = ?, remark = ?,"
        " updated = ? WHERE id = ?"_s,
        {edit.position1, edit.position2, edit.description, edit.remark, by.at, edit.checkpointId});
    SetMark(edit.checkpointId, edit.markId);
    m_database.Exec(u"DELETE FROM checkpoint_label WHERE checkpoint_id = ?"_s, {edit.checkpointId});
    for (const QString& labelId : edit.labelNames) {
        m_database.Exec(u"INSERT INTO checkpoint_label (label_id, checkpoint_id) VALUES (?, ?)"
                        " ON CONFLICT DO NOTHING"_s,
                        {labelId.toInt(), edit.checkpointId});
    }
    m_database.Log().Note(ChangeKind::Checkpoint, last->ppid, edit.checkpointId, by.person);
    transaction.Commit();
    return Saved::Yes;
}

std::vector<KX_DATA::LabelEntry> PdfPhotos::UsedLabels() {
    std::vector<KX_DATA::LabelEntry> labels;
    m_database.ForEach(
        u"SELECT id, name FROM label l WHERE EXISTS (SELECT 1 FROM checkpoint_label c"
        " JOIN pdf_photo p ON p.checkpoint_id = c.checkpoint_id"
        " WHERE c.label_id = l.id) ORDER BY id"_s,
        {}, [&](const Statement& read) {
            labels.push_back({read.Text(0), read.Text(1)});
        });
    return labels;
}

std::vector<qint32> PdfPhotos::UsedMarks() {
    std::vector<qint32> marks;
    m_database.ForEach(u"SELECT DISTINCT t.mark_id FROM pdf_tally t JOIN mark m ON m.id = t.mark_id"
                       " WHERE t.n > 0 ORDER BY t.mark_id"_s,
                       {}, [&](const Statement& read) { marks.push_back(read.Int(0)); });
    return marks;
}

} // namespace site
