#include "site/sqlite/BimPhotos.h"

#include "site/DataError.h"
#include "site/FloorOrder.h"
#include "site/LastChange.h"
#include "site/RectifyStates.h"
#include "site/TimeText.h"
#include "site/sqlite/Catalogue.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/IdChunks.h"
#include "site/sqlite/ListQuery.h"
#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SetupTables.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr int kJpegKind = 1;

const QString& RowSql() {
    static const QString sql =
        u"SELECT b.id, b.pos_text, b.axis_x, b.axis_y, b.description, b.floor, b.mark_id,"
        " b.position_key, b.file_uuid, b.name, b.status, b.updater, b.updated, b.uploader,"
        " b.uploaded, b.audio_uuid, b.state, b.ppid, coalesce(p.valid, b.position_key = '')"
        " FROM bim_photo b LEFT JOIN position p ON p.position_key = b.position_key"
        " WHERE b.id IN ("_s +
        IdMarks() + u")"_s;
    return sql;
}

KX_DATA::BimPicRow RowOf(const Statement& read) {
    KX_DATA::BimPicRow row;
    row.picId = read.Int(0);
    row.posText = read.Text(1);
    row.axisX = read.Text(2);
    row.axisY = read.Text(3);
    row.description = read.Text(4);
    row.floor = read.Text(5);
    row.markId = read.Int(6);
    row.positionKey = read.Text(7);
    row.text8 = read.Text(8);
    row.fileName = read.Text(9);
    row.status = read.Int(10);
    row.updaterName = read.Text(11);
    row.updateStamp = read.Int64(12);
    row.uploaderName = read.Text(13);
    row.uploadStamp = read.Int64(14);
    row.text9 = read.Text(15);
    row.rectifyText = StateName(read.Int(16));
    row.ppid = read.Int(17);
    row.posValid = read.Int(18);
    row.updateTime = TimeText(row.updateStamp);
    row.uploadTime = TimeText(row.uploadStamp);
    return row;
}

KX_DATA::PicFileEntry FileOf(const Statement& read) {
    KX_DATA::PicFileEntry entry;
    entry.picId = read.Int(0);
    entry.kind = kJpegKind;
    entry.picUuid = read.Text(1);
    entry.audioUuid = read.Text(2);
    return entry;
}

} // namespace

Page<KX_DATA::BimPicRow> BimPhotos::PageOf(const ListFilter& filter, const PageAsked& asked) {
    const ReadScope snapshot(m_database);
    const ListPage page = m_lists.Fetch(ListKind::BimPhotos, filter, asked);
    return {page.total, RowsOf(page.ids)};
}

std::vector<KX_DATA::BimPicRow> BimPhotos::Rows(const Projects& projects,
                                                const std::vector<qint64>& picIds) {
    const ReadScope snapshot(m_database);
    std::vector<KX_DATA::BimPicRow> rows = RowsOf(picIds);
    std::erase_if(rows, [&](const KX_DATA::BimPicRow& row) { return !Has(projects, row.ppid); });
    return rows;
}

std::vector<KX_DATA::BimPicRow> BimPhotos::RowsOf(const std::vector<qint64>& ids) {
    std::vector<KX_DATA::BimPicRow> rows = RowsInOrder(m_database, RowSql(), ids, RowOf);
    AddLabels(rows);
    return rows;
}

void BimPhotos::AddLabels(std::vector<KX_DATA::BimPicRow>& rows) {
    static const QString sql =
        u"SELECT b.photo_id, l.name FROM bim_label b JOIN label l"
        " ON l.id = b.label_id WHERE b.photo_id IN (%1) ORDER BY l.id"_s.arg(IdMarks());
    std::vector<qint64> ids;
    std::unordered_map<qint64, KX_DATA::BimPicRow*> byId;
    for (KX_DATA::BimPicRow& row : rows) {
        ids.push_back(row.picId);
        byId[row.picId] = &row;
    }
    ForEachOfIds(m_database, sql, ids, [&](const Statement& read) {
        byId[read.Int64(0)]->labelNames.push_back(read.Text(1));
    });
}

