// The painted floor plan.
#pragma once

#include "host/ui/ModelView.h"
#include "host/ui/plan/FlagLayout.h"
#include "host/ui/plan/FloorPlanState.h"
#include "host/ui/plan/PlanSurface.h"

namespace host {

class Blink;
class PlaceCard;

/// Shows one floor of a model with the flags that stand on it, and lets the person choose an
/// intersection or open a flag by mouse and keyboard. Knows neither services nor where model and
/// marks come from. Lives on the interface thread, owned by its parent widget.
class FloorPlanCanvas final : public PlanSurface {
    Q_OBJECT

public:
    explicit FloorPlanCanvas(QWidget* parent);

    /// Keeps floor and chosen intersection where the new model still has them.
    void SetModel(FloorPlanModel newModel);
    void SetFloor(int floor);
    /// A floor of the model with one of its intersections chosen, or with none for kNoPlace and
    /// what it doesn't have.
    void Show(int floor, int place);
    /// False if no floor has the key; then nothing changes.
    bool LocateKey(const QString& positionKey);
    /// Borrowed until the next call; to be told again after each change of the marks. Null: none.
    void SetMarks(const ShownMarks* shownMarks);
    /// Brings up the floor of a flag that is shown and lets the flag blink; false if the plan has
    /// no floor for it.
    bool LocateFlag(const MarkFlag& flag);

    [[nodiscard]] const FloorPlanModel& Model() const { return m_model; }
    [[nodiscard]] const FloorPlanState& State() const { return m_state; }
    /// Null unless an intersection is chosen.
    [[nodiscard]] const PlanIntersection* Chosen() const;
    /// Middle of an intersection of the present floor, in this widget's pixels.
    [[nodiscard]] QPoint CentreOf(int place) const;
    /// Of the present floor, and where they lie in this widget.
    [[nodiscard]] const std::vector<PlacedFlag>& Flags() const { return m_flags; }
    [[nodiscard]] const FlagLayout& FlagsLayout() const { return m_flagLayout; }
    /// The flag that blinks; null: none does.
    [[nodiscard]] const MarkFlag* Blinking() const;
    [[nodiscard]] const Blink& Light() const { return *m_blink; }

    [[nodiscard]] QSize SizeIn(const QSize& window) const override;
    void SetVisibleArea(const QRect& area) override;

signals:
    void FloorChanged(int floor);
    /// Of a choice, also of none.
    void ChoiceChanged();
    /// The person wants to see the photos of the chosen intersection.
    void PhotosWanted(const QString& positionKey);
    void FlagOpened(const host::MarkFlag& flag);
    void FlagMenuWanted(const host::FlagMenuRequest& request);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    void Apply(const FloorPlanState& next);
    void LayOut();
    void LayOutFlags();
    void ReadFlags();
    void ShowCard();
    void ShowChosen();
    void AskForPhotos();
    void OpenChosen();
    void OpenBox(int box);
    void AskForMenu(const std::vector<int>& wanted, int place, const QPoint& at);
    [[nodiscard]] QPoint MenuPoint(const std::vector<int>& wanted) const;
    [[nodiscard]] QString TipAt(const QPoint& point) const;
    [[nodiscard]] int BlinkingFlag() const;
    [[nodiscard]] std::vector<int> FlagsAt(int place) const;
    [[nodiscard]] const PlanFloor* Floor() const;

    FloorPlanModel m_model;
    FloorPlanState m_state;
    FloorPlanLayout m_layout;
    const ShownMarks* m_marks = nullptr;
    std::vector<PlacedFlag> m_flags;
    FlagLayout m_flagLayout;
    Blink* m_blink = nullptr;
    MarkFlag m_blinking;
    PlaceCard* m_card = nullptr;
    QRect m_visible;
    int m_pressedBox = -1;
};

} // namespace host
