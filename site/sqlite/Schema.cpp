#include "site/sqlite/Migrations.h"
#include "site/sqlite/PhotoFactTable.h"
#include "site/sqlite/PlaceTally.h"
#include "site/sqlite/RichTextSql.h"
#include "site/sqlite/SetupTables.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

std::vector<QString> Settings() {
    return {
        u"CREATE TABLE schema_version (version INTEGER PRIMARY KEY, applied INTEGER NOT NULL)"_s,
        u"CREATE TABLE setting (key TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID"_s,
        u"CREATE TABLE action_log (id INTEGER PRIMARY KEY, at INTEGER NOT NULL,"
        " person TEXT NOT NULL, ppid INTEGER NOT NULL, action TEXT NOT NULL)"_s,
        u"CREATE TABLE recent_search (person TEXT NOT NULL, place INTEGER NOT NULL,"
        " keyword TEXT NOT NULL, PRIMARY KEY (person, place)) WITHOUT ROWID"_s,
    };
}

std::vector<QString> CatalogueTables() {
    return {
        u"CREATE TABLE project (ppid INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE,"
        " major INTEGER NOT NULL)"_s,
        u"CREATE TABLE workset (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE)"_s,
        u"CREATE TABLE workset_project (workset_id INTEGER NOT NULL REFERENCES workset(id) ON"
        " DELETE CASCADE, ppid INTEGER NOT NULL REFERENCES project(ppid) ON DELETE CASCADE,"
        " place INTEGER NOT NULL, PRIMARY KEY (workset_id, ppid)) WITHOUT ROWID"_s,
        u"CREATE TABLE person (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE)"_s,
        u"CREATE TABLE person_right (person_id INTEGER NOT NULL REFERENCES person(id) ON DELETE"
        " CASCADE, number INTEGER NOT NULL, PRIMARY KEY (person_id, number)) WITHOUT ROWID"_s,
        u"CREATE TABLE mark (id INTEGER PRIMARY KEY, name TEXT NOT NULL,"
        " color INTEGER NOT NULL)"_s,
        u"CREATE TABLE label (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE)"_s,
        u"CREATE TABLE floor (ppid INTEGER NOT NULL REFERENCES project(ppid), name TEXT NOT NULL,"
        " sort_key TEXT NOT NULL, PRIMARY KEY (ppid, name)) WITHOUT ROWID"_s,
        u"CREATE TABLE position (position_key TEXT PRIMARY KEY, ppid INTEGER NOT NULL,"
        " floor TEXT NOT NULL, axis_x TEXT NOT NULL, axis_y TEXT NOT NULL,"
        " valid INTEGER NOT NULL, UNIQUE (ppid, floor, axis_x, axis_y),"
        " FOREIGN KEY (ppid, floor) REFERENCES floor(ppid, name)) WITHOUT ROWID"_s,
        u"CREATE TABLE drawing (id INTEGER PRIMARY KEY, ppid INTEGER NOT NULL REFERENCES"
        " project(ppid), name TEXT NOT NULL, file_uuid TEXT NOT NULL)"_s,
        u"CREATE INDEX drawing_ppid ON drawing (ppid)"_s,
        u"CREATE TABLE checkpoint (id INTEGER PRIMARY KEY, drawing_id INTEGER NOT NULL REFERENCES"
        " drawing(id), number INTEGER NOT NULL, description TEXT NOT NULL, remark TEXT NOT NULL,"
        " mark_id INTEGER NOT NULL, x INTEGER NOT NULL, y INTEGER NOT NULL,"
        " updated INTEGER NOT NULL, audio_uuid TEXT NOT NULL)"_s,
        u"CREATE INDEX checkpoint_drawing ON checkpoint (drawing_id)"_s,
        u"CREATE TABLE checkpoint_label (label_id INTEGER NOT NULL REFERENCES label(id),"
        " checkpoint_id INTEGER NOT NULL REFERENCES checkpoint(id) ON DELETE CASCADE,"
        " PRIMARY KEY (label_id, checkpoint_id)) WITHOUT ROWID"_s,
        u"CREATE INDEX checkpoint_label_back ON checkpoint_label (checkpoint_id, label_id)"_s,
    };
}

