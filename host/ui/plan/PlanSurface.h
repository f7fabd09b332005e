// What stands in the window onto the floor plan.
#pragma once

#include <QWidget>

namespace host {

/// A painted plan that may need more room than its window has. Thread: user interface.
class PlanSurface : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// What it needs in a window of this size.
    [[nodiscard]] virtual QSize SizeIn(const QSize& window) const = 0;
    /// The part that its window shows.
    virtual void SetVisibleArea(const QRect& area) = 0;

signals:
    /// What SizeIn gives may be different now.
    void NeedsOtherSize();
    /// An area of this widget should come into sight.
    void AreaWanted(const QRectF& area);
};

} // namespace host
