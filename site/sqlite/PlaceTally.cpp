#include "site/sqlite/PlaceTally.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString kPlaceColumns = u"ppid, floor_sort, pos_text, position_key, floor"_s;

/// What tells a place from others, of a photo's row.
QString PlaceOf(const QString& row) {
    return u"%1.ppid, %1.floor_sort, %1.pos_text, CASE WHEN %1.floor = '' THEN '' ELSE"
           " %1.position_key END, %1.floor"_s.arg(row);
}

QString AddSql() {
    return u"INSERT INTO bim_place (%1) SELECT %2 WHERE new.status = 0 ON CONFLICT DO NOTHING;"
           " INSERT INTO bim_place_photo (ppid, modified, id, place, mark_id) SELECT new.ppid,"
           " new.modified, new.id, place, new.mark_id FROM bim_place WHERE new.status = 0 AND"
           " (%1) = (%2);"_s.arg(kPlaceColumns, PlaceOf(u"new"_s));
}

QString RemoveSql() {
    return u"DELETE FROM bim_place_photo WHERE ppid = old.ppid AND modified = old.modified AND"
           " id = old.id;"_s;
}

QString Trigger(const QString& name, const QString& event, const QString& work) {
    return u"CREATE TRIGGER bim_place_%1 AFTER %2 BEGIN %3 END"_s.arg(name, event, work);
}

std::vector<QString> RemoveEarlier() {
    std::vector<QString> statements;
    for (const QString& name : {u"add"_s, u"remove"_s, u"leave"_s, u"come"_s}) {
        statements.push_back(u"DROP TRIGGER IF EXISTS bim_place_tally_"_s + name);
    }
    statements.push_back(u"DROP TABLE IF EXISTS bim_place_tally"_s);
    return statements;
}

std::vector<QString> Tables() {
    return {u"CREATE TABLE bim_place (place INTEGER PRIMARY KEY, ppid INTEGER NOT NULL, floor_sort"
            " TEXT NOT NULL, pos_text TEXT NOT NULL, position_key TEXT NOT NULL, floor TEXT NOT"
            " NULL, UNIQUE (%1))"_s.arg(kPlaceColumns),
            u"CREATE TABLE bim_place_photo (ppid INTEGER NOT NULL, modified INTEGER NOT NULL, id"
            " INTEGER NOT NULL, place INTEGER NOT NULL, mark_id INTEGER NOT NULL, PRIMARY KEY"
            " (ppid, modified, id)) WITHOUT ROWID"_s,
            u"CREATE TABLE bim_place_tally (ppid INTEGER NOT NULL, place INTEGER NOT NULL, mark_id"
            " INTEGER NOT NULL, n INTEGER NOT NULL, PRIMARY KEY (ppid, place, mark_id))"
            " WITHOUT ROWID"_s};
}

std::vector<QString> Triggers() {
    const QString tally = u"ppid = old.ppid AND place = old.place AND mark_id = old.mark_id"_s;
    return {Trigger(u"count"_s, u"INSERT ON bim_place_photo"_s,
                    u"INSERT INTO bim_place_tally (ppid, place, mark_id, n) VALUES (new.ppid,"
                    " new.place, new.mark_id, 1) ON CONFLICT DO UPDATE SET n = n + 1;"_s),
            Trigger(u"discount"_s, u"DELETE ON bim_place_photo"_s,
                    u"UPDATE bim_place_tally SET n = n - 1 WHERE %1;"
                    " DELETE FROM bim_place_tally WHERE %1 AND n <= 0;"_s.arg(tally)),
            Trigger(u"add"_s, u"INSERT ON bim_photo"_s, AddSql()),
            Trigger(u"remove"_s, u"DELETE ON bim_photo"_s, RemoveSql()),
            // One trigger does both: the order of several isn't laid down.
            Trigger(u"move"_s,
                    u"UPDATE OF ppid, floor, floor_sort, pos_text, position_key, mark_id, status,"
                    " modified ON bim_photo"_s,
                    RemoveSql() + u' ' + AddSql())};
}

const QString kHidden = u"bim_hidden_tally"_s;

