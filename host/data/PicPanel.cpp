#include "host/data/PicPanel.h"

#include "host/data/Database.h"

#include <algorithm>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// The entry of a mark, a new one in its place by the id if there is none.
PanelMark& MarkOf(std::vector<PanelMark>& marks, qint32 markId) {
    const auto at = std::find_if(marks.begin(), marks.end(),
                                 [markId](const PanelMark& mark) { return mark.markId >= markId; });
    return at != marks.end() && at->markId == markId ? *at : *marks.insert(at, {markId, 0, {}});
}

} // namespace

/// Puts rows together whose floors come in any order.
class PicPanel::Builder {
public:
    /// Floor order, floor, position text, key: the first columns of every query here.
    PanelPlace& PlaceOf(const sqlite::RawRow& row, qint32 ppid) {
        // Rows of one place mostly follow each other; only a change of place is looked up.
        if (place != nullptr && row.Utf8(0) == sortKey && row.Utf8(2) == posText &&
            row.Utf8(3) == positionKey) {
            return *place;
        }
        sortKey = row.Utf8(0);
        posText = row.Utf8(2);
        positionKey = row.Utf8(3);
        const auto [at, isNew] =
            places.try_emplace(sortKey + '\n' + posText + '\n' + positionKey, nullptr);
        if (isNew) {
            Floor& floor = floors[sortKey];
            floor.name = row.Text(1);
            floor.places.push_back(
                std::make_unique<PanelPlace>(PanelPlace{ppid, row.Text(3), row.Text(2), {}}));
            at->second = floor.places.back().get();
        }
        place = at->second;
        return *place;
    }

    void NextProject() {
        places.clear();
        place = nullptr;
    }

    [[nodiscard]] std::vector<PanelFloor> Take() {
        std::vector<PanelFloor> taken;
        for (auto& [key, floor] : floors) {
            PanelFloor& end = taken.emplace_back();
            end.name = floor.name;
            end.places.reserve(floor.places.size());
            for (std::unique_ptr<PanelPlace>& one : floor.places) {
                end.places.push_back(std::move(*one));
            }
            std::stable_sort(end.places.begin(), end.places.end(), PlaceComesFirst);
        }
        return taken;
    }

private:
    static bool PlaceComesFirst(const PanelPlace& left, const PanelPlace& right) {
        return std::tie(left.ppid, left.posText, left.positionKey) <
               std::tie(right.ppid, right.posText, right.positionKey);
    }

    struct Floor {
        QString name;
        std::vector<std::unique_ptr<PanelPlace>> places;
    };
    std::map<std::string, Floor> floors; ///< by their order
    std::unordered_map<std::string, PanelPlace*> places;
    PanelPlace* place = nullptr;
    std::string sortKey;
    std::string posText;
    std::string positionKey;
};

std::vector<PanelFloor> PicPanel::Floors(const PanelFilter& filter) {
    Builder builder;
    for (const qint32 ppid : DifferentProjects(filter)) {
        if (filter.HasLimits()) {
            AddPhotos(builder, filter, ppid);
        } else {
            AddCounts(builder, ppid);
        }
        builder.NextProject();
    }
    return builder.Take();
}

void PicPanel::AddCounts(Builder& builder, qint32 ppid) {
    database.Scan(u"SELECT floor_sort, floor, pos_text, position_key, mark_id, n"
                  " FROM bim_place_tally WHERE ppid = ?"
                  " ORDER BY floor_sort, pos_text, position_key, mark_id"_s,
                  {ppid}, [&](const sqlite::RawRow& row) {
                      builder.PlaceOf(row, ppid).marks.push_back({row.Int(4), row.Int(5), {}});
                  });
}

// Sorting by the database would take several times as long as all the rest.
void PicPanel::AddPhotos(Builder& builder, const PanelFilter& filter, qint32 ppid) {
    QVariantList values;
    const QString condition = PanelCondition(filter, ppid, values);
    database.Scan(u"SELECT floor_sort, floor, pos_text, CASE WHEN floor = '' THEN '' ELSE"
                  " position_key END, mark_id, id FROM bim_photo"_s +
                      (filter.timed ? sqlite::UseIndex(u"bim_by_time"_s) : QString()) + condition,
                  values, [&](const sqlite::RawRow& row) {
                      PanelMark& mark = MarkOf(builder.PlaceOf(row, ppid).marks, row.Int(4));
                      ++mark.count;
                      mark.picIds.push_back(row.Int(5));
                  });
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
