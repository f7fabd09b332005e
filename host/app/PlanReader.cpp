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

FloorPlanModel ReadFloorPlan(qint32 ppid, const QString& projectName, const PhotoCounts& counts) {
    FloorPlanModel model;
    model.projectName = projectName;
    std::vector<QString> floors;
    if (ppid == 0 || GetVeskPicMng()->GetProjectFloors(ppid, floors) != KX_DATA::kServiceOk)
        return model;
    for (const QString& floor : floors)
        model.floors.push_back(ReadFloor(ppid, floor, counts));
    return model;
}

} // namespace host
