#include "host/ui/Blink.h"

namespace host {

Blink::Blink(QObject* parent) : QObject(parent) {
    m_timer.setInterval(kPeriodMs);
    connect(&m_timer, &QTimer::timeout, this, &Blink::Step);
}

void Blink::Start() {
    m_phase = 0;
    m_timer.start();
    emit Changed();
}

void Blink::Stop() {
    m_timer.stop();
    emit Changed();
}

void Blink::Step() {
    if (++m_phase >= kPhases) {
        Stop();
    } else {
        emit Changed();
    }
}

} // namespace host