std::optional<Revision> BimPhotos::Detail(qint32 ppid, qint32 picId,
                                          KX_DATA::BimPicDetail& detail) {
    const ReadScope snapshot(m_database);
    const std::optional<Revision> found = DetailWithoutLabels(ppid, picId, detail);
    m_database.ForEach(u"SELECT l.id, l.name FROM bim_label b JOIN label l ON l.id = b.label_id"
                       " WHERE b.photo_id = ? AND b.ppid = ? ORDER BY l.id"_s,
                       {picId, ppid}, [&](const Statement& read) {
                           detail.labels.push_back({read.Text(0), read.Text(1)});
                       });
    return found;
}

std::optional<Revision> BimPhotos::DetailWithoutLabels(qint32 ppid, qint32 picId,
                                                       KX_DATA::BimPicDetail& detail) {
    std::optional<Revision> found;
    m_database.ForEach(
        u"SELECT b.position_key, b.axis_x, b.axis_y, b.description, b.floor, b.mark_id, m.name,"
        " b.name, coalesce(m.color, ?), b.uploader, b.uploaded, b.updater, b.modified, b.status, "
        "b.revision"
        " FROM bim_photo b LEFT JOIN mark m ON m.id = b.mark_id WHERE b.id = ? AND b.ppid = ?"_s,
        {kNoMarkColor, picId, ppid}, [&](const Statement& read) {
            found = Revision{read.Int64(14)};
            detail = {};
            detail.picId = picId;
            detail.ppid = ppid;
            detail.positionKey = read.Text(0);
            detail.axisX = read.Text(1);
            detail.axisY = read.Text(2);
            detail.description = read.Text(3);
            detail.floor = read.Text(4);
            detail.markId = read.Int(5);
            detail.markName = read.Text(6);
            detail.fileName = read.Text(7);
            detail.markColor = read.Int(8);
            detail.uploaderName = read.Text(9);
            detail.uploadTime = read.Int64(10);
            detail.updaterName = read.Text(11);
            detail.updateTime = read.Int64(12);
            detail.status = read.Int(13);
        });
    return found;
}

std::vector<KX_DATA::PicFileEntry> BimPhotos::Files(const Projects& projects,
                                                    const std::vector<qint32>& picIds) {
    const ReadScope snapshot(m_database);
    const std::vector<qint64> ids(picIds.begin(), picIds.end());
    std::unordered_map<qint64, KX_DATA::PicFileEntry> found;
    const auto take = [&](const Statement& read) {
        if (Has(projects, read.Int(3))) {
            found.emplace(read.Int64(0), FileOf(read));
        }
    };
    static const QString bim =
        u"SELECT id, file_uuid, audio_uuid, ppid FROM bim_photo WHERE id IN (%1)"_s.arg(IdMarks());
    static const QString pdf =
        u"SELECT p.id, p.file_uuid, c.audio_uuid, p.ppid FROM pdf_photo p JOIN"
        " checkpoint c ON c.id = p.checkpoint_id WHERE p.id IN (%1)"_s.arg(IdMarks());
    ForEachOfIds(m_database, bim, ids, take);
    ForEachOfIds(m_database, pdf, ids, take);
    std::vector<KX_DATA::PicFileEntry> files;
    for (const qint64 id : ids) {
        const auto entry = found.find(id);
        if (entry != found.end()) {
            files.push_back(entry->second);
        }
    }
    return files;
}

std::vector<KX_DATA::PicFileEntry>
BimPhotos::FilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId) {
    std::vector<KX_DATA::PicFileEntry> files;
    // Photos without a floor hang on one place, whatever their key.
    const QString place = positionKey.isEmpty() ? u"floor_sort"_s : u"position_key"_s;
    const QString value = positionKey.isEmpty() ? FloorSortKey(QString()) : positionKey;
    m_database.ForEach(u"SELECT id, file_uuid, audio_uuid FROM bim_photo WHERE %1 = ?"
                       " AND mark_id = ? AND ppid = ? AND status = 0"
                       " ORDER BY modified DESC, id DESC"_s.arg(place),
                       {value, markId, ppid},
                       [&](const Statement& read) { files.push_back(FileOf(read)); });
    return files;
}

int BimPhotos::SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status,
                         std::vector<NamedPhoto>* changed) {
    int count = 0;
    std::vector<NamedPhoto> others;
    Transaction transaction(m_database);
    for (const qint32 picId : picIds) {
        m_database.ForEach(
            u"SELECT name FROM bim_photo WHERE id = ? AND ppid = ? AND status <> ?"_s,
            {picId, ppid, status}, [&](const Statement& read) {
                others.push_back({picId, read.Text(0)});
            });
        count += m_database.Exec(u"UPDATE bim_photo SET status = ? WHERE id = ? AND ppid = ?"_s,
                                 {status, picId, ppid});
        m_database.Log().Note(ChangeKind::BimPhoto, ppid, picId);
    }
    transaction.Commit();
    if (changed != nullptr) {
        changed->insert(changed->end(), others.begin(), others.end());
    }
    return count;
}

