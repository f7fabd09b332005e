#include "host/ui/plan/FloorPlanView.h"

#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"

#include "toolkit/GbkText.h"

namespace host {

FloorPlanView::FloorPlanView(FloorPlanPane& planPane)
    : m_pane(planPane), m_markSet({toolkit::FromGbk, toolkit::ToGbk}) {
    const FloorPlanCanvas& canvas = m_pane.Canvas();
    connect(&canvas, &FloorPlanCanvas::FlagOpened, this, &ModelView::FlagOpened);
    connect(&canvas, &FloorPlanCanvas::FlagMenuWanted, this, &ModelView::FlagMenuWanted);
    Redraw();
}

FloorPlanView::~FloorPlanView() {
    m_pane.Canvas().SetMarks(nullptr);
}

void FloorPlanView::GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) {
    components.clear();
}

void FloorPlanView::SaveViewState(std::vector<qint32>& viewState) {
    const FloorPlanState& shown = m_pane.Canvas().State();
    viewState = {shown.floor, shown.chosen};
}

void FloorPlanView::RestoreViewState(const std::vector<qint32>& viewState) {
    if (viewState.empty()) {
        return;
    }
    FloorPlanCanvas& canvas = m_pane.Canvas();
    canvas.SetFloor(viewState[0]);
    const auto& floors = canvas.Model().floors;
    if (viewState.size() < 2 || canvas.State().floor != viewState[0] || floors.empty()) {
        return;
    }
    const auto& places = floors[canvas.State().floor].intersections;
    if (viewState[1] >= 0 && viewState[1] < int(places.size())) {
        canvas.LocateKey(places[viewState[1]].positionKey);
    }
}

void FloorPlanView::SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>& groups) {
    m_markSet.SetPhotos(groups);
    Redraw();
}

void FloorPlanView::SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    if (m_markSet.SetIssues(groups)) {
        Redraw();
    }
}

bool FloorPlanView::LocatePicture(const QString& positionKey, qint32 markId) {
    return Locate(m_markSet.FindPhoto(positionKey, markId));
}

bool FloorPlanView::LocateIssue(const QString& questionId) {
    return Locate(m_markSet.FindIssue(questionId));
}

bool FloorPlanView::Locate(const std::optional<MarkFlag>& flag) {
    return flag && m_pane.Canvas().LocateFlag(*flag);
}

void FloorPlanView::ShowComponentProperties(qint32, const QString&, const QString&) {}

qint32 FloorPlanView::GetViewTool() {
    return m_tool;
}

void FloorPlanView::SetViewTool(qint32 newTool) {
    m_tool = newTool;
}

void FloorPlanView::BeginComponentPick() {}

void FloorPlanView::SetMarkTable(const std::map<qint32, KX_DATA::MarkRecord>& marks) {
    m_markSet.SetMarkTable(marks);
}

void FloorPlanView::SetHiddenPhotos(const HiddenPhotos& photos) {
    m_markSet.SetHidden(photos);
}

void FloorPlanView::ShowMarks(MarkKind kind, bool on) {
    m_markSet.Show(kind, on);
    Redraw();
}

bool FloorPlanView::ShowFloor(const QString& floor) {
    const int index = FindFloor(m_pane.Canvas().Model(), floor);
    m_pane.Canvas().SetFloor(index);
    return index >= 0;
}

void FloorPlanView::Redraw() {
    m_pane.Canvas().SetMarks(&m_markSet);
}

} // namespace host
