// The painted plan on which components are picked.
#pragma once

#include "host/ui/pick/PickState.h"
#include "host/ui/pick/PlacedComponents.h"
#include "host/ui/plan/PlanSurface.h"

namespace host {

/// Shows the components of one floor at their intersections and lets the person pick some, by mouse
/// and keyboard, on any floor. Knows neither services nor what the pick is for. Lives on the
/// interface thread, owned by its parent widget.
class PickCanvas final : public PlanSurface {
    Q_OBJECT

public:
    explicit PickCanvas(QWidget* parent);

    /// Begins anew on a floor with nothing picked. The source is asked once for each floor that is
    /// shown.
    void Begin(const FloorPlanModel& model, int floor, ComponentSource componentSource);
    /// The model may be another one now: floor and picks stay where it still has the floor. The
    /// components are asked for anew. Without any floor the pick is cancelled.
    void SetModel(const FloorPlanModel& model);
    void SetFloor(int floor);
    /// Holds nothing any more.
    void Clear();

    [[nodiscard]] const PickState& State() const { return m_state; }
    /// Of the present floor, and where they lie in this widget.
    [[nodiscard]] const std::vector<PlacedComponent>& Components() const { return m_components; }
    [[nodiscard]] const FlagLayout& Boxes() const { return m_boxes; }
    /// The component that the keys mean; null: none.
    [[nodiscard]] const PlanComponent* Current() const;

    [[nodiscard]] QSize SizeIn(const QSize& window) const override;
    void SetVisibleArea(const QRect& area) override;

signals:
    void FloorChanged(int floor);
    /// Of what is picked, or of what the keys mean.
    void Changed();
    void Confirmed();
    void Cancelled();
    void PropertiesWanted(const host::PlanComponent& component);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void Apply(PickState next);
    void ReadFloor();
    void LayOut();
    void Hit(int box, bool toggle);
    void Pick(int component, bool toggle);
    void OfferRest(int box, bool toggle);
    void MoveCursor(int dx, int dy);
    [[nodiscard]] const PlanFloor* Floor() const;

    FloorPlanModel m_model;
    ComponentSource m_source;
    PickState m_state;
    FloorPlanLayout m_layout;
    std::vector<PlacedComponent> m_components;
    FlagLayout m_boxes;
    QRect m_visible;
};

} // namespace host
