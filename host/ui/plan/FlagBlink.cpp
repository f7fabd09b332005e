#include "host/ui/plan/FlagBlink.h"

namespace host {

FlagBlink::FlagBlink(QObject* parent) : QObject(parent) {
    timer.setInterval(kPeriodMs);
    connect(&timer, &QTimer::timeout, this, &FlagBlink::Step);
}

void FlagBlink::Start(const MarkFlag& newFlag) {
    flag = newFlag;
    phase = 0;
    timer.start();
    emit Changed();
}

void FlagBlink::Stop() {
    timer.stop();
    flag.reset();
    emit Changed();
}

void FlagBlink::Step() {
    if (++phase >= kPhases)
        Stop();
    else
        emit Changed();
}

} // namespace host
