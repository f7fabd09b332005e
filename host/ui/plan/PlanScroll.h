// The window onto a plan that may be larger.
#pragma once

#include <QScrollArea>

namespace host {

class PlanSurface;

/// Makes the canvas as large as the window, or as much larger as its floor needs. Owns the canvas.
/// Thread: user interface.
class PlanScroll final : public QScrollArea {
public:
    PlanScroll(PlanSurface* planCanvas, QWidget* parent);

    /// After a change of what the canvas shows.
    void Fit();
    /// Scrolls as little as needed to show an area of the canvas with some room around it.
    void ShowArea(const QRectF& area);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void TellVisible();

    PlanSurface* m_canvas;
};

} // namespace host
