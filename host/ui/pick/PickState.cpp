#include "host/ui/pick/PickState.h"

#include "host/ui/LocateText.h"

#include <QStringList>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

auto FindPicked(const PickState& state, const PlanComponent& component) {
    return std::find_if(state.picked.begin(), state.picked.end(),
                        [&](const auto& other) { return IsSameComponent(other, component); });
}

} // namespace

bool IsPicked(const PickState& state, const PlanComponent& component) {
    return FindPicked(state, component) != state.picked.end();
}

PickState PickOnly(PickState state, const PlanComponent& component) {
    state.picked = {component};
    return state;
}

PickState TogglePick(PickState state, const PlanComponent& component) {
    const auto found = FindPicked(state, component);
    if (found == state.picked.end()) {
        state.picked.push_back(component);
    } else {
        state.picked.erase(state.picked.begin() + (found - state.picked.begin()));
    }
    return state;
}

PickState PickOnFloor(PickState state, int floor, int floors) {
    if (floor >= 0 && floor < floors && floor != state.floor) {
        state.floor = floor;
        state.hovered = -1;
        state.cursor = -1;
        state.front = -1;
    }
    return state;
}

QString PickedText(const PickState& state) {
    if (state.picked.empty()) {
        return u"未选构件"_s;
    }
    if (state.picked.size() == 1) {
        const PlanComponent& only = state.picked.front();
        return u"已选：%1（%2）"_s.arg(
            ComponentCaption(only), only.floor.isEmpty() ? u"无楼层"_s : FloorCaption(only.floor));
    }
    QStringList names;
    for (const PlanComponent& component : state.picked) {
        names << component.name;
    }
    return u"已选 %1 个构件：%2"_s.arg(QString::number(names.size()), names.join(u'、'));
}

} // namespace host
