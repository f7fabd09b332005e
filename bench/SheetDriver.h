// Drives the drawing view as a person would and sees when it has painted what.
#pragma once

#include "bench/WatchedApplication.h"
#include "host/ui/drawing/DrawingPane.h"

#include <functional>
#include <vector>

namespace bench {

/// When something was on the screen, milliseconds from the event that asked for it.
struct SheetTimes {
    double painted = -1; ///< an answer, from whatever was there
    double sharp = -1;   ///< everything in sight as sharp as the screen
};

/// Of several events that follow each other before the sheet is sharp.
struct SheetBurst {
    std::vector<double> painted; ///< for each event
    double sharp = -1;           ///< from the last one on
};

/// The drawing view in a window of 1920 by 1080 that is shown. Ends the program when the sheet
/// doesn't come.
class SheetDriver final {
public:
    explicit SheetDriver(WatchedApplication& application);
    ~SheetDriver();

    /// A new reader, nothing cached.
    SheetTimes Open(const QString& path);
    /// One notch of the wheel at a part of the pane, 0 to 1; positive: nearer.
    SheetTimes Wheel(int notches, const QPointF& part = {0.5, 0.5});
    /// The same again and again, a notch after each painted answer.
    SheetBurst WheelHeld(int notches, int times, const QPointF& part = {0.5, 0.5});
    /// By hand, in moves of so many pixels.
    SheetBurst Drag(const QPoint& move, int times);
    /// The whole sheet.
    SheetTimes Fit();

    /// Device pixels of the sheet as it is rendered for this view.
    [[nodiscard]] QSize SheetPixels() const;
    [[nodiscard]] qint64 CachedBytes() const { return m_pane.Store().Tiles().Bytes(); }

private:
    SheetTimes Watch(const std::function<void()>& act, bool untilSharp = true);
    void SendMouse(QEvent::Type type, const QPoint& place);
    void SendWheel(int notches, const QPointF& part);

    WatchedApplication& m_application;
    host::DrawingPane m_pane;
};

} // namespace bench
