// Floors and axes of the model, kept until they change.
#pragma once

#include "services/PicRecords.h"

#include <QString>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace host {

class HostSession;

/// Asks the client's services, once for what there is; what a service can't tell is asked again.
/// Thread: user interface.
class PlanAxes final {
public:
    /// Keeps everything for good.
    PlanAxes() = default;
    /// Keeps it until the feed of the open site tells of a change of places or projects.
    explicit PlanAxes(const HostSession& session);
    PlanAxes(const PlanAxes&) = delete;
    PlanAxes& operator=(const PlanAxes&) = delete;

    /// False where the service fails.
    [[nodiscard]] bool Floors(qint32 ppid, std::vector<QString>& floors);

    /// X axes with their Y axes.
    using Axes = std::vector<std::pair<QString, std::vector<KX_DATA::AxisYEntry>>>;
    [[nodiscard]] const Axes& Of(qint32 ppid, const QString& floor);

private:
    void Forget();

    std::map<qint32, std::vector<QString>> m_floors;
    std::map<std::pair<qint32, QString>, Axes> m_axes;
    Axes m_unkept;
    std::shared_ptr<void> m_changes;
};

} // namespace host
