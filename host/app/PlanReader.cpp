#include "host/app/PlanReader.h"

#include "services/Factories.h"
#include "services/IVeskPicMng.h"

namespace host {

namespace {

int CountAt(const PhotoCounts& counts, const QString& positionKey) {
    const auto found = counts.find(positionKey);
    return found == counts.end() ? 0 : found->second;
}

PlanFloor ReadFloor(qint32 ppid, const QString& name, const PhotoCounts& counts) {
    KX_DATA::IVeskPicMng& photos = *GetVeskPicMng();
    PlanFloorBuilder builder(name);
    std::vector<QString> axesX;
    photos.GetFloorAxesX(ppid, name, axesX);
    for (const QString& axisX : axesX) {
        std::vector<KX_DATA::AxisYEntry> axesY;
        photos.GetFloorAxesY(ppid, name, axisX, axesY);
        for (const auto& [axisY, key] : axesY)
            builder.Add(axisX, axisY, key, CountAt(counts, key));
    }
    return builder.Finish();
}

} // namespace

FloorPlanModel ReadFloorPlan(const std::vector<PlanProject>& projects) {
    FloorPlanModel model;
    PlanFloor others;
    for (const PlanProject& project : projects) {
        if (model.projectName.isEmpty())
            model.projectName = project.name;
        others.unplacedCount += project.withoutFloor;
        std::vector<QString> floors;
        if (GetVeskPicMng()->GetProjectFloors(project.ppid, floors) != KX_DATA::kServiceOk)
            continue;
        for (const QString& name : floors) {
            PlanFloor floor = ReadFloor(project.ppid, name, project.counts);
            floor.ppid = project.ppid;
            floor.project = projects.size() > 1 ? project.name : QString();
            model.floors.push_back(std::move(floor));
        }
    }
    if (!model.floors.empty() || others.unplacedCount > 0)
        model.floors.push_back(others);
    return model;
}

} // namespace host