QString HideSql() {
    return u"INSERT INTO bim_place (%1) SELECT %2 WHERE new.status <> 0 ON CONFLICT DO NOTHING;"
           " INSERT INTO %3 (ppid, place, mark_id, n) SELECT new.ppid, place, new.mark_id, 1 FROM"
           " bim_place WHERE new.status <> 0 AND (%1) = (%2) ON CONFLICT DO UPDATE SET n ="
           " n + 1;"_s.arg(kPlaceColumns, PlaceOf(u"new"_s), kHidden);
}

QString UnhideSql() {
    const QString tally =
        u"old.status <> 0 AND ppid = old.ppid AND mark_id = old.mark_id AND place = (SELECT place"
        " FROM bim_place WHERE (%1) = (%2))"_s.arg(kPlaceColumns, PlaceOf(u"old"_s));
    return u"UPDATE %1 SET n = n - 1 WHERE %2; DELETE FROM %1 WHERE %2 AND n <= 0;"_s.arg(kHidden,
                                                                                          tally);
}

/// Joins photos to their places, the photos always outside: the other way round each place would go
/// through all photos of its project.
QString AtPlace(const QString& photo) {
    return u"CROSS JOIN bim_place ON (bim_place.ppid, bim_place.floor_sort, bim_place.pos_text,"
           " bim_place.position_key, bim_place.floor) = (%1)"_s.arg(PlaceOf(photo));
}

} // namespace

std::vector<QString> PlaceTallySchema() {
    std::vector<QString> statements = RemoveEarlier();
    for (const auto& part : {Tables(), Triggers()}) {
        statements.insert(statements.end(), part.begin(), part.end());
    }
    return statements;
}

std::vector<QString> PlaceTallyFillSql() {
    const QString place = PlaceOf(u"photo"_s);
    return {u"INSERT INTO bim_place (%1) SELECT DISTINCT %2 FROM bim_photo AS photo"
            " WHERE photo.status = 0 ORDER BY 1, 2, 3, 4, 5"_s.arg(kPlaceColumns, place),
            u"INSERT INTO bim_place_photo (ppid, modified, id, place, mark_id) SELECT photo.ppid,"
            " photo.modified, photo.id, bim_place.place, photo.mark_id FROM bim_photo AS photo"
            " %1 WHERE photo.status = 0 ORDER BY 1, 2, 3"_s.arg(AtPlace(u"photo"_s))};
}

std::vector<QString> HiddenTallySchema() {
    return {u"CREATE TABLE %1 (ppid INTEGER NOT NULL, place INTEGER NOT NULL, mark_id INTEGER NOT"
            " NULL, n INTEGER NOT NULL, PRIMARY KEY (ppid, place, mark_id)) WITHOUT ROWID"_s.arg(
                kHidden),
            Trigger(u"hide"_s, u"INSERT ON bim_photo"_s, HideSql()),
            Trigger(u"unhide"_s, u"DELETE ON bim_photo"_s, UnhideSql()),
            Trigger(u"rehide"_s,
                    u"UPDATE OF ppid, floor, floor_sort, pos_text, position_key, mark_id, status ON"
                    " bim_photo"_s,
                    UnhideSql() + u' ' + HideSql())};
}

std::vector<QString> HiddenTallyFillSql() {
    return {u"INSERT INTO bim_place (%1) SELECT DISTINCT %2 FROM bim_photo AS photo"
            " WHERE photo.status <> 0 ORDER BY 1, 2, 3, 4, 5 ON CONFLICT DO NOTHING"_s.arg(
                kPlaceColumns, PlaceOf(u"photo"_s)),
            u"INSERT INTO %1 (ppid, place, mark_id, n) %2"_s.arg(kHidden, HiddenCountsSql({}))};
}

QString HiddenCountsSql(const QString& condition) {
    return u"SELECT photo.ppid, bim_place.place AS place, photo.mark_id AS mark_id, count(*) AS n"
           " FROM bim_photo AS photo %1 WHERE photo.status <> 0%2 GROUP BY 1, 2, 3"_s.arg(
               AtPlace(u"photo"_s), condition);
}

} // namespace site
