#include "host/app/PlanReader.h"

#include "services/Factories.h"
#include "services/IVeskPicMng.h"

namespace host {

namespace {

/// Photos at one intersection, hidden ones included, as the console lists them.
int CountPhotosAt(qint32 ppid, const QString& positionKey) {
    KX_DATA::PicQueryFilter filter;
    filter.presetKey = positionKey;
    filter.projectIds = {ppid};
    KX_DATA::PageRequest request;
    request.pageSize = 1;
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    GetVeskPicMng()->QueryBimPics(filter, request, result, rows);
    return result.totalCount;
}

PlanFloor ReadFloor(qint32 ppid, const QString& name) {
    KX_DATA::IVeskPicMng& photos = *GetVeskPicMng();
    PlanFloorBuilder builder(name);
    std::vector<QString> axesX;
    photos.GetFloorAxesX(ppid, name, axesX);
    for (const QString& axisX : axesX) {
        std::vector<KX_DATA::AxisYEntry> axesY;
        photos.GetFloorAxesY(ppid, name, axisX, axesY);
        for (const auto& [axisY, key] : axesY)
            builder.Add(axisX, axisY, key, CountPhotosAt(ppid, key));
    }
    return builder.Finish();
}

} // namespace

FloorPlanModel ReadFloorPlan(qint32 ppid, const QString& projectName) {
    FloorPlanModel model;
    model.projectName = projectName;
    std::vector<QString> floors;
    if (ppid == 0 || GetVeskPicMng()->GetProjectFloors(ppid, floors) != KX_DATA::kServiceOk)
        return model;
    for (const QString& floor : floors)
        model.floors.push_back(ReadFloor(ppid, floor));
    return model;
}

} // namespace host
