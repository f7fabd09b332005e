// A component of the model as the floor plan knows it.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace host {

struct PlanComponent {
    QString handle;      ///< unique in its project
    QString floor;       ///< name; empty: it hangs on none
    QString positionKey; ///< of its intersection; empty: it stands at none
    QString name;
    QString subName; ///< may be empty
    QString kind;    ///< "柱"; may be empty
    qint32 ppid = 0;
};

/// Those of a floor; ppid 0 with an empty floor: what hangs on no floor, of all open projects.
using ComponentSource =
    std::function<std::vector<PlanComponent>(qint32 ppid, const QString& floor)>;

/// "KZ-1 框架柱", the name alone without a second one.
[[nodiscard]] QString ComponentCaption(const PlanComponent& component);
/// Handles are unique in a project only.
[[nodiscard]] bool IsSameComponent(const PlanComponent& one, const PlanComponent& other);

} // namespace host
