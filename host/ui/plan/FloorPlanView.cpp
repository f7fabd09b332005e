#include "host/ui/plan/FloorPlanView.h"

#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"

#include <algorithm>

namespace host {

FloorPlanView::FloorPlanView(FloorPlanPane& planPane) : pane(planPane) {}

void FloorPlanView::GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) {
    components.clear();
}

void FloorPlanView::SaveViewState(std::vector<qint32>& viewState) {
    const FloorPlanState& shown = pane.Canvas().State();
    viewState = {shown.floor, shown.chosen};
}

void FloorPlanView::RestoreViewState(const std::vector<qint32>& viewState) {
    if (viewState.empty())
        return;
    FloorPlanCanvas& canvas = pane.Canvas();
    canvas.SetFloor(viewState[0]);
    const auto& floors = canvas.Model().floors;
    if (viewState.size() < 2 || canvas.State().floor != viewState[0] || floors.empty())
        return;
    const auto& places = floors[canvas.State().floor].intersections;
    if (viewState[1] >= 0 && viewState[1] < int(places.size()))
        canvas.LocateKey(places[viewState[1]].positionKey);
}

void FloorPlanView::SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>& groups) {
    picMarkers = groups;
}

void FloorPlanView::SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    issueMarkers = groups;
}

bool FloorPlanView::LocatePicture(const QString& positionKey, qint32) {
    return pane.Canvas().LocateKey(positionKey);
}

bool FloorPlanView::LocateIssue(const QString& questionId) {
    for (const KX_DATA::IssueMarkGroup& group : issueMarkers) {
        const bool holds = std::any_of(
            group.entries.begin(), group.entries.end(),
            [&](const KX_DATA::IssueMarkEntry& entry) { return entry.itemKey == questionId; });
        if (!holds)
            continue;
        pane.Canvas().SetFloor(FindFloor(pane.Canvas().Model(), group.name));
        return true;
    }
    return false;
}

void FloorPlanView::ShowComponentProperties(qint32, const QString&, const QString&) {}

qint32 FloorPlanView::GetViewTool() {
    return tool;
}

void FloorPlanView::SetViewTool(qint32 newTool) {
    tool = newTool;
}

void FloorPlanView::BeginComponentPick() {}

} // namespace host
