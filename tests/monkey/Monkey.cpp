#include "tests/monkey/Monkey.h"

#include "tests/monkey/Faults.h"
#include "tests/monkey/Targets.h"
#include "tests/monkey/Watchdog.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaceMs = 2;
constexpr int kLeavePaceMs = 20;
constexpr int kLeaveMs = 60'000;
constexpr int kMostWaitMs = 400;

} // namespace

Monkey::Monkey(const MonkeyRules& monkeyRules, const Surroundings& what, Watchdog& dog)
    : surroundings(what), rules(monkeyRules), watchdog(dog) {}

void Monkey::Start() {
    sinceStart.start();
    Later();
}

void Monkey::Later() {
    // A new timer each time: a repeating one stays silent while a dialog runs inside its handler.
    const int pause = over ? kLeavePaceMs : kPaceMs + pauseMs;
    pauseMs = 0;
    QTimer::singleShot(pause, this, &Monkey::Tick);
}

bool Monkey::IsEnough() const {
    return (rules.deeds > 0 && done >= rules.deeds) ||
           (rules.seconds > 0 && sinceStart.elapsed() >= qint64(rules.seconds) * 1000);
}

void Monkey::Tick() {
    watchdog.Beat();
    if (!over && IsEnough()) {
        over = true;
        sinceOver.start();
        Note(u"over"_s);
    }
    if (over) {
        Later();
        Leave();
        return;
    }
    const Deed deed = DeedAt(rules.seed, ++done);
    const bool isWanted = rules.only.empty() || rules.only.contains(deed.number);
    if (isWanted && deed.kind == Kind::Wait)
        pauseMs = deed.Of(0, kMostWaitMs);
    Later();
    if (isWanted)
        Act(deed, surroundings);
}

void Monkey::Leave() {
    if (sinceOver.elapsed() > kLeaveMs)
        qFatal("the client can't be closed");
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else if (QWidget* modal = QApplication::activeModalWidget())
        modal->close();
    else if (QWidget* client = ClientWindow())
        client->close();
}

} // namespace monkey
