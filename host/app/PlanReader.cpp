#include "host/app/PlanReader.h"

#include "services/Factories.h"
#include "services/IVeskPicMng.h"

namespace host {

namespace {

/// Counts photos at intersections, hidden ones included, as the console lists them. Once a query
/// has failed it asks no more: the person has been told, and once is enough.
class PhotoCounter final {
public:
    explicit PhotoCounter(qint32 projectId) : ppid(projectId) {}

    int CountAt(const QString& positionKey) {
        KX_DATA::PicQueryFilter filter;
        filter.presetKey = positionKey;
        filter.projectIds = {ppid};
        KX_DATA::PageRequest request;
        request.pageSize = 1;
        KX_DATA::PageResult result;
        std::vector<KX_DATA::BimPicRow> rows;
        if (!failed)
            failed =
                GetVeskPicMng()->QueryBimPics(filter, request, result, rows) != KX_DATA::kServiceOk;
        return failed ? 0 : result.totalCount;
    }

private:
    qint32 ppid;
    bool failed = false;
};

PlanFloor ReadFloor(qint32 ppid, const QString& name, PhotoCounter& counter) {
    KX_DATA::IVeskPicMng& photos = *GetVeskPicMng();
    PlanFloorBuilder builder(name);
    std::vector<QString> axesX;
    photos.GetFloorAxesX(ppid, name, axesX);
    for (const QString& axisX : axesX) {
        std::vector<KX_DATA::AxisYEntry> axesY;
        photos.GetFloorAxesY(ppid, name, axisX, axesY);
        for (const auto& [axisY, key] : axesY)
            builder.Add(axisX, axisY, key, counter.CountAt(key));
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
    PhotoCounter counter(ppid);
    for (const QString& floor : floors)
        model.floors.push_back(ReadFloor(ppid, floor, counter));
    return model;
}

} // namespace host