BimPhotos::Place BimPhotos::PlaceFor(qint32 ppid, const QString& key,
                                     const KX_DATA::BimPicDetail& old) {
    std::optional<Place> place;
    m_database.ForEach(u"SELECT floor, axis_x, axis_y FROM position WHERE position_key = ?"
                       " AND ppid = ?"_s,
                       {key, ppid}, [&](const Statement& read) {
                           place = Place{read.Text(0), read.Text(1), read.Text(2)};
                       });
    // A key that the model has no longer keeps the place that the photo had with it.
    if (!place && key == old.positionKey) {
        return {old.floor, old.axisX, old.axisY};
    }
    if (!place && !key.isEmpty()) {
        throw DataError(Fault::Missing, u"所选的位置已不在模型中，请重新选择楼层和轴线。"_s, key);
    }
    return place.value_or(Place{});
}

void BimPhotos::SetLabels(qint32 ppid, qint32 picId, const std::vector<QString>& labelIds) {
    m_database.Exec(u"DELETE FROM bim_label WHERE photo_id = ?"_s, {picId});
    for (const QString& labelId : labelIds) {
        m_database.Exec(u"INSERT INTO bim_label (label_id, ppid, photo_id) VALUES (?, ?, ?)"
                        " ON CONFLICT DO NOTHING"_s,
                        {labelId.toInt(), ppid, picId});
    }
}

Saved BimPhotos::Update(qint32 ppid, const KX_DATA::BimPicUpdate& update, const Signature& by,
                        std::optional<Revision> seen) {
    Transaction transaction(m_database);
    KX_DATA::BimPicDetail old;
    const std::optional<Revision> present = DetailWithoutLabels(ppid, update.picId, old);
    if (!present) {
        return Saved::Gone;
    }
    if (seen && seen != present) {
        return Saved::ChangedMeanwhile;
    }
    const LastChange last(old.uploaderName, old.uploadTime, by.person, by.at);
    RemoveSearchRowForEdit(m_database, ListKind::BimPhotos, update.picId);
    const Place place = PlaceFor(ppid, update.positionKey, old);
    // In one statement: a photo takes the state of the place where it comes to, and of none on the
    // way.
    m_database.Exec(u"UPDATE bim_photo SET position_key = ?, floor = ?, floor_sort = ?, axis_x = ?,"
                    " axis_y = ?, pos_text = ?, description = ?, mark_id = ?, name = ?, status = ?,"
                    " updater = ?, updated = ?, modifier = ?, modified = ? WHERE id = ?"_s,
                    {update.positionKey, place.floor, SortKeyOfFloor(m_database, ppid, place.floor),
                     place.axisX, place.axisY, PositionText(place.axisX, place.axisY),
                     update.description, update.markId, update.fileName, update.status, by.person,
                     by.at, last.person, last.time, update.picId});
    SetLabels(ppid, update.picId, update.labelIds);
    AddSearchRow(m_database, ListKind::BimPhotos, update.picId);
    m_database.Log().Note(ChangeKind::BimPhoto, ppid, update.picId, by.person);
    transaction.Commit();
    return Saved::Yes;
}

std::vector<KX_DATA::LabelEntry> BimPhotos::UsedLabels() {
    std::vector<KX_DATA::LabelEntry> labels;
    m_database.ForEach(u"SELECT id, name FROM label l WHERE EXISTS (SELECT 1 FROM bim_label b"
                       " WHERE b.label_id = l.id) ORDER BY id"_s,
                       {}, [&](const Statement& read) {
                           labels.push_back({read.Text(0), read.Text(1)});
                       });
    return labels;
}

std::vector<qint32> BimPhotos::UsedMarks() {
    std::vector<qint32> marks;
    m_database.ForEach(u"SELECT DISTINCT t.mark_id FROM bim_tally t JOIN mark m ON m.id = t.mark_id"
                       " WHERE t.n > 0 ORDER BY t.mark_id"_s,
                       {}, [&](const Statement& read) { marks.push_back(read.Int(0)); });
    return marks;
}

} // namespace site
