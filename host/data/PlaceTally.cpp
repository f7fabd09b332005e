#include "host/data/PlaceTally.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString KeyOf(const QString& row) {
    return u"CASE WHEN %1floor = '' THEN '' ELSE %1position_key END"_s.arg(row);
}

QString AddSql() {
    return u"INSERT INTO bim_place_tally (ppid, floor_sort, pos_text, position_key, mark_id, floor,"
           " n) VALUES (new.ppid, new.floor_sort, new.pos_text, %1, new.mark_id, new.floor, 1)"
           " ON CONFLICT DO UPDATE SET n = n + 1;"_s.arg(KeyOf(u"new."_s));
}

QString RemoveSql() {
    const QString row =
        u"ppid = old.ppid AND floor_sort = old.floor_sort AND pos_text ="
        " old.pos_text AND position_key = %1 AND mark_id = old.mark_id"_s.arg(KeyOf(u"old."_s));
    return u"UPDATE bim_place_tally SET n = n - 1 WHERE %1;"
           " DELETE FROM bim_place_tally WHERE %1 AND n <= 0;"_s.arg(row);
}

QString Trigger(const QString& name, const QString& event, const QString& condition,
                const QString& work) {
    return u"CREATE TRIGGER bim_place_tally_%1 AFTER %2 ON bim_photo WHEN %3 BEGIN %4 END"_s.arg(
        name, event, condition, work);
}

} // namespace

std::vector<QString> PlaceTallySchema() {
    const QString shown = u"new.status = 0"_s;
    const QString wasShown = u"old.status = 0"_s;
    const QString move = u"UPDATE OF ppid, floor, floor_sort, pos_text, position_key, mark_id,"
                         " status"_s;
    return {u"CREATE TABLE bim_place_tally (ppid INTEGER NOT NULL, floor_sort TEXT NOT NULL,"
            " pos_text TEXT NOT NULL, position_key TEXT NOT NULL, mark_id INTEGER NOT NULL,"
            " floor TEXT NOT NULL, n INTEGER NOT NULL, PRIMARY KEY (ppid, floor_sort, pos_text,"
            " position_key, mark_id)) WITHOUT ROWID"_s,
            Trigger(u"add"_s, u"INSERT"_s, shown, AddSql()),
            Trigger(u"remove"_s, u"DELETE"_s, wasShown, RemoveSql()),
            Trigger(u"leave"_s, move, wasShown, RemoveSql()),
            Trigger(u"come"_s, move, shown, AddSql())};
}

QString PlaceTallyFillSql() {
    return u"INSERT INTO bim_place_tally (ppid, floor_sort, pos_text, position_key, mark_id, floor,"
           " n) SELECT ppid, floor_sort, pos_text, %1 AS place, mark_id, min(floor),"
           " count(*) FROM bim_photo WHERE status = 0 GROUP BY ppid, floor_sort, pos_text, place,"
           " mark_id"_s.arg(KeyOf(QString()));
}

} // namespace host
