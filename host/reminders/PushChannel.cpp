#include "host/reminders/PushChannel.h"

#include "site/DataError.h"
#include "site/IChanges.h"
#include "site/ISite.h"

#include <utility>

namespace host {

namespace {

constexpr int kPortion = 50;
constexpr int kRetryMs = 1000;

} // namespace

PushChannel::PushChannel(site::ISite& from) : m_site(from), m_mark(from.Filings().Newest()) {
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &PushChannel::ReadOn);
    // Told from inside of a question: the reading waits until that has its answer.
    m_changes = m_site.Changes().Subscribe([this](const site::Changes& /*changes*/) {
        if (!m_next.isActive()) {
            m_next.start(0);
        }
    });
}

void PushChannel::ReadOn() {
    site::IFilings::Next next;
    try {
        next = m_site.Filings().After(m_mark, kPortion);
    } catch (const site::DataError& fault) {
        m_next.start(kRetryMs);
        if (!std::exchange(m_hasFailed, true)) {
            emit Failed(fault.Text());
        }
        return;
    }
    m_hasFailed = false;
    if (next.mark == m_mark) {
        return;
    }
    m_mark = next.mark;
    m_next.start(0); // there may be more
    if (!next.filings.empty()) {
        emit Filed(next.filings);
    }
}

} // namespace host
