// Does one deed after the other, in whatever event loop runs.
#pragma once

#include "tests/monkey/Actions.h"

#include <QElapsedTimer>
#include <QObject>

#include <set>

namespace monkey {

class Watchdog;

struct MonkeyRules {
    quint64 seed = 1;
    int deeds = 0;      ///< how many; 0: until the time is over
    int seconds = 0;    ///< 0: until the deeds are done
    std::set<int> only; ///< numbers of deeds that are done, the others are left out; empty: all
};

/// Thread: user interface.
class Monkey final : public QObject {
    Q_OBJECT

public:
    Monkey(const MonkeyRules& monkeyRules, const Surroundings& what, Watchdog& dog);

    void Start();
    /// Nothing is done any more; what is open is closed, from the inside out.
    [[nodiscard]] bool IsOver() const { return m_over; }
    [[nodiscard]] int Done() const { return m_done; }

    Surroundings surroundings;

private:
    void Later();
    void Tick();
    void Leave();
    [[nodiscard]] bool IsEnough() const;

    const MonkeyRules m_rules;
    Watchdog& m_watchdog;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceOver;
    int m_done = 0;
    int m_pauseMs = 0;
    bool m_over = false;
};

} // namespace monkey
