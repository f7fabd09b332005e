#include "bench/WatchedApplication.h"

#include <QDeadlineTimer>
#include <QEvent>

namespace bench {

bool WatchedApplication::notify(QObject* receiver, QEvent* event) {
    const bool painted = receiver == watched && event->type() == QEvent::Paint;
    const bool answer = QApplication::notify(receiver, event);
    if (painted && onPainted) {
        onPainted();
    }
    return answer;
}

void Settle(int milliseconds) {
    const QDeadlineTimer end(milliseconds);
    while (!end.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

} // namespace bench
