#include "site/sqlite/PicPanel.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/MarksByPlace.h"
#include "site/sqlite/PanelCondition.h"
#include "site/sqlite/PlaceTally.h"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace site {

using namespace Qt::StringLiterals;

namespace {

using FloorsByOrder = std::map<std::string, PanelFloor>;

std::vector<PlacedMark> ReadPlaced(Database& database, const QString& sql,
                                   const QVariantList& values) {
    std::vector<PlacedMark> placed;
    database.Scan(sql, values, [&](const sqlite::RawRow& row) {
        placed.push_back({row.Int(0), row.Int(1), row.Int(2)});
    });
    return placed;
}

/// The kept counts of one project.
MarksByPlace Counts(Database& database, qint32 ppid) {
    return {ReadPlaced(database, u"SELECT place, mark_id, n FROM bim_place_tally WHERE ppid = ?"_s,
                       {ppid}),
            MarksByPlace::Values::Counts};
}

/// The shown photos of one project within the limits, those of a mark by time.
MarksByPlace Photos(Database& database, const PanelFilter& filter, qint32 ppid) {
    QVariantList values{ppid};
    QString sql = u"SELECT place, mark_id, id FROM bim_place_photo WHERE ppid = ?"_s;
    if (filter.timed) {
        sql += u" AND modified BETWEEN ? AND ?"_s;
        values << filter.from << filter.to;
    }
    if (!filter.person.isEmpty()) {
        sql +=
            u" AND id IN (SELECT id FROM bim_photo"_s + PanelCondition(filter, ppid, values) + u')';
    }
    return {ReadPlaced(database, sql, values), MarksByPlace::Values::PicIds};
}

/// Counts of the hidden photos of one project, within the limits where there are some.
MarksByPlace HiddenCounts(Database& database, const PanelFilter& filter, qint32 ppid) {
    QString sql = u"SELECT place, mark_id, n FROM bim_hidden_tally WHERE ppid = ?"_s;
    QVariantList values{ppid};
    if (filter.HasLimits()) {
        QString limits = u" AND photo.ppid = ?"_s;
        if (filter.timed) {
            limits += u" AND photo.modified BETWEEN ? AND ?"_s;
            values << filter.from << filter.to;
        }
        if (!filter.person.isEmpty()) {
            limits += u" AND photo.modifier = ?"_s;
            values << filter.person;
        }
        sql = u"SELECT place, mark_id, n FROM (%1)"_s.arg(HiddenCountsSql(limits));
    }
    return {ReadPlaced(database, sql, values), MarksByPlace::Values::Counts};
}

/// Both by mark id, and so is what comes of them.
std::vector<PanelMark> WithHidden(std::vector<PanelMark> shown,
                                  const std::vector<PanelMark>& hidden) {
    for (const PanelMark& mark : hidden) {
        auto found = std::lower_bound(
            shown.begin(), shown.end(), mark.markId,
            [](const PanelMark& one, qint32 markId) { return one.markId < markId; });
        if (found == shown.end() || found->markId != mark.markId) {
            found = shown.insert(found, {mark.markId, 0, {}, 0});
        }
        found->hidden = mark.count;
    }
    return shown;
}

/// Places are joined here and not by the database, which would look each of them up for each photo.
void AddPlaces(Database& database, qint32 ppid, const MarksByPlace& shown,
               const MarksByPlace& hidden, FloorsByOrder& floors) {
    const auto take = [&](const sqlite::RawRow& row) {
        std::vector<PanelMark> marksHere =
            WithHidden(shown.MarksAt(row.Int(0)), hidden.MarksAt(row.Int(0)));
        if (marksHere.empty()) {
            return;
        }
        PanelFloor& floor = floors[std::string(row.Utf8(1))];
        if (floor.places.empty()) {
            floor.name = row.Text(2);
        }
        floor.places.push_back({ppid, row.Text(4), row.Text(3), std::move(marksHere)});
    };
    database.Scan(u"SELECT place, floor_sort, floor, pos_text, position_key FROM bim_place"
                  " WHERE ppid = ? ORDER BY floor_sort, pos_text, position_key, floor"_s,
                  {ppid}, take);
}

bool PlaceComesFirst(const PanelPlace& left, const PanelPlace& right) {
    return std::tie(left.ppid, left.posText, left.positionKey) <
           std::tie(right.ppid, right.posText, right.positionKey);
}

} // namespace

std::vector<PanelFloor> PicPanel::Floors(const PanelFilter& filter) {
    FloorsByOrder floors;
    for (const qint32 ppid : DifferentProjects(filter)) {
        const MarksByPlace marks =
            filter.HasLimits() ? Photos(m_database, filter, ppid) : Counts(m_database, ppid);
        AddPlaces(m_database, ppid, marks, HiddenCounts(m_database, filter, ppid), floors);
    }
    std::vector<PanelFloor> taken;
    taken.reserve(floors.size());
    for (auto& [key, floor] : floors) {
        if (!std::is_sorted(floor.places.begin(), floor.places.end(), PlaceComesFirst)) {
            std::sort(floor.places.begin(), floor.places.end(), PlaceComesFirst);
        }
        taken.push_back(std::move(floor));
    }
    return taken;
}

std::vector<qint32> PicPanel::PicsOfMark(const PanelFilter& filter, qint32 markId) {
    std::vector<std::pair<qint64, qint32>> found;
    for (const qint32 ppid : DifferentProjects(filter)) {
        QVariantList values;
        const QString condition = PanelCondition(filter, ppid, values);
        values << markId;
        m_database.Scan(
            u"SELECT modified, id FROM bim_photo"_s + condition + u" AND mark_id = ?"_s, values,
            [&](const sqlite::RawRow& row) { found.emplace_back(row.Int64(0), row.Int(1)); });
    }
    std::sort(found.begin(), found.end(), std::greater<>());
    std::vector<qint32> picIds;
    picIds.reserve(found.size());
    for (const auto& [modified, id] : found) {
        picIds.push_back(id);
    }
    return picIds;
}

} // namespace site
