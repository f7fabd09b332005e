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
    [[nodiscard]] FloorPlanCanvas& Canvas() const { return *canvas; }
    /// Empty without floors.
    [[nodiscard]] QString CurrentFloor() const;

private:
    void FillFloors();
    void FitFloors();

    QListWidget* floors = nullptr;
    FloorPlanCanvas* canvas = nullptr;
    PlanScroll* scroll = nullptr;
};

} // namespace host
