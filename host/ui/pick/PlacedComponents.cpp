#include "host/ui/pick/PlacedComponents.h"

#include <QStringList>

#include <algorithm>
#include <unordered_map>

namespace host {

using namespace Qt::StringLiterals;

std::vector<PlacedComponent> PlaceComponents(std::vector<PlanComponent> components,
                                             const PlanFloor& floor) {
    std::unordered_map<QString, int> byKey;
    for (int at = 0; at < int(floor.intersections.size()); ++at) {
        byKey[floor.intersections[at].positionKey] = at;
    }
    std::vector<PlacedComponent> placed;
    placed.reserve(components.size());
    for (PlanComponent& component : components) {
        const auto found = byKey.find(component.positionKey);
        const bool isThere = !component.positionKey.isEmpty() && found != byKey.end();
        placed.push_back({std::move(component), isThere ? found->second : kShelf});
    }
    std::stable_sort(placed.begin(), placed.end(), [](const auto& one, const auto& other) {
        return unsigned(one.place) < unsigned(other.place); // the shelf behind all places
    });
    return placed;
}

int ShelfCount(const std::vector<PlacedComponent>& components) {
    return int(std::count_if(components.begin(), components.end(),
                             [](const auto& placed) { return placed.place == kShelf; }));
}

FlagLayout LayoutComponents(const FloorPlanLayout& layout,
                            const std::vector<PlacedComponent>& components, int first) {
    std::vector<int> places;
    places.reserve(components.size());
    for (const PlacedComponent& placed : components) {
        places.push_back(placed.place);
    }
    return LayoutAtPlaces(layout, places, first);
}

QString ComponentTip(const PlanFloor& floor, const std::vector<PlacedComponent>& components,
                     const FlagBox& box) {
    constexpr int kMostLines = 12;
    QStringList lines;
    const auto add = [&](int at) {
        const PlanComponent& component = components[size_t(at)].component;
        lines << (component.kind.isEmpty() ? QString() : component.kind + u' ') +
                     ComponentCaption(component);
    };
    if (box.flag >= 0) {
        add(box.flag);
        lines << (box.place == kShelf ? u"不在轴网上"_s
                                      : PlaceCaption(floor, floor.intersections[box.place]));
    }
    for (const int at : box.rest) {
        add(at);
    }
    if (lines.size() > kMostLines) {
        lines = lines.mid(0, kMostLines - 1) << u"……"_s;
    }
    return lines.join(u'\n');
}

} // namespace host
