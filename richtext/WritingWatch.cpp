#include "richtext/WritingWatch.h"

#include <QTextEdit>

#include <algorithm>

namespace richtext {

using std::chrono::milliseconds;

namespace {

constexpr int kShare = 20;

} // namespace

WritingWatch::WritingWatch(std::function<void()> whatKeeps, const Times& times)
    : m_keep(std::move(whatKeeps)), m_times(times), m_rest(times.rest) {
    m_time.setSingleShot(true);
    connect(&m_time, &QTimer::timeout, this, &WritingWatch::OnTime);
}

void WritingWatch::Watch(const QTextEdit& sheet) {
    connect(&sheet, &QTextEdit::textChanged, this, &WritingWatch::OnWritten);
}

void WritingWatch::Stop() {
    m_time.stop();
}

void WritingWatch::OnWritten() {
    const bool isFirst = !m_time.isActive();
    if (isFirst) {
        m_since.start();
    }
    const milliseconds longest =
        std::max(m_times.longest, m_rest) - milliseconds(m_since.elapsed());
    // One that is due is left to come: each key would put it off.
    if (isFirst || longest > milliseconds(0)) {
        m_time.start(std::min(longest, m_rest));
    }
}

void WritingWatch::OnTime() {
    QElapsedTimer cost;
    cost.start();
    m_keep();
    m_rest = std::max(m_times.rest, milliseconds(kShare * cost.elapsed()));
}

} // namespace richtext
