#include "bench/SheetDriver.h"

#include "bench/Stopwatch.h"

#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

constexpr QSize kSheetWindow(1920, 1080);
constexpr int kSheetNotch = 120;
constexpr int kSheetPatienceMs = 60'000;

} // namespace

SheetDriver::SheetDriver(WatchedApplication& application)
    : m_application(application), m_pane(nullptr) {
    m_pane.resize(kSheetWindow);
    m_pane.show();
    m_application.watched = &m_pane.Canvas();
    Settle(50);
}

SheetDriver::~SheetDriver() {
    m_application.watched = nullptr;
}

SheetTimes SheetDriver::Watch(const std::function<void()>& act, bool untilSharp) {
    SheetTimes times;
    const host::SheetStore& store = m_pane.Store();
    const Stopwatch timer;
    m_application.onPainted = [&] {
        times.painted = times.painted < 0 ? timer.Milliseconds() : times.painted;
        if (times.sharp < 0 && store.IsComplete()) {
            times.sharp = timer.Milliseconds();
        }
    };
    act();
    const QDeadlineTimer patience(kSheetPatienceMs);
    const auto missing = [&] { return times.painted < 0 || (untilSharp && times.sharp < 0); };
    QTimer wakes; // the patience ends while nothing happens, too
    wakes.start(1000);
    while (missing() && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    m_application.onPainted = {};
    if (missing()) {
        std::fputs("bench: the drawing view didn't show its sheet\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return times;
}

SheetTimes SheetDriver::Open(const QString& path) {
    m_pane.Store().Close();
    Settle(50);
    return Watch([&] { m_pane.Store().Open(path); });
}

void SheetDriver::SendWheel(int notches, const QPointF& part) {
    QWidget& canvas = m_pane.Canvas();
    const QPointF place(part.x() * canvas.width(), part.y() * canvas.height());
    QWheelEvent event(place, canvas.mapToGlobal(place), {}, QPoint(0, kSheetNotch * notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&canvas, &event);
}

SheetTimes SheetDriver::Wheel(int notches, const QPointF& part) {
    return Watch([&] { SendWheel(notches, part); });
}

SheetBurst SheetDriver::WheelHeld(int notches, int times, const QPointF& part) {
    SheetBurst burst;
    for (int i = 0; i < times; ++i) {
        const SheetTimes step = Watch([&] { SendWheel(notches, part); }, i == times - 1);
        burst.painted.push_back(step.painted);
        burst.sharp = step.sharp;
    }
    return burst;
}

void SheetDriver::SendMouse(QEvent::Type type, const QPoint& place) {
    QWidget& canvas = m_pane.Canvas();
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(
        type, place, canvas.mapToGlobal(place), isMove ? Qt::NoButton : Qt::LeftButton,
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&canvas, &event);
}

SheetBurst SheetDriver::Drag(const QPoint& move, int times) {
    SheetBurst burst;
    QPoint place = m_pane.Canvas().rect().center();
    SendMouse(QEvent::MouseButtonPress, place);
    for (int i = 0; i < times; ++i) {
        place += move;
        const SheetTimes step = Watch([&] { SendMouse(QEvent::MouseMove, place); }, i == times - 1);
        burst.painted.push_back(step.painted);
        burst.sharp = step.sharp;
    }
    SendMouse(QEvent::MouseButtonRelease, place);
    return burst;
}

SheetTimes SheetDriver::Fit() {
    return Watch([&] { m_pane.Canvas().Fit(); });
}

QSize SheetDriver::SheetPixels() const {
    const host::DrawingCanvas& canvas = m_pane.Canvas();
    const int level = host::LevelFor(canvas.View().scale * canvas.devicePixelRatioF());
    return host::LevelSize(m_pane.Store().Pages()[size_t(canvas.Page())], level);
}

} // namespace bench
