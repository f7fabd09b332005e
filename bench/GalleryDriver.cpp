#include "bench/GalleryDriver.h"

#include "bench/Stopwatch.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

constexpr QSize kWindow(1920, 1080);
constexpr int kNotch = 120;
constexpr int kPatienceMs = 20'000;

void SendMouse(QWidget& target, QEvent::Type type, const QPoint& place) {
    QMouseEvent event(type, place, target.mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &event);
}

} // namespace

GalleryDriver::GalleryDriver(WatchedApplication& application) : m_application(application) {
    m_gallery.Create(toolkit::kNoWindow);
    m_gallery.Widget()->resize(kWindow);
    m_gallery.Widget()->show();
    m_application.watched = m_gallery.Widget();
    Settle(50);
}

GalleryDriver::~GalleryDriver() {
    m_application.watched = nullptr;
    m_gallery.Destroy();
}

bool GalleryDriver::StripIsComplete() const {
    const gallery::GalleryState& state = m_gallery.State();
    if (state.visible.IsNone()) {
        return false;
    }
    for (int i = state.visible.first; i <= state.visible.last; ++i) {
        if (!state.items[size_t(i)].thumbDC) {
            return false;
        }
    }
    return true;
}

PaintTimes GalleryDriver::Watch(const std::function<void()>& act, bool withStrip) {
    PaintTimes times;
    Stopwatch timer;
    m_application.onPainted = [&] {
        if (times.picture < 0 && m_gallery.ShowsPicture()) {
            times.picture = timer.Milliseconds();
        }
        if (times.strip < 0 && StripIsComplete()) {
            times.strip = timer.Milliseconds();
        }
    };
    act();
    m_application.longestEvent = std::max(m_application.longestEvent, timer.Milliseconds());
    m_application.longestWork = std::max(m_application.longestWork, timer.CpuMilliseconds());
    const QDeadlineTimer patience(kPatienceMs);
    const auto missing = [&] { return times.picture < 0 || (withStrip && times.strip < 0); };
    while (missing() && !patience.hasExpired()) {
        QCoreApplication::processEvents();
    }
    m_application.onPainted = {};
    if (missing()) {
        std::fputs("bench: the gallery didn't show its pictures\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return times;
}

void GalleryDriver::SetList(const QStringList& paths, int index) {
    m_gallery.SetCurrentIndex(index);
    m_gallery.SetPicItems(support::FolderGallery::ItemsOf(paths));
}

void GalleryDriver::SendKey(int key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(m_gallery.Widget(), &event);
    }
}

void GalleryDriver::SendWheel(int notches) {
    QWidget& pane = *m_gallery.Widget();
    const QPoint place = State().bigArea.center();
    QWheelEvent event(place, pane.mapToGlobal(place), {}, QPoint(0, -kNotch * notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&pane, &event);
}

PaintTimes GalleryDriver::Open(const QStringList& paths, int index) {
    m_gallery.SetPicItems({});
    return Watch([&] { SetList(paths, index); });
}

double GalleryDriver::OpenToPicture(const QStringList& paths, int index) {
    m_gallery.SetPicItems({});
    return Watch([&] { SetList(paths, index); }, false).picture;
}

PaintTimes GalleryDriver::Press(int key) {
    return Watch([&] { SendKey(key); });
}

double GalleryDriver::PressToPicture(int key) {
    return Watch([&] { SendKey(key); }, false).picture;
}

PaintTimes GalleryDriver::Wheel(int notches) {
    return Watch([&] { SendWheel(notches); });
}

double GalleryDriver::WheelToPicture(int notches) {
    return Watch([&] { SendWheel(notches); }, false).picture;
}

double GalleryDriver::Repaint() {
    const Stopwatch timer;
    m_gallery.Widget()->repaint();
    return timer.Milliseconds();
}

std::vector<double> GalleryDriver::SlideToNext() {
    const QPoint button = State().buttons[gallery::kNextPic].rect.center();
    std::vector<double> frames;
    const Stopwatch timer;
    m_application.onPainted = [&] { frames.push_back(timer.Milliseconds()); };
    SendMouse(*m_gallery.Widget(), QEvent::MouseButtonPress, button);
    frames.clear();
    SendMouse(*m_gallery.Widget(), QEvent::MouseButtonRelease, button);
    m_application.onPainted = {};
    std::vector<double> between;
    for (size_t i = 1; i < frames.size(); ++i) {
        between.push_back(frames[i] - frames[i - 1]);
    }
    return between;
}

QSize GalleryDriver::PictureSize() const {
    return gallery::DeviceSize(State().picRect.size(), m_gallery.Widget()->devicePixelRatio());
}

} // namespace bench
