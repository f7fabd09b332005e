#include "site/sqlite/SetupTables.h"

#include "services/IKXAuthMng.h"
#include "site/FloorOrder.h"
#include "site/SetupState.h"
#include "site/sqlite/Database.h"

namespace site {

using namespace Qt::StringLiterals;

std::vector<QString> SetupSchema() {
    const QString all = u"%1, %2, %3, %4"_s.arg(
        QString::number(KX_DATA::kRightAddLabels), QString::number(KX_DATA::kRightEdit),
        QString::number(KX_DATA::kRightDelete), QString::number(KX_DATA::kRightShowHide));
    const QString give = u"INSERT INTO person_right SELECT p.id, %1 FROM person p WHERE "_s.arg(
        QString::number(kRightSetup));
    return {
        u"ALTER TABLE project ADD COLUMN archived INTEGER NOT NULL DEFAULT 0"_s,
        u"ALTER TABLE workset ADD COLUMN archived INTEGER NOT NULL DEFAULT 0"_s,
        u"ALTER TABLE person ADD COLUMN active INTEGER NOT NULL DEFAULT 1"_s,
        u"ALTER TABLE mark ADD COLUMN place INTEGER NOT NULL DEFAULT 0"_s,
        u"UPDATE mark SET place = id"_s,
        u"CREATE INDEX component_of_position ON component (position_key)"_s,
        u"CREATE INDEX rich_of_position ON rich_text (position_key)"_s,
        give + u"(SELECT count(*) FROM person_right r WHERE r.person_id = p.id AND r.number IN"
               " (%1)) = 4"_s.arg(all),
        give + u"p.id = (SELECT min(id) FROM person) AND NOT EXISTS (SELECT 1 FROM person_right"
               " WHERE number = %1)"_s.arg(QString::number(kRightSetup)),
    };
}

QString SortKeyOfFloor(Database& database, qint32 ppid, const QString& floor) {
    const QVariant kept =
        database.Value(u"SELECT sort_key FROM floor WHERE ppid = ? AND name = ?"_s, {ppid, floor});
    return kept.isValid() ? kept.toString() : FloorSortKey(floor);
}

void RefreshPlace(Database& database, BinKind kind, qint64 id) {
    const QString key =
        u"floor_sort = coalesce((SELECT sort_key FROM floor f WHERE f.ppid = %1.ppid"
        " AND f.name = %1.floor), floor_sort) WHERE id = ?"_s;
    if (kind == BinKind::BimPhoto) {
        database.Exec(u"UPDATE bim_photo SET (floor, axis_x, axis_y, pos_text) = (SELECT p.floor,"
                      " p.axis_x, p.axis_y, p.axis_x || '/' || p.axis_y FROM position p WHERE"
                      " p.position_key = bim_photo.position_key) WHERE id = ? AND EXISTS (SELECT 1"
                      " FROM position p WHERE p.position_key = bim_photo.position_key AND"
                      " (p.floor, p.axis_x, p.axis_y) <> (bim_photo.floor, bim_photo.axis_x,"
                      " bim_photo.axis_y))"_s,
                      {id});
        database.Exec(u"UPDATE bim_photo SET "_s + key.arg(u"bim_photo"_s), {id});
    } else if (kind == BinKind::Issue) {
        database.Exec(u"UPDATE issue SET "_s + key.arg(u"issue"_s), {id});
    }
}

QString OrderedFloorKey(int place, const QString& floor) {
    // Before "1" with a digit and "2", behind the photos without a floor.
    return u"1!"_s + QString::number(place).rightJustified(6, u'0') + u' ' + floor;
}

} // namespace site
