#include "site/sqlite/SetupWriter.h"

#include "site/FloorOrder.h"
#include "site/StoreName.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SetupTables.h"
#include "site/sqlite/SetupUses.h"

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

namespace {

QString TextOf(const SetupCrossing& crossing) {
    return u"%1 %2"_s.arg(crossing.floor, PositionText(crossing.axisX, crossing.axisY));
}

std::map<QString, SetupCrossing> ByKey(const std::vector<SetupCrossing>& crossings) {
    std::map<QString, SetupCrossing> found;
    for (const SetupCrossing& crossing : crossings) {
        if (!crossing.positionKey.isEmpty()) {
            found[crossing.positionKey] = crossing;
        }
    }
    return found;
}

/// Of floors that give their names to each other, meanwhile: no name that a person could give.
QString AsideName(const QString& floor) {
    return QChar(1) + floor;
}

bool HasFloor(const SetupGrid& grid, const QString& name) {
    return std::any_of(grid.floors.begin(), grid.floors.end(),
                       [&](const SetupFloor& floor) { return floor.name == name; });
}

/// Under whatever name.
bool IsKept(const SetupGrid& wanted, const QString& name) {
    return std::any_of(wanted.floors.begin(), wanted.floors.end(),
                       [&](const SetupFloor& floor) { return floor.was == name; });
}

bool IsNaturalOrder(const std::vector<SetupFloor>& floors) {
    return std::is_sorted(floors.begin(), floors.end(),
                          [](const SetupFloor& one, const SetupFloor& other) {
                              return FloorSortKey(one.name) < FloorSortKey(other.name);
                          });
}

} // namespace

void SetupWriter::RemoveCrossings(const SetupGrid& seen, const SetupGrid& wanted) {
    const std::map<QString, SetupCrossing> kept = ByKey(wanted.crossings);
    for (const SetupCrossing& gone : seen.crossings) {
        if (kept.contains(gone.positionKey)) {
            continue;
        }
        const QString uses = UsesOfPosition(m_database, gone.positionKey);
        if (!uses.isEmpty()) {
            RefuseUsed(SetupList::Crossing, TextOf(gone), uses, u"可以改为“不在模型中”。"_s);
            continue;
        }
        m_database.Exec(u"DELETE FROM position WHERE position_key = ?"_s, {gone.positionKey});
    }
}

void SetupWriter::RemoveFloors(qint32 ppid, const SetupGrid& seen, const SetupGrid& wanted) {
    for (const SetupFloor& gone : seen.floors) {
        if (IsKept(wanted, gone.name)) {
            continue;
        }
        // Another floor may have taken its name.
        const QString name = HasFloor(wanted, gone.name) ? AsideName(gone.name) : gone.name;
        const QString uses = UsesOfFloorNamed(m_database, ppid, name);
        if (!uses.isEmpty()) {
            RefuseUsed(SetupList::Floor, gone.name, uses, {});
        } else if (m_database
                       .Value(u"SELECT 1 FROM position WHERE ppid = ? AND floor = ? LIMIT 1"_s,
                              {ppid, name})
                       .isValid()) {
            // A crossing that moves to another floor, or was refused.
            m_refusals.push_back(u"楼层“%1”上还有轴线交点，不能删除。"_s.arg(gone.name));
        } else {
            m_database.Exec(u"DELETE FROM floor WHERE ppid = ? AND name = ?"_s, {ppid, name});
        }
    }
}

void SetupWriter::RenameFloor(qint32 ppid, const SetupFloor& floor, const QString& key) {
    m_database.Exec(u"INSERT INTO floor (ppid, name, sort_key) VALUES (?, ?, ?)"_s,
                    {ppid, floor.name, key});
    m_database.Exec(u"UPDATE position SET floor = ? WHERE ppid = ? AND floor = ?"_s,
                    {floor.name, ppid, floor.was});
    m_database.Exec(u"DELETE FROM floor WHERE ppid = ? AND name = ?"_s, {ppid, floor.was});
    m_database.Exec(u"UPDATE component SET floor = ? WHERE ppid = ? AND floor = ?"_s,
                    {floor.name, ppid, floor.was});
    m_database.Exec(
        u"UPDATE bim_photo SET floor = ?, floor_sort = ? WHERE ppid = ? AND floor = ?"_s,
        {floor.name, key, ppid, floor.was});
    m_database.Exec(u"UPDATE issue SET floor = ?, floor_sort = ? WHERE ppid = ? AND floor = ?"_s,
                    {floor.name, key, ppid, floor.was});
}

