#include "host/ui/plan/FloorPlanView.h"

#include "host/ui/pick/PickCanvas.h"
#include "host/ui/pick/PickPane.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"

#include "toolkit/GbkText.h"

namespace host {

FloorPlanView::FloorPlanView(FloorPlanPane& planPane)
    : m_pane(planPane), m_markSet({toolkit::FromGbk, toolkit::ToGbk}) {
    const FloorPlanCanvas& canvas = m_pane.Canvas();
    connect(&canvas, &FloorPlanCanvas::FlagOpened, this, &ModelView::FlagOpened);
    connect(&canvas, &FloorPlanCanvas::FlagMenuWanted, this, &ModelView::FlagMenuWanted);
    connect(&m_pane.Picks(), &PickPane::Ended, this, &FloorPlanView::EndPick);
    connect(&m_pane.Picks(), &PickPane::PropertiesWanted, this,
            [this](const PlanComponent& component) {
                emit PropertiesWanted(component.ppid, component.floor, component.handle);
            });
    Redraw();
}

FloorPlanView::~FloorPlanView() {
    m_pane.Canvas().SetMarks(nullptr);
}

void FloorPlanView::GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) {
    components.clear();
    for (const PlanComponent& picked : Picked()) {
        KX_DATA::PickedComponent component;
        component.id = picked.ppid;
        component.floor = picked.floor;
        component.text1 = picked.positionKey;
        component.componentName = picked.name;
        component.componentHandle = picked.handle;
        component.componentSubName = picked.subName;
        component.text4 = picked.kind;
        components.push_back(component);
    }
}

void FloorPlanView::SaveViewState(std::vector<qint32>& viewState) {
    const FloorPlanState& shown = m_pane.Canvas().State();
    const QPoint scrolled = m_pane.Scrolled();
    viewState = {shown.floor, shown.chosen, scrolled.x(), scrolled.y()};
}

void FloorPlanView::RestoreViewState(const std::vector<qint32>& viewState) {
    constexpr std::size_t kValues = 4;
    FloorPlanCanvas& canvas = m_pane.Canvas();
    const auto& floors = canvas.Model().floors;
    // The model may be another one by now.
    if (viewState.size() != kValues || viewState[0] < 0 || viewState[0] >= int(floors.size())) {
        return;
    }
    canvas.Show(viewState[0], viewState[1]);
    m_pane.ScrollTo({viewState[2], viewState[3]});
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
    return flag && !IsPicking() && m_pane.Canvas().LocateFlag(*flag);
}

void FloorPlanView::ShowComponentProperties(qint32 ppid, const QString& floor,
                                            const QString& handle) {
    emit PropertiesWanted(ppid, floor, handle);
}

qint32 FloorPlanView::GetViewTool() {
    return m_tool;
}

void FloorPlanView::SetViewTool(qint32 newTool) {
    m_tool = newTool;
}

void FloorPlanView::BeginComponentPick() {
    emit PickBegins();
    m_picked.clear();
    m_pane.BeginPick([this](qint32 ppid, const QString& floor) {
        return m_components ? m_components(ppid, floor) : std::vector<PlanComponent>();
    });
}

bool FloorPlanView::IsPicking() const {
    return m_pane.IsPicking();
}

const std::vector<PlanComponent>& FloorPlanView::Picked() const {
    return IsPicking() ? m_pane.Picks().Canvas().State().picked : m_picked;
}

void FloorPlanView::EndPick(bool confirmed) {
    if (!IsPicking()) {
        return;
    }
    m_picked = confirmed ? m_pane.Picks().Canvas().State().picked : std::vector<PlanComponent>();
    m_pane.EndPick();
    emit PickEnded(confirmed);
}

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
    if (IsPicking()) {
        return false;
    }
    const int index = FindFloor(m_pane.Canvas().Model(), floor);
    m_pane.Canvas().SetFloor(index);
    return index >= 0;
}

void FloorPlanView::Redraw() {
    m_pane.Canvas().SetMarks(&m_markSet);
}

} // namespace host