std::vector<QString> FilesTables() {
    return {
        u"CREATE TABLE file (uuid TEXT PRIMARY KEY, md5 TEXT NOT NULL, size INTEGER NOT NULL,"
        " kind INTEGER NOT NULL, ppid INTEGER NOT NULL, owner INTEGER NOT NULL) WITHOUT ROWID"_s,
        u"CREATE INDEX file_md5 ON file (md5, kind, ppid)"_s,
        u"CREATE TABLE bin (id INTEGER PRIMARY KEY AUTOINCREMENT, kind INTEGER NOT NULL,"
        " ppid INTEGER NOT NULL, object_id INTEGER NOT NULL, title TEXT NOT NULL,"
        " deleted_by TEXT NOT NULL, deleted_at INTEGER NOT NULL, content TEXT NOT NULL)"_s,
        u"CREATE TABLE bin_file (uuid TEXT PRIMARY KEY, bin_id INTEGER NOT NULL REFERENCES bin(id)"
        " ON DELETE CASCADE) WITHOUT ROWID"_s,
        u"CREATE INDEX bin_file_bin ON bin_file (bin_id)"_s,
    };
}

// What all three lists have. The last change (or else the creation) stands in two columns of its
// own: an index that holds a computed column never spares the look at the row.
QString ListColumns(const QString& author, const QString& created) {
    return u" state INTEGER NOT NULL, status INTEGER NOT NULL, "_s + author +
           u" TEXT NOT NULL, "_s + created +
           u" INTEGER NOT NULL, updater TEXT NOT NULL, updated INTEGER NOT NULL,"
           " modifier TEXT NOT NULL, modified INTEGER NOT NULL"_s;
}

struct SortIndex {
    QString name;
    QString columns;
};

// Each order of the console has its index, read forwards and backwards. Behind the id stand the
// columns of the filters, so that a walk judges a row without fetching it.
void AddSortIndexes(std::vector<QString>& statements, const QString& table,
                    const std::vector<SortIndex>& indexes) {
    const std::vector<QString> filters{u"mark_id"_s, u"state"_s, u"modified"_s};
    for (const SortIndex& index : indexes) {
        QString columns = u"ppid, "_s + index.columns;
        if (!columns.endsWith(u", id"_s)) {
            columns += u", id"_s;
        }
        for (const QString& filter : filters) {
            if (!columns.contains(filter)) {
                columns += u", "_s + filter;
            }
        }
        statements.push_back(u"CREATE INDEX %1 ON %2 (%3)"_s.arg(index.name, table, columns));
    }
}

// How many rows there are of each mark and state: totals without counting.
void AddTally(std::vector<QString>& statements, const QString& table, const QString& tally) {
    statements.push_back(u"CREATE TABLE %1 (ppid INTEGER NOT NULL, mark_id INTEGER NOT NULL, state"
                         " INTEGER NOT NULL, n INTEGER NOT NULL, PRIMARY KEY (ppid, mark_id,"
                         " state)) WITHOUT ROWID"_s.arg(tally));
    const QString add = u"INSERT INTO %1 VALUES (new.ppid, new.mark_id, new.state, 1) ON CONFLICT"
                        " DO UPDATE SET n = n + 1;"_s.arg(tally);
    const QString remove = u"UPDATE %1 SET n = n - 1 WHERE ppid = old.ppid AND mark_id ="
                           " old.mark_id AND state = old.state;"_s.arg(tally);
    statements.push_back(
        u"CREATE TRIGGER %1_add AFTER INSERT ON %2 BEGIN %3 END"_s.arg(tally, table, add));
    statements.push_back(
        u"CREATE TRIGGER %1_remove AFTER DELETE ON %2 BEGIN %3 END"_s.arg(tally, table, remove));
    statements.push_back(
        u"CREATE TRIGGER %1_move AFTER UPDATE OF ppid, mark_id, state ON %2 BEGIN %3 %4 END"_s.arg(
            tally, table, remove, add));
}

// Holds the words of SearchText.h, which also says how they are asked for. The row id carries the
// project in its upper half, so that a search within one project is a range.
QString SearchTable(const QString& name, const QString& columns) {
    return u"CREATE VIRTUAL TABLE %1 USING fts5(%2, content='', columnsize=0, tokenize='ascii')"_s
        .arg(name, columns);
}

