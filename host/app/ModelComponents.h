// Components of the model on their way from the data to the windows.
#pragma once

#include "host/ui/pick/ComponentDock.h"
#include "host/ui/pick/PlanComponent.h"

namespace host {

class HostSession;

/// The axes of an intersection; empty without one.
struct PlaceAxes {
    QString axisX;
    QString axisY;

    /// "3-B轴", as phones write it; empty without an intersection.
    [[nodiscard]] QString Short() const;
};

/// Empty for a key that the floor doesn't have. May throw DataError.
[[nodiscard]] PlaceAxes AxesOfKey(const HostSession& session, qint32 ppid, const QString& floor,
                                  const QString& positionKey);

/// Those of a floor as the plan wants them. What can't be read is told, and there are none then.
[[nodiscard]] std::vector<PlanComponent> ReadPlanComponents(const HostSession& session, qint32 ppid,
                                                            const QString& floor);
/// Everything that is known of a component; the title is empty if there is none, or if it can't be
/// read, which is told.
[[nodiscard]] ComponentFacts ReadComponentFacts(const HostSession& session, qint32 ppid,
                                                const QString& floor, const QString& handle);

} // namespace host
