#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>

namespace support {

void RunPendingEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool WaitFor(const std::function<bool()>& condition, std::chrono::milliseconds timeout) {
    const QDeadlineTimer deadline(timeout);
    // Wakes the loop for conditions that another thread makes true without an event.
    QTimer tick;
    tick.start(2);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace support
