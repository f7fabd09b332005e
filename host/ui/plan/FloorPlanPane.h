// The main window's central area: the list of floors beside the plan of the one that is shown.
#pragma once

#include "host/ui/plan/FloorPlanModel.h"

#include <QWidget>

class QListWidget;

namespace host {

class FloorPlanCanvas;
class PlanScroll;

/// Keeps list and plan on the same floor. Knows no services. Lives on the interface thread, owned
/// by its parent widget.
class FloorPlanPane final : public QWidget {
    Q_OBJECT

public:
    explicit FloorPlanPane(QWidget* parent);

    void SetModel(FloorPlanModel model);
    [[nodiscard]] FloorPlanCanvas& Canvas() const { return *m_canvas; }
    /// Empty without floors.
    [[nodiscard]] QString CurrentFloor() const;

private:
    void FillFloors();
    void FitFloors();

    QListWidget* m_floors = nullptr;
    FloorPlanCanvas* m_canvas = nullptr;
    PlanScroll* m_scroll = nullptr;
};

} // namespace host
