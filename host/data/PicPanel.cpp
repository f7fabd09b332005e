#include "host/data/PicPanel.h"

#include "host/data/Database.h"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

using FloorsByOrder = std::map<std::string, PanelFloor>;

/// The entry of a mark, a new one in its place by the id if there is none.
PanelMark& MarkOf(std::vector<PanelMark>& marks, qint32 markId) {
    const auto at = std::find_if(marks.begin(), marks.end(),
                                 [markId](const PanelMark& mark) { return mark.markId >= markId; });
    return at != marks.end() && at->markId == markId ? *at : *marks.insert(at, {markId, 0, {}});
}

/// Columns that every query here begins with: order of the floor, floor, text and key of the place.
PanelPlace PlaceFrom(const sqlite::RawRow& row, qint32 ppid) {
    return {ppid, row.Text(3), row.Text(2), {}};
}

PanelFloor& FloorFrom(const sqlite::RawRow& row, FloorsByOrder& floors) {
    PanelFloor& floor = floors[std::string(row.Utf8(0))];
    if (floor.places.empty()) {
        floor.name = row.Text(1);
    }
    return floor;
}

/// One project from the kept counts, whose rows come place by place.
void AddCounts(Database& database, qint32 ppid, FloorsByOrder& floors) {
    PanelFloor* floor = nullptr;
    std::string sortKey;
    std::string posText;
    std::string positionKey;
    std::vector<PanelMark> marks;
    const auto endPlace = [&] {
        if (floor != nullptr) {
            floor->places.back().marks = marks; // exactly as large as needed
        }
        marks.clear();
    };
    const auto take = [&](const sqlite::RawRow& row) {
        if (floor == nullptr || row.Utf8(3) != positionKey || row.Utf8(2) != posText ||
            row.Utf8(0) != sortKey) {
            endPlace();
            sortKey = row.Utf8(0);
            posText = row.Utf8(2);
            positionKey = row.Utf8(3);
            floor = &FloorFrom(row, floors);
            floor->places.push_back(PlaceFrom(row, ppid));
        }
        marks.push_back({row.Int(4), row.Int(5), {}});
    };
    database.Scan(u"SELECT floor_sort, floor, pos_text, position_key, mark_id, n"
                  " FROM bim_place_tally WHERE ppid = ?"
                  " ORDER BY floor_sort, pos_text, position_key, mark_id"_s,
                  {ppid}, take);
    endPlace();
}

/// One project photo by photo, in no order: sorting them by the database would take several times
/// as long as all the rest.
void AddPhotos(Database& database, const PanelFilter& filter, qint32 ppid, FloorsByOrder& floors) {
    struct Where {
        PanelFloor* floor;
        size_t place;
    };
    std::unordered_map<std::string, Where> places;
    std::string name;
    const auto take = [&](const sqlite::RawRow& row) {
        name = row.Utf8(0);
        name.append(1, '\n').append(row.Utf8(2)).append(1, '\n').append(row.Utf8(3));
        auto found = places.find(name);
        if (found == places.end()) {
            PanelFloor& floor = FloorFrom(row, floors);
            floor.places.push_back(PlaceFrom(row, ppid));
            found = places.emplace(name, Where{&floor, floor.places.size() - 1}).first;
        }
        PanelPlace& place = found->second.floor->places[found->second.place];
        PanelMark& mark = MarkOf(place.marks, row.Int(4));
        ++mark.count;
        mark.picIds.push_back(row.Int(5));
    };
    QVariantList values;
    const QString condition = PanelCondition(filter, ppid, values);
    database.Scan(u"SELECT floor_sort, floor, pos_text, CASE WHEN floor = '' THEN '' ELSE"
                  " position_key END, mark_id, id FROM bim_photo"_s +
                      (filter.timed ? sqlite::UseIndex(u"bim_by_time"_s) : QString()) + condition,
                  values, take);
}

bool PlaceComesFirst(const PanelPlace& left, const PanelPlace& right) {
    return std::tie(left.ppid, left.posText, left.positionKey) <
           std::tie(right.ppid, right.posText, right.positionKey);
}

} // namespace

std::vector<PanelFloor> PicPanel::Floors(const PanelFilter& filter) {
    FloorsByOrder floors;
    for (const qint32 ppid : DifferentProjects(filter)) {
        if (filter.HasLimits()) {
            AddPhotos(database, filter, ppid, floors);
        } else {
            AddCounts(database, ppid, floors);
        }
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
        database.Scan(
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

} // namespace host
