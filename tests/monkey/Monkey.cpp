#include "tests/monkey/Monkey.h"

#include "tests/monkey/Faults.h"
#include "tests/monkey/Targets.h"
#include "tests/monkey/Watchdog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QWidget>

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaceMs = 2;
constexpr int kLeavePaceMs = 20;
constexpr int kLeaveMs = 60'000;
constexpr int kMostWaitMs = 400;

/// Of the question that is open: who closes a box says no, and is asked again for ever.
QAbstractButton* YesButton() {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box == nullptr ? nullptr : box->button(QMessageBox::Yes);
}

} // namespace

Monkey::Monkey(const MonkeyRules& monkeyRules, const Surroundings& what, Watchdog& dog)
    : surroundings(what), m_rules(monkeyRules), m_watchdog(dog) {}

void Monkey::Start() {
    m_sinceStart.start();
    Later();
}

void Monkey::Later() {
    // A new timer each time: a repeating one stays silent while a dialog runs inside its handler.
    const int pause = m_over ? kLeavePaceMs : kPaceMs + m_pauseMs;
    m_pauseMs = 0;
    QTimer::singleShot(pause, this, &Monkey::Tick);
}

bool Monkey::IsEnough() const {
    return (m_rules.deeds > 0 && m_done >= m_rules.deeds) ||
           (m_rules.seconds > 0 && m_sinceStart.elapsed() >= qint64(m_rules.seconds) * 1000);
}

void Monkey::Tick() {
    m_watchdog.Beat();
    if (!m_over && IsEnough()) {
        m_over = true;
        m_sinceOver.start();
        Note(u"over"_s);
    }
    if (m_over) {
        Later();
        Leave();
        return;
    }
    const Deed deed = DeedAt(m_rules.seed, ++m_done);
    const bool isWanted = m_rules.only.empty() || m_rules.only.contains(deed.number);
    if (isWanted && deed.kind == Kind::Wait) {
        m_pauseMs = deed.Of(0, kMostWaitMs);
    }
    Later();
    if (isWanted) {
        Act(deed, surroundings);
    }
}

void Monkey::Leave() {
    if (m_sinceOver.elapsed() > kLeaveMs) {
        qFatal("the client can't be closed");
    }
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QAbstractButton* yes = YesButton()) {
        yes->click();
    } else if (QWidget* modal = QApplication::activeModalWidget()) {
        modal->close();
    } else if (QWidget* client = ClientWindow()) {
        client->close();
    }
}

} // namespace monkey
