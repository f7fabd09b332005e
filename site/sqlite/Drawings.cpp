#include "site/sqlite/Drawings.h"

#include "site/NewRecords.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SearchIndex.h"

#include <limits>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kFarthest = 1000; ///< thousandths

QString EntrySql(const QString& condition) {
    return u"SELECT d.id, d.ppid, d.name, d.file_uuid, d.pages, d.revision,"
           " (SELECT count(*) FROM checkpoint c WHERE c.drawing_id = d.id) FROM drawing d"
           " WHERE "_s +
           condition;
}

DrawingEntry EntryOf(const Statement& row) {
    return {row.Int(0), row.Int(1), row.Text(2),           row.Text(3),
            row.Int(4), row.Int(6), Revision{row.Int64(5)}};
}

QString FlagSql(const QString& condition) {
    return u"SELECT c.id, c.number, c.page, c.x, c.y, c.mark_id, coalesce(m.name, ''),"
           " coalesce(m.color, %1), (SELECT count(*) FROM pdf_photo p WHERE p.checkpoint_id = c.id"
           " AND p.status = 0), (SELECT count(*) FROM pdf_photo p WHERE p.checkpoint_id = c.id),"
           " (SELECT count(*) FROM comment o WHERE o.checkpoint_id = c.id), c.audio_uuid <> '',"
           " c.revision FROM checkpoint c LEFT JOIN mark m ON m.id = c.mark_id WHERE %2"
           " ORDER BY c.number, c.id"_s.arg(QString::number(kNoMarkColor), condition);
}

CheckpointFlag FlagOfRow(const Statement& row) {
    CheckpointFlag flag;
    flag.id = row.Int(0);
    flag.number = row.Int(1);
    flag.place = {row.Int(2), row.Int64(3), row.Int64(4)};
    flag.markId = row.Int(5);
    flag.markName = row.Text(6);
    flag.markColor = row.Int(7);
    flag.shownPhotos = row.Int(8);
    flag.photos = row.Int(9);
    flag.comments = row.Int(10);
    flag.hasVoice = row.Int(11) != 0;
    flag.revision = Revision{row.Int64(12)};
    return flag;
}

void RequirePlace(const DrawingEntry& drawing, const DrawingPlace& place) {
    const bool isOnPage =
        place.x >= 0 && place.x <= kFarthest && place.y >= 0 && place.y <= kFarthest;
    const bool hasPage = place.page >= 0 && (drawing.pages == 0 || place.page < drawing.pages);
    if (!isOnPage || !hasPage) {
        throw DataError(Fault::Refused,
                        u"所选的位置不在图纸“%1”上，请重新选择。"_s.arg(drawing.name));
    }
}

} // namespace

std::vector<DrawingEntry> Drawings::List(qint32 ppid) {
    static const QString sql = EntrySql(u"d.ppid = ? ORDER BY d.id"_s);
    std::vector<DrawingEntry> drawings;
    m_database.ForEach(sql, {ppid},
                       [&](const Statement& row) { drawings.push_back(EntryOf(row)); });
    return drawings;
}

std::optional<DrawingEntry> Drawings::Drawing(const Projects& projects, qint32 drawingId) {
    static const QString sql = EntrySql(u"d.id = ?"_s);
    std::optional<DrawingEntry> drawing;
    m_database.ForEach(sql, {drawingId}, [&](const Statement& row) {
        if (Has(projects, row.Int(1))) {
            drawing = EntryOf(row);
        }
    });
    return drawing;
}

std::optional<DrawingEntry> Drawings::DrawingOf(const Projects& projects, qint32 checkpointId) {
    const ReadScope snapshot(m_database);
    return Drawing(
        projects,
        m_database.Value(u"SELECT drawing_id FROM checkpoint WHERE id = ?"_s, {checkpointId})
            .toInt());
}

std::optional<std::vector<CheckpointFlag>> Drawings::Flags(const Projects& projects,
                                                           qint32 drawingId) {
    static const QString sql = FlagSql(u"c.drawing_id = ?"_s);
    const ReadScope snapshot(m_database);
    if (!Drawing(projects, drawingId)) {
        return std::nullopt;
    }
    std::vector<CheckpointFlag> flags;
    m_database.ForEach(sql, {drawingId},
                       [&](const Statement& row) { flags.push_back(FlagOfRow(row)); });
    return flags;
}

std::optional<CheckpointFlag> Drawings::FlagOf(qint32 checkpointId) {
    static const QString sql = FlagSql(u"c.id = ?"_s);
    std::optional<CheckpointFlag> flag;
    m_database.ForEach(sql, {checkpointId}, [&](const Statement& row) { flag = FlagOfRow(row); });
    return flag;
}

Saved Drawings::Rename(const Projects& projects, qint32 drawingId, const QString& name,
                       const Signature& by, std::optional<Revision> seen) {
    Transaction transaction(m_database);
    const std::optional<DrawingEntry> drawing = Drawing(projects, drawingId);
    if (!drawing) {
        return Saved::Gone;
    }
    if (seen && *seen != drawing->revision) {
        return Saved::ChangedMeanwhile;
    }
    RequireDrawingName(m_database, drawing->ppid, name, drawingId);
    m_database.Exec(u"UPDATE drawing SET name = ? WHERE id = ?"_s, {name, drawingId});
    m_database.Log().Note(ChangeKind::Drawing, drawing->ppid, drawingId, by.person);
    std::vector<qint64> photos;
    m_database.ForEach(u"SELECT id FROM pdf_photo WHERE drawing_id = ?"_s, {drawingId},
                       [&](const Statement& row) { photos.push_back(row.Int64(0)); });
    for (const qint64 photo : photos) {
        RemoveSearchRowForEdit(m_database, ListKind::PdfPhotos, photo);
        m_database.Exec(u"UPDATE pdf_photo SET drawing_name = ? WHERE id = ?"_s, {name, photo});
        AddSearchRow(m_database, ListKind::PdfPhotos, photo);
        m_database.Log().Note(ChangeKind::PdfPhoto, drawing->ppid, photo, by.person);
    }
    transaction.Commit();
    return Saved::Yes;
}

