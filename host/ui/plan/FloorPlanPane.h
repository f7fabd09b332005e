// The main window's central area: the list of floors beside the plan of the one that is shown.
#pragma once

#include "host/ui/pick/PlanComponent.h"
#include "host/ui/plan/FloorPlanModel.h"

#include <QWidget>

class QListWidget;
class QPoint;
class QStackedWidget;

namespace host {

class FloorPlanCanvas;
class PickPane;
class PlanScroll;

/// Keeps list and plan on the same floor. While components are picked, a plan of them stands in the
/// other's place, which stays as it was. Knows no services. Lives on the interface thread, owned
/// by its parent widget.
class FloorPlanPane final : public QWidget {
    Q_OBJECT

public:
    explicit FloorPlanPane(QWidget* parent);

    void SetModel(FloorPlanModel model);
    [[nodiscard]] FloorPlanCanvas& Canvas() const { return *m_canvas; }
    /// Empty without floors.
    [[nodiscard]] QString CurrentFloor() const;

    /// On the floor that is shown, with nothing picked; also while a pick runs.
    void BeginPick(const ComponentSource& source);
    void EndPick();
    [[nodiscard]] bool IsPicking() const;
    [[nodiscard]] PickPane& Picks() const { return *m_picks; }
    /// How far the plan is scrolled.
    [[nodiscard]] QPoint Scrolled() const;
    void ScrollTo(const QPoint& place);

private:
    void FillFloors();
    void FitFloors();
    void TakeFloor(int row);
    void ShowFloorRow();

    QListWidget* m_floors = nullptr;
    FloorPlanCanvas* m_canvas = nullptr;
    PlanScroll* m_scroll = nullptr;
    PickPane* m_picks = nullptr;
    QStackedWidget* m_plans = nullptr;
};

} // namespace host
