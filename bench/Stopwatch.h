// Time from now on.
#pragma once

#include <QElapsedTimer>

namespace bench {

class Stopwatch final {
public:
    Stopwatch() { m_timer.start(); }
    [[nodiscard]] double Milliseconds() const { return double(m_timer.nsecsElapsed()) / 1e6; }

private:
    QElapsedTimer m_timer;
};

} // namespace bench
