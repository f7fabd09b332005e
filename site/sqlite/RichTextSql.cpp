#include "site/sqlite/RichTextSql.h"

#include "site/FloorOrder.h"
#include "site/sqlite/Sqlite.h"

#include <QStringList>

namespace site {

using namespace Qt::StringLiterals;

namespace {

std::vector<QString> RichTables() {
    return {u"CREATE TABLE rich_text (id INTEGER PRIMARY KEY AUTOINCREMENT, ppid INTEGER NOT NULL"
            " REFERENCES project(ppid), checkpoint_id INTEGER NOT NULL, position_key TEXT NOT NULL,"
            " mark_id INTEGER NOT NULL, state INTEGER NOT NULL, newest INTEGER NOT NULL,"
            " UNIQUE (ppid, checkpoint_id, position_key, mark_id))"_s,
            u"CREATE TABLE rich_version (id INTEGER PRIMARY KEY AUTOINCREMENT, rich_id INTEGER NOT"
            " NULL REFERENCES rich_text(id) ON DELETE CASCADE, number INTEGER NOT NULL,"
            " text TEXT NOT NULL UNIQUE, doc_name TEXT NOT NULL, state INTEGER NOT NULL,"
            " person TEXT NOT NULL, at INTEGER NOT NULL, UNIQUE (rich_id, number))"_s,
            u"CREATE TABLE rich_file (version_id INTEGER NOT NULL REFERENCES rich_version(id) ON"
            " DELETE CASCADE, place INTEGER NOT NULL, name TEXT NOT NULL, md5 TEXT NOT NULL,"
            " uuid TEXT NOT NULL, size INTEGER NOT NULL, kind INTEGER NOT NULL,"
            " PRIMARY KEY (version_id, place)) WITHOUT ROWID"_s};
}

// A save sets a state while other triggers of the same photo wait for their turn, and the order of
// triggers isn't laid down: a state may be taken away from the tally before it was added.
void AddUnorderedTally(std::vector<QString>& statements, const QString& table,
                       const QString& tally) {
    const QString change = u"INSERT INTO %1 VALUES (%2.ppid, %2.mark_id, %2.state, %3) ON CONFLICT"
                           " DO UPDATE SET n = n + excluded.n;"_s;
    const QString remove = change.arg(tally, u"old"_s, u"-1"_s);
    for (const QString& name : {u"remove"_s, u"move"_s}) {
        statements.push_back(u"DROP TRIGGER %1_%2"_s.arg(tally, name));
    }
    statements.push_back(
        u"CREATE TRIGGER %1_remove AFTER DELETE ON %2 BEGIN %3 END"_s.arg(tally, table, remove));
    statements.push_back(
        u"CREATE TRIGGER %1_move AFTER UPDATE OF ppid, mark_id, state ON %2 BEGIN %3 %4 END"_s.arg(
            tally, table, remove, change.arg(tally, u"new"_s, u"1"_s)));
}

/// The photo takes the state of the record; one that has it already isn't touched.
void AddTaking(std::vector<QString>& statements, const QString& table, const QString& columns,
               const QString& record) {
    const QString taking =
        u"WHEN new.state <> coalesce((%1), new.state) BEGIN UPDATE %2 SET state = (%1)"
        " WHERE id = new.id; END"_s.arg(record, table);
    statements.push_back(u"CREATE TRIGGER %1_rich_add AFTER INSERT ON %1 %2"_s.arg(table, taking));
    statements.push_back(
        u"CREATE TRIGGER %1_rich_move AFTER UPDATE OF %2 ON %1 %3"_s.arg(table, columns, taking));
}

/// A photo without a floor may have a key that leads nowhere.
QString RecordOfBimPhoto() {
    return u"SELECT state FROM rich_text WHERE ppid = new.ppid AND checkpoint_id = 0 AND"
           " position_key IN (new.position_key, iif(new.floor = '', '', new.position_key)) AND"
           " mark_id = new.mark_id ORDER BY position_key DESC LIMIT 1"_s;
}

QString RecordOfPdfPhoto() {
    return u"SELECT state FROM rich_text WHERE ppid = new.ppid AND checkpoint_id ="
           " new.checkpoint_id AND position_key = '' AND mark_id = 0"_s;
}

} // namespace

std::vector<QString> RichTextSchema() {
    std::vector<QString> statements = RichTables();
    AddUnorderedTally(statements, u"bim_photo"_s, u"bim_tally"_s);
    AddUnorderedTally(statements, u"pdf_photo"_s, u"pdf_tally"_s);
    AddTaking(statements, u"bim_photo"_s, u"ppid, position_key, floor, mark_id"_s,
              RecordOfBimPhoto());
    AddTaking(statements, u"pdf_photo"_s, u"ppid, checkpoint_id"_s, RecordOfPdfPhoto());
    return statements;
}

RichPhotos RichPhotosOf(const RichPlace& place) {
    if (place.checkpointId != 0) {
        return {ChangeKind::PdfPhoto,
                u"pdf_photo"_s + sqlite::UseIndex(u"pdf_of_checkpoint"_s),
                u"checkpoint_id = ? AND ppid = ?"_s,
                {place.checkpointId, place.ppid}};
    }
    if (place.positionKey.isEmpty()) {
        return {ChangeKind::BimPhoto,
                u"bim_photo"_s + sqlite::UseIndex(u"bim_by_place"_s),
                u"ppid = ? AND floor_sort = ? AND mark_id = ?"_s,
                {place.ppid, FloorSortKey({}), place.markId}};
    }
    return {ChangeKind::BimPhoto,
            u"bim_photo"_s + sqlite::UseIndex(u"bim_by_key"_s),
            u"position_key = ? AND mark_id = ? AND ppid = ?"_s,
            {place.positionKey, place.markId, place.ppid}};
}

QString NewestStateSql(const RichPhotos& photos) {
    return u"SELECT state FROM %1 WHERE %2 ORDER BY modified DESC, id DESC LIMIT 1"_s.arg(
        photos.table, photos.where);
}

QString OtherStatesSql(const RichPhotos& photos) {
    return u"SELECT id FROM %1 WHERE %2 AND state <> ?"_s.arg(photos.table, photos.where);
}

QString SetStatesSql(const RichPhotos& photos) {
    return u"UPDATE %1 SET state = ? WHERE %2 AND state <> ?"_s.arg(photos.table, photos.where);
}

QString RichListSql(qsizetype projects) {
    const QStringList marks(projects, u"?"_s);
    return u"SELECT t.id, t.ppid, t.position_key, t.mark_id, t.checkpoint_id, v.id, v.number,"
           " v.text, v.doc_name, v.state, v.person, v.at, p.floor, p.axis_x, p.axis_y, m.name,"
           " d.name, c.number FROM rich_text t JOIN rich_version v ON v.id = t.newest"
           " LEFT JOIN position p ON p.position_key = t.position_key"
           " LEFT JOIN mark m ON m.id = t.mark_id LEFT JOIN checkpoint c ON c.id = t.checkpoint_id"
           " LEFT JOIN drawing d ON d.id = c.drawing_id WHERE t.ppid IN (%1)"
           " AND (t.checkpoint_id = 0 OR c.id IS NOT NULL) ORDER BY v.id DESC"_s.arg(
               marks.join(u", "_s));
}

QString RichUuidsSql() {
    return u"SELECT DISTINCT f.uuid FROM rich_version v JOIN rich_file f ON f.version_id = v.id"
           " WHERE v.rich_id = ?"_s;
}

} // namespace site