std::vector<QString> BimPhotosTables() {
    std::vector<QString> statements{
        u"CREATE TABLE bim_photo (id INTEGER PRIMARY KEY AUTOINCREMENT, ppid INTEGER NOT NULL"
        " REFERENCES project(ppid), name TEXT NOT NULL, description TEXT NOT NULL,"
        " floor TEXT NOT NULL, floor_sort TEXT NOT NULL, axis_x TEXT NOT NULL,"
        " axis_y TEXT NOT NULL, pos_text TEXT NOT NULL, position_key TEXT NOT NULL,"
        " mark_id INTEGER NOT NULL, file_uuid TEXT NOT NULL, audio_uuid TEXT NOT NULL,"_s +
            ListColumns(u"uploader"_s, u"uploaded"_s) + u")"_s,
        u"CREATE TABLE bim_label (label_id INTEGER NOT NULL REFERENCES label(id), ppid INTEGER NOT"
        " NULL, photo_id INTEGER NOT NULL REFERENCES bim_photo(id) ON DELETE CASCADE,"
        " PRIMARY KEY (label_id, ppid, photo_id)) WITHOUT ROWID"_s,
        u"CREATE INDEX bim_label_back ON bim_label (photo_id, label_id)"_s,
        SearchTable(u"bim_text"_s, u"name, author, updater, description"_s),
    };
    AddTally(statements, u"bim_photo"_s, u"bim_tally"_s);
    AddSortIndexes(statements, u"bim_photo"_s,
                   {{u"bim_by_mark"_s, u"mark_id"_s},
                    {u"bim_by_name"_s, u"name"_s},
                    {u"bim_by_id"_s, u"id"_s},
                    {u"bim_by_person"_s, u"modifier"_s},
                    {u"bim_by_time"_s, u"modified"_s},
                    {u"bim_by_place"_s, u"floor_sort, pos_text"_s},
                    {u"bim_by_description"_s, u"description"_s},
                    {u"bim_by_status"_s, u"status"_s},
                    {u"bim_by_state"_s, u"state"_s}});
    statements.push_back(u"CREATE INDEX bim_by_key ON bim_photo (position_key, mark_id, id)"_s);
    return statements;
}

// Mark, drawing and number are those of the checkpoint, kept here for the orders of the console.
std::vector<QString> PdfPhotosTables() {
    std::vector<QString> statements{
        u"CREATE TABLE pdf_photo (id INTEGER PRIMARY KEY AUTOINCREMENT, ppid INTEGER NOT NULL"
        " REFERENCES project(ppid), checkpoint_id INTEGER NOT NULL REFERENCES checkpoint(id),"
        " drawing_id INTEGER NOT NULL, drawing_name TEXT NOT NULL, checkpoint_no INTEGER NOT NULL,"
        " name TEXT NOT NULL, description TEXT NOT NULL, mark_id INTEGER NOT NULL,"
        " file_uuid TEXT NOT NULL,"_s +
            ListColumns(u"uploader"_s, u"uploaded"_s) + u")"_s,
        // Photos of both kinds share one range of numbers: an id alone says which photo is meant.
        u"INSERT INTO sqlite_sequence (name, seq) VALUES ('pdf_photo', 1000000000)"_s,
        SearchTable(u"pdf_text"_s, u"name, author, updater, description, drawing"_s),
    };
    AddTally(statements, u"pdf_photo"_s, u"pdf_tally"_s);
    AddSortIndexes(statements, u"pdf_photo"_s,
                   {{u"pdf_by_mark"_s, u"mark_id"_s},
                    {u"pdf_by_name"_s, u"name"_s},
                    {u"pdf_by_id"_s, u"id"_s},
                    {u"pdf_by_drawing"_s, u"drawing_name"_s},
                    {u"pdf_by_person"_s, u"modifier"_s},
                    {u"pdf_by_time"_s, u"modified"_s},
                    {u"pdf_by_number"_s, u"checkpoint_no"_s},
                    {u"pdf_by_description"_s, u"description"_s},
                    {u"pdf_by_status"_s, u"status"_s},
                    {u"pdf_by_state"_s, u"state"_s}});
    statements.push_back(
        u"CREATE INDEX pdf_of_checkpoint ON pdf_photo (checkpoint_id, ppid, id)"_s);
    statements.push_back(u"CREATE INDEX pdf_of_drawing ON pdf_photo (drawing_id, id)"_s);
    return statements;
}

