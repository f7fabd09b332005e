// The floor plan as the view that the module works with.
#pragma once

#include "host/ui/ModelView.h"
#include "host/ui/marks/ShownMarks.h"

namespace host {

class FloorPlanPane;

/// The plain one of the client's views: it shows marks at their intersections, locates them, and
/// lets nobody pick components. Thread: user interface. Owned by the client.
class FloorPlanView final : public ModelView {
    Q_OBJECT

public:
    /// The pane must outlive the view.
    explicit FloorPlanView(FloorPlanPane& planPane);
    ~FloorPlanView() override;

    void GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) override;
    /// The state is the floor's number in the list and the chosen intersection.
    void SaveViewState(std::vector<qint32>& viewState) override;
    void RestoreViewState(const std::vector<qint32>& viewState) override;
    void SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>& groups) override;
    void SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>& groups) override;
    /// True if photo marks are displayed and the mark is among them; its floor comes up, the flag
    /// into sight, and it blinks. An empty key means what hangs on no floor.
    bool LocatePicture(const QString& positionKey, qint32 markId) override;
    /// The same for an issue.
    bool LocateIssue(const QString& questionId) override;
    void ShowComponentProperties(qint32 ppid, const QString& floor, const QString& handle) override;
    qint32 GetViewTool() override;
    void SetViewTool(qint32 newTool) override;
    void BeginComponentPick() override;

    void SetMarkTable(const std::map<qint32, KX_DATA::MarkRecord>& marks) override;
    void SetHiddenPhotos(const HiddenPhotos& photos) override;
    void ShowMarks(MarkKind kind, bool on) override;
    bool ShowFloor(const QString& floor) override;

private:
    bool Locate(const std::optional<MarkFlag>& flag);
    void Redraw();

    FloorPlanPane& m_pane;
    ShownMarks m_markSet;
    qint32 m_tool = 0;
};

} // namespace host
