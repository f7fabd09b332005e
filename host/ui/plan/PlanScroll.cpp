#include "host/ui/plan/PlanScroll.h"

#include "host/ui/plan/PlanSurface.h"

#include <QScrollBar>

namespace host {

PlanScroll::PlanScroll(PlanSurface* planCanvas, QWidget* parent)
    : QScrollArea(parent), m_canvas(planCanvas) {
    setFrameShape(QFrame::NoFrame);
    // The canvas takes the keys.
    setFocusPolicy(Qt::NoFocus);
    setWidget(m_canvas);
    setMinimumSize(160, 96); // on a small screen the panels beside it need room too
    connect(m_canvas, &PlanSurface::NeedsOtherSize, this, &PlanScroll::Fit);
    connect(m_canvas, &PlanSurface::AreaWanted, this, &PlanScroll::ShowArea);
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()}) {
        bar->setSingleStep(24);
    }
}

// Whether a bar is needed is decided here: left to the area, each bar would call for the other.
void PlanScroll::Fit() {
    const QSize whole = contentsRect().size();
    const int bar = verticalScrollBar()->sizeHint().width();
    QSize window = whole;
    bool isWide = m_canvas->SizeIn(window).width() > window.width();
    window.rheight() -= isWide ? bar : 0;
    const bool isHigh = m_canvas->SizeIn(window).height() > window.height();
    window.rwidth() -= isHigh ? bar : 0;
    isWide = isWide || m_canvas->SizeIn(window).width() > window.width();
    window.setHeight(whole.height() - (isWide ? bar : 0));
    setHorizontalScrollBarPolicy(isWide ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(isHigh ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    m_canvas->resize(m_canvas->SizeIn(window));
    TellVisible();
}

void PlanScroll::ShowArea(const QRectF& area) {
    constexpr int margin = 40;
    const QPoint centre = area.center().toPoint();
    ensureVisible(centre.x(), centre.y(), int(area.width() / 2) + margin,
                  int(area.height() / 2) + margin);
}

void PlanScroll::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Fit();
}

void PlanScroll::scrollContentsBy(int dx, int dy) {
    QScrollArea::scrollContentsBy(dx, dy);
    TellVisible();
}

void PlanScroll::TellVisible() {
    m_canvas->SetVisibleArea(QRect(-m_canvas->pos(), viewport()->size()));
}

} // namespace host
