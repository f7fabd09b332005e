#include "host/ui/pick/PlanComponent.h"

namespace host {

QString ComponentCaption(const PlanComponent& component) {
    return component.subName.isEmpty() ? component.name : component.name + u' ' + component.subName;
}

bool IsSameComponent(const PlanComponent& one, const PlanComponent& other) {
    return one.handle == other.handle && one.ppid == other.ppid;
}

} // namespace host