std::vector<QString> IssuesTables() {
    std::vector<QString> statements{
        u"CREATE TABLE issue (id INTEGER PRIMARY KEY AUTOINCREMENT, question_id TEXT NOT NULL"
        " UNIQUE, ppid INTEGER NOT NULL REFERENCES project(ppid), theme TEXT NOT NULL,"
        " description TEXT NOT NULL, floor TEXT NOT NULL, floor_sort TEXT NOT NULL,"
        " pos_info TEXT NOT NULL, component_name TEXT NOT NULL, component_sub_name TEXT NOT NULL,"
        " component_handle TEXT NOT NULL, mark_id INTEGER NOT NULL, qr_code TEXT NOT NULL,"
        " voice_uuid TEXT NOT NULL,"_s +
            ListColumns(u"creator"_s, u"created"_s) + u")"_s,
        u"CREATE TABLE rectification (issue_id INTEGER PRIMARY KEY REFERENCES issue(id) ON DELETE"
        " CASCADE, text TEXT NOT NULL, rectifier TEXT NOT NULL, voice_uuid TEXT NOT NULL)"_s,
        u"CREATE TABLE issue_pic (id INTEGER PRIMARY KEY, pic_id TEXT NOT NULL UNIQUE, issue_id"
        " INTEGER NOT NULL REFERENCES issue(id) ON DELETE CASCADE, rectification INTEGER NOT NULL,"
        " name TEXT NOT NULL, uploader TEXT NOT NULL, uploaded INTEGER NOT NULL,"
        " file_uuid TEXT NOT NULL, thumb_uuid TEXT NOT NULL)"_s,
        u"CREATE INDEX issue_pic_issue ON issue_pic (issue_id, rectification, id)"_s,
        SearchTable(u"issue_text"_s, u"theme, author, updater, description"_s),
    };
    AddTally(statements, u"issue"_s, u"issue_tally"_s);
    AddSortIndexes(statements, u"issue"_s,
                   {{u"issue_by_mark"_s, u"mark_id"_s},
                    {u"issue_by_theme"_s, u"theme"_s},
                    {u"issue_by_id"_s, u"id"_s},
                    {u"issue_by_person"_s, u"modifier"_s},
                    {u"issue_by_time"_s, u"modified"_s},
                    {u"issue_by_place"_s, u"floor_sort, pos_info, component_name"_s},
                    {u"issue_by_description"_s, u"description"_s},
                    {u"issue_by_status"_s, u"status"_s},
                    {u"issue_by_state"_s, u"state"_s}});
    statements.push_back(
        u"CREATE INDEX issue_of_floor ON issue (ppid, floor, component_handle, id)"_s);
    return statements;
}

// An index that has all that the mark panel says of an issue.
std::vector<QString> IssuePanelIndex() {
    return {u"CREATE INDEX issue_panel ON issue (ppid, floor_sort, pos_info, id, mark_id, status,"
            " modified, modifier, floor, question_id, theme, component_name)"_s};
}

// What the mark panel says of the shown photos, without looking at them.
std::vector<QString> PicPanelTables() {
    std::vector<QString> statements = PlaceTallySchema();
    for (const QString& statement : PlaceTallyFillSql()) {
        statements.push_back(statement);
    }
    return statements;
}

// How many hidden photos there are at each place, without looking at them.
std::vector<QString> HiddenPhotosTable() {
    std::vector<QString> statements = HiddenTallySchema();
    for (const QString& statement : HiddenTallyFillSql()) {
        statements.push_back(statement);
    }
    return statements;
}

// What was changed, in the order of the commits; numbers of lines that are gone don't come again.
std::vector<QString> ChangeTable() {
    return {u"CREATE TABLE change (seq INTEGER PRIMARY KEY AUTOINCREMENT, kind INTEGER NOT NULL,"
            " ppid INTEGER NOT NULL, object INTEGER NOT NULL, person TEXT NOT NULL,"
            " opening INTEGER NOT NULL)"_s};
}

// What was filed from this step on, in the order of the commits: before, nobody was reminded.
std::vector<QString> FilingsTable() {
    return {u"CREATE TABLE filing (seq INTEGER PRIMARY KEY AUTOINCREMENT, kind INTEGER NOT NULL,"
            " ppid INTEGER NOT NULL, object INTEGER NOT NULL, opening INTEGER NOT NULL)"_s};
}

QString RevisionTrigger(const QString& table) {
    return u"CREATE TRIGGER %1_revision AFTER UPDATE ON %1 WHEN new.revision = old.revision"
           " BEGIN UPDATE %1 SET revision = old.revision + 1 WHERE id = new.id; END"_s.arg(table);
}

// Remembers the highest id of a row that is gone.
QString GivenTrigger(const QString& table) {
    return u"CREATE TRIGGER %1_given AFTER DELETE ON %1 BEGIN INSERT INTO given_id VALUES ('%1',"
           " old.id) ON CONFLICT (name) DO UPDATE SET id = max(id, excluded.id); END"_s.arg(table);
}

// How often a record has changed: what two people who save in the same second don't have in common.
// Counted by the database, so that no writer can forget it, other programs included.
std::vector<QString> RevisionColumns() {
    std::vector<QString> statements;
    for (const QString& table : {u"bim_photo"_s, u"pdf_photo"_s, u"checkpoint"_s}) {
        statements.push_back(
            u"ALTER TABLE %1 ADD COLUMN revision INTEGER NOT NULL DEFAULT 0"_s.arg(table));
        statements.push_back(RevisionTrigger(table));
    }
    return statements;
}

