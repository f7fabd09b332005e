// Picking components: the plan for it under a bar that says what to do.
#pragma once

#include "host/ui/pick/PlanComponent.h"
#include "host/ui/plan/FloorPlanModel.h"

#include <QWidget>

class CStaticFilespec;
class QLabel;
class QPushButton;

namespace host {

class PickCanvas;

/// Stands in the plan's place while components are picked. Knows no services. Thread: user
/// interface. Owned by the pane of the plan.
class PickPane final : public QWidget {
    Q_OBJECT

public:
    explicit PickPane(QWidget* parent);

    void Begin(const FloorPlanModel& model, int floor, const ComponentSource& source);
    [[nodiscard]] PickCanvas& Canvas() const { return *m_canvas; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

signals:
    /// Left by "完成" or Enter, or by "取消" or Escape.
    void Ended(bool confirmed);
    void PropertiesWanted(const host::PlanComponent& component);

private:
    QWidget* MakePickBar();
    void ShowPicked();
    void FitBar();

    QLabel* m_hint = nullptr;
    CStaticFilespec* m_picked = nullptr;
    QPushButton* m_properties = nullptr;
    PickCanvas* m_canvas = nullptr;
};

} // namespace host
