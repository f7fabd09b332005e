// The painted floor plan.
#pragma once

#include "host/ui/plan/FloorPlanLayout.h"
#include "host/ui/plan/FloorPlanState.h"

#include <QWidget>

class QFrame;
class QLabel;
class QPushButton;

namespace host {

/// Shows one floor of a model and lets the person choose an intersection by mouse and keyboard.
/// Knows neither services nor where the model comes from. Lives on the interface thread, owned by
/// its parent widget.
class FloorPlanCanvas final : public QWidget {
    Q_OBJECT

public:
    explicit FloorPlanCanvas(QWidget* parent);

    /// Keeps floor and chosen intersection where the new model still has them.
    void SetModel(FloorPlanModel newModel);
    void SetFloor(int floor);
    /// False if no floor has the key; then nothing changes.
    bool LocateKey(const QString& positionKey);

    [[nodiscard]] const FloorPlanModel& Model() const { return model; }
    [[nodiscard]] const FloorPlanState& State() const { return state; }
    /// Null unless an intersection is chosen.
    [[nodiscard]] const PlanIntersection* Chosen() const;
    /// Middle of an intersection of the present floor, in this widget's pixels.
    [[nodiscard]] QPoint CentreOf(int place) const;

signals:
    void FloorChanged(int floor);
    /// Of a choice, also of none.
    void ChoiceChanged();
    /// The person wants to see the photos of the chosen intersection.
    void PhotosWanted(const QString& positionKey);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    void MakeCard();
    void Apply(const FloorPlanState& next);
    void LayOut();
    void PlaceCard();
    void AskForPhotos();
    [[nodiscard]] const PlanFloor* Floor() const;

    FloorPlanModel model;
    FloorPlanState state;
    FloorPlanLayout layout;
    QFrame* card = nullptr;
    QLabel* cardText = nullptr;
    QPushButton* cardButton = nullptr;
};

} // namespace host
