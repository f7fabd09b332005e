#include "viewers/PaneSurface.h"

#include "toolkit/windows/WindowObject.h"

namespace gallery {

QWidget* PaneSurface::Make(IGalleryEvents& events, QWidget* parent) {
    m_pane = new GalleryPane(events, parent);
    return m_pane;
}

void PaneSurface::Detach() {
    if (m_pane) {
        m_pane->Detach();
    }
    m_pane.clear();
}

void PaneSurface::TakeFocus() {
    if (m_pane) {
        m_pane->setFocus(Qt::OtherFocusReason);
    }
}

void PaneSurface::SetCursor(Qt::CursorShape shape) {
    if (m_pane) {
        m_pane->setCursor(shape);
    }
}

void PaneSurface::UnsetCursor() {
    if (m_pane) {
        m_pane->unsetCursor();
    }
}

toolkit::WindowId PaneSurface::Window() const {
    return m_gallery.Id();
}

bool PaneSurface::IsShown() const {
    return m_pane && m_pane->isVisible();
}

qreal PaneSurface::Ratio() const {
    return m_pane ? m_pane->devicePixelRatio() : 1.0;
}

void PaneSurface::Repaint(const QRect& place) {
    if (!m_pane || place.isEmpty()) {
        return;
    }
    // A window that gets its new size is painted right afterwards.
    if (m_pane->IsResizing()) {
        m_pane->update(place);
    } else {
        m_pane->repaint(place);
    }
}

void PaneSurface::Update(const QRect& place) {
    if (m_pane) {
        m_pane->update(place);
    }
}

void PaneSurface::StartTimer(int timerId, int milliseconds) {
    m_gallery.SetTimer(timerId, milliseconds);
}

} // namespace gallery
