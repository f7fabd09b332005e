#include "host/app/PlanReader.h"

#include "host/app/Faults.h"
#include "site/IPanelCounts.h"

#include <algorithm>

namespace host {

namespace {

using CountsByKey = std::map<QString, PhotoCount>;

PhotoCount CountOf(const site::PanelPlace& place) {
    PhotoCount count;
    for (const site::PanelMark& mark : place.marks) {
        count += {mark.count, mark.hidden};
    }
    return count;
}

/// The photos of one project, floor by floor in the order of the floors. On no floor: by an empty
/// key.
class ProjectPhotos {
public:
    ProjectPhotos(qint32 ppid, const std::vector<site::PanelFloor>& photos) {
        for (const site::PanelFloor& floor : photos) {
            for (const site::PanelPlace& place : floor.places) {
                if (place.ppid != ppid) {
                    continue;
                }
                if (m_names.empty() || m_names.back() != floor.name) {
                    m_names.push_back(floor.name);
                }
                m_byFloor[floor.name][place.positionKey] += CountOf(place);
            }
        }
    }

    [[nodiscard]] const std::vector<QString>& Floors() const { return m_names; }
    [[nodiscard]] PhotoCount At(const QString& floor, const QString& key) const {
        const auto found = m_byFloor.find(floor);
        if (found == m_byFloor.end()) {
            return {};
        }
        const auto count = found->second.find(key);
        return count == found->second.end() ? PhotoCount() : count->second;
    }
    [[nodiscard]] PhotoCount On(const QString& floor) const {
        PhotoCount all;
        if (const auto found = m_byFloor.find(floor); found != m_byFloor.end()) {
            for (const auto& [key, count] : found->second) {
                all += count;
            }
        }
        return all;
    }

private:
    std::vector<QString> m_names;
    std::map<QString, CountsByKey> m_byFloor;
};

PlanFloor ReadFloor(qint32 ppid, const QString& name, const ProjectPhotos& counts, PlanAxes& axes) {
    PlanFloorBuilder builder(name);
    for (const auto& [axisX, axesY] : axes.Of(ppid, name)) {
        for (const auto& [axisY, key] : axesY) {
            builder.Add(axisX, axisY, key, counts.At(name, key));
        }
    }
    PlanFloor floor = builder.Finish();
    PhotoCount all = counts.On(name);
    all -= CountPhotos(floor);
    floor.unplaced = all;
    floor.ppid = ppid;
    return floor;
}

/// The floors of the model, and behind them those that it has no longer.
std::vector<QString> FloorsOf(std::vector<QString> ofModel, const ProjectPhotos& counts) {
    for (const QString& name : counts.Floors()) {
        if (!name.isEmpty() && std::find(ofModel.begin(), ofModel.end(), name) == ofModel.end()) {
            ofModel.push_back(name);
        }
    }
    return ofModel;
}

} // namespace

FloorPlanModel ReadFloorPlan(const std::vector<site::ProjectEntry>& projects,
                             const std::vector<site::PanelFloor>& photos, PlanAxes& axes) {
    FloorPlanModel model;
    PlanFloor others;
    for (const site::ProjectEntry& project : projects) {
        if (model.projectName.isEmpty()) {
            model.projectName = project.name;
        }
        const ProjectPhotos counts(project.ppid, photos);
        others.unplaced += counts.On(QString());
        std::vector<QString> floors;
        if (!axes.Floors(project.ppid, floors)) {
            continue;
        }
        for (const QString& name : FloorsOf(floors, counts)) {
            PlanFloor floor = ReadFloor(project.ppid, name, counts, axes);
            floor.project = projects.size() > 1 ? project.name : QString();
            model.floors.push_back(std::move(floor));
        }
    }
    if (!model.floors.empty() || others.unplaced.Total() > 0) {
        model.floors.push_back(others);
    }
    return model;
}

FloorPlanModel ReadFloorPlan(HostSession& session, PlanAxes& axes) {
    std::vector<site::ProjectEntry> projects;
    std::vector<site::PanelFloor> photos;
    const bool isRead = WithoutFault(session, [&] {
        if (session.CurrentProject().ppid == 0) {
            return;
        }
        projects = session.OpenProjects();
        site::PanelFilter everything;
        for (const site::ProjectEntry& project : projects) {
            everything.ppids.push_back(project.ppid);
        }
        photos = session.Site().PanelCounts().Photos(everything);
    });
    return isRead ? ReadFloorPlan(projects, photos, axes) : FloorPlanModel();
}

} // namespace host
