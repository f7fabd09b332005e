#include "host/ui/plan/FlagBlink.h"

namespace host {

FlagBlink::FlagBlink(QObject* parent) : QObject(parent) {
    m_timer.setInterval(kPeriodMs);
    connect(&m_timer, &QTimer::timeout, this, &FlagBlink::Step);
}

void FlagBlink::Start(const MarkFlag& newFlag) {
    m_flag = newFlag;
    m_phase = 0;
    m_timer.start();
    emit Changed();
}

void FlagBlink::Stop() {
    m_timer.stop();
    m_flag.reset();
    emit Changed();
}

void FlagBlink::Step() {
    if (++m_phase >= kPhases) {
        Stop();
    } else {
        emit Changed();
    }
}

} // namespace host
