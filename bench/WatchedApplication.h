// Sees when a widget has been painted.
#pragma once

#include <QApplication>

#include <functional>

namespace bench {

/// Tells an observer of every paint of one widget, once it has ended.
class WatchedApplication final : public QApplication {
public:
    using QApplication::QApplication;

    const QObject* watched = nullptr;
    std::function<void()> onPainted;
    /// The same for every object.
    std::function<void(const QObject&)> onAnyPainted;
    /// Milliseconds of the longest event since this was last set to 0: so long the interface
    /// thread answered nobody.
    double longestEvent = 0;
    /// The same of what the thread worked: without what other programs took from it.
    double longestWork = 0;

    bool notify(QObject* receiver, QEvent* event) override;

private:
    int m_depth = 0; ///< of events within events
};

/// Handles events for a while, so that what is prepared in the background gets done.
void Settle(int milliseconds);

} // namespace bench
