// A gallery's pane, as long as there is one.
#pragma once

#include "viewers/GalleryPane.h"
#include "viewers/GallerySurface.h"

#include <QPointer>

namespace toolkit {
class WindowObject;
}

namespace gallery {

/// Makes the pane of a gallery's window and paints on it. Thread: user interface. Owned by the
/// gallery, whose window owns the pane.
class PaneSurface final : public IGallerySurface {
public:
    explicit PaneSurface(toolkit::WindowObject& gallery) : m_gallery(gallery) {}

    QWidget* Make(IGalleryEvents& events, QWidget* parent);
    /// The pane hands nothing on any more.
    void Detach();

    /// Gives the pane the keyboard.
    void TakeFocus();
    void SetCursor(Qt::CursorShape shape);
    void UnsetCursor();

    [[nodiscard]] toolkit::WindowId Window() const override;
    [[nodiscard]] bool IsShown() const override;
    [[nodiscard]] qreal Ratio() const override;
    void Repaint(const QRect& place) override;
    void Update(const QRect& place) override;
    void StartTimer(int timerId, int milliseconds) override;

private:
    toolkit::WindowObject& m_gallery;
    QPointer<GalleryPane> m_pane;
};

} // namespace gallery