// What people write about a checkpoint; goes with it. The index is that of a page in its order.
std::vector<QString> CommentTable() {
    return {u"CREATE TABLE comment (id INTEGER PRIMARY KEY AUTOINCREMENT, checkpoint_id INTEGER NOT"
            " NULL REFERENCES checkpoint(id) ON DELETE CASCADE, person TEXT NOT NULL,"
            " text TEXT NOT NULL, at INTEGER NOT NULL)"_s,
            u"CREATE INDEX comment_of_checkpoint ON comment (checkpoint_id, id)"_s};
}

// Pages, states and numbers of drawings. What is removed gives neither its id nor its number to
// another one, as the bin may bring it back.
std::vector<QString> DrawingColumns() {
    std::vector<QString> statements{
        u"ALTER TABLE drawing ADD COLUMN pages INTEGER NOT NULL DEFAULT 0"_s,
        u"ALTER TABLE drawing ADD COLUMN last_number INTEGER NOT NULL DEFAULT 0"_s,
        u"ALTER TABLE drawing ADD COLUMN revision INTEGER NOT NULL DEFAULT 0"_s,
        u"CREATE TRIGGER drawing_revision AFTER UPDATE OF name, file_uuid, pages ON drawing BEGIN"
        " UPDATE drawing SET revision = old.revision + 1 WHERE id = new.id; END"_s,
        u"ALTER TABLE checkpoint ADD COLUMN page INTEGER NOT NULL DEFAULT 0"_s,
        u"CREATE TABLE given_id (name TEXT PRIMARY KEY, id INTEGER NOT NULL) WITHOUT ROWID"_s,
    };
    for (const QString& table : {u"drawing"_s, u"checkpoint"_s}) {
        statements.push_back(GivenTrigger(table));
    }
    return statements;
}

// Components of the model, what was done to issues, and which files no record has yet. A picture
// that is removed doesn't give its id to another one, as the bin may bring it back.
std::vector<QString> IssueWork() {
    return {
        u"CREATE TABLE component (ppid INTEGER NOT NULL REFERENCES project(ppid), handle TEXT NOT"
        " NULL, floor TEXT NOT NULL, position_key TEXT NOT NULL, name TEXT NOT NULL,"
        " sub_name TEXT NOT NULL, kind TEXT NOT NULL, properties TEXT NOT NULL,"
        " PRIMARY KEY (ppid, handle)) WITHOUT ROWID"_s,
        u"CREATE INDEX component_of_floor ON component (ppid, floor, handle)"_s,
        u"CREATE TABLE issue_history (id INTEGER PRIMARY KEY AUTOINCREMENT, issue_id INTEGER NOT"
        " NULL REFERENCES issue(id) ON DELETE CASCADE, at INTEGER NOT NULL, person TEXT NOT NULL,"
        " deed INTEGER NOT NULL, old_text TEXT NOT NULL, new_text TEXT NOT NULL,"
        " n INTEGER NOT NULL)"_s,
        u"CREATE INDEX history_of_issue ON issue_history (issue_id, id)"_s,
        u"ALTER TABLE issue ADD COLUMN revision INTEGER NOT NULL DEFAULT 0"_s,
        RevisionTrigger(u"issue"_s),
        u"CREATE INDEX issue_by_code ON issue (qr_code) WHERE qr_code <> ''"_s,
        GivenTrigger(u"issue_pic"_s),
        u"CREATE TABLE upload (uuid TEXT PRIMARY KEY, at INTEGER NOT NULL) WITHOUT ROWID"_s,
        u"INSERT INTO upload SELECT uuid, CAST(strftime('%s', 'now') AS INTEGER) FROM file"
        " WHERE kind = 9"_s,
    };
}

} // namespace

std::vector<std::vector<QString>> SchemaSteps() {
    std::vector<QString> first = Settings();
    for (const auto& part :
         {CatalogueTables(), FilesTables(), BimPhotosTables(), PdfPhotosTables(), IssuesTables()}) {
        first.insert(first.end(), part.begin(), part.end());
    }
    return {first,
            IssuePanelIndex(),
            PicPanelTables(),
            HiddenPhotosTable(),
            ChangeTable(),
            FilingsTable(),
            RevisionColumns(),
            CommentTable(),
            DrawingColumns(),
            IssueWork(),
            RichTextSchema(),
            SetupSchema(),
            PhotoFactSchema()};
}

} // namespace site
