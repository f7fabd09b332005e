#include "host/app/Calmed.h"

#include <utility>

namespace host {

Calmed::Calmed(int pauseMs, std::function<void()> work) : m_work(std::move(work)) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    m_pause.callOnTimeout([this] {
        if (std::exchange(m_isAsked, false)) {
            Do();
        }
    });
}

void Calmed::Ask() {
    if (m_pause.isActive()) {
        m_isAsked = true;
    } else {
        Do();
    }
}

void Calmed::Do() {
    m_work();
    m_pause.start(); // from its end: long work leaves time for others
}

} // namespace host
