// A face of the main window's central area: the drawings of the project, one at a time.
#pragma once

#include "host/ui/drawing/DrawingCanvas.h"

class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;

namespace host {

/// The choice of drawing, its pages and zoom above the canvas; a line that says what a click does
/// now, where it does something else than opening. Knows no services. Thread: user interface.
/// Owned by its parent.
class DrawingPane final : public QWidget {
    Q_OBJECT

public:
    explicit DrawingPane(QWidget* parent);

    [[nodiscard]] SheetStore& Store() const { return *m_store; }
    [[nodiscard]] DrawingCanvas& Canvas() const { return *m_canvas; }

    /// Entries of the choice; `current` -1: none. Sends no signal.
    void SetDrawings(const QStringList& names, int current);
    /// The person may set checkpoints, and bring drawings in.
    void SetMayChange(bool may);
    /// What a click does now; empty: it opens checkpoints.
    void SetHint(const QString& hint);
    [[nodiscard]] QString Hint() const;
    void SetPlacing(bool on);
    /// "检查点 4" for the flag at this place of the pane; empty beside one.
    [[nodiscard]] QString PointCaptionUnder(const QPoint& at) const;

signals:
    void DrawingChosen(int index);
    /// The button for new checkpoints was switched.
    void PlacingWanted(bool on);
    void ImportWanted();
    /// The person gives up what the hint asks for.
    void HintLeft();
    /// A drawing that couldn't be shown is tried again.
    void RetryWanted();
    /// Files were dropped: on a flag, or beside one (0).
    void PathsDropped(const QStringList& paths, qint32 pointId);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* MakeBar();
    QWidget* MakeHintLine();
    QToolButton* MakeButton(const QString& icon, const QString& tip, const QString& name);
    void ShowPages();
    void ShowState();

    SheetStore* m_store = nullptr;
    DrawingCanvas* m_canvas = nullptr;
    QComboBox* m_choice = nullptr;
    QToolButton* m_previous = nullptr;
    QToolButton* m_next = nullptr;
    QLabel* m_page = nullptr;
    QToolButton* m_out = nullptr;
    QToolButton* m_in = nullptr;
    QToolButton* m_fit = nullptr;
    QToolButton* m_place = nullptr;
    QToolButton* m_import = nullptr;
    QPushButton* m_retry = nullptr;
    QWidget* m_hintLine = nullptr;
    QLabel* m_hint = nullptr;
};

} // namespace host
