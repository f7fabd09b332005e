// The floor plan as the view that the module works with.
#pragma once

#include "services/IKXView.h"

namespace host {

class FloorPlanPane;

/// The plain one of the client's views: it can locate intersections, keeps the marks it is given,
/// and lets nobody pick components. Thread: user interface. Owned by the main window.
class FloorPlanView final : public KX_DATA::IKXView {
public:
    /// The pane must outlive the view.
    explicit FloorPlanView(FloorPlanPane& planPane);

    void GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) override;
    /// The state is the floor's number in the list and the chosen intersection.
    void SaveViewState(std::vector<qint32>& viewState) override;
    void RestoreViewState(const std::vector<qint32>& viewState) override;
    void SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>& groups) override;
    void SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>& groups) override;
    /// True if a floor of the open project has the intersection; it is then shown and chosen.
    bool LocatePicture(const QString& positionKey, qint32 markId) override;
    /// True if the issue is among the marks that the view was given; its floor is then shown.
    bool LocateIssue(const QString& questionId) override;
    void ShowComponentProperties(qint32 ppid, const QString& floor, const QString& handle) override;
    qint32 GetViewTool() override;
    void SetViewTool(qint32 newTool) override;
    void BeginComponentPick() override;

    [[nodiscard]] const std::vector<KX_DATA::PicMarkGroup>& PicMarkers() const {
        return picMarkers;
    }

private:
    FloorPlanPane& pane;
    std::vector<KX_DATA::PicMarkGroup> picMarkers;
    std::vector<KX_DATA::IssueMarkGroup> issueMarkers;
    qint32 tool = 0;
};

} // namespace host
