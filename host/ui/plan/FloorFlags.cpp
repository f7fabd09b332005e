#include "host/ui/plan/FloorFlags.h"

#include <QHash>

#include <algorithm>
#include <unordered_map>

namespace host {

namespace {

/// Looks intersections up by key, and by axes for what was only written down.
class PlaceFinder {
public:
    explicit PlaceFinder(const PlanFloor& planFloor) : m_floor(planFloor) {
        for (int at = 0; at < int(m_floor.intersections.size()); ++at) {
            m_byKey[m_floor.intersections[at].positionKey] = at;
        }
    }

    int PlaceOf(const MarkFlag& flag) {
        if (flag.kind == MarkKind::Photos) {
            const auto found = m_byKey.find(flag.positionKey);
            return found == m_byKey.end() || flag.positionKey.isEmpty() ? kShelf : found->second;
        }
        const auto [found, isNew] = m_byText.try_emplace(flag.placeText, kShelf);
        if (isNew) {
            found->second = FindIntersection(m_floor, flag.placeText);
        }
        return found->second;
    }

private:
    const PlanFloor& m_floor;
    std::unordered_map<QString, int> m_byKey;
    std::unordered_map<QString, int> m_byText;
};

/// The shelf behind all places.
unsigned PlaceOrder(const PlacedFlag& flag) {
    return unsigned(flag.place);
}

} // namespace

std::vector<PlacedFlag> PlaceFlags(const ShownMarks& marks, const PlanFloor& floor) {
    PlaceFinder finder(floor);
    std::vector<PlacedFlag> flags;
    for (MarkFlag& flag : marks.FlagsOf(floor.name, floor.ppid)) {
        const int place = finder.PlaceOf(flag);
        flags.push_back({std::move(flag), place});
    }
    std::stable_sort(flags.begin(), flags.end(), [](const auto& one, const auto& other) {
        return PlaceOrder(one) < PlaceOrder(other);
    });
    return flags;
}

int FloorOfFlag(const FloorPlanModel& model, const MarkFlag& flag) {
    if (const auto place = FindPlace(model, flag.positionKey)) {
        return place->floor;
    }
    return FindFloor(model, flag.floor, flag.ppid);
}

int ShelfCount(const std::vector<PlacedFlag>& flags) {
    return int(std::count_if(flags.begin(), flags.end(),
                             [](const PlacedFlag& flag) { return flag.place == kShelf; }));
}

QString FlagPlaceCaption(const PlanFloor& floor, const PlacedFlag& flag) {
    return flag.place == kShelf ? flag.flag.placeText
                                : PlaceCaption(floor, floor.intersections[flag.place]);
}

} // namespace host