// Floors in the order of their numbers keep the keys that go by them, so that one which an import
// adds later comes to its place by itself.
void SetupWriter::OrderFloors(qint32 ppid, const SetupGrid& seen, const SetupGrid& wanted) {
    const bool natural = IsNaturalOrder(wanted.floors);
    std::vector<SetupFloor> floors = wanted.floors;
    const auto stepAside = [&](const QString& name) {
        const QString aside = AsideName(name);
        RenameFloor(ppid, {aside, name}, FloorSortKey(aside));
        return aside;
    };
    for (const SetupFloor& floor : seen.floors) {
        if (!IsKept(wanted, floor.name) && HasFloor(wanted, floor.name)) {
            stepAside(floor.name);
        }
    }
    for (SetupFloor& floor : floors) {
        if (!floor.was.isEmpty() && floor.was != floor.name && HasFloor(seen, floor.name)) {
            floor.was = stepAside(floor.was);
        }
    }
    int place = 0;
    for (const SetupFloor& floor : floors) {
        const QString key = natural ? FloorSortKey(floor.name) : OrderedFloorKey(place, floor.name);
        ++place;
        if (floor.was.isEmpty()) {
            m_database.Exec(u"INSERT INTO floor (ppid, name, sort_key) VALUES (?, ?, ?)"_s,
                            {ppid, floor.name, key});
        } else if (floor.was != floor.name) {
            RenameFloor(ppid, floor, key);
        } else if (SortKeyOfFloor(m_database, ppid, floor.name) != key) {
            m_database.Exec(u"UPDATE floor SET sort_key = ? WHERE ppid = ? AND name = ?"_s,
                            {key, ppid, floor.name});
            m_database.Exec(u"UPDATE bim_photo SET floor_sort = ? WHERE ppid = ? AND floor = ?"_s,
                            {key, ppid, floor.name});
            m_database.Exec(u"UPDATE issue SET floor_sort = ? WHERE ppid = ? AND floor = ?"_s,
                            {key, ppid, floor.name});
        }
    }
}

void SetupWriter::MoveCrossing(qint32 ppid, const SetupCrossing& crossing) {
    m_database.Exec(u"UPDATE position SET floor = ?, axis_x = ?, axis_y = ?, valid = ? WHERE"
                    " position_key = ?"_s,
                    {crossing.floor, crossing.axisX, crossing.axisY, crossing.valid ? 1 : 0,
                     crossing.positionKey});
    m_database.Exec(
        u"UPDATE bim_photo SET floor = ?, floor_sort = ?, axis_x = ?, axis_y = ?, pos_text = ?"
        " WHERE position_key = ? AND (floor, axis_x, axis_y) <> (?, ?, ?)"_s,
        {crossing.floor, SortKeyOfFloor(m_database, ppid, crossing.floor), crossing.axisX,
         crossing.axisY, PositionText(crossing.axisX, crossing.axisY), crossing.positionKey,
         crossing.floor, crossing.axisX, crossing.axisY});
}

void SetupWriter::WriteCrossings(qint32 ppid, const SetupGrid& seen, const SetupGrid& wanted) {
    const std::map<QString, SetupCrossing> before = ByKey(seen.crossings);
    // Crossings that give each other their axes: first all of them step aside.
    for (const SetupCrossing& crossing : wanted.crossings) {
        const auto found = before.find(crossing.positionKey);
        if (found != before.end() && found->second != crossing) {
            m_database.Exec(u"UPDATE position SET axis_x = char(1) || position_key WHERE"
                            " position_key = ?"_s,
                            {crossing.positionKey});
        }
    }
    for (const SetupCrossing& crossing : wanted.crossings) {
        const auto found = before.find(crossing.positionKey);
        if (found == before.end()) {
            m_database.Exec(u"INSERT INTO position (position_key, ppid, floor, axis_x, axis_y,"
                            " valid) VALUES (?, ?, ?, ?, ?, ?)"_s,
                            {NewStoreName(), ppid, crossing.floor, crossing.axisX, crossing.axisY,
                             crossing.valid ? 1 : 0});
        } else if (found->second != crossing) {
            MoveCrossing(ppid, crossing);
        }
    }
}

void SetupWriter::Grid(const SetupGrid& seen, const SetupGrid& wanted) {
    const qint32 ppid = PpidOf(wanted.project);
    RemoveCrossings(seen, wanted);
    if (!m_refusals.empty()) {
        return;
    }
    OrderFloors(ppid, seen, wanted);
    WriteCrossings(ppid, seen, wanted);
    RemoveFloors(ppid, seen, wanted);
    m_database.Log().Note(ChangeKind::Place, ppid, 0, m_by.person);
    m_database.Log().Note(ChangeKind::BimPhoto, ppid, 0, m_by.person);
    m_database.Log().Note(ChangeKind::Issue, ppid, 0, m_by.person);
}

} // namespace site
