// Where a gallery is painted.
#pragma once

#include "toolkit/windows/WindowId.h"

#include <QRect>
#include <QtGlobal>

namespace gallery {

/// What those who put pictures on a gallery's pane need of it. Without a window nothing is shown
/// and nothing happens. Places are device-independent pixels of the pane. Thread: user interface.
class IGallerySurface {
public:
    virtual ~IGallerySurface() = default;

    /// Whom the decoders tell; kNoWindow: nobody.
    [[nodiscard]] virtual toolkit::WindowId Window() const = 0;
    /// Whether a person may see it.
    [[nodiscard]] virtual bool IsShown() const = 0;
    /// Device pixels in one of the pane.
    [[nodiscard]] virtual qreal Ratio() const = 0;
    /// Paints a place before it returns; one that is empty not at all.
    virtual void Repaint(const QRect& place) = 0;
    /// Has it painted soon.
    virtual void Update(const QRect& place) = 0;
    virtual void StartTimer(int timerId, int milliseconds) = 0;
};

} // namespace gallery
