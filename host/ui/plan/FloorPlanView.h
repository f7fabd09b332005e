// The floor plan as the view that the module works with.
#pragma once

#include "host/ui/ModelView.h"
#include "host/ui/marks/ShownMarks.h"
#include "host/ui/pick/PlanComponent.h"

namespace host {

class FloorPlanPane;

/// The plain one of the client's views: it shows marks and components at their intersections,
/// locates marks and lets components be picked. While they are picked nothing is located.
/// Thread: user interface. Owned by the client.
class FloorPlanView final : public ModelView {
    Q_OBJECT

public:
    /// The pane must outlive the view.
    explicit FloorPlanView(FloorPlanPane& planPane);
    ~FloorPlanView() override;

    /// Of the pick that runs or was the last one. Their id is that of the project, text1 the key
    /// of the intersection, text2 and text3 stay empty, text4 is the kind.
    void GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) override;
    /// The state is the floor's number in the list, the chosen intersection, and how far the plan
    /// is scrolled to the right and down.
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
    /// Anew if a pick runs already. The pick isn't a tool that GetViewTool would report.
    void BeginComponentPick() override;

    /// Where components come from; empty: there are none.
    void SetComponents(ComponentSource source) { m_components = std::move(source); }
    [[nodiscard]] bool IsPicking() const;
    /// Of the pick that runs or was the last one.
    [[nodiscard]] const std::vector<PlanComponent>& Picked() const;
    /// Ends a pick that runs, with what is picked or without.
    void EndPick(bool confirmed);

    void SetMarkTable(const std::map<qint32, KX_DATA::MarkRecord>& marks) override;
    void SetHiddenPhotos(const HiddenPhotos& photos) override;
    void ShowMarks(MarkKind kind, bool on) override;
    bool ShowFloor(const QString& floor) override;

signals:
    /// A pick begins, also one that takes another's place.
    void PickBegins();
    /// What is picked can still be asked for.
    void PickEnded(bool confirmed);
    void PropertiesWanted(qint32 ppid, const QString& floor, const QString& handle);

private:
    bool Locate(const std::optional<MarkFlag>& flag);
    void Redraw();

    FloorPlanPane& m_pane;
    ShownMarks m_markSet;
    qint32 m_tool = 0;
    ComponentSource m_components;
    std::vector<PlanComponent> m_picked;
};

} // namespace host