qint32 Drawings::NextNumber(qint32 drawingId) {
    const qint64 last =
        m_database
            .Value(u"SELECT max(d.last_number, (SELECT coalesce(max(number), 0) FROM checkpoint"
                   " WHERE drawing_id = d.id)) FROM drawing d WHERE d.id = ?"_s,
                   {drawingId})
            .toLongLong();
    if (last >= std::numeric_limits<qint32>::max()) {
        throw DataError(Fault::Refused, u"图纸上的检查点编号已用完，没有增加。"_s);
    }
    return static_cast<qint32>(last) + 1;
}

std::optional<CheckpointFlag> Drawings::AddCheckpoint(const Projects& projects, qint32 drawingId,
                                                      const DrawingPlace& place, qint32 number,
                                                      const Signature& by) {
    Transaction transaction(m_database);
    const std::optional<DrawingEntry> drawing = Drawing(projects, drawingId);
    if (!drawing) {
        return std::nullopt;
    }
    RequirePlace(*drawing, place);
    if (number > 0 && m_database
                          .Value(u"SELECT 1 FROM checkpoint WHERE drawing_id = ? AND number = ?"_s,
                                 {drawingId, number})
                          .isValid()) {
        throw DataError(Fault::Refused, u"图纸“%1”上已有检查点%2，没有增加。"_s.arg(
                                            drawing->name, QString::number(number)));
    }
    NewCheckpoint made;
    made.drawingId = drawingId;
    made.number = number > 0 ? number : NextNumber(drawingId);
    made.page = place.page;
    made.x = place.x;
    made.y = place.y;
    made.updateTime = by.at;
    const qint32 id = InsertCheckpoint(m_database, made);
    m_database.Log().Note(ChangeKind::Checkpoint, drawing->ppid, id, by.person);
    std::optional<CheckpointFlag> flag = FlagOf(id);
    transaction.Commit();
    return flag;
}

Saved Drawings::MoveCheckpoint(const Projects& projects, qint32 checkpointId,
                               const DrawingPlace& place, const Signature& by,
                               std::optional<Revision> seen) {
    Transaction transaction(m_database);
    const std::optional<DrawingEntry> drawing = DrawingOf(projects, checkpointId);
    if (!drawing) {
        return Saved::Gone;
    }
    if (seen && *seen != FlagOf(checkpointId)->revision) {
        return Saved::ChangedMeanwhile;
    }
    RequirePlace(*drawing, place);
    m_database.Exec(u"UPDATE checkpoint SET page = ?, x = ?, y = ?, updated = ? WHERE id = ?"_s,
                    {place.page, place.x, place.y, by.at, checkpointId});
    m_database.Log().Note(ChangeKind::Checkpoint, drawing->ppid, checkpointId, by.person);
    transaction.Commit();
    return Saved::Yes;
}

qint32 InsertCheckpoint(Database& database, const NewCheckpoint& checkpoint) {
    const qint64 id = NextIdOf(database, u"checkpoint"_s);
    database.Exec(
        u"INSERT INTO checkpoint (id, drawing_id, number, description, remark, mark_id, page, x, y,"
        " updated, audio_uuid) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '')"_s,
        {id, checkpoint.drawingId, checkpoint.number, checkpoint.description, checkpoint.remark,
         checkpoint.markId, checkpoint.page, checkpoint.x, checkpoint.y, checkpoint.updateTime});
    database.Exec(u"UPDATE drawing SET last_number = max(last_number, ?) WHERE id = ?"_s,
                  {checkpoint.number, checkpoint.drawingId});
    for (const qint32 label : checkpoint.labelIds) {
        database.Exec(u"INSERT INTO checkpoint_label (label_id, checkpoint_id)"
                      " VALUES (?, ?) ON CONFLICT DO NOTHING"_s,
                      {label, id});
    }
    return static_cast<qint32>(id);
}

void RequireDrawingName(Database& database, qint32 ppid, const QString& name, qint32 drawingId) {
    if (name.trimmed().isEmpty()) {
        throw DataError(Fault::Refused, u"图纸没有名称，没有保存。"_s);
    }
    if (database
            .Value(u"SELECT 1 FROM drawing WHERE ppid = ? AND name = ? AND id <> ?"_s,
                   {ppid, name, drawingId})
            .isValid()) {
        throw DataError(Fault::Refused,
                        u"工程中已有名为“%1”的图纸，没有保存；请换一个名称。"_s.arg(name));
    }
}

qint64 NextIdOf(Database& database, const QString& table) {
    return database
        .Value(u"SELECT 1 + max((SELECT coalesce(max(id), 0) FROM %1), coalesce((SELECT id"
               " FROM given_id WHERE name = '%1'), 0))"_s.arg(table))
        .toLongLong();
}

} // namespace site
