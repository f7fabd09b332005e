#include "bench/WatchedApplication.h"

#include "bench/Stopwatch.h"

#include <QDeadlineTimer>
#include <QEvent>

#include <algorithm>

namespace bench {

bool WatchedApplication::notify(QObject* receiver, QEvent* event) {
    const bool isPaint = event->type() == QEvent::Paint;
    const bool painted = isPaint && receiver == watched;
    const Stopwatch timer;
    ++m_depth;
    const bool answer = QApplication::notify(receiver, event);
    --m_depth;
    if (m_depth == 0) {
        longestEvent = std::max(longestEvent, timer.Milliseconds());
        longestWork = std::max(longestWork, timer.CpuMilliseconds());
    }
    if (painted && onPainted) {
        onPainted();
    }
    if (isPaint && onAnyPainted) {
        onAnyPainted(*receiver);
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
